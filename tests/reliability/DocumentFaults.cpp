// Documents and settings under faults: imports, exports of each kind, the user defaults.
#include "clipmanager/ClipExports.h"
#include "clipmanager/ExportedClips.h"
#include "clipmanager/MovieImport.h"
#include "clipstore/ClipStore.h"
#include "connect/MediaFolder.h"
#include "folders/Preferences.h"
#include "platform/FakeDialogs.h"
#include "platform/UserDefaults.h"
#include "reliability/FaultStages.h"

#include <QPushButton>
#include <QRadioButton>

namespace marquill {

namespace {

class ImportStage final : public FaultStage {
  public:
    ImportStage() {
        _media.makeMovie(u"One.mov"_s, 0);
        _media.makeMovie(u"Two.mov"_s, 100);
    }

    void perform() override {
        const QStringList movies{_media.path(u"One.mov"_s), _media.path(u"Two.mov"_s)};
        for (const Error& error : MovieImport::importMovies(movies, _folder.path()).errors) {
            Told::tell(error.description());
        }
    }
    bool isDone() override {
        return ClipStore::infoForClip(_folder.path(u"One.xml"_s)).value_or(ClipInfo()).clipPath() &&
               ClipStore::infoForClip(_folder.path(u"Two.xml"_s)).value_or(ClipInfo()).clipPath();
    }
    QString damage() override {
        for (const QString& name : _folder.names()) {
            if (!ClipStore::infoForClip(_folder.path(name)).value_or(ClipInfo()).clipPath()) {
                return name + u" is not whole, or is a temporary file that was left"_s;
            }
        }
        return {};
    }
    void doAgain() override { perform(); }

  private:
    MediaFolder _media;
    ClipFolder _folder;
};

// The document is the one before, or all of the new one.
class ExportStage final : public FaultStage {
  public:
    explicit ExportStage(QString layout)
        : _layout(std::move(layout)),
          _exports(_window, ClipExports::Source{[] { return std::optional(u"/shoot/Day 3"_s); },
                                                [] { return clipsOfTheTextDocuments(); }}) {
        _folder.make(chosen, before);
        _dialogs.chosen = {_folder.path(chosen)};
        _window.show();
    }
    ~ExportStage() override { Preferences::finish(); }

    void perform() override {
        if (_layout.isEmpty()) {
            _exports.exportClipListAsXML();
        } else {
            exportAsText();
        }
        while (_exports.isExporting()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        }
    }
    bool isDone() override { return document() != before && damage().isEmpty(); }
    QString damage() override {
        for (const Alert& alert : std::exchange(_dialogs.alerts, {})) {
            Told::tell(alert.title);
        }
        if (_folder.names().size() > (_layout.isEmpty() ? 1 : 2)) {
            return u"a temporary file is left"_s;
        }
        const QByteArray now = document();
        if (now == before) {
            return {};
        }
        static QHash<QString, QByteArray> whole;
        if (!whole.contains(_layout)) {
            whole[_layout] = now;  // of the run without a fault, which comes first
        }
        return now == whole[_layout] ? QString() : u"the document is not whole"_s;
    }
    void doAgain() override {
        if (!isDone()) {
            perform();
        }
    }

  private:
    static constexpr auto before = "the document of yesterday";

    // A text has an extension of its own behind the name that was chosen.
    QByteArray document() const {
        for (const QString& name : _folder.names()) {
            if (name != chosen && name.startsWith(chosen)) {
                return _folder.contents(name);
            }
        }
        return _folder.contents(chosen);
    }

    void exportAsText() {
        _exports.exportClipListAsText();
        QDialog* sheet = _exports.textExportOptionsSheet();
        if (sheet) {
            sheet->findChild<QRadioButton*>(u"_exportAsTextOptions_"_s + _layout)->setChecked(true);
            sheet->findChild<QPushButton*>(u"_okButton"_s)->click();
        }
    }

    const QString chosen = u"Day 3.xml"_s;
    QString _layout;
    ClipFolder _folder;
    FakeDialogs _dialogs;
    QWidget _window;
    ClipExports _exports;
};

// The settings are those before, or all of the new ones.
class SettingsStage final : public FaultStage {
  public:
    SettingsStage() {
        UserDefaults before(path());
        before.setValue(u"PrefDict"_s, u"before"_s);
        static_cast<void>(before.save());
    }
    void perform() override {
        _defaults.emplace(path());
        _defaults->setValue(u"PrefDict"_s, u"after"_s);
        doAgain();
    }
    bool isDone() override { return stored() == u"after"_s; }
    QString damage() override {
        return stored() == u"after"_s || stored() == u"before"_s ? QString() : u"the settings are lost"_s;
    }
    void doAgain() override {
        if (const Result<void> saved = _defaults->save(); !saved) {
            Told::tell(saved.error().description());
        }
    }

  private:
    QString path() const { return _folder.path(u"config/settings.plist"_s); }
    QString stored() const {
        const std::optional<Value> value = UserDefaults(path()).value(u"PrefDict"_s);
        return value ? value->string().value_or(QString()) : QString();
    }

    ClipFolder _folder;
    std::optional<UserDefaults> _defaults;
};

template <class Stage, class... Arguments>
NamedStage stage(const QString& name, Arguments... arguments) {
    return {name, [=] { return std::make_unique<Stage>(arguments...); }};
}

}  // namespace

std::vector<NamedStage> documentStages() {
    return {stage<ImportStage>(u"import"_s),
            stage<ExportStage>(u"export as XML"_s, QString()),
            stage<ExportStage>(u"export as text"_s, u"UserReadable"_s),
            stage<ExportStage>(u"export with tabs"_s, u"TabDelimited"_s),
            stage<ExportStage>(u"export with commas"_s, u"CommaDelimited"_s),
            stage<SettingsStage>(u"save the settings"_s)};
}

}  // namespace marquill
