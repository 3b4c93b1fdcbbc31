// marquill connect FOLDER: connects placeholders to the media that the cameras made. Main thread.
#pragma once

#include "commandline/Command.h"
#include "connect/BatchConnect.h"
#include "connect/SharedClips.h"

#include <string>
#include <vector>

namespace marquill {

class ConnectCommand : public Command {
    Q_DECLARE_TR_FUNCTIONS(ConnectCommand)

  public:
    CLI::App* addTo(CLI::App& parser) override;
    ExitStatus run() override;

  private:
    std::optional<BatchResult> match(const std::vector<ClipInfo>& placeholders) const;
    bool write(const BatchResult& result, const QString& folder, SharedClips& shared) const;
    void tell(const BatchResult& result, const std::vector<ClipInfo>& placeholders) const;

    std::string _folder;
    std::string _kind;
    std::string _media;
    std::string _converted;
    std::vector<std::string> _clips;
    bool _dryRun = false;
    bool _json = false;
};

}  // namespace marquill
