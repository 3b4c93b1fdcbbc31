#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/CurrentClip.h"
#include "markers/ClipMarkerModel.h"
#include "platform/MovieMaker.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace marquill;

// What becomes of the edits of the clip that is selected alone.
class CurrentClipTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipManagerFixture> _fixture;

    ClipManager& manager() { return *_fixture->manager; }
    QLineEdit& field(const QString& name) { return _fixture->outlet<QLineEdit>(name); }
    QPlainTextEdit& comment() { return _fixture->outlet<QPlainTextEdit>(u"_commentView"_s); }

    void activate() {
        QApplication::setActiveWindow(manager().window());
        QVERIFY(QTest::qWaitForWindowActive(manager().window()));
    }

    // Into the field as the user would, replacing its text; the field keeps the keyboard.
    void type(QLineEdit& into, const QString& text) {
        activate();
        into.setFocus();
        into.selectAll();
        text.isEmpty() ? QTest::keyClick(&into, Qt::Key_Delete) : QTest::keyClicks(&into, text);
    }

    // The cell's editor stays open.
    static void editCell(TableView& table, int row, int column, const QString& text) {
        const QModelIndex cell = table.model()->index(row, column);
        table.setFocus();
        table.setCurrentIndex(cell);
        table.edit(cell);
        auto* editor = qobject_cast<QLineEdit*>(table.indexWidget(cell));
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, text);
    }

    void writeClipWithMarker() {
        _fixture->writeClip(u"A#01.xml"_s,
                            {{u"clipMarkerArray"_s, Array{Dictionary{{u"clipMarkerTitle"_s, u"first"_s}}}}});
    }

    QString markerTitle(const QString& clip) {
        const Array markers = _fixture->onDisk(clip).clipMarkerArray().value_or(Array());
        return markers.isEmpty() ? QString()
                                 : Marker(*markers.at(0).dictionary()).title().value_or(QString());
    }

    static void choose(QComboBox& menu, int item) {
        menu.setCurrentIndex(item);
        Q_EMIT menu.activated(item);
    }

    static QDateTime modified(const QString& path) { return QFileInfo(path).lastModified(); }

    // Sets the file's dates back, so that a write shows.
    static void age(const QString& path) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(1000), QFileDevice::FileModificationTime));
    }

  private Q_SLOTS:
    void init() { _fixture = std::make_unique<ClipManagerFixture>(); }
    void cleanup() { _fixture.reset(); }

    // Selection

    void oneSelectedClipIsCurrentAndNoOther() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        QVERIFY(!manager().currentClip());
        _fixture->select(u"A#01.xml"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"A#01.xml"_s)));
        _fixture->select(u"B#01.xml"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"B#01.xml"_s)));
        _fixture->table().selectClips({_fixture->clip(u"A#01.xml"_s), _fixture->clip(u"B#01.xml"_s)});
        QVERIFY(!manager().currentClip());
        QTRY_COMPARE(_fixture->message(), u"2 clips selected"_s);
        _fixture->select(u"A#01.xml"_s);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QVERIFY(!manager().currentClip());
    }

    // Fields

    void typedTextsStandInTheRecordAndTheRowAtOnce() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        QSignalSpy changed(&_fixture->table().model(), &QAbstractItemModel::dataChanged);
        type(field(u"_clipSceneText"_s), u"4"_s);
        QCOMPARE(manager().currentClip()->clipScene(), u"4"_s);
        QCOMPARE(_fixture->table().model().text(0, ClipTableModel::scene), u"4"_s);
        QCOMPARE(changed.size(), 1);
        type(field(u"_clipTakeText"_s), u"7b"_s);
        QCOMPARE(manager().currentClip()->clipTake(), u"7b"_s);
        comment().setFocus();
        QTest::keyClicks(&comment(), u"fine"_s);
        QTest::keyClick(&comment(), Qt::Key_Return);
        QTest::keyClicks(&comment(), u"second line"_s);
        QCOMPARE(manager().currentClip()->clipComment(), u"fine\nsecond line"_s);
    }

    void leavingAFieldWritesItAndIsOneStep() {
        _fixture->writeClip(u"A#01.xml"_s, {{u"clipScene"_s, u"1"_s}});
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"12A"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        QTest::keyClick(&field(u"_clipSceneText"_s), Qt::Key_Tab);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        QVERIFY(field(u"_clipTakeText"_s).hasFocus());
        QCOMPARE(manager().undoManager().undoActionName(), u"change Clip"_s);
        manager().undoManager().undo();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        QCOMPARE(field(u"_clipSceneText"_s).text(), u"1"_s);
        QVERIFY(!manager().undoManager().canUndo());
        manager().undoManager().redo();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        QCOMPARE(field(u"_clipSceneText"_s).text(), u"12A"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"A#01.xml"_s)));
    }

    void undoLeavesTheKeyboardWhereItIs() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"12A"_s);
        QTest::keyClick(&field(u"_clipSceneText"_s), Qt::Key_Tab);
        manager().undoManager().undo();
        QVERIFY(field(u"_clipTakeText"_s).hasFocus());
    }

    void fieldLeftAsItWasChangesNothing() {
        _fixture->writeClip(u"A#03.xml"_s);
        _fixture->show();
        _fixture->select(u"A#03.xml"_s);
        age(_fixture->path(u"a/A#03.xml"_s));
        const QDateTime before = modified(_fixture->path(u"a/A#03.xml"_s));
        QCOMPARE(field(u"_clipTakeText"_s).text(), u"03"_s);
        activate();
        field(u"_clipTakeText"_s).setFocus();
        QTest::keyClick(&field(u"_clipTakeText"_s), Qt::Key_Return);
        comment().setFocus();
        field(u"_clipSceneText"_s).setFocus();
        _fixture->table().deselectAll();
        QVERIFY(!_fixture->onDisk(u"A#03.xml"_s).clipTake());
        QVERIFY(!manager().undoManager().canUndo());
        QCOMPARE(modified(_fixture->path(u"a/A#03.xml"_s)), before);
    }

    void takeThatIsDeletedIsThatOfTheNameAgain() {
        _fixture->writeClip(u"A#03.xml"_s, {{u"clipTake"_s, u"7b"_s}});
        _fixture->show();
        _fixture->select(u"A#03.xml"_s);
        type(field(u"_clipTakeText"_s), QString());
        QTest::keyClick(&field(u"_clipTakeText"_s), Qt::Key_Return);
        QCOMPARE(field(u"_clipTakeText"_s).text(), u"03"_s);
    }

    void textTypedAndDeletedAgainLeavesNoKey() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"4"_s);
        type(field(u"_clipSceneText"_s), QString());
        _fixture->table().deselectAll();
        QVERIFY(!_fixture->clip(u"A#01.xml"_s).clipScene());
        QVERIFY(!manager().undoManager().canUndo());
    }

    void ratingAndLabelAreWrittenWhenChosen() {
        Preferences::init();
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        choose(_fixture->outlet<QComboBox>(u"_ratingPopup"_s), 4);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipRating(), 4);
        choose(_fixture->outlet<QComboBox>(u"_shotPopup"_s), 2);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipLabel(), u"Audio"_s);
        QVERIFY(manager().currentClip());
        manager().undoManager().closeStep();
        manager().undoManager().undo();
        QCOMPARE(_fixture->outlet<QComboBox>(u"_shotPopup"_s).currentText(), u"Print"_s);
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipLabel());
    }

    void withoutACurrentClipHandlersDoNothing() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        const ClipInfo before = _fixture->clip(u"A#01.xml"_s).deepCopy();
        manager().textDidChange(ClipKey::clipScene, u"4"_s);
        manager().sceneChanged();
        manager().takeChanged();
        manager().commentChanged();
        manager().ratingChanged();
        manager().shotChanged();
        manager().clipNameChanged();
        QCOMPARE(_fixture->clip(u"A#01.xml"_s), before);
        QVERIFY(!manager().undoManager().canUndo());
    }

    void undoMenuCountsWhatIsBeingTyped() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"4"_s);
        QAction undo;
        undo.setObjectName(u"undo"_s);
        manager().validateMenuItem(undo);
        QVERIFY(undo.isEnabled());
        QCOMPARE(undo.text(), u"Undo change Clip"_s);
        manager().undo();
        QVERIFY(!manager().currentClip()->clipScene());
    }

    void editsOfTheTableAreShown() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        _fixture->table().setObjectValue(u"12A"_s, ClipTableModel::scene, 0);
        QCOMPARE(field(u"_clipSceneText"_s).text(), u"12A"_s);
        QVERIFY(manager().currentClip());
    }

    // Leaving the clip while its field keeps the keyboard

    void anotherClipSelectedWhileTypingIsTheCurrentOne() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"12A"_s);
        _fixture->select(u"B#01.xml"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"B#01.xml"_s)));
        QCOMPARE(_fixture->table().selectedClipArray().size(), std::size_t(1));
        QVERIFY(_fixture->table().selectedClipArray().front().isSame(_fixture->clip(u"B#01.xml"_s)));
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        QCOMPARE(field(u"_clipSceneText"_s).text(), QString());
        manager().undoManager().undo();
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipScene());
    }

    void theFieldKeepsTheKeyboardWhenAnotherClipIsSelected_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"_clipNameText", "_clipSceneText", "_clipTakeText", "_ratingPopup"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

    void theFieldKeepsTheKeyboardWhenAnotherClipIsSelected() {
        QFETCH(const QString, name);
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        activate();
        auto& widget = _fixture->outlet<QWidget>(name);
        widget.setFocus();
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(manager().window()->focusWidget()->objectName(), name);
    }

    void takeThatEndsWhileTypingIsSelectedAndTheTypingIsKept() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"12A"_s);
        _fixture->writeClip(u"New#01.xml"_s);
        manager().addClip(_fixture->onDisk(u"New#01.xml"_s), _fixture->path(u"a"_s));
        QTRY_COMPARE(manager().currentClip()->clipName(), u"New#01.xml"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        QVERIFY(!_fixture->onDisk(u"New#01.xml"_s).clipScene());
        QCOMPARE(_fixture->table().selectedClipArray().size(), std::size_t(1));
    }

    void cellThatIsBeingEditedIsTakenWhenATakeEnds() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        activate();
        _fixture->select(u"A#01.xml"_s);
        editCell(_fixture->table().tableView(), 0, ClipTableModel::scene, u"12A"_s);
        _fixture->writeClip(u"New#01.xml"_s);
        manager().addClip(_fixture->onDisk(u"New#01.xml"_s), _fixture->path(u"a"_s));
        QTRY_COMPARE(manager().currentClip()->clipName(), u"New#01.xml"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        QCOMPARE(_fixture->table().selectedClipArray().size(), std::size_t(1));
    }

    void markerCellThatIsBeingEditedIsTakenWhenTheClipIsLeft() {
        writeClipWithMarker();
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        activate();
        _fixture->select(u"A#01.xml"_s);
        editCell(_fixture->outlet<TableView>(u"_markerTable"_s), 0, ClipMarkerModel::markerName, u"Good"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(markerTitle(u"A#01.xml"_s), u"Good"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"B#01.xml"_s)));
    }

    void cellsThatAreBeingEditedAreTakenWhenTheFolderIsLeft() {
        writeClipWithMarker();
        _fixture->show();
        activate();
        _fixture->select(u"A#01.xml"_s);
        editCell(_fixture->table().tableView(), 0, ClipTableModel::scene, u"12A"_s);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
    }

    void cellsThatAreBeingEditedAreTakenAtQuitting_data() {
        QTest::addColumn<bool>("marker");
        QTest::newRow("clip") << false;
        QTest::newRow("marker") << true;
    }

    void cellsThatAreBeingEditedAreTakenAtQuitting() {
        QFETCH(const bool, marker);
        writeClipWithMarker();
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        ClipManager& manager = *ClipManager::getClipManager();
        QTRY_VERIFY(!manager.isReading());
        QApplication::setActiveWindow(manager.window());
        QVERIFY(QTest::qWaitForWindowActive(manager.window()));
        manager.clipTable().selectNextClip();
        auto* markers = manager.window()->findChild<TableView*>(u"_markerTable"_s);
        marker ? editCell(*markers, 0, ClipMarkerModel::markerName, u"Good"_s)
               : editCell(manager.clipTable().tableView(), 0, ClipTableModel::scene, u"12A"_s);
        ClipManager::finish();
        QCOMPARE(markerTitle(u"A#01.xml"_s), marker ? u"Good"_s : u"first"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene().value_or(QString()),
                 marker ? QString() : u"12A"_s);
    }

    // Names

    void nameIsAppliedOnLeavingTheClipForAnother() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        const ClipInfo renamed = *manager().currentClip();
        field(u"_clipNameText"_s).setText(u"Wide"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(renamed.clipName(), u"Wide#01.xml"_s);
        QVERIFY(QFile::exists(_fixture->path(u"a/Wide#01.xml"_s)));
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"B#01.xml"_s)));
        QCOMPARE(_fixture->table().selectedClipArray().size(), std::size_t(1));
        QCOMPARE(field(u"_clipNameText"_s).text(), u"B"_s);
        manager().undoManager().undo();
        QVERIFY(QFile::exists(_fixture->path(u"a/A#01.xml"_s)));
    }

    void nameIsAppliedWhenItsEditingEndsAndTheKeyboardGoesOn() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipNameText"_s), u"Wide"_s);
        QTest::keyClick(&field(u"_clipNameText"_s), Qt::Key_Tab);
        QVERIFY(QFile::exists(_fixture->path(u"a/Wide#01.xml"_s)));
        QCOMPARE(manager().currentClip()->clipName(), u"Wide#01.xml"_s);
        QVERIFY(field(u"_clipSceneText"_s).hasFocus());
        QCOMPARE(_fixture->dialogs.alerts.size(), 0);
    }

    void nameThatIsTakenIsRefusedAndTheOldOneShown() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipNameText"_s), u"B"_s);
        QTest::keyClick(&field(u"_clipNameText"_s), Qt::Key_Return);
        QTRY_COMPARE(_fixture->dialogs.alerts.size(), 1);
        QCOMPARE(_fixture->dialogs.alerts[0].title, u"Couldn't change name"_s);
        QCOMPARE(field(u"_clipNameText"_s).text(), u"A"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"A#01.xml"_s)));
    }

    void nameTypedIntoADeletedClipIsForgotten() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        field(u"_clipNameText"_s).setText(u"Wide"_s);
        _fixture->table().deleteItem();
        QTest::qWait(10);
        QCOMPARE(_fixture->dialogs.alerts.size(), 0);
        QVERIFY(QFile::exists(_fixture->path(u"a/Trash/A#01.xml"_s)));
    }

    // Writing

    void clipThatIsOnlyLookedAtIsNotWritten() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        age(_fixture->path(u"a/A#01.xml"_s));
        const QDateTime before = modified(_fixture->path(u"a/A#01.xml"_s));
        _fixture->select(u"A#01.xml"_s);
        QTest::qWait(20);
        _fixture->table().deselectAll();
        QCOMPARE(modified(_fixture->path(u"a/A#01.xml"_s)), before);
    }

    void typingIsWrittenOnceItRests() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        type(field(u"_clipSceneText"_s), u"12A"_s);
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipScene());
        QTRY_COMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"12A"_s);
        // The step is open still: what is typed on belongs to it.
        QVERIFY(!manager().undoManager().canUndo());
        type(field(u"_clipSceneText"_s), QString());
        _fixture->table().deselectAll();
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipScene());
    }

    void typingIsWrittenWhenTheWindowIsLeft() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        activate();
        comment().setFocus();
        QTest::keyClicks(&comment(), u"fine"_s);
        QApplication::setActiveWindow(nullptr);
        // At once, and not by the rest of two seconds.
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipComment(), u"fine"_s);
    }

    void typingIsWrittenWhenTheFolderIsLeftAndWhenTheWindowGoes() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        manager().textDidChange(ClipKey::clipScene, u"1"_s);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        manager().folderList().selectFolder(_fixture->path(u"a"_s));
        QTRY_VERIFY(!manager().isReading());
        _fixture->select(u"A#01.xml"_s);
        manager().textDidChange(ClipKey::clipScene, u"2"_s);
        _fixture->manager.reset();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"2"_s);
    }

    void finishWritesTheClipAndItsName() {
        _fixture->writeClip(u"A#01.xml"_s);
        UserDefaults::standard().setValue(u"ClipManagerSettings"_s, _fixture->settings());
        ClipManager::init();
        ClipManager& manager = *ClipManager::getClipManager();
        QTRY_VERIFY(!manager.isReading());
        manager.clipTable().selectNextClip();
        manager.textDidChange(ClipKey::clipScene, u"1"_s);
        manager.window()->findChild<QLineEdit*>(u"_clipNameText"_s)->setText(u"Wide"_s);
        ClipManager::finish();
        QCOMPARE(_fixture->onDisk(u"Wide#01.xml"_s).clipScene(), u"1"_s);
    }

    // The table's operations

    void deletedClipIsNotMadeAnewAndItsLastEditFollowsIt() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        manager().textDidChange(ClipKey::clipScene, u"1"_s);
        _fixture->table().deleteItem();
        QVERIFY(!manager().currentClip());
        QVERIFY(!QFile::exists(_fixture->path(u"a/A#01.xml"_s)));
        QCOMPARE(_fixture->onDisk(u"Trash/A#01.xml"_s).clipScene(), u"1"_s);
        manager().undoManager().undo();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(u"A#01.xml"_s)));
    }

    void replacedRecordIsTheCurrentClipAndIsNotWrittenOver() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        const ClipInfo before = *manager().currentClip();
        manager().textDidChange(ClipKey::clipScene, u"1"_s);
        ClipInfo after = before.deepCopy();
        after.setClipPath(u"/media/a.mov"_s);
        _fixture->table().changeClipsWithUndo(
            {.oldClips = {before}, .newClips = {after}, .actionName = u"connect Clip"_s});
        QVERIFY(manager().currentClip()->isSame(after));
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipPath(), u"/media/a.mov"_s);
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        manager().undoManager().undo();
        QVERIFY(manager().currentClip()->isSame(before));
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipPath());
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipScene(), u"1"_s);
        _fixture->table().deselectAll();
        QVERIFY(!_fixture->onDisk(u"A#01.xml"_s).clipPath());
    }

    // Movies

    void durationOfTheMovieIsStoredInWholeSeconds() {
        MovieMaker maker;
        _fixture->writeClip(u"A#01.xml"_s, {{u"clipPath"_s, maker.makeShades(u"25.mov"_s, u"25"_s, 1.6)},
                                            {u"clipDuration"_s, 9}});
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        QTRY_COMPARE(manager().currentClip()->clipDuration(), 1);
        QVERIFY(_fixture->outlet<QLabel>(u"_clipAttributes"_s).text().startsWith(u"Duration: 00:00:01"_s));
        _fixture->table().deselectAll();
        QCOMPARE(_fixture->onDisk(u"A#01.xml"_s).clipDuration(), 1);
    }
};

QTEST_MAIN(CurrentClipTest)
#include "CurrentClipTest.moc"
