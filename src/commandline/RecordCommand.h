// marquill record FOLDER: the recorder for terminals. Main thread.
#pragma once

#include "commandline/Command.h"
#include "markers/MarkerSet.h"

#include <optional>
#include <string>

namespace marquill {

class RecordCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(RecordCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    Result<MarkerSet> markerSet() const;

    std::string _folder;
    std::optional<std::string> _name;
    std::optional<std::string> _scene;
    std::optional<std::string> _markerSet;
};

}  // namespace marquill
