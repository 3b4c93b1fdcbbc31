// The record folder list: its rules, refusals, and what clicks and keys do in it.
#include "folders/FolderList.h"
#include "platform/FaultyFileSystem.h"

#include <QContextMenuEvent>
#include <QLineEdit>

using namespace marquill;

namespace {

const QStringList recordingFolderBusy = {
    u"Recording Folder Busy"_s,
    u"The current recording folder is busy and cannot be changed now. Please stop recording and try again."_s};
const QStringList duplicateFolders = {
    u"Duplicate Folders"_s,
    u"One or more folders were already in the folder list and have not been added."_s};
const QStringList couldNotRemove = {
    u"Couldn't remove/delete Folder!"_s,
    u"One or more folders could not be deleted because the folder is busy. Please try again later"_s};
const QStringList folderBusy = {
    u"Folder Busy"_s,
    u"This folder is busy and cannot be renamed now. Please stop recording and try again."_s};
const QStringList couldNotRename = {u"Error"_s, u"The selected folder could not be renamed."_s};

}  // namespace

class RecordFolderControllerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // The recording folder

    void newRecordingFolderIsTakenAndPosted() {
        List list;
        list.controller.setRecordingFolder(list.b);
        QVERIFY(list.isRecordingFolder(list.b));
        QCOMPARE(list.recordFolderChanges.size(), 1);
        QCOMPARE(list.recordFolderChanges[0][0].value<QObject*>(), &list.controller);
        QCOMPARE(list.saves.size(), 1);
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void sameRecordingFolderAgainPostsNothingEvenWhenItVanishedOrIsBusy() {
        List list;
        list.a.setBusyCount(1);
        QVERIFY(QDir().rmdir(list.path(u"a"_s)));
        list.controller.setRecordingFolder(list.a);
        list.click(0, RecordFolderModel::recording);
        QVERIFY(list.recordFolderChanges.isEmpty());
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void equalContentIsAnotherRecordingFolder() {
        List list;
        const FolderRecord twin(list.a.record().deepCopy());
        list.controller.setRecordingFolder(twin);
        QVERIFY(list.isRecordingFolder(twin));
        QCOMPARE(list.recordFolderChanges.size(), 1);
    }

    void vanishedFolderCannotBecomeTheRecordingFolder() {
        List list;
        list.a.setBusyCount(1);  // the vanished folder is told first
        QVERIFY(QDir().rmdir(list.path(u"b"_s)));
        list.controller.setRecordingFolder(list.b);
        QCOMPARE(list.alert(), noValidRecordingFolder);
        QVERIFY(list.isRecordingFolder(list.a));
        QVERIFY(list.recordFolderChanges.isEmpty());
    }

    void busyRecordingFolderIsNeitherReplacedNorCleared() {
        List list;
        list.a.setBusyCount(1);
        list.controller.setRecordingFolder(list.b);
        QCOMPARE(list.alert(), recordingFolderBusy);
        list.forget();
        list.controller.setRecordingFolder(std::nullopt);
        QCOMPARE(list.alert(), recordingFolderBusy);
        QVERIFY(list.isRecordingFolder(list.a));
        QVERIFY(list.recordFolderChanges.isEmpty());
    }

    void busyCountOfZeroOrLessIsIdle() {
        List list;
        list.a.setBusyCount(0);
        list.controller.setRecordingFolder(list.b);
        list.b.setBusyCount(-1);
        list.controller.setRecordingFolder(list.c);
        QVERIFY(list.isRecordingFolder(list.c));
    }

    void noRecordingFolderIsAllowed() {
        List list;
        list.controller.setRecordingFolder(std::nullopt);
        QVERIFY(!list.controller.recordingFolder());
        QCOMPARE(list.recordFolderChanges.size(), 1);
        list.controller.setRecordingFolder(std::nullopt);
        QCOMPARE(list.recordFolderChanges.size(), 1);
    }

    void clickInTheRecordingColumnMovesTheMarkAndNeverClearsIt() {
        List list;
        list.table.resize(300, 200);
        list.window.show();
        list.click(1, RecordFolderModel::recording);
        QVERIFY(list.isRecordingFolder(list.b));
        list.click(1, RecordFolderModel::recording);
        QVERIFY(list.isRecordingFolder(list.b));
        QCOMPARE(list.recordFolderChanges.size(), 1);
        list.click(2, RecordFolderModel::folderName);
        QVERIFY(list.isRecordingFolder(list.b));
    }

    void spaceMarksTheOneSelectedFolder() {
        List list;
        list.controller.selectFolder(list.path(u"c"_s));
        QTest::keyClick(&list.table, Qt::Key_Space);
        QVERIFY(list.isRecordingFolder(list.c));
        list.controller.selectFolders({list.path(u"a"_s), list.path(u"b"_s)});
        QTest::keyClick(&list.table, Qt::Key_Space);
        QVERIFY(list.isRecordingFolder(list.c));
    }

    // Adding

    void addedFoldersAreAppendedSelectedAndTheLastIsRecordedInto() {
        List list;
        list.controller.selectFolder(list.path(u"b"_s));
        list.forget();
        list.dialogs.chosen = {list.path(u"x"_s), list.path(u"y"_s)};
        list.onDisk(u"x"_s);
        list.onDisk(u"y"_s);
        list.controller.addItem();
        QCOMPARE(list.dialogs.choices.size(), 1);
        QCOMPARE(list.dialogs.choices[0].startFolder, list.path(u"b"_s));
        QCOMPARE(list.paths(), QStringList({list.path(u"a"_s), list.path(u"b"_s), list.path(u"c"_s),
                                            list.path(u"x"_s), list.path(u"y"_s)}));
        QCOMPARE(list.selected(), list.dialogs.chosen);
        QVERIFY(list.isRecordingFolder(list.controller.folderArray().back()));
        QCOMPARE(list.controller.folderArray().back().folderName(), u"y"_s);
        QCOMPARE(list.recordFolderChanges.size(), 2);
        QCOMPARE(list.selectionChanges.size(), 1);
        QVERIFY(!list.saves.isEmpty());
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void addingACancelledChoiceChangesNothing() {
        List list;
        list.controller.selectFolder(list.path(u"b"_s));
        list.forget();
        list.controller.addItem();
        QCOMPARE(list.paths().size(), 3);
        QCOMPARE(list.selected(), QStringList(list.path(u"b"_s)));
        QVERIFY(list.selectionChanges.isEmpty());
        QVERIFY(list.saves.isEmpty());
    }

    void addingWithoutASelectionStartsWhereTheDesktopDoes() {
        List list;
        list.controller.addItem();
        QCOMPARE(list.dialogs.choices[0].startFolder, QString());
    }

    void addingADuplicateAddsNothingAndSelectsFromTheOldEnd() {
        List list;
        list.controller.selectFolder(list.path(u"b"_s));
        list.dialogs.chosen = {list.path(u"a"_s)};
        list.controller.addItem();
        QCOMPARE(list.alert(), duplicateFolders);
        QCOMPARE(list.paths().size(), 3);
        QCOMPARE(list.selected(), QStringList());
        list.forget();

        list.onDisk(u"x"_s);
        list.dialogs.chosen = {list.path(u"a"_s), list.path(u"x"_s), list.path(u"x"_s)};
        list.controller.addItem();
        QCOMPARE(list.alert(), duplicateFolders);
        QCOMPARE(list.paths().size(), 4);
        QCOMPARE(list.selected(), QStringList(list.path(u"x"_s)));
    }

    void pathsAreComparedWithTheirCase() {
        List list;
        list.onDisk(u"A"_s);
        list.dialogs.chosen = {list.path(u"A"_s)};
        list.controller.addItem();
        QCOMPARE(list.paths().size(), 4);
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void addingAnOfflineFolderAppendsItAndKeepsTheRecordingFolder() {
        List list;
        list.dialogs.chosen = {list.path(u"offline"_s)};
        list.controller.addItem();
        QCOMPARE(list.alert(), noValidRecordingFolder);
        QCOMPARE(list.paths().last(), list.path(u"offline"_s));
        QCOMPARE(list.selected(), QStringList(list.path(u"offline"_s)));
        QVERIFY(list.isRecordingFolder(list.a));
    }

    void addingWhileTheRecordingFolderIsBusyKeepsIt() {
        List list;
        list.a.setBusyCount(2);
        list.onDisk(u"x"_s);
        list.dialogs.chosen = {list.path(u"x"_s)};
        list.controller.addItem();
        QCOMPARE(list.alert(), recordingFolderBusy);
        QCOMPARE(list.paths().size(), 4);
        QVERIFY(list.isRecordingFolder(list.a));
    }

    // Removing

    void removingTheRecordingFolderLeavesNoneAndPostsIt() {
        List list;
        list.controller.selectFolders({list.path(u"a"_s), list.path(u"c"_s)});
        list.forget();
        QStringList whenSelectionPosted;
        connect(&Notifications::centre(), &Notifications::folderSelectionHasChanged, &list.controller,
                [&] { whenSelectionPosted = list.paths(); });
        list.controller.deleteItem();
        QCOMPARE(list.paths(), QStringList(list.path(u"b"_s)));
        QVERIFY(!list.controller.recordingFolder());
        QCOMPARE(list.recordFolderChanges.size(), 1);
        QCOMPARE(list.selectionChanges.size(), 1);
        QCOMPARE(whenSelectionPosted, list.paths());
        QCOMPARE(list.selected(), QStringList());
        QVERIFY(QFileInfo::exists(list.path(u"a"_s)));
        QVERIFY(QFileInfo::exists(list.path(u"c"_s)));
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void busyFoldersStayInTheListAndAreTold() {
        List list;
        list.a.setBusyCount(1);
        list.b.setBusyCount(-1);  // for removal, any count but 0 is busy
        list.c.setBusyCount(0);
        list.table.selectAll();
        list.forget();
        list.controller.deleteItem();
        QCOMPARE(list.alert(), couldNotRemove);
        QCOMPARE(list.paths(), QStringList({list.path(u"a"_s), list.path(u"b"_s)}));
        QVERIFY(list.isRecordingFolder(list.a));
        QCOMPARE(list.selected(), QStringList());
        QVERIFY(list.recordFolderChanges.isEmpty());
    }

    void deleteKeyRemovesTheSelectedFolders() {
        List list;
        list.controller.selectFolder(list.path(u"b"_s));
        QTest::keyClick(&list.table, Qt::Key_Backspace);
        QCOMPARE(list.paths(), QStringList({list.path(u"a"_s), list.path(u"c"_s)}));
        QTest::keyClick(&list.table, Qt::Key_Delete);
        QCOMPARE(list.paths().size(), 2);
    }

    void confirmedSheetIsHiddenAndRemoves() {
        List list;
        QWidget sheet;
        list.controller.selectFolder(list.path(u"b"_s));
        sheet.show();
        list.controller.deleteFolderPanelDidEnd(&sheet, 0);
        QVERIFY(!sheet.isVisible());
        QCOMPARE(list.paths().size(), 3);
        sheet.show();
        list.controller.deleteFolderPanelDidEnd(&sheet, 1);
        QVERIFY(!sheet.isVisible());
        QCOMPARE(list.paths().size(), 2);
    }

    // Renaming

    void renamingMovesTheDirectoryAndKeepsTheRecord() {
        List list;
        QSignalSpy moves(&list.controller, &RecordFolderController::folderMoved);
        QFile clip(list.path(u"a/Clip#01.xml"_s));
        QVERIFY(clip.open(QIODevice::WriteOnly));
        list.enterName(0, u"Day 1"_s);
        QCOMPARE(list.a.folderPath(), list.path(u"Day 1"_s));
        QCOMPARE(list.a.folderName(), u"Day 1"_s);
        QVERIFY(QFileInfo::exists(list.path(u"Day 1/Clip#01.xml"_s)));
        QVERIFY(!QFileInfo::exists(list.path(u"a"_s)));
        QVERIFY(list.isRecordingFolder(list.a));
        QVERIFY(list.recordFolderChanges.isEmpty());
        QCOMPARE(moves, (QList<QVariantList>{{list.path(u"a"_s), list.path(u"Day 1"_s)}}));
        QCOMPARE(list.saves.size(), 1);
    }

    void renamingToTheSameNameDoesNotTouchTheDisk() {
        List list;
        FaultyFileSystem fileSystem;
        FileSystem::install(&fileSystem);
        list.enterName(1, u"b"_s);
        FileSystem::install(nullptr);
        QCOMPARE(fileSystem.changeCount(), 0);
        QCOMPARE(list.b.folderPath(), list.path(u"b"_s));
        QVERIFY(list.dialogs.alerts.isEmpty());
    }

    void busyRecordingFolderIsNotRenamed() {
        List list;
        list.a.setBusyCount(1);
        list.enterName(0, u"x"_s);
        QCOMPARE(list.alert(), folderBusy);
        QCOMPARE(list.a.folderName(), u"a"_s);
        QVERIFY(QFileInfo::exists(list.path(u"a"_s)));
    }

    void otherBusyFoldersAreRenamed() {
        List list;
        list.b.setBusyCount(1);
        list.enterName(1, u"x"_s);
        QVERIFY(list.dialogs.alerts.isEmpty());
        QVERIFY(QFileInfo::exists(list.path(u"x"_s)));
    }

    void failedRenameIsToldAndChangesNothing() {
        List list;
        FaultyFileSystem fileSystem;
        fileSystem.failAt(1, ErrorCode::readOnly);
        FileSystem::install(&fileSystem);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        list.enterName(1, u"x"_s);
        FileSystem::install(nullptr);
        QCOMPARE(list.alert(), couldNotRename);
        QCOMPARE(list.b.folderPath(), list.path(u"b"_s));
        QCOMPARE(list.b.folderName(), u"b"_s);
        QVERIFY(list.saves.isEmpty());
    }

    void nameThatIsTakenOrNoNameAtAllIsRefused_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("taken") << u"c"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("leads into another folder") << u"c/b"_s;
        QTest::newRow("leads out") << u"../b2"_s;
        QTest::newRow("the parent itself") << u".."_s;
        QTest::newRow("itself") << u"."_s;
    }

    void nameThatIsTakenOrNoNameAtAllIsRefused() {
        QFETCH(QString, name);
        List list;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        list.enterName(1, name);
        QCOMPARE(list.alert(), couldNotRename);
        QVERIFY(QFileInfo::exists(list.path(u"b"_s)));
        QCOMPARE(list.b.folderPath(), list.path(u"b"_s));
    }

    void refusedNameTypedIntoTheListIsToldOnce() {
        List list;
        list.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list.window));
        list.table.edit(list.controller.model().index(1, RecordFolderModel::folderName));
        auto* editor = list.table.findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->setText(u"c"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(list.alert(), couldNotRename);
        QTRY_VERIFY(!list.table.findChild<QLineEdit*>());
        QCOMPARE(list.dialogs.alerts.size(), 1);
    }

    // Selection

    void selectionIsPostedWithTheController() {
        List list;
        list.controller.selectFolder(list.path(u"b"_s));
        QCOMPARE(list.selectionChanges.size(), 1);
        QCOMPARE(list.selectionChanges[0][0].value<QObject*>(), &list.controller);
        list.controller.selectFolder(list.path(u"b"_s));
        QCOMPARE(list.selectionChanges.size(), 1);
    }

    void selectedFoldersComeInRowOrder() {
        List list;
        list.controller.selectFolders({list.path(u"c"_s), u"/nowhere"_s, list.path(u"a"_s)});
        QCOMPARE(list.selected(), QStringList({list.path(u"a"_s), list.path(u"c"_s)}));
        QCOMPARE(list.selectionChanges.size(), 1);
    }

    void selectingReplacesTheSelectionAndNoPathKeepsIt() {
        List list;
        list.controller.selectFolder(list.path(u"a"_s));
        list.controller.selectFolder(std::nullopt);
        QCOMPARE(list.selected(), QStringList(list.path(u"a"_s)));
        list.controller.selectFolder(list.path(u"b"_s));
        QCOMPARE(list.selected(), QStringList(list.path(u"b"_s)));
        list.controller.selectFolders({});
        QCOMPARE(list.selected(), QStringList());
    }

    void newListDeselectsAllRows() {
        List list;
        list.controller.selectFolder(list.path(u"a"_s));
        list.forget();
        list.controller.setFolderArray({list.b, list.a});
        QCOMPARE(list.selected(), QStringList());
        QCOMPARE(list.paths(), QStringList({list.path(u"b"_s), list.path(u"a"_s)}));
        QCOMPARE(list.selectionChanges.size(), 1);
        QVERIFY(list.isRecordingFolder(list.a));
    }

    // Context menu

    void fileBrowserRevealsTheFirstSelectedFolder() {
        List list;
        list.controller.showFolderInFinder();
        QCOMPARE(list.browser.revealed, QStringList());
        list.controller.selectFolders({list.path(u"c"_s), list.path(u"b"_s)});
        list.controller.showFolderInFinder();
        QCOMPARE(list.browser.revealed, QStringList(list.path(u"b"_s)));
    }

    void contextMenuOffersWhatTheSelectionAllows() {
        List list;
        const QList<QAction*> actions = list.controller.menuForEvent()->actions();
        const auto enabled = [&] {
            list.controller.menuForEvent();
            QStringList texts;
            for (const QAction* action : actions) {
                if (action->isEnabled() && !action->isSeparator()) {
                    texts.append(action->text());
                }
            }
            return texts;
        };
        QCOMPARE(enabled(), QStringList(u"Add Folder…"_s));
        list.controller.selectFolder(list.path(u"b"_s));
        QCOMPARE(enabled(), QStringList({u"Record into This Folder"_s, u"Rename"_s, u"Show in File Browser"_s,
                                         u"Add Folder…"_s, u"Remove Folder"_s}));
        list.controller.selectFolders({list.path(u"a"_s), list.path(u"b"_s)});
        QCOMPARE(enabled(), QStringList({u"Show in File Browser"_s, u"Add Folder…"_s, u"Remove Folder"_s}));
    }

    void rightClickShowsTheContextMenu() {
        List list;
        list.window.show();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
        QApplication::sendEvent(list.table.viewport(), &event);
        QVERIFY(list.controller.menuForEvent()->isVisible());
        list.controller.menuForEvent()->hide();
    }
};

QTEST_MAIN(RecordFolderControllerTest)
#include "RecordFolderControllerTest.moc"
