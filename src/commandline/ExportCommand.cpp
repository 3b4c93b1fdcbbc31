#include "commandline/ExportCommand.h"

#include "clipmanager/TableExport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "clipstore/ClipStore.h"
#include "commandline/SavedSettings.h"
#include "connect/ClipFileFacts.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"

#include <CLI/CLI.hpp>

namespace marquill {

CLI::App* ExportCommand::addTo(CLI::App& parser) {
    CLI::App* write =
        parser.add_subcommand("export", tr("Write the clips of a record folder as a document").toStdString());
    write->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    write->add_option("--format", _format, tr("What is written: xmeml, text, tab or comma").toStdString())
        ->required()
        ->check(CLI::IsMember({"xmeml", "text", "tab", "comma"}).description(""))
        ->type_name("FORMAT");
    write->add_option("--output", _output, tr("The document; a file of that name is replaced").toStdString())
        ->required()
        ->type_name("FILE");
    write
        ->add_option("--labels", _labels,
                     tr("The labels of xmeml, by commas; otherwise those of the preferences").toStdString())
        ->type_name("A,B,…");
    return write;
}

ExitStatus ExportCommand::run() {
    const QString folder = pathOfArgument(_folder);
    if (const Result<QStringList> listed = FileSystem::current().list(folder); !listed) {
        complain(listed.error());
        return ExitStatus::failed;
    }
    std::vector<ClipInfo> clips = ClipStore::readClipInfoForFolder(folder);
    completeRecords(clips, folder);
    if (clips.empty()) {
        complain(Alert{.title = tr("No Clips to export"),
                       .text = tr("There are no clips to export in the selected folder.")});
        return ExitStatus::failed;
    }
    if (const Result<void> written = write(clips, folder); !written) {
        complain(written.error());
        complain(Alert{
            .title = tr("Export failed"),
            .text = _format == "xmeml" ? tr("Couldn't write xml file.") : tr("Couldn't write text file.")});
        return ExitStatus::failed;
    }
    return ExitStatus::done;
}

Result<void> ExportCommand::write(const std::vector<ClipInfo>& clips, const QString& folder) const {
    const QString path = pathOfArgument(_output);
    if (_format == "xmeml") {
        return XmemlExport::doExportAsXMLAtPath(path, clips, folder, labels());
    }
    if (_format == "text") {
        return TextExport::doExportAsTextAtPath(path, clips);
    }
    return TableExport::doExportAsTableAtPath(path, _format == "tab" ? u"\t"_s : u","_s, clips);
}

QStringList ExportCommand::labels() const {
    if (!_labels) {
        return SavedSettings::labels();
    }
    return QString::fromStdString(*_labels).split(u',', Qt::SkipEmptyParts);
}

}  // namespace marquill
