#include "clipmanager/ClipExports.h"

#include "clipmanager/TableExport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "connect/ClipFileFacts.h"
#include "folders/Preferences.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/WindowDescription.h"

#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace marquill {

namespace {

using TextExportOption = ClipExports::TextExportOption;

TextExportOption& rememberedOption() {
    static TextExportOption option = TextExportOption::userReadable;
    return option;
}

QString suffixOf(TextExportOption option) {
    return option == TextExportOption::commaDelimited ? u"csv"_s : u"txt"_s;
}

QString withSuffix(const QString& path, const QString& suffix) {
    return pathExtension(path) == suffix ? path : path + u'.' + suffix;
}

Result<void> exportAsText(TextExportOption option, const QString& path, const std::vector<ClipInfo>& clips,
                          const ExportProgress& progress) {
    switch (option) {
        case TextExportOption::tabDelimited:
            return TableExport::doExportAsTableAtPath(path, u"\t"_s, clips, progress);
        case TextExportOption::commaDelimited:
            return TableExport::doExportAsTableAtPath(path, u","_s, clips, progress);
        case TextExportOption::userReadable:
            break;
    }
    return TextExport::doExportAsTextAtPath(path, clips, progress);
}

/// The records as they are now: those of the table may be edited while the document is made.
std::vector<ClipInfo> copiesOf(const std::vector<ClipInfo>& clips) {
    std::vector<ClipInfo> copies;
    copies.reserve(clips.size());
    for (const ClipInfo& clip : clips) {
        copies.push_back(clip.deepCopy());
    }
    return copies;
}

}  // namespace

ClipExports::ClipExports(QWidget& window, Source source) : _window(window), _source(std::move(source)) {}

ClipExports::~ClipExports() {
    didEndSheet();
}

ClipExports::TextExportOption ClipExports::textExportOption() {
    return rememberedOption();
}

void ClipExports::exportClipListAsXML() {
    if (isExporting() || !hasClips()) {
        return;
    }
    if (const std::optional<QString> chosen = chooseFile(u"xml"_s)) {
        exportClipsAsXMLPanelDidEnd(*chosen);
    }
}

void ClipExports::exportClipListAsText() {
    if (isExporting() || _textExportOptions || !hasClips()) {
        return;
    }
    showTextExportOptions();
}

bool ClipExports::hasClips() {
    const std::optional<QString> folder = _source.clipFolder();
    if (!folder) {
        alert(tr("No Folder selected"), tr("Please select a folder to export."));
        return false;
    }
    const std::size_t count = _source.clipArray().size();
    if (count == 0) {
        alert(tr("No Clips to export"), tr("There are no clips to export in the selected folder."));
        return false;
    }
    _folder = *folder;
    _note = _source.note ? _source.note(static_cast<qsizetype>(count)) : QString();
    return true;
}

std::optional<QString> ClipExports::chooseFile(const QString& suffix) {
    const QString title = _note.isEmpty() ? tr("Export") : tr("Export – %1").arg(_note);
    return Dialogs::current().chooseFileToSave(&_window,
                                               {.title = title,
                                                .startFolder = {},
                                                .suffixes = {suffix},
                                                .fileName = lastPathComponent(_folder) + u'.' + suffix,
                                                .prompt = tr("Export")});
}

void ClipExports::exportClipsAsXMLPanelDidEnd(const QString& chosen) {
    const QString path = withSuffix(chosen, u"xml"_s);
    // Of the folder that the clips are of: while the panel was open, another may have been shown.
    const QString folder = _source.clipFolder().value_or(QString());
    const auto write = [path, folder, labels = Preferences::labels()](const auto& clips,
                                                                      const auto& progress) {
        return XmemlExport::doExportAsXMLAtPath(path, clips, folder, labels, progress);
    };
    doExport(write, [this](const Error&) { alert(tr("Export failed"), tr("Couldn't write xml file.")); });
}

void ClipExports::exportClipsAsTextPanelDidEnd(const QString& chosen) {
    const TextExportOption option = rememberedOption();
    const QString path = withSuffix(chosen, suffixOf(option));
    const QString folder = _source.clipFolder().value_or(QString());
    const auto write = [path, option, folder](std::vector<ClipInfo> clips,
                                              const ExportProgress& progress) -> Result<void> {
        // Sizes are those of the media now, also of clips that were never scrolled to.
        const auto asking = [&progress](qsizetype done, qsizetype total) {
            return progress(std::min(done, total - 1), total);
        };
        if (!completeRecords(clips, folder, asking)) {
            return failure(ErrorCode::interrupted, tr("The export was cancelled."), path);
        }
        return exportAsText(option, path, clips, progress);
    };
    doExport(write, [this](const Error&) {
        alert(tr("Error writing File"), tr("An error occured while creating or writing the text file."),
              tr("OK"));
        alert(tr("Export failed"), tr("Couldn't write text file."));
    });
}

