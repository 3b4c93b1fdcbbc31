// marquill export FOLDER: writes the clips of a record folder as a document. Main thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "commandline/Command.h"

#include <optional>
#include <string>
#include <vector>

namespace marquill {

class ExportCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ExportCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    Result<void> write(const std::vector<ClipInfo>& clips, const QString& folder) const;
    QStringList labels() const;

    std::string _folder;
    std::string _format;
    std::string _output;
    std::optional<std::string> _labels;
};

}  // namespace marquill
