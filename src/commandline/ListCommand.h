// marquill list FOLDER: the clips of a record folder. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>

namespace marquill {

class ListCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ListCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _folder;
    bool _json = false;
};

}  // namespace marquill
