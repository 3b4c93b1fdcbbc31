// The command line of the program with windows. Read before anything else of the program runs.
#pragma once

#include "platform/Theme.h"

#include <QStringList>

#include <optional>

namespace marquill {

struct Options {
    QString settingsFile;                     ///< --settings FILE; empty: the user's own
    QString language = {};                    ///< --language CODE; empty: the desktop's
    QStringList paths = {};                   ///< PATH…, as full paths that exist: what is to be opened
    std::optional<Theme::Choice> theme = {};  ///< --theme NAME; nothing: the one in the preferences
    bool demo = false;                        ///< --demo: opens a small shoot of its own
    bool exitAfterFirstPaint = false;         ///< for measuring how long a start takes
};

struct OptionsResult {
    Options options;
    /// Set when the program is to end without a window: a subcommand has run, help was asked for (0), there
    /// is no desktop to show one on (1), or the use was wrong (2).
    std::optional<int> exitStatus = {};
};

/// Reads the command line and runs the subcommand it names, if any. Help and errors are printed.
OptionsResult parseOptions(int& argc, char** argv);

}  // namespace marquill
