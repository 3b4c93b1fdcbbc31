// marquill probe FILE: the facts of a movie file, as its header tells them. Main thread.
#pragma once

#include "commandline/Command.h"

#include <string>
#include <vector>

namespace marquill {

class ProbeCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ProbeCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::string _file;
    std::vector<long long> _timeCodes;
    bool _json = false;
};

}  // namespace marquill
