#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerFixture.h"
#include "platform/MovieMaker.h"
#include "platform/SlowFileSystem.h"
#include "platform/UndoManager.h"

#include <QAction>

using namespace marquill;

class ClipManagerFilesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipManagerFixture> _fixture;

  private Q_SLOTS:
    void init() { _fixture = std::make_unique<ClipManagerFixture>(); }
    void cleanup() { _fixture.reset(); }

    // Importing

    void withoutAFolderNothingIsImported() {
        _fixture->manager = ClipManager::initWithSettings(_fixture->settings());
        QTest::ignoreMessage(QtWarningMsg, "No currFolder specified");
        _fixture->manager->importQTclips();
        QCOMPARE(_fixture->dialogs.choices.size(), 0);
    }

    void chooserAsksForMoviesAndCancelEndsTheImport() {
        _fixture->show();
        _fixture->manager->importQTclips();
        QCOMPARE(_fixture->dialogs.choices.size(), 1);
        QCOMPARE(_fixture->dialogs.choices[0].suffixes, QStringList({u"mov"_s, u"MOV"_s}));
        QVERIFY(!_fixture->manager->undoManager().canUndo());
    }

    void chosenMoviesBecomePlaceholdersInOneUndoableStep() {
        MovieMaker maker;
        const QString movie = maker.makeShades(u"A.mov"_s, u"25"_s, 1);
        const QString other = maker.makeShades(u"B.mov"_s, u"25"_s, 1);
        QVERIFY(writeFile(_fixture->path(u"text.mov"_s), "no movie"));
        _fixture->show();
        _fixture->dialogs.chosen = {movie, _fixture->path(u"text.mov"_s), other};
        _fixture->manager->importQTclips();
        QCOMPARE(_fixture->table().clipArray().size(), std::size_t(2));
        QCOMPARE(_fixture->onDisk(u"A.xml"_s).clipPath(), movie);
        QCOMPARE(_fixture->onDisk(u"B.xml"_s).clipPath(), other);
        QCOMPARE(_fixture->dialogs.alerts.size(), 1);
        QCOMPARE(_fixture->dialogs.alerts[0].title, u"Could not load one or more Clips"_s);
        QCOMPARE(_fixture->dialogs.alerts[0].buttons, QStringList(u"Ok"_s));
        QVERIFY(_fixture->dialogs.alerts[0].text.contains(u"text.mov"_s));
        QCOMPARE(_fixture->manager->undoManager().undoActionName(), u"add Clip(s)"_s);
        _fixture->manager->undoManager().undo();
        QCOMPARE(_fixture->table().clipArray().size(), std::size_t(0));
        QVERIFY(QFile::exists(_fixture->path(u"a/Trash/A.xml"_s)));
    }

    void commandsOnAFolderNeedOne() {
        _fixture->manager = ClipManager::initWithSettings(_fixture->settings());
        for (const QString& id : {u"importQTclips"_s, u"exportClipListAsXML"_s, u"exportClipListAsText"_s}) {
            QAction action;
            action.setObjectName(id);
            _fixture->manager->folderList().selectFolders({});
            _fixture->manager->validateMenuItem(action);
            QVERIFY(!action.isEnabled());
            _fixture->manager->folderList().selectFolder(_fixture->path(u"b"_s));
            _fixture->manager->validateMenuItem(action);
            QVERIFY(action.isEnabled());
        }
    }

    void exportsAreOfTheShownFolder() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->dialogs.chosen = {_fixture->path(u"list.xml"_s)};
        _fixture->manager->exports().exportClipListAsXML();
        QTRY_VERIFY(QFile::exists(_fixture->path(u"list.xml"_s)));
    }

    void anExportWhileTheFolderIsReadHoldsAllItsClips() {
        constexpr int count = 400;
        for (int take = 1; take <= count; ++take) {
            _fixture->writeClip(u"A#%1.xml"_s.arg(take, 3, 10, QChar(u'0')));
        }
        _fixture->manager = ClipManager::initWithSettings(_fixture->settings());
        _fixture->dialogs.chosen = {_fixture->path(u"list.txt"_s)};
        _fixture->manager->folderList().selectFolder(_fixture->path(u"a"_s));
        QVERIFY(_fixture->manager->isReading());
        _fixture->manager->exports().exportClipListAsText();
        _fixture->manager->exports().okTextExportOptionsSheet();
        QTRY_VERIFY(QFile::exists(_fixture->path(u"list.txt"_s)));
        QFile file(_fixture->path(u"list.txt"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll().count("Name: A\r"), count);
    }

    // Parts of the window

    void eachPartCanBeGivenTheKeyboard() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        ClipManager& manager = *_fixture->manager;
        const auto focus = [&manager] { return manager.window()->focusWidget()->objectName(); };
        manager.goToFolders();
        QCOMPARE(focus(), u"_recordFolderTable"_s);
        manager.goToClips();
        QCOMPARE(focus(), u"_clipTable"_s);
        manager.goToMovie();
        QCOMPARE(focus(), u"_moviePreview"_s);
        manager.goToAttributes();
        QCOMPARE(focus(), u"_clipNameText"_s);
        manager.goToMarkers();
        QCOMPARE(focus(), u"_markerTable"_s);
    }

    void aFoldedWindowIsUnfoldedForThePartThatIsAskedFor() {
        _fixture->show();
        _fixture->manager->collapseWindow();
        QVERIFY(!_fixture->outlet<QWidget>(u"_clipTable"_s).isVisible());
        _fixture->manager->goToClips();
        QVERIFY(_fixture->outlet<QWidget>(u"_clipTable"_s).isVisible());
    }

    // Quitting

    void withoutAClipManagerThereIsNoTrash() {
        QCOMPARE(ClipManager::getTrashClips(), QStringList());
        QVERIFY(ClipManager::cleanUp());
    }

    void trashOfAllFoldersIsAskedAbout() {
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        QVERIFY(QDir(_fixture->path(u"b"_s)).mkdir(u"Trash"_s));
        QVERIFY(writeFile(_fixture->path(u"b/Trash/a#01.xml"_s), "x"));
        ClipManager::init();
        QCOMPARE(ClipManager::getTrashClips(), QStringList(_fixture->path(u"b/Trash/a#01.xml"_s)));
        _fixture->dialogs.answers = {1};
        QVERIFY(!ClipManager::cleanUp());
        QCOMPARE(_fixture->dialogs.alerts[0].title, u"Delete Clips in the Trash?"_s);
        QVERIFY(QFile::exists(_fixture->path(u"b/Trash/a#01.xml"_s)));
    }

    void quittingWaitsForManyClipsThatAreBeingSaved() {
        constexpr int many = 70;
        for (int number = 0; number < many; ++number) {
            _fixture->writeClip(u"a#%1.xml"_s.arg(number));
        }
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        ClipManager& manager = *ClipManager::getClipManager();
        manager.folderList().selectFolder(_fixture->path(u"a"_s));
        QTRY_VERIFY(!manager.isReading());
        ClipChangeSet change{.oldClips = manager.clipTable().clipArray(), .newClips = {}, .actionName = {}};
        for (const ClipInfo& clip : change.oldClips) {
            change.newClips.push_back(clip.deepCopy());
            change.newClips.back().setClipScene(u"24A"_s);
        }
        SlowFileSystem slow;
        manager.clipTable().changeClipsWithUndo(change);
        QTRY_VERIFY(slow.isAsked());
        bool hasQuitAgain = true;
        QTimer::singleShot(0, &manager, [&] {
            hasQuitAgain = ClipManager::cleanUp();
            slow.letGo();
        });
        QVERIFY(ClipManager::cleanUp());
        QVERIFY(!hasQuitAgain);
        for (int number = 0; number < many; ++number) {
            QCOMPARE(_fixture->onDisk(u"a#%1.xml"_s.arg(number)).clipScene(), std::optional(u"24A"_s));
        }
    }
};

QTEST_MAIN(ClipManagerFilesTest)
#include "ClipManagerFilesTest.moc"
