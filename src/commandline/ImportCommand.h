// marquill import FOLDER MOVIE…: makes placeholders that stand for movies. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>
#include <vector>

namespace marquill {

class ImportCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ImportCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _folder;
    std::vector<std::string> _movies;
};

}  // namespace marquill
