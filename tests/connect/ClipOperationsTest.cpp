#include "connect/ClipTable.h"
#include "platform/FaultyFileSystem.h"

#include <sys/stat.h>

using namespace marquill;

// Adding, deleting, changing and renaming clips: done, undone and done again, the files on disk compared.
class ClipOperationsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipTable> _t;

    QString path(const QString& name) const { return _t->folder.path(name); }
    ClipSet setOf(const std::vector<ClipInfo>& clips) const {
        return {.clipFolder = _t->folder.path(), .clipArray = clips};
    }
    QStringList trash() const {
        QStringList names = FileSystem::system().list(path(u"Trash"_s)).value_or(QStringList());
        names.sort();
        return names;
    }
    QStringList files() const {
        QStringList names = _t->folder.names();
        names.removeAll(u"Trash"_s);
        return names;
    }
    static QStringList sorted(QStringList names) {
        names.sort();
        return names;
    }
    void deleteRow(int row) {
        _t->controller->selectClip(_t->clip(row));
        _t->controller->deleteItem();
        _t->undo.closeStep();
    }
    void rename(int row, const QString& name) {
        _t->enter(row, ClipTableModel::clip, name);
        QTest::qWait(1);
        _t->undo.closeStep();
    }

  private Q_SLOTS:
    void init() { _t = std::make_unique<ClipTable>(); }
    void cleanup() { _t.reset(); }

    // Delete

    void deleteMovesFilesToTrashAndUndoBringsThemBack() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s});
        const std::vector<ClipInfo> both = {_t->clip(0), _t->clip(2)};
        const QByteArray bytes = _t->folder.contents(u"a#01.xml"_s);
        _t->controller->selectClips(both);
        const QSignalSpy selections(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        _t->controller->deleteItem();
        QCOMPARE(selections.size(), 1);
        QCOMPARE(_t->names(), QStringList(u"b#01.xml"_s));
        QCOMPARE(files(), QStringList(u"b#01.xml"_s));
        QCOMPARE(trash(), QStringList({u"a#01.xml"_s, u"c#01.xml"_s}));
        QCOMPARE(_t->selected(), QStringList());
        QCOMPARE(_t->count.text(), u"0 of 1 Clip Selected"_s);
        QCOMPARE(_t->undo.undoActionName(), u"move Clip(s) to Trash"_s);

        _t->undo.undo();
        QCOMPARE(sorted(_t->names()), QStringList({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s}));
        QCOMPARE(files(), sorted(_t->names()));
        QCOMPARE(trash(), QStringList());
        QCOMPARE(sorted(_t->selected()), QStringList({u"a#01.xml"_s, u"c#01.xml"_s}));
        QVERIFY(_t->controller->model().rowOfClip(both[0]) >= 0);
        QCOMPARE(_t->folder.contents(u"a#01.xml"_s), bytes);
        QCOMPARE(_t->undo.redoActionName(), u"move Clip(s) to Trash"_s);

        _t->undo.redo();
        QCOMPARE(_t->names(), QStringList(u"b#01.xml"_s));
        QCOMPARE(trash(), QStringList({u"a#01.xml"_s, u"c#01.xml"_s}));
        _t->undo.undo();
        QCOMPARE(files().size(), 3);
    }

    void deleteReplacesWhatHasTheNameInTheTrash() {
        QVERIFY(makeFolders(path(u"Trash/b#01.mov/inside"_s)));
        _t->folder.make(u"Trash/a#01.xml"_s, "old");
        _t->folder.make(u"b#01.mov"_s, "movie");
        _t->showNew({u"a#01.xml"_s});
        _t->controller->addItem(clipNamed(u"b#01.mov"_s));
        const QByteArray bytes = _t->folder.contents(u"a#01.xml"_s);
        _t->controller->deleteClipsWithUndo(setOf(_t->controller->clipArray()));
        QCOMPARE(trash(), QStringList({u"a#01.xml"_s, u"b#01.mov"_s}));
        QCOMPARE(_t->folder.contents(u"Trash/a#01.xml"_s), bytes);
        QCOMPARE(_t->folder.contents(u"Trash/b#01.mov"_s), QByteArray("movie"));
    }

    void clipWhoseFileIsGoneStaysAndSoDoesTheOldOneInTheTrash() {
        QVERIFY(makeFolders(path(u"Trash"_s)));
        _t->folder.make(u"Trash/a#01.xml"_s, "old");
        _t->showNew({u"a#01.xml"_s});
        QVERIFY(removeAll(path(u"a#01.xml"_s)));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"a#01.xml"_s));
        deleteRow(0);
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
        QCOMPARE(_t->folder.contents(u"Trash/a#01.xml"_s), QByteArray("old"));
        QVERIFY(!_t->undo.canUndo());
    }

    void undoWithTheNameTakenRestoresWithAStar() {
        _t->showNew({u"Shot#01.xml"_s});
        const ClipInfo deleted = _t->clip(0);
        deleteRow(0);
        _t->controller->addItem(_t->newClip(u"Shot#01.xml"_s));
        _t->undo.undo();
        QCOMPARE(sorted(_t->names()), QStringList({u"Shot#01*.xml"_s, u"Shot#01.xml"_s}));
        QCOMPARE(files(), QStringList({u"Shot#01*.xml"_s, u"Shot#01.xml"_s}));
        QCOMPARE(deleted.clipName(), u"Shot#01*.xml"_s);
        QCOMPARE(_t->stored(u"Shot#01*.xml"_s).clipName(), u"Shot#01*.xml"_s);
        QCOMPARE(_t->selected(), QStringList(u"Shot#01*.xml"_s));
        _t->undo.redo();
        QCOMPARE(trash(), QStringList(u"Shot#01*.xml"_s));
        QCOMPARE(files(), QStringList(u"Shot#01.xml"_s));
    }

    void starredNameThatIsTakenTooGetsAnotherStar() {
        _t->showNew({u"Shot#01.xml"_s});
        deleteRow(0);
        _t->newClip(u"Shot#01.xml"_s);
        _t->newClip(u"Shot#01*.xml"_s);
        _t->undo.undo();
        QCOMPARE(files(), QStringList({u"Shot#01**.xml"_s, u"Shot#01*.xml"_s, u"Shot#01.xml"_s}));
    }

    void undoWithoutTrashFolderSaysSoAndRegistersNothing() {
        _t->showNew({u"a#01.xml"_s});
        deleteRow(0);
        QVERIFY(removeAll(path(u"Trash"_s)));
        QTest::ignoreMessage(QtWarningMsg, "No trash folder found");
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList());
        QVERIFY(!_t->undo.canRedo());
    }

    void undoOfAnEmptiedTrashLogsAndLeavesTheNameAlone() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        const ClipInfo lost = _t->clip(0);
        _t->controller->deleteClipsWithUndo(setOf(_t->controller->clipArray()));
        QVERIFY(removeAll(path(u"Trash/a#01.xml"_s)));
        _t->newClip(u"a#01.xml"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Trash/a#01.xml"_s));
        _t->undo.undo();
        QCOMPARE(files(), QStringList({u"a#01.xml"_s, u"b#01.xml"_s}));
        QCOMPARE(_t->names(), QStringList(u"b#01.xml"_s));
        QCOMPARE(lost.clipName(), u"a#01.xml"_s);
        _t->undo.redo();
        QCOMPARE(files(), QStringList(u"a#01.xml"_s));
    }

    void nameWithoutRoomForAStarStaysInTheTrash() {
        const QString longest = QString(251, u'x') + u".xml"_s;  // 255 bytes
        _t->showNew({longest});
        const QByteArray bytes = _t->folder.contents(longest);
        deleteRow(0);
        _t->folder.make(longest, "another clip");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"xxx"_s));
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList());
        QCOMPARE(_t->folder.contents(longest), QByteArray("another clip"));
        QCOMPARE(_t->folder.contents(u"Trash/"_s + longest), bytes);
    }

    void deleteWithoutRoomForATrashLogsAndKeepsAll() {
        _t->showNew({u"a#01.xml"_s});
        _t->folder.make(u"Trash"_s, "a file");
        QTest::ignoreMessage(QtWarningMsg, "Couldn't create trash folder");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Trash"_s));
        deleteRow(0);
        QCOMPARE(files(), QStringList(u"a#01.xml"_s));
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
        QVERIFY(_t->dialogs.alerts.isEmpty());
    }

    void oneFailingMoveLeavesThatClipAlone() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s});
        FaultyFileSystem disk;
        const InstalledFileSystem installed(disk);
        disk.failAt(3, ErrorCode::permissionDenied);  // the folder, a, b
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"b#01.xml"_s));
        _t->controller->deleteClipsWithUndo(setOf(_t->controller->clipArray()));
        QCOMPARE(_t->names(), QStringList(u"b#01.xml"_s));
        QCOMPARE(files(), QStringList(u"b#01.xml"_s));
        _t->undo.undo();
        QCOMPARE(sorted(_t->names()), QStringList({u"a#01.xml"_s, u"b#01.xml"_s, u"c#01.xml"_s}));
    }

    void undoInAnotherFolderMovesTheFilesAndLeavesTheTable() {
        _t->showNew({u"a#01.xml"_s});
        deleteRow(0);
        const ClipFolder other;
        _t->controller->setClipArray({clipNamed(u"x#01.xml"_s)}, other.path());
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList(u"x#01.xml"_s));
        QCOMPARE(files(), QStringList(u"a#01.xml"_s));
        _t->undo.redo();
        QCOMPARE(_t->names(), QStringList(u"x#01.xml"_s));
        QCOMPARE(trash(), QStringList(u"a#01.xml"_s));
    }

    void undoFindsAFolderThatWasRenamedSince() {
        _t->showNew({u"a#01.xml"_s});
        deleteRow(0);
        const QString moved = path(u"Moved"_s);
        QVERIFY(FileSystem::system().makeFolder(moved));
        QVERIFY(FileSystem::system().move(path(u"Trash"_s), joinPath(moved, u"Trash"_s)));
        _t->controller->folderMoved(_t->folder.path(), moved);
        QCOMPARE(_t->controller->clipFolder(), moved);
        _t->undo.undo();
        QVERIFY(fileExists(joinPath(moved, u"a#01.xml"_s)));
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
    }

    void clipReadAnewIsNotShownTwice() {
        _t->showNew({u"a#01.xml"_s});
        deleteRow(0);
        _t->undo.undo();
        _t->showFolder();
        _t->undo.redo();
        QCOMPARE(_t->names(), QStringList());
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
    }

    void recordThatLeadsOutOfTheFolderIsNotFollowed() {
        const ClipFolder outside;
        outside.make(u"precious.xml"_s, "kept");
        _t->controller->setClipArray(
            {clipNamed(u"../"_s + lastPathComponent(outside.path()) + u"/precious.xml"_s)},
            _t->folder.path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"No clip can have the name"_s));
        deleteRow(0);
        QCOMPARE(outside.contents(u"precious.xml"_s), QByteArray("kept"));
        QCOMPARE(_t->controller->clipArray().size(), std::size_t(1));
    }

    // Add

    void addIsUndoneIntoTheTrashAndRedone() {
        _t->showNew({u"a#01.xml"_s});
        const ClipInfo added = _t->newClip(u"b#01.xml"_s);
        _t->controller->addClipsWithUndo(setOf({added}));
        QCOMPARE(_t->names(), QStringList({u"a#01.xml"_s, u"b#01.xml"_s}));
        QCOMPARE(_t->selected(), QStringList(u"b#01.xml"_s));
        QCOMPARE(_t->count.text(), u"1 of 2 Clips Selected"_s);
        QCOMPARE(_t->undo.undoActionName(), u"add Clip(s)"_s);
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
        QCOMPARE(trash(), QStringList(u"b#01.xml"_s));
        QCOMPARE(_t->undo.redoActionName(), u"add Clip(s)"_s);
        _t->undo.redo();
        QCOMPARE(_t->names(), QStringList({u"a#01.xml"_s, u"b#01.xml"_s}));
        QCOMPARE(files(), _t->names());
        QVERIFY(_t->clip(1).isSame(added));
        QCOMPARE(_t->undo.undoActionName(), u"add Clip(s)"_s);
    }

    void addingToAnotherFolderLeavesTheTableAlone() {
        _t->showNew({u"a#01.xml"_s});
        _t->controller->addClipsWithUndo(
            {.clipFolder = u"/elsewhere"_s, .clipArray = {clipNamed(u"b#01.xml"_s)}});
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
        QVERIFY(_t->undo.canUndo());
    }

    void addingNothingIsNoStep() {
        _t->showNew({u"a#01.xml"_s});
        _t->controller->addClipsWithUndo(setOf({}));
        QVERIFY(!_t->undo.canUndo());
    }

    // Change

    void changeReplacesWritesAndSelectsUndoPutsBack() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        const ClipInfo before = _t->clip(0);
        ClipInfo after = before.deepCopy();
        after.setClipPath(u"/media/x.mov"_s);
        _t->controller->selectClip(before);
        _t->controller->changeClipsWithUndo(
            {.oldClips = {before}, .newClips = {after}, .actionName = u"connect Clips"_s});
        QCOMPARE(_t->names(), QStringList({u"b#01.xml"_s, u"a#01.xml"_s}));
        QVERIFY(_t->clip(1).isSame(after));
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
        QCOMPARE(_t->stored(u"a#01.xml"_s).clipPath(), u"/media/x.mov"_s);
        QCOMPARE(_t->undo.undoActionName(), u"connect Clips"_s);
        _t->undo.undo();
        QVERIFY(_t->controller->model().rowOfClip(before) >= 0);
        QCOMPARE(_t->controller->model().rowOfClip(after), -1);
        QVERIFY(!_t->stored(u"a#01.xml"_s).clipPath());
        QCOMPARE(_t->selected(), QStringList(u"a#01.xml"_s));
        QCOMPARE(_t->undo.redoActionName(), u"connect Clips"_s);
        _t->undo.redo();
        QCOMPARE(_t->stored(u"a#01.xml"_s).clipPath(), u"/media/x.mov"_s);
    }

    void markersSetSinceAChangeOutliveItsUndoAndRedo() {
        _t->showNew({u"a#01.xml"_s});
        const auto marker = [](const QString& title) { return Dictionary{{u"clipMarkerTitle"_s, title}}; };
        ClipInfo before = _t->controller->clipArray()[0];
        before.setClipMarkerArray(Array{marker(u"first"_s)});
        ClipInfo after = before.deepCopy();
        after.setClipPath(u"/media/a.mov"_s);
        _t->controller->changeClipsWithUndo(
            {.oldClips = {before}, .newClips = {after}, .actionName = u"connect Clip"_s});
        after.setClipMarkerArray(Array{marker(u"first"_s), marker(u"later"_s)});
        _t->undo.undo();
        const auto onDisk = [this] { return *ClipStore::infoForClip(_t->folder.path(u"a#01.xml"_s)); };
        QVERIFY(!onDisk().clipPath());
        QCOMPARE(onDisk().clipMarkerArray(), (Array{marker(u"first"_s), marker(u"later"_s)}));
        before.setClipMarkerArray(Array{marker(u"last"_s)});
        _t->undo.redo();
        QCOMPARE(onDisk().clipPath(), u"/media/a.mov"_s);
        QCOMPARE(onDisk().clipMarkerArray(), Array{marker(u"last"_s)});
    }

    void changeOfUnequalArraysDoesNothing() {
        _t->showNew({u"a#01.xml"_s});
        _t->controller->changeClipsWithUndo(
            {.oldClips = {_t->clip(0)}, .newClips = {}, .actionName = u"x"_s});
        QCOMPARE(_t->names(), QStringList(u"a#01.xml"_s));
        QVERIFY(!_t->undo.canUndo());
    }

    void changeOfAnUnknownRecordIsLoggedAndGoesOn() {
        _t->showNew({u"a#01.xml"_s});
        QTest::ignoreMessage(QtWarningMsg, "not found in 'changeClipsWithUndo'");
        _t->controller->changeClipsWithUndo({.oldClips = {clipNamed(u"b#01.xml"_s)},
                                             .newClips = {clipNamed(u"c#01.xml"_s)},
                                             .actionName = u"connect Clip"_s});
        QCOMPARE(_t->names(), QStringList({u"a#01.xml"_s, u"c#01.xml"_s}));
        _t->controller->setClipArray({}, _t->folder.path());
        QTest::ignoreMessage(QtWarningMsg, "not found in 'undoChangeClipsWithUndo'");
        _t->undo.undo();
        QCOMPARE(_t->names(), QStringList(u"b#01.xml"_s));
    }

    void undoWhileTheFolderIsReadShowsNoClipTwice() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        ClipInfo after = _t->clip(0).deepCopy();
        after.setClipPath(u"/media/x.mov"_s);
        _t->controller->changeClipsWithUndo(
            {.oldClips = {_t->clip(0)}, .newClips = {after}, .actionName = u"connect Clips"_s});
        _t->undo.closeStep();
        _t->controller->setClipArray({}, _t->folder.path());
        const std::vector<ClipInfo> read = ClipStore::readClipInfoForFolder(_t->folder.path());
        QTest::ignoreMessage(QtWarningMsg, "not found in 'undoChangeClipsWithUndo'");
        _t->undo.undo();
        _t->controller->addClipsRead(read, {});
        QCOMPARE(sorted(_t->names()), QStringList({u"a#01.xml"_s, u"b#01.xml"_s}));
        for (const ClipInfo& clip : _t->controller->clipArray()) {
            QVERIFY(!clip.clipPath());
        }
    }

    void undoOfAChangeNeverWritesIntoAnotherFolder() {
        _t->showNew({u"a#01.xml"_s});
        ClipInfo after = _t->clip(0).deepCopy();
        after.setClipPath(u"/media/x.mov"_s);
        _t->controller->changeClipsWithUndo(
            {.oldClips = {_t->clip(0)}, .newClips = {after}, .actionName = u"connect Clips"_s});
        const ClipFolder other;
        other.make(u"a#01.xml"_s, "another clip");
        _t->controller->setClipArray({clipNamed(u"a#01.xml"_s)}, other.path());
        _t->undo.undo();
        QCOMPARE(other.contents(u"a#01.xml"_s), QByteArray("another clip"));
        QVERIFY(!_t->stored(u"a#01.xml"_s).clipPath());
        QCOMPARE(_t->controller->clipArray().size(), std::size_t(1));
    }

    // Rename

    void renameKeepsTakeAndKind() {
        _t->showNew({u"Shot#03.xml"_s});
        rename(0, u"Wide"_s);
        QCOMPARE(_t->names(), QStringList(u"Wide#03.xml"_s));
        QCOMPARE(files(), QStringList(u"Wide#03.xml"_s));
        QCOMPARE(_t->stored(u"Wide#03.xml"_s).clipName(), u"Wide#03.xml"_s);
        QCOMPARE(_t->selected(), QStringList(u"Wide#03.xml"_s));
        _t->undo.undo();
        QCOMPARE(files(), QStringList(u"Shot#03.xml"_s));
        QCOMPARE(_t->stored(u"Shot#03.xml"_s).clipName(), u"Shot#03.xml"_s);
        _t->undo.redo();
        QCOMPARE(files(), QStringList(u"Wide#03.xml"_s));
        QVERIFY(_t->dialogs.alerts.isEmpty());
    }

    void undoOfARenameSelectsTheClipAnew() {
        _t->showNew({u"Shot#03.xml"_s, u"Wide#01.xml"_s});
        rename(0, u"Close"_s);
        const QSignalSpy selections(&Notifications::centre(), &Notifications::clipSelectionHasChanged);
        _t->undo.undo();
        QVERIFY(!selections.isEmpty());
        QCOMPARE(_t->selected(), QStringList(u"Shot#03.xml"_s));
        const ClipFolder other;
        _t->controller->setClipArray({clipNamed(u"x#01.xml"_s)}, other.path());
        _t->controller->selectClip(_t->clip(0));
        _t->undo.redo();
        QCOMPARE(files(), QStringList({u"Close#03.xml"_s, u"Wide#01.xml"_s}));
        QCOMPARE(_t->selected(), QStringList(u"x#01.xml"_s));
    }

    void renameToAKindAloneKeepsTheKind() {
        _t->showNew({u"Clip.xml"_s});
        rename(0, u".xml"_s);
        QCOMPARE(files(), QStringList(u".xml.xml"_s));
        _t->showFolder();
        QCOMPARE(_t->cell(0, ClipTableModel::clip).data().toString(), u".xml"_s);
    }

    void renameToTheDisplayNameDoesNothing() {
        _t->showNew({u"A.B#C#03.xml"_s});
        for (const QString& same : {u"A.B#C"_s, u"A.B#C.xml"_s, u"A.B#C.mov"_s}) {
            rename(0, same);
            QCOMPARE(files(), QStringList(u"A.B#C#03.xml"_s));
        }
        QVERIFY(!_t->undo.canUndo());
    }

    void renameDropsTheExtensionThatWasTyped() {
        _t->showNew({u"Shot#03.xml"_s});
        rename(0, u"Wide.mov"_s);
        QCOMPARE(files(), QStringList(u"Wide#03.xml"_s));
    }

    void renameOfMoviesAndClipsWithoutTake() {
        _t->folder.make(u"Clip.mov"_s, "no movie");
        _t->controller->setClipArray({clipNamed(u"Clip.mov"_s)}, _t->folder.path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Premov.mov: The file ends within"_s));
        rename(0, u"Premov"_s);
        QCOMPARE(files(), QStringList(u"Premov.mov"_s));
    }

    void renameOntoAnotherClipIsRefusedAndKeepsBoth() {
        _t->showNew({u"a#01.xml"_s, u"b#01.xml"_s});
        const QByteArray other = _t->folder.contents(u"b#01.xml"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"b#01.xml"_s));
        rename(0, u"b"_s);
        QCOMPARE(files(), QStringList({u"a#01.xml"_s, u"b#01.xml"_s}));
        QCOMPARE(_t->folder.contents(u"b#01.xml"_s), other);
        QCOMPARE(_t->names(), files());
        QCOMPARE(_t->dialogs.alerts.size(), 1);
        QCOMPARE(_t->dialogs.alerts[0].title, u"Couldn't change name"_s);
        QCOMPARE(_t->dialogs.alerts[0].text, u"The clip name could not be changed."_s);
        QCOMPARE(_t->dialogs.alerts[0].buttons, QStringList(u"OK"_s));
        QVERIFY(!_t->undo.canUndo());
    }

    void namesThatNoFileCanHaveAreRefused_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("slash") << u"a/b"_s;
        QTest::newRow("newline") << u"a\nb"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("extension alone") << u"a.xml/"_s;
        QTest::newRow("256 bytes") << QString(256, u'x');
        QTest::newRow("control") << u"a\u0001"_s;
    }

    void namesThatNoFileCanHaveAreRefused() {
        QFETCH(QString, name);
        _t->showNew({u"Shot#03.xml"_s});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"No clip can have that name"_s));
        rename(0, name);
        QCOMPARE(files(), QStringList(u"Shot#03.xml"_s));
        QCOMPARE(_t->names(), QStringList(u"Shot#03.xml"_s));
        QCOMPARE(_t->dialogs.alerts.size(), 1);
    }

    void unusualNamesAreKeptAsTheyAre_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("leading dot") << u".hidden"_s;
        QTest::newRow("decomposed") << u"Cafe\u0301"_s;
        QTest::newRow("emoji") << QString::fromUtf8("\xf0\x9f\x8e\xac take");
        QTest::newRow("240 bytes") << QString(240, u'x');
        QTest::newRow("spaces") << u" a "_s;
        QTest::newRow("hash") << u"A#B"_s;
        QTest::newRow("two dots") << u".."_s;
        QTest::newRow("dot and space") << u"Mr. Smith"_s;
    }

    void unusualNamesAreKeptAsTheyAre() {
        QFETCH(QString, name);
        _t->showNew({u"Shot#03.xml"_s});
        rename(0, name);
        QCOMPARE(files(), QStringList(name + u"#03.xml"_s));
        QCOMPARE(_t->cell(0, ClipTableModel::clip).data().toString(), name);
        _t->showFolder();
        QCOMPARE(_t->names(), QStringList(name + u"#03.xml"_s));
    }

    // Edits across the reading of folders

    void undoOfAnEditAfterItsFolderWasReadAnewKeepsLaterEdits() {
        _t->showNew({u"a#01.xml"_s});
        _t->enter(0, ClipTableModel::scene, u"12A"_s);
        _t->undo.closeStep();
        _t->showFolder();
        _t->enter(0, ClipTableModel::comment, u"later"_s);
        _t->undo.removeAllActions(nullptr);
        _t->undo.undo();
        _t->undo.undo();
        QVERIFY(!_t->stored(u"a#01.xml"_s).clipScene());
        QVERIFY(!_t->clip(0).clipScene());
        _t->undo.redo();
        QCOMPARE(_t->stored(u"a#01.xml"_s).clipScene(), u"12A"_s);
    }

    void undoOfAnEditInAnotherFolderChangesItsFileOnly() {
        _t->showNew({u"a#01.xml"_s});
        _t->enter(0, ClipTableModel::scene, u"12A"_s);
        const ClipFolder other;
        other.make(u"a#01.xml"_s, "another clip");
        _t->controller->setClipArray({clipNamed(u"a#01.xml"_s)}, other.path());
        _t->undo.undo();
        QVERIFY(!_t->stored(u"a#01.xml"_s).clipScene());
        QCOMPARE(other.contents(u"a#01.xml"_s), QByteArray("another clip"));
    }
};

QTEST_MAIN(ClipOperationsTest)
#include "ClipOperationsTest.moc"
