#include "commandline/RecordCommand.h"

#include "commandline/SavedSettings.h"
#include "commandline/TerminalRecorder.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace marquill {

namespace {

QString given(const std::optional<std::string>& text, const QString& otherwise) {
    return text ? QString::fromStdString(*text) : otherwise;
}

}  // namespace

CLI::App* RecordCommand::addTo(CLI::App& parser) {
    CLI::App* record = parser.add_subcommand(
        "record", tr("Record a take: digits fire markers, Enter or Escape stops and writes the placeholder")
                      .toStdString());
    record->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    record
        ->add_option("--name", _name, tr("Name of the clip; otherwise the recorder's last one").toStdString())
        ->type_name("NAME");
    record
        ->add_option("--scene", _scene,
                     tr("Scene of the clip; otherwise the recorder's last one").toStdString())
        ->type_name("SCENE");
    record
        ->add_option("--marker-set", _markerSet,
                     tr("Title of the marker set; otherwise the current one").toStdString())
        ->type_name("TITLE");
    return record;
}

ExitStatus RecordCommand::run() {
    const QString folder = pathOfArgument(_folder);
    if (const Result<QStringList> listed = FileSystem::current().list(folder); !listed) {
        complain(listed.error());
        return ExitStatus::failed;
    }
    const Result<MarkerSet> set = markerSet();
    if (!set) {
        complain(set.error());
        return ExitStatus::failed;
    }
    TerminalRecorder recorder({.name = given(_name, SavedSettings::recorderClipName()),
                               .scene = given(_scene, SavedSettings::recorderSceneName()),
                               .folder = folder,
                               .start = {},
                               .elapsed = 0,
                               .markers = {},
                               .comment = {}},
                              *set);
    const Result<QString> clip = recorder.record();
    if (!clip) {
        complain(clip.error());
        complain(Alert{
            .title = tr("Couldn't create Place Holder Clip"),
            .text = tr("The place holder file couldn't be created. Please check your user permissions.")});
        return ExitStatus::failed;
    }
    return ExitStatus::done;
}

Result<MarkerSet> RecordCommand::markerSet() const {
    if (!_markerSet) {
        return SavedSettings::currentMarkerSet();
    }
    const QString title = QString::fromStdString(*_markerSet);
    QStringList titles;
    for (const MarkerSet& set : SavedSettings::markerSets()) {
        titles.append(set.title().value_or(QString()));
        if (set.title() == title) {
            return set;
        }
    }
    return failure(ErrorCode::notFound,
                   tr("no marker set is called \"%1\"; there are: %2").arg(title, titles.join(u", "_s)));
}

}  // namespace marquill
