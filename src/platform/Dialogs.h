// Alerts and choosers. All of them go through Dialogs, so that tests can record and answer them. Main thread.
#pragma once

#include "platform/Literals.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace marquill {

struct Alert {
    QString title;
    QString text;  ///< the informative text below the title
    /// The first one is the default, which Return presses.
    QStringList buttons = {QCoreApplication::translate("Dialogs", "OK")};
    int cancelButton = 0;  ///< index of the one that Escape and closing press
};

struct FileChoice {
    QString title;
    QString startFolder;    ///< or empty: where the last chooser was left, or at home
    QStringList suffixes;   ///< without the dot; empty: any file
    QString fileName = {};  ///< the name proposed when saving
    QString prompt = {};    ///< on the button that accepts; empty: the toolkit's word
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows a modal alert and returns the index of the button that was pressed. `window` is the window it
    /// belongs to, or null.
    virtual int alert(QWidget* window, const Alert& alert) = 0;
    /// Lets the user choose folders, several at once, and make new ones; none when cancelled.
    virtual QStringList chooseFolders(QWidget* window, const FileChoice& choice) = 0;
    /// Lets the user choose one folder; nothing when cancelled.
    virtual std::optional<QString> chooseFolder(QWidget* window, const FileChoice& choice) = 0;
    /// Lets the user choose one existing file; nothing when cancelled.
    virtual std::optional<QString> chooseFile(QWidget* window, const FileChoice& choice) = 0;
    /// Lets the user choose existing files, several at once; none when cancelled.
    virtual QStringList chooseFiles(QWidget* window, const FileChoice& choice) = 0;
    /// Lets the user name a file to write; nothing when cancelled. A name without extension gets the first
    /// suffix. Asks before an existing file is taken, be it under the name chosen or under that name with the
    /// first suffix behind it, for callers that insist on it.
    virtual std::optional<QString> chooseFileToSave(QWidget* window, const FileChoice& choice) = 0;

    /// The ones in use: the toolkit's, unless a test has installed its own.
    static Dialogs& current();
    /// Makes `dialogs` the ones in use until it is called with null; the caller keeps the ownership.
    static void install(Dialogs* dialogs);
};

}  // namespace marquill
