#include "clipmanager/ClipManager.h"
#include "clipstore/Notifications.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "connect/UnnumberedRows.h"
#include "folders/RecordFolderController.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/MovieMaker.h"
#include "platform/MovieScrubber.h"
#include "platform/PropertyListWriter.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

using namespace marquill;

class ClipManagerTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _place;
    std::unique_ptr<FakeDialogs> _dialogs;

    QString path(const QString& name) const { return _place->filePath(name); }

    static Dictionary clipRecord(const QString& name) {
        return Dictionary{{u"clipName"_s, name},
                          {u"clipScene"_s, u"12A"_s},
                          {u"clipDuration"_s, 3725},
                          {u"clipMarkerArray"_s, Array{Dictionary(), Dictionary()}}};
    }

    void writeClip(const QString& folder, const QString& name) const {
        const Result<QByteArray> text = writePropertyList(clipRecord(name));
        QVERIFY(text);
        QVERIFY(writeFile(joinPath(path(folder), name), *text));
    }

    Dictionary record(const QString& name) const { return FolderRecord::forPath(path(name)).record(); }

    // Settings with the folders "a" and "b", "a" the recording folder.
    Dictionary settings() const {
        return Dictionary{{u"kRecordFolderArray"_s, Array{record(u"a"_s), record(u"b"_s)}},
                          {u"kRecordFolderPath"_s, path(u"a"_s)},
                          {u"kWindVisible"_s, true}};
    }

    static QString status(const ClipManager& manager) {
        return manager.window()->findChild<QLabel*>(u"_selectedFolderPath"_s)->text();
    }

    static QString countText(const ClipManager& manager) {
        return manager.window()->findChild<QLabel*>(u"_clipCount"_s)->text();
    }

    static QAbstractItemModel& clips(const ClipManager& manager) {
        return *manager.window()->findChild<QTableView*>(u"_clipTable"_s)->model();
    }

    static MoviePreview& preview(const ClipManager& manager) {
        return *manager.window()->findChild<MoviePreview*>(u"_moviePreview"_s);
    }

    // As they are in the file now.
    Dictionary savedSettings() const {
        const std::optional<Value> saved =
            UserDefaults(path(u"settings.plist"_s)).value(u"ClipManagerSettings"_s);
        return saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        QVERIFY(QDir(_place->path()).mkdir(u"a"_s));
        QVERIFY(QDir(_place->path()).mkdir(u"b"_s));
        UserDefaults::useFile(path(u"settings.plist"_s));
    }

    void cleanup() {
        ClipManager::finish();
        WindowDescription::useFolder(u":/windows"_s);
        _dialogs.reset();
        _place.reset();
    }

    // Life

    void initMakesTheOneAndFinishDropsItWithItsWindow() {
        QVERIFY(!ClipManager::getClipManager());
        ClipManager::init();
        QVERIFY(ClipManager::getClipManager());
        const QPointer<QWidget> window = ClipManager::getClipManager()->window();
        ClipManager::finish();
        QVERIFY(!ClipManager::getClipManager());
        QVERIFY(!window);
        ClipManager::finish();
    }

    void missingDescriptionIsToldAndGivesNoClipManager() {
        WindowDescription::useFolder(_place->path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate Clip Manager nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ClipManager.ui"_s));
        ClipManager::init();
        QVERIFY(!ClipManager::getClipManager());
        ClipManager::finish();
    }

    // Status line

    void statusLineTellsTheSelectedFolder() {
        const auto manager = ClipManager::initWithSettings(settings());
        QCOMPARE(status(*manager), u"Current Folder: Nothing selected"_s);
        manager->folderList().selectFolder(path(u"b"_s));
        QCOMPARE(status(*manager), u"Current Folder: "_s + path(u"b"_s));
        manager->folderList().selectFolders({path(u"a"_s), path(u"b"_s)});
        QCOMPARE(status(*manager), u"Current Folder: 2 items selected"_s);
        manager->folderList().selectFolders({});
        QCOMPARE(status(*manager), u"Current Folder: Nothing selected"_s);
    }

    void statusLineTellsWithinASecondThatTheFolderVanished() {
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"b"_s));
        QVERIFY(QDir().rmdir(path(u"b"_s)));
        QTRY_COMPARE(status(*manager), u"Current Folder: does not exist or is offline"_s);
        QVERIFY(QDir().mkdir(path(u"b"_s)));
        manager->timerAction();
        QCOMPARE(status(*manager), u"Current Folder: "_s + path(u"b"_s));
    }

    void percentSignsInAPathAreShownAsTheyAre() {
        QVERIFY(QDir(_place->path()).mkdir(u"100%1 %@"_s));
        const auto manager = ClipManager::initWithSettings(
            Dictionary{{u"kRecordFolderArray"_s, Array{record(u"100%1 %@"_s)}}});
        manager->folderList().selectFolder(path(u"100%1 %@"_s));
        QCOMPARE(status(*manager), u"Current Folder: "_s + path(u"100%1 %@"_s));
    }

    // Clips

    void selectedFoldersClipsAreShown() {
        writeClip(u"a"_s, u"Interview#03.xml"_s);
        const auto manager = ClipManager::initWithSettings(settings());
        const QAbstractItemModel& model = clips(*manager);
        UnnumberedRows rows(manager->clipTable().model());
        const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.rowCount(), 0);
        manager->folderList().selectFolder(path(u"a"_s));
        QCOMPARE(manager->shownFolder(), path(u"a"_s));
        QTRY_COMPARE(model.rowCount(), 1);
        QCOMPARE(model.index(0, ClipTableModel::clip).data().toString(), u"Interview"_s);
        QCOMPARE(countText(*manager), u"0 of 1 Clip Selected"_s);
        QTRY_VERIFY(!manager->isReading());
        manager->folderList().selectFolder(path(u"b"_s));
        QCOMPARE(model.rowCount(), 0);
        manager->folderList().selectFolders({path(u"a"_s), path(u"b"_s)});
        QVERIFY(!manager->shownFolder());
        QCOMPARE(model.rowCount(), 0);
    }

    void largeFolderIsShownInTheOrderOfItsListing() {
        for (int take = 1; take <= 400; ++take) {
            const QString name = u"Clip#%1.xml"_s.arg(take);
            const Result<QByteArray> text = writePropertyList(Dictionary{{u"clipName"_s, name}});
            QFile file(path(u"a/"_s + name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(*text) > 0);
        }
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        QVERIFY(manager->isReading());
        QVERIFY(manager->window()->findChild<QWidget*>(u"_progressInd"_s)->isVisibleTo(manager->window()));
        QTRY_VERIFY(!manager->isReading());
        QVERIFY(!manager->window()->findChild<QWidget*>(u"_progressInd"_s)->isVisibleTo(manager->window()));
        QStringList names;
        for (const ClipInfo& clip : manager->clipTable().clipArray()) {
            names.append(clip.clipName().value_or(QString()));
        }
        QCOMPARE(names, ClipStore::getClipsForFolder(path(u"a"_s)));
        QCOMPARE(names.size(), 400);
    }

    void anotherFolderGivesUpTheFirst() {
        writeClip(u"a"_s, u"A#01.xml"_s);
        writeClip(u"b"_s, u"B#01.xml"_s);
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        manager->folderList().selectFolder(path(u"b"_s));
        QTRY_VERIFY(!manager->isReading());
        QCOMPARE(clips(*manager).rowCount(), 1);
        QCOMPARE(manager->clipTable().clipArray()[0].clipName(), u"B#01.xml"_s);
    }

    void clipRecordedWhileItsFolderIsReadIsShownOnce() {
        writeClip(u"a"_s, u"A#01.xml"_s);
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        const ClipInfo clip(clipRecord(u"A#01.xml"_s));
        manager->addClip(clip, path(u"a"_s));
        QTRY_VERIFY(!manager->isReading());
        QCOMPARE(clips(*manager).rowCount(), 1);
        QVERIFY(manager->clipTable().clipArray()[0].isSame(clip));
    }

    void newClipIsShownOnlyInItsFolder() {
        const auto manager = ClipManager::initWithSettings(settings());
        manager->addClip(ClipInfo(clipRecord(u"Clip#01.xml"_s)), path(u"a"_s));
        QCOMPARE(clips(*manager).rowCount(), 0);
        manager->folderList().selectFolder(path(u"a"_s));
        manager->addClip(ClipInfo(clipRecord(u"Clip#02.xml"_s)), path(u"b"_s));
        QCOMPARE(clips(*manager).rowCount(), 0);
        manager->addClip(ClipInfo(clipRecord(u"Clip#03.xml"_s)), path(u"a"_s));
        QCOMPARE(clips(*manager).rowCount(), 1);
        QTRY_COMPARE(countText(*manager), u"1 of 1 Clip Selected"_s);
    }

    void shownFolderFollowsItsRenaming() {
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"b"_s));
        manager->folderList().setItemName(manager->folderList().folderArray()[1], u"Day 2"_s);
        QCOMPARE(manager->shownFolder(), path(u"Day 2"_s));
        QCOMPARE(status(*manager), u"Current Folder: "_s + path(u"Day 2"_s));
        manager->addClip(ClipInfo(clipRecord(u"Clip#01.xml"_s)), path(u"Day 2"_s));
        QCOMPARE(clips(*manager).rowCount(), 1);
    }

    void deleteClipsNeedsASelectionAndCanBeUndone() {
        writeClip(u"a"_s, u"A#01.xml"_s);
        const auto manager = ClipManager::initWithSettings(settings());
        auto* button = manager->window()->findChild<QAction*>(u"DeleteClips"_s);
        QAction undo;
        undo.setObjectName(u"undo"_s);
        manager->folderList().selectFolder(path(u"a"_s));
        QTRY_COMPARE(clips(*manager).rowCount(), 1);
        QVERIFY(!button->isEnabled());
        manager->clipTable().selectNextClip();
        QVERIFY(button->isEnabled());
        manager->validateMenuItem(undo);
        QVERIFY(!undo.isEnabled());
        button->trigger();
        QVERIFY(QFile::exists(path(u"a/Trash/A#01.xml"_s)));
        QVERIFY(!button->isEnabled());
        manager->validateMenuItem(undo);
        QVERIFY(undo.isEnabled());
        QCOMPARE(undo.text(), u"Undo move Clip(s) to Trash"_s);
        manager->undoManager().undo();
        QVERIFY(QFile::exists(path(u"a/A#01.xml"_s)));
    }

    // Preview

    void previewSaysWhyThereIsNoMovie() {
        writeClip(u"a"_s, u"A#01.xml"_s);
        QVERIFY(writeFile(path(u"text.mov"_s), "no movie"));
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        QTRY_COMPARE(clips(*manager).rowCount(), 1);
        const auto* message = preview(*manager).findChild<QLabel*>(u"message"_s);
        QCOMPARE(message->text(), u"Select a clip to see its movie"_s);
        ClipInfo clip = manager->clipTable().clipArray()[0];
        manager->clipTable().selectClip(clip);
        QTRY_COMPARE(message->text(), u"Clip not connected"_s);
        manager->clipTable().deselectAll();
        QTRY_COMPARE(message->text(), u"Select a clip to see its movie"_s);
        clip.setClipPath(path(u"gone.mov"_s));
        manager->clipTable().selectClip(clip);
        QTRY_COMPARE(message->text(), u"Clip not found"_s);
        manager->clipTable().deselectAll();
        clip.setClipPath(path(u"text.mov"_s));
        manager->clipTable().selectClip(clip);
        QTRY_COMPARE(message->text(), Movie::open(path(u"text.mov"_s)).error().message);
        QVERIFY(!preview(*manager).path());
    }

    void previewShowsTheMarkersOfTheClip() {
        MovieMaker maker;
        writeClip(u"a"_s, u"A#01.xml"_s);
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        QTRY_COMPARE(clips(*manager).rowCount(), 1);
        ClipInfo clip = manager->clipTable().clipArray()[0];
        clip.setClipPath(maker.makeShades(u"25.mov"_s, u"25"_s, 1));
        clip.setClipMarkerArray(Array{Dictionary{{u"clipMarkerIn"_s, 0.25}}, Dictionary(), u"text"_s,
                                      Dictionary{{u"clipMarkerIn"_s, 0.5}}});
        const auto* scrubber = preview(*manager).findChild<MovieScrubber*>();
        manager->clipTable().selectClip(clip);
        QTRY_COMPARE(scrubber->markerTimes(), QList<double>({0.25, 0.5}));
        manager->clipTable().deselectAll();
        QTRY_COMPARE(scrubber->markerTimes(), QList<double>());
    }

    void previewFollowsARenamingAndItsUndo() {
        MovieMaker maker;
        const QString movie = maker.makeShades(u"25.mov"_s, u"25"_s, 1);
        QVERIFY(QFile::copy(movie, path(u"a/A#01.mov"_s)));
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        QTRY_COMPARE(clips(*manager).rowCount(), 1);
        const ClipInfo clip = manager->clipTable().clipArray()[0];
        manager->clipTable().selectClip(clip);
        QTRY_COMPARE(preview(*manager).path(), path(u"a/A#01.mov"_s));
        QTRY_VERIFY(preview(*manager).isLoaded());
        manager->clipTable().setObjectValue(u"B"_s, ClipTableModel::clip, 0);
        QTRY_COMPARE(preview(*manager).path(), path(u"a/B#01.mov"_s));
        QTRY_VERIFY(preview(*manager).isLoaded());
        manager->undoManager().undo();
        QTRY_COMPARE(preview(*manager).path(), path(u"a/A#01.mov"_s));
        QTRY_VERIFY(preview(*manager).isLoaded());
        QTest::qWait(50);
        QCOMPARE(preview(*manager).path(), path(u"a/A#01.mov"_s));
        QCOMPARE(preview(*manager).findChild<QLabel*>(u"message"_s)->text(), QString());
        manager->clipTable().deselectAll();
        QTRY_COMPARE(preview(*manager).path(), std::nullopt);
    }

    // Recording folder

    void newRecordingFolderIsHandedOverAndPosted() {
        const auto manager = ClipManager::initWithSettings(settings());
        QVERIFY(manager->recordFolder());
        QCOMPARE(manager->recordFolder()->folderPath(), path(u"a"_s));
        QSignalSpy posted(&Notifications::centre(), &Notifications::recordingFolderChanged);
        QStringList whenPosted;
        connect(&Notifications::centre(), &Notifications::recordingFolderChanged, manager.get(),
                [&] { whenPosted.append(manager->recordFolder()->folderPath().value_or(QString())); });
        manager->folderList().setRecordingFolder(manager->folderList().folderArray()[1]);
        QCOMPARE(posted.size(), 1);
        QCOMPARE(whenPosted, QStringList(path(u"b"_s)));
        QVERIFY(manager->recordFolder()->isSame(manager->folderList().folderArray()[1]));
    }

    void withoutARecordingFolderThereIsNone() {
        const auto manager = ClipManager::initWithSettings(Dictionary());
        QVERIFY(!manager->recordFolder());
    }

    // Tool bar

    void toolbarHasItsItemsInOrder() {
        const auto manager = ClipManager::initWithSettings(settings());
        const auto* toolbar = manager->window()->findChild<QToolBar*>(u"ClipManagerToolbar"_s);
        QVERIFY(toolbar);
        const QList<QAction*> items = toolbar->actions();
        QCOMPARE(items.size(), 3);
        QCOMPARE(items[0]->objectName(), u"AddFolder"_s);
        QCOMPARE(items[0]->text(), u"Add Folder"_s);
        QCOMPARE(items[0]->toolTip(), u"Add recording folder"_s);
        QCOMPARE(items[1]->objectName(), u"RemoveFolder"_s);
        QCOMPARE(items[1]->text(), u"Remove Folder"_s);
        QCOMPARE(items[1]->toolTip(), u"Remove recording folder"_s);
        QCOMPARE(items[2]->objectName(), u"DeleteClips"_s);
        QCOMPARE(items[2]->text(), u"Delete Clips"_s);
        QCOMPARE(items[2]->toolTip(), u"Delete clips"_s);
        QVERIFY(!items[2]->icon().isNull());
        QVERIFY(!items[0]->icon().isNull());
        QVERIFY(!items[1]->icon().isNull());
    }

    void toolbarAddsAndRemovesFolders() {
        const auto manager = ClipManager::initWithSettings(settings());
        QVERIFY(QDir(_place->path()).mkdir(u"c"_s));
        _dialogs->chosen = {path(u"c"_s)};
        manager->window()->findChild<QAction*>(u"AddFolder"_s)->trigger();
        QCOMPARE(manager->folderList().folderArray().size(), std::size_t(3));
        QCOMPARE(manager->shownFolder(), path(u"c"_s));
        manager->window()->findChild<QAction*>(u"RemoveFolder"_s)->trigger();
        QCOMPARE(manager->folderList().folderArray().size(), std::size_t(2));
        QVERIFY(!manager->shownFolder());
        QVERIFY(!manager->recordFolder());
    }

    void removeFolderNeedsASelection() {
        const auto manager = ClipManager::initWithSettings(settings());
        const auto* remove = manager->window()->findChild<QAction*>(u"RemoveFolder"_s);
        const auto menuItemIsEnabled = [&manager] {
            QAction item;
            item.setObjectName(u"removeFolder"_s);
            manager->validateMenuItem(item);
            return item.isEnabled();
        };
        QVERIFY(!remove->isEnabled());
        QVERIFY(!menuItemIsEnabled());
        manager->folderList().selectFolders({path(u"a"_s), path(u"b"_s)});
        QVERIFY(remove->isEnabled());
        QVERIFY(menuItemIsEnabled());
        manager->folderList().selectFolders({});
        QVERIFY(!remove->isEnabled());
        QVERIFY(!menuItemIsEnabled());
    }

    // Settings

    void savedStateComesBack() {
        ClipManager::init();
        QMainWindow* window = ClipManager::getClipManager()->window();
        window->setGeometry(60, 70, 1000, 420);
        window->hide();
        ClipManager::getClipManager()->folderList().setFolderArray({FolderRecord(record(u"b"_s))});
        ClipManager::getClipManager()->folderList().setRecordingFolder(
            ClipManager::getClipManager()->folderList().folderArray()[0]);
        ClipManager::finish();

        const Dictionary saved = savedSettings();
        const int screenHeight = QApplication::primaryScreen()->geometry().height();
        QCOMPARE(saved.boolean(u"kWindVisible"), false);
        QCOMPARE(saved.boolean(u"kWindExpanded"), true);
        QCOMPARE(saved.real(u"kWindPosX"), 60.0);
        QCOMPARE(saved.real(u"kWindPosY"), double(screenHeight - 70 - 420));
        QCOMPARE(saved.real(u"kWindWidth"), 1000.0);
        QCOMPARE(saved.real(u"kWindHeight"), 420.0);
        QCOMPARE(saved.string(u"kRecordFolderPath"), path(u"b"_s));
        QVERIFY(saved.array(u"kRecordFolderArray") == Array{record(u"b"_s)});

        ClipManager::init();
        window = ClipManager::getClipManager()->window();
        QVERIFY(!window->isVisible());
        QCOMPARE(window->geometry(), QRect(60, 70, 1000, 420));
        QCOMPARE(ClipManager::getClipManager()->recordFolder()->folderPath(), path(u"b"_s));
    }

    void partOfAFrameIsRestoredAloneAndNonsenseIsNot() {
        const auto plain = ClipManager::initWithSettings(Dictionary());
        const QSize size = plain->window()->size();
        const auto wide = ClipManager::initWithSettings(Dictionary{{u"kWindWidth"_s, 1020}});
        QCOMPARE(wide->window()->size(), QSize(1020, size.height()));
        const auto nonsense = ClipManager::initWithSettings(
            Dictionary{{u"kWindWidth"_s, std::numeric_limits<double>::infinity()},
                       {u"kWindHeight"_s, std::numeric_limits<double>::quiet_NaN()},
                       {u"kWindPosX"_s, 1e300},
                       {u"kWindPosY"_s, u"left"_s}});
        QCOMPARE(nonsense->window()->size(), size);
        const auto flat = ClipManager::initWithSettings(Dictionary{{u"kWindHeight"_s, -5}});
        QCOMPARE(flat->window()->size(), size);
    }

    void changedFoldersAreSavedAtOnce() {
        const auto manager = ClipManager::initWithSettings(settings());
        manager->folderList().selectFolder(path(u"a"_s));
        manager->folderList().deleteItem();
        QVERIFY(savedSettings().array(u"kRecordFolderArray") == Array{record(u"b"_s)});
        QVERIFY(!savedSettings().contains(u"kRecordFolderPath"));
        manager->folderList().setRecordingFolder(manager->folderList().folderArray()[0]);
        QCOMPARE(savedSettings().string(u"kRecordFolderPath"), path(u"b"_s));
    }

    void restoringSavesNothing() {
        QVERIFY(QDir().rmdir(path(u"a"_s)));
        const auto manager = ClipManager::initWithSettings(settings());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"No Valid Recording Folder"_s);
        QVERIFY(savedSettings().isEmpty());
    }

    // Empty lists

    void emptyListsSayWhatToDo() {
        const auto manager = ClipManager::initWithSettings(Dictionary());
        const auto hint = [&](const QString& table) {
            return manager->window()->findChild<QTableView*>(table)->viewport()->findChild<QLabel*>();
        };
        QVERIFY(hint(u"_recordFolderTable"_s)->isVisible());
        QCOMPARE(hint(u"_recordFolderTable"_s)->text(), u"Add a folder to record into"_s);
        QCOMPARE(hint(u"_clipTable"_s)->text(), u"Add a folder to see its clips"_s);
        _dialogs->chosen = {path(u"a"_s)};
        manager->addFolderButton();
        QVERIFY(!hint(u"_recordFolderTable"_s)->isVisible());
        QTRY_COMPARE(hint(u"_clipTable"_s)->text(),
                     u"No clips in this folder.\nPress Control-Space to start a take, or import movies."_s);
        QVERIFY(hint(u"_clipTable"_s)->isVisible());
        manager->folderList().selectFolders({});
        QCOMPARE(hint(u"_clipTable"_s)->text(), u"Select a folder to see its clips"_s);
        manager->folderList().selectFolder(path(u"a"_s));
        manager->addClip(ClipInfo(clipRecord(u"Clip#01.xml"_s)), path(u"a"_s));
        QVERIFY(!hint(u"_clipTable"_s)->isVisible());
    }
};

QTEST_MAIN(ClipManagerTest)
#include "ClipManagerTest.moc"
