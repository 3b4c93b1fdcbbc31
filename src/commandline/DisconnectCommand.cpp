#include "commandline/DisconnectCommand.h"

#include "commandline/PlaceholderChoice.h"
#include "connect/ClipConnection.h"

#include <CLI/CLI.hpp>

namespace marquill {

CLI::App* DisconnectCommand::addTo(CLI::App& parser) {
    CLI::App* disconnect =
        parser.add_subcommand("disconnect", tr("Part placeholders from their media").toStdString());
    disconnect->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    disconnect->add_option("--clips", _clips, tr("Only these clips of the folder").toStdString())
        ->type_name("NAME");
    return disconnect;
}

ExitStatus DisconnectCommand::run() {
    const QString folder = pathOfArgument(_folder);
    const PlaceholderChoice placeholders = choosePlaceholders(folder, _clips);
    bool isDone = placeholders.isComplete;
    std::vector<ClipInfo> parted;
    for (ClipInfo clip : placeholders.clips) {
        if (ClipConnection::unConnectClip(clip)) {
            parted.push_back(clip);
        }
    }
    const std::vector<bool> areWritten = writeChanges(parted, folder, *placeholders.shared);
    for (std::size_t index = 0; index < parted.size(); ++index) {
        if (areWritten[index]) {
            print(parted[index].clipName().value_or(QString()));
        } else {
            isDone = false;
        }
    }
    return isDone ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace marquill