void ClipExports::doExport(const Export& write, const std::function<void(const Error&)>& failed) {
    const auto work = [write,
                       clips = copiesOf(_source.clipArray())](const ProgressSheet::Progress& progress) {
        return write(clips, [&progress](qsizetype done, qsizetype total) {
            return done < total ? progress.report(done, total) : progress.commit();
        });
    };
    const auto done = [failed](const Result<void>& result) {
        if (!result) {
            qCWarning(logClipManager).noquote() << "the export failed:" << result.error().description();
            failed(result.error());
        }
    };
    const QString text = tr("Exporting the clips of %1…").arg(lastPathComponent(_folder));
    _progress.run(_window, _note.isEmpty() ? text : text + u'\n' + _note, work, done);
}

void ClipExports::showTextExportOptions() {
    if (const Result<void> loaded = loadTextExportOptions(); !loaded) {
        qCWarning(logClipManager).noquote() << loaded.error().description();
        return;
    }
    _textExportOptions->setParent(&_window, Qt::Dialog);
    _textExportOptions->setWindowModality(Qt::WindowModal);
    const TextExportOption option = rememberedOption();
    _exportAsTextOptions_UserReadable->setChecked(option == TextExportOption::userReadable);
    _exportAsTextOptions_TabDelimited->setChecked(option == TextExportOption::tabDelimited);
    _exportAsTextOptions_CommaDelimited->setChecked(option == TextExportOption::commaDelimited);
    connect(_okButton, &QPushButton::clicked, this, &ClipExports::okTextExportOptionsSheet);
    connect(_cancelButton, &QPushButton::clicked, this, &ClipExports::cancelTextExportOptionsSheet);
    connect(_textExportOptions, &QDialog::rejected, this, &ClipExports::cancelTextExportOptionsSheet);
    _textExportOptions->show();
    // The keyboard goes on from the layout that is chosen.
    for (QRadioButton* layout : {_exportAsTextOptions_UserReadable, _exportAsTextOptions_TabDelimited,
                                 _exportAsTextOptions_CommaDelimited}) {
        if (layout->isChecked()) {
            layout->setFocus();
        }
    }
}

Result<void> ClipExports::loadTextExportOptions() {
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"TextExportOptions"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    Outlets outlets(**loaded);
    outlets.connect(_exportAsTextOptions_UserReadable, u"_exportAsTextOptions_UserReadable"_s);
    outlets.connect(_exportAsTextOptions_TabDelimited, u"_exportAsTextOptions_TabDelimited"_s);
    outlets.connect(_exportAsTextOptions_CommaDelimited, u"_exportAsTextOptions_CommaDelimited"_s);
    outlets.connect(_okButton, u"_okButton"_s);
    outlets.connect(_cancelButton, u"_cancelButton"_s);
    auto* const dialog = qobject_cast<QDialog*>(loaded->get());
    if (!dialog) {
        return failure(ErrorCode::malformed, tr("the window description holds no dialog"));
    }
    if (Result<void> found = outlets.check(); !found) {
        return found;
    }
    std::ignore = loaded->release();
    _textExportOptions = dialog;
    return {};
}

void ClipExports::okTextExportOptionsSheet() {
    if (!_textExportOptions) {
        return;
    }
    TextExportOption& option = rememberedOption();
    if (_exportAsTextOptions_UserReadable->isChecked()) {
        option = TextExportOption::userReadable;
    } else if (_exportAsTextOptions_TabDelimited->isChecked()) {
        option = TextExportOption::tabDelimited;
    } else if (_exportAsTextOptions_CommaDelimited->isChecked()) {
        option = TextExportOption::commaDelimited;
    }
    didEndSheet();
    if (const std::optional<QString> chosen = chooseFile(suffixOf(option))) {
        exportClipsAsTextPanelDidEnd(*chosen);
    }
}

void ClipExports::cancelTextExportOptionsSheet() {
    didEndSheet();
}

void ClipExports::didEndSheet() {
    if (_textExportOptions) {
        _textExportOptions->disconnect(this);
        _textExportOptions->hide();
        _textExportOptions->deleteLater();
        _textExportOptions.clear();
    }
}

void ClipExports::alert(const QString& title, const QString& text, const QString& button) {
    Dialogs::current().alert(&_window, {.title = title, .text = text, .buttons = {button}});
}

}  // namespace marquill
