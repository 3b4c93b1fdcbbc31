// The export commands, with their sheets and alerts.
#include "clipmanager/ClipExports.h"
#include "clipmanager/ExportedClips.h"
#include "folders/Preferences.h"
#include "movie/MovieBuilder.h"
#include "platform/FakeDialogs.h"
#include "platform/FaultyFileSystem.h"
#include "platform/SlowFileSystem.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"

#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;
using Option = ClipExports::TextExportOption;

namespace {

// Something happens while the panel is open.
class SlowPanel final : public FakeDialogs {
  public:
    std::function<void()> meanwhile;

    std::optional<QString> chooseFileToSave(QWidget* window, const FileChoice& choice) override {
        meanwhile();
        return FakeDialogs::chooseFileToSave(window, choice);
    }
};

}  // namespace

class ClipExportsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<QWidget> _window;
    std::unique_ptr<ClipExports> _exports;
    std::optional<QString> _folder;
    std::vector<ClipInfo> _clips;

    QString path(const QString& name) const { return _place->filePath(name); }

    QStringList alertTexts() const {
        QStringList texts;
        for (const Alert& alert : _dialogs->alerts) {
            texts.append(alert.title + u'|' + alert.text + u'|' + alert.buttons.join(u','));
        }
        return texts;
    }

    void wait() { QTRY_VERIFY(!_exports->isExporting()); }

    QRadioButton* radioButton(const QString& name) const {
        return _exports->textExportOptionsSheet()->findChild<QRadioButton*>(u"_exportAsTextOptions_"_s +
                                                                            name);
    }

    void choose(const QString& layout, const QString& file) {
        _dialogs->chosen = QStringList{path(file)};
        _exports->exportClipListAsText();
        radioButton(layout)->setChecked(true);
        _exports->textExportOptionsSheet()->findChild<QPushButton*>(u"_okButton"_s)->click();
        wait();
    }

    const FileChoice& lastChoice() const { return _dialogs->choices.last(); }

    QStringList files() const { return QDir(_place->path()).entryList(QDir::Files | QDir::Hidden); }

  private Q_SLOTS:
    void initTestCase() { useFixedTimeZone(); }

    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        _window = std::make_unique<QWidget>();
        _window->show();
        _folder = u"/shoot/Day 3"_s;
        _clips = clipsOfTheTextDocuments();
        _exports = std::make_unique<ClipExports>(
            *_window, ClipExports::Source{[this] { return _folder; }, [this] { return _clips; }});
    }

    void cleanup() {
        _exports.reset();
        Preferences::finish();
        WindowDescription::useFolder(u":/windows"_s);
        _dialogs.reset();
    }

    // First, as the option lives as long as the program.
    void theOptionIsUserReadableAtStart() {
        QCOMPARE(ClipExports::textExportOption(), Option::userReadable);
        _exports->exportClipListAsText();
        QVERIFY(radioButton(u"UserReadable"_s)->isChecked());
    }

    // Starting

    void withoutFolderTheUserIsToldSo() {
        _folder.reset();
        _clips.clear();
        _exports->exportClipListAsXML();
        _exports->exportClipListAsText();
        const QString told = u"No Folder selected|Please select a folder to export.|Ok"_s;
        QCOMPARE(alertTexts(), (QStringList{told, told}));
        QVERIFY(_dialogs->choices.isEmpty());
        QVERIFY(!_exports->textExportOptionsSheet());
    }

    void withoutClipsTheUserIsToldSo() {
        _clips.clear();
        _exports->exportClipListAsXML();
        _exports->exportClipListAsText();
        const QString told = u"No Clips to export|There are no clips to export in the selected folder.|Ok"_s;
        QCOMPARE(alertTexts(), (QStringList{told, told}));
        QVERIFY(_dialogs->choices.isEmpty());
        QVERIFY(!_exports->textExportOptionsSheet());
    }

    // XML

    void theFolderGivesTheNameThatIsProposed() {
        _exports->exportClipListAsXML();
        QCOMPARE(_dialogs->choices.size(), 1);
        QCOMPARE(lastChoice().prompt, u"Export"_s);
        QCOMPARE(lastChoice().startFolder, QString());
        QCOMPARE(lastChoice().fileName, u"Day 3.xml"_s);
        QCOMPARE(lastChoice().suffixes, QStringList{u"xml"_s});
        QVERIFY(!_exports->isExporting());
        QVERIFY(files().isEmpty());
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void anotherExtensionIsKeptAndXmlAppended_data() {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("written");
        QTest::newRow("same") << u"export.xml"_s << u"export.xml"_s;
        QTest::newRow("none") << u"export"_s << u"export.xml"_s;
        QTest::newRow("another case") << u"list.XML"_s << u"list.XML.xml"_s;
        QTest::newRow("another") << u"list.txt"_s << u"list.txt.xml"_s;
    }
    void anotherExtensionIsKeptAndXmlAppended() {
        QFETCH(const QString, chosen);
        QFETCH(const QString, written);
        _dialogs->chosen = QStringList{path(chosen)};
        _exports->exportClipListAsXML();
        wait();
        QCOMPARE(files(), QStringList{written});
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void theLabelsAreThoseOfThePreferences() {
        WindowDescription::registerWidget<TableView>(u"TableView"_s);
        UserDefaults::useFile(path(u"settings.plist"_s));
        Preferences::init();
        QVERIFY(writeBytes(path(u"a.mov"_s), MovieBuilder{}.headerLast()));
        _folder = _place->path();
        _clips = {ClipInfo({{ClipKey::clipName, u"a.mov"_s}, {ClipKey::clipLabel, u"Audio"_s}})};
        _dialogs->chosen = QStringList{path(u"export.xml"_s)};
        _exports->exportClipListAsXML();
        wait();
        QVERIFY(readBytes(path(u"export.xml"_s)).contains("<label2>Audio</label2>"));
    }

    void clipsShownWhileThePanelIsOpenAreExportedFromTheirFolder() {
        QVERIFY(writeBytes(path(u"a.mov"_s), MovieBuilder{}.headerLast()));
        SlowPanel panel;
        panel.chosen = QStringList{path(u"export.xml"_s)};
        panel.meanwhile = [this] {
            _folder = _place->path();
            _clips = {ClipInfo({{ClipKey::clipName, u"a.mov"_s}})};
        };
        _exports->exportClipListAsXML();
        wait();
        QVERIFY(readBytes(path(u"export.xml"_s)).contains("<name>a</name>"));
    }

    void anXmlFileThatCannotBeWrittenIsTold() {
        _dialogs->chosen = QStringList{path(u"nowhere/export.xml"_s)};
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"the export failed"_s));
        _exports->exportClipListAsXML();
        wait();
        QCOMPARE(alertTexts(), QStringList{u"Export failed|Couldn't write xml file.|Ok"_s});
    }

    // Text

    void eachLayoutHasItsDocument() {
        choose(u"UserReadable"_s, u"a.txt"_s);
        QCOMPARE(lastChoice().fileName, u"Day 3.txt"_s);
        QCOMPARE(lastChoice().prompt, u"Export"_s);
        QCOMPARE(readBytes(path(u"a.txt"_s)), goldenDocument(u"readable.txt"_s));
        choose(u"TabDelimited"_s, u"b.txt"_s);
        QCOMPARE(lastChoice().fileName, u"Day 3.txt"_s);
        QCOMPARE(readBytes(path(u"b.txt"_s)), goldenDocument(u"tabs.txt"_s));
        choose(u"CommaDelimited"_s, u"c.csv"_s);
        QCOMPARE(lastChoice().fileName, u"Day 3.csv"_s);
        QCOMPARE(readBytes(path(u"c.csv"_s)), goldenDocument(u"commas.csv"_s));
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void sizesAreThoseOfTheMediaAlsoOfClipsThatWereNeverShown() {
        _folder = _place->path();
        QVERIFY(writeBytes(path(u"a.mov"_s), QByteArray(3 * 1'048'576, '\0')));
        const ClipInfo clip({{ClipKey::clipName, u"a.mov"_s}, {ClipKey::clipFileSize, 1}});
        const ClipInfo gone({{ClipKey::clipName, u"b.mov"_s}, {ClipKey::clipFileSize, 2'097'152}});
        _clips = {clip, gone};
        choose(u"UserReadable"_s, u"a.txt"_s);
        const QByteArray text = readBytes(path(u"a.txt"_s));
        QVERIFY(text.contains("Name: a\rDuration: 00:00:00\rFile Size: 3 MB\r"));
        QVERIFY(text.contains("Name: b\rDuration: 00:00:00\rFile Size: 2 MB\r"));
        QCOMPARE(clip.clipFileSize(), 1);
    }

    void eachLayoutHasItsExtension() {
        choose(u"CommaDelimited"_s, u"report.txt"_s);
        choose(u"TabDelimited"_s, u"table.csv"_s);
        choose(u"UserReadable"_s, u"report.TXT"_s);
        choose(u"UserReadable"_s, u"plain"_s);
        QStringList names = files();
        names.sort(Qt::CaseSensitive);
        QCOMPARE(names,
                 (QStringList{u"plain.txt"_s, u"report.TXT.txt"_s, u"report.txt.csv"_s, u"table.csv.txt"_s}));
    }

    void theLayoutChosenLastIsProposedAgain() {
        for (const auto& [name, option] : {std::pair(u"CommaDelimited"_s, Option::commaDelimited),
                                           std::pair(u"TabDelimited"_s, Option::tabDelimited),
                                           std::pair(u"UserReadable"_s, Option::userReadable)}) {
            choose(name, u"a.txt"_s);
            QCOMPARE(ClipExports::textExportOption(), option);
            _exports->exportClipListAsText();
            QVERIFY(radioButton(name)->isChecked());
            _exports->cancelTextExportOptionsSheet();
        }
    }

    void aCancelledSheetChangesNothing_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }
    void aCancelledSheetChangesNothing() {
        QFETCH(const bool, byKey);
        _exports->exportClipListAsText();
        QDialog* sheet = _exports->textExportOptionsSheet();
        QCOMPARE(sheet->windowModality(), Qt::WindowModal);
        radioButton(u"TabDelimited"_s)->setChecked(true);
        if (byKey) {
            QTest::keyClick(sheet, Qt::Key_Escape);
        } else {
            sheet->findChild<QPushButton*>(u"_cancelButton"_s)->click();
        }
        QVERIFY(!_exports->textExportOptionsSheet());
        QCOMPARE(ClipExports::textExportOption(), Option::userReadable);
        QVERIFY(_dialogs->choices.isEmpty());
    }

    void withoutAnyButtonOnTheOptionStays() {
        choose(u"TabDelimited"_s, u"a.txt"_s);
        _exports->exportClipListAsText();
        for (QRadioButton* button : _exports->textExportOptionsSheet()->findChildren<QRadioButton*>()) {
            button->setAutoExclusive(false);
            button->setChecked(false);
        }
        _exports->okTextExportOptionsSheet();
        wait();
        QCOMPARE(ClipExports::textExportOption(), Option::tabDelimited);
        choose(u"UserReadable"_s, u"a.txt"_s);
    }

    void aCancelledSavePanelWritesNothingAndKeepsTheOption() {
        _exports->exportClipListAsText();
        radioButton(u"CommaDelimited"_s)->setChecked(true);
        _exports->okTextExportOptionsSheet();
        QVERIFY(!_exports->isExporting());
        QCOMPARE(ClipExports::textExportOption(), Option::commaDelimited);
        QVERIFY(files().isEmpty());
        choose(u"UserReadable"_s, u"a.txt"_s);
    }

    void aForeignCharacterIsToldTwiceAndLeavesTheOldFile() {
        QVERIFY(writeBytes(path(u"a.txt"_s), "old"));
        _clips.emplace_back(Dictionary{{ClipKey::clipComment, u"caf\u00E9"_s}});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Clip 4 holds the character"_s));
        choose(u"UserReadable"_s, u"a.txt"_s);
        QCOMPARE(
            alertTexts(),
            (QStringList{u"Error writing File|An error occured while creating or writing the text file.|OK"_s,
                         u"Export failed|Couldn't write text file.|Ok"_s}));
        QCOMPARE(readBytes(path(u"a.txt"_s)), QByteArray("old"));
        QCOMPARE(files(), QStringList{u"a.txt"_s});
    }

    void aTextFileThatCannotBeWrittenIsToldTwice() {
        FaultyFileSystem fileSystem;
        const InstalledFileSystem installed(fileSystem);
        fileSystem.failFrom(1, ErrorCode::noSpace);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"the export failed"_s));
        choose(u"TabDelimited"_s, u"a.txt"_s);
        QCOMPARE(_dialogs->alerts.size(), 2);
        QVERIFY(files().isEmpty());
        fileSystem.reset();
        choose(u"UserReadable"_s, u"a.txt"_s);
    }

    // While it lasts

    void recordsMayChangeWhileTheDocumentIsMade() {
        _dialogs->chosen = QStringList{path(u"a.txt"_s)};
        _exports->exportClipListAsText();
        _exports->okTextExportOptionsSheet();
        for (ClipInfo& clip : _clips) {
            clip.setClipComment(u"changed"_s);
            clip.clipMarkerArray().value_or(Array()).append(Dictionary());
        }
        wait();
        QCOMPARE(readBytes(path(u"a.txt"_s)), goldenDocument(u"readable.txt"_s));
    }

    void aCancelledExportWritesNothingAndTellsNothing() {
        SlowFileSystem slow;
        _dialogs->chosen = QStringList{path(u"a.txt"_s)};
        _exports->exportClipListAsText();
        _exports->okTextExportOptionsSheet();
        QTRY_VERIFY(slow.isAsked());
        QVERIFY(_exports->isExporting());
        _exports->progress().cancel();
        QVERIFY(!_exports->isExporting());
        slow.letGo();
        _exports.reset();
        QCoreApplication::processEvents();
        QVERIFY(files().isEmpty());
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void oneExportAtATime() {
        _clips = std::vector<ClipInfo>(20'000, _clips.front());
        _dialogs->chosen = QStringList{path(u"a.txt"_s)};
        _exports->exportClipListAsText();
        _exports->exportClipListAsText();
        _exports->okTextExportOptionsSheet();
        QVERIFY(_exports->isExporting());
        _exports->exportClipListAsXML();
        _exports->exportClipListAsText();
        QCOMPARE(_dialogs->choices.size(), 1);
        QVERIFY(!_exports->textExportOptionsSheet());
        wait();
    }

    void withoutDescriptionThereIsNoOptionsSheet() {
        WindowDescription::useFolder(_place->path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"TextExportOptions.ui"_s));
        _exports->exportClipListAsText();
        QVERIFY(!_exports->textExportOptionsSheet());
        _exports->okTextExportOptionsSheet();
        QVERIFY(_dialogs->choices.isEmpty());
    }
};

QTEST_MAIN(ClipExportsTest)
#include "ClipExportsTest.moc"
