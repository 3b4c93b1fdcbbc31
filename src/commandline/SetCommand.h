// marquill set CLIP KEY=VALUE…: changes what is logged of one clip. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>
#include <vector>

namespace marquill {

class SetCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(SetCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _clip;
    std::vector<std::string> _assignments;
};

}  // namespace marquill
