#include "commandline/DisconnectCommand.h"

#include "commandline/PlaceholderChoice.h"
#include "connect/ClipConnection.h"

#include <CLI/CLI.hpp>

namespace marquill {

CLI::App* DisconnectCommand::addTo(CLI::App& parser) {
    CLI::App* disconnect = parser.add_subcommand("disconnect", "Part placeholders from their media");
    disconnect->add_option("FOLDER", _folder, "The record folder")->required();
    disconnect->add_option("--clips", _clips, "Only these clips of the folder")->type_name("NAME");
    return disconnect;
}

ExitStatus DisconnectCommand::run() {
    const QString folder = pathOfArgument(_folder);
    const PlaceholderChoice placeholders = choosePlaceholders(folder, _clips);
    bool isDone = placeholders.isComplete;
    for (ClipInfo clip : placeholders.clips) {
        if (!ClipConnection::unConnectClip(clip)) {
            continue;
        }
        if (writeChange(clip, folder)) {
            print(clip.clipName().value_or(QString()));
        } else {
            isDone = false;
        }
    }
    return isDone ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace marquill
