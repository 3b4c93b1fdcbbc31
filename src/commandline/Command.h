// One subcommand of `marquill`, and what all of them share. They show no window. Main thread.
#pragma once

#include "platform/Error.h"

#include <QCoreApplication>
#include <QString>

#include <string>

namespace CLI {
class App;
}

namespace marquill {

struct Alert;

/// How a command ended, as the process tells it; wrong use (2) is found before a command runs.
enum class ExitStatus : int { done = 0, failed = 1 };

class Command {
  public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    /// Adds the subcommand with its options to `parser`, which owns what is returned.
    virtual CLI::App* addTo(CLI::App& parser) = 0;
    /// Carries it out, once the command line has been read. A failure is told on standard error; `failed`
    /// when there was one, also when the rest could be done.
    virtual ExitStatus run() = 0;
};

/// Prints `text` on standard output, as UTF-8, with what ends its last line.
void print(const QString& text);

/// Prints "marquill: PATH: what and what to do" on standard error.
void complain(const Error& error);

/// Prints "marquill: TITLE: text" on standard error: what the windows show as this alert, in the same words.
void complain(const Alert& alert);

/// The full path of a file or folder that was given on the command line: records hold no others.
QString pathOfArgument(const std::string& argument);

}  // namespace marquill
