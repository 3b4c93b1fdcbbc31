#include "commandline/ListCommand.h"

#include "clipstore/ClipStore.h"
#include "commandline/RecordJson.h"
#include "movie/QTHelper.h"
#include "platform/FileSystem.h"

#include <QJsonArray>

#include <CLI/CLI.hpp>

namespace marquill {

namespace {

QString json(const std::vector<ClipInfo>& clips) {
    QJsonArray array;
    for (const ClipInfo& clip : clips) {
        QJsonObject object = jsonOfRecord(clip.record());
        object.insert(u"_displayName"_s, ClipStore::clipDisplayNameFromClip(clip));
        object.insert(u"_take"_s, ClipStore::takeFromClip(clip));
        object.insert(u"_isPlaceholder"_s, ClipStore::isProxyClip(clip));
        array.append(object);
    }
    return jsonText(array);
}

QString line(const ClipInfo& clip) {
    const std::optional<qint64> duration = clip.clipDuration();
    return QStringList{ClipStore::clipDisplayNameFromClip(clip), ClipStore::takeFromClip(clip),
                       clip.clipScene().value_or(QString()),
                       duration ? QTHelper::timeCodeStringHHMMSS(*duration) : u"-"_s,
                       clip.clipPath().value_or(QString())}
        .join(u'\t');
}

}  // namespace

CLI::App* ListCommand::addTo(CLI::App& parser) {
    CLI::App* list = parser.add_subcommand("list", tr("List the clips of a record folder").toStdString());
    list->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    list->add_flag("--json", _json, tr("Print the whole records as JSON").toStdString());
    return list;
}

ExitStatus ListCommand::run() {
    const QString folder = QString::fromStdString(_folder);
    if (const Result<QStringList> names = FileSystem::current().list(folder); !names) {
        complain(names.error());
        return ExitStatus::failed;
    }
    const std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder);
    if (_json) {
        print(json(clips));
        return ExitStatus::done;
    }
    for (const ClipInfo& clip : clips) {
        print(line(clip));
    }
    return ExitStatus::done;
}

}  // namespace marquill
