// marquill show CLIP: the record of one clip, and the texts about it. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>

namespace marquill {

class ShowCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ShowCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _clip;
    bool _json = false;
};

}  // namespace marquill
