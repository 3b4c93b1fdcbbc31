// The subcommands of `marquill`: the program's work without a window. Main thread.
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace CLI {
class App;
}

namespace marquill {

class Command;

class CommandLine {
  public:
    /// Adds every subcommand to `parser`, which must outlive this.
    explicit CommandLine(CLI::App& parser);
    ~CommandLine();

    /// Runs the subcommand that was given, once `parser` has read the command line, and returns the exit
    /// status of the process; nothing when none was given. `settingsFile` holds the settings that it takes
    /// values from; empty: the user's own. Needs a QCoreApplication.
    std::optional<int> run(const QString& settingsFile);

  private:
    struct Entry {
        CLI::App* parser;
        std::unique_ptr<Command> command;
    };
    void add(CLI::App& parser, std::unique_ptr<Command> command);

    std::vector<Entry> _entries;
};

}  // namespace marquill
