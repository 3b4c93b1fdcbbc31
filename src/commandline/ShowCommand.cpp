#include "commandline/ShowCommand.h"

#include "clipstore/ClipStore.h"
#include "commandline/RecordJson.h"
#include "platform/Files.h"
#include "platform/Translations.h"

#include <CLI/CLI.hpp>

namespace marquill {

CLI::App* ShowCommand::addTo(CLI::App& parser) {
    CLI::App* show =
        parser.add_subcommand("show", tr("Show the record of a clip and the texts about it").toStdString());
    show->add_option("CLIP", _clip, tr("The clip file: a placeholder or a movie").toStdString())->required();
    show->add_flag("--json", _json, tr("Print it as JSON").toStdString());
    return show;
}

ExitStatus ShowCommand::run() {
    const QString path = QString::fromStdString(_clip);
    if (const Result<FileAttributes> file = FileSystem::current().attributes(path, Links::follow); !file) {
        complain(file.error());
        return ExitStatus::failed;
    }
    const std::optional<ClipInfo> clip = ClipStore::infoForClip(path);
    if (!clip) {
        complain(
            {ErrorCode::malformed, tr("holds no clip record; see what `marquill probe` tells of it"), path});
        return ExitStatus::failed;
    }
    std::optional<Translations::InEnglish> inEnglish;
    if (_json) {
        inEnglish.emplace();
    }
    const QString folder = parentFolder(path);
    const QString log = ClipStore::logForClipInfo(*clip);
    const QString attributes = ClipStore::attrForClipInfo(*clip, folder);
    const QString pathText = ClipStore::pathAttrForClipInfo(*clip, folder);
    if (_json) {
        print(jsonText(QJsonObject{{u"record"_s, jsonOfRecord(clip->record())},
                                   {u"log"_s, log},
                                   {u"attributes"_s, attributes},
                                   {u"path"_s, pathText}}));
        return ExitStatus::done;
    }
    print(jsonText(jsonOfRecord(clip->record())));
    print((log + attributes + pathText).trimmed());
    return ExitStatus::done;
}

}  // namespace marquill
