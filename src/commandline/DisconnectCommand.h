// marquill disconnect FOLDER: parts placeholders from their media. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>
#include <vector>

namespace marquill {

class DisconnectCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(DisconnectCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _folder;
    std::vector<std::string> _clips;
};

}  // namespace marquill
