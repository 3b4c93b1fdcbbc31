// The list of the marker set editor: its operations with their undo, its buttons and keys.
#include "markers/SetEditor.h"
#include "platform/FakeDialogs.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>

using namespace marquill;

namespace {

const QStringList threeTitles = {u"1"_s, u"2"_s, u"3"_s};

// Ends the undo step, as the next turn of the event loop does.
void nextTurn() {
    QCoreApplication::processEvents();
}

}  // namespace

class MarkerSetEditTableControllerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aNewEditorIsEmpty() {
        UndoManager undo;
        TableView table;
        QPushButton buttons[5];
        const MarkerSetEditTableController controller(
            {table, buttons[0], buttons[1], buttons[2], buttons[3], buttons[4]}, undo);
        QVERIFY(controller.markerSetArray().isEmpty());
        QVERIFY(buttons[0].isEnabled());
        QVERIFY(!buttons[1].isEnabled());
        QVERIFY(!buttons[2].isEnabled());
    }

    void theGivenArrayItselfIsEdited() {
        SetEditor editor;
        QVERIFY(editor.controller.markerSetArray().isSame(editor.given));
        editor.controller.addItem();
        QCOMPARE(editor.given.size(), 4);
    }

    void aNewListDeselects() {
        SetEditor editor;
        editor.controller.selectIndex(1);
        editor.controller.setMarkerSetArray(Array{setTitled(u"A"_s, 1).record()});
        QCOMPARE(editor.titles(), QStringList{u"A"_s});
        QCOMPARE(editor.selected(), -1);
        QVERIFY(!editor.remove.isEnabled());
        QVERIFY(!editor.duplicate.isEnabled());
    }

    void exactlyOneRowIsSelected() {
        SetEditor editor;
        QCOMPARE(editor.selected(), -1);
        editor.controller.selectIndex(0);
        editor.controller.selectIndex(2);
        QCOMPARE(editor.selected(), 2);
        QCOMPARE(editor.table.selectionModel()->selectedRows().size(), 1);
        editor.controller.selectIndex(-1);
        QCOMPARE(editor.selected(), -1);
        editor.controller.selectIndex(3);
        QCOMPARE(editor.selected(), -1);
    }

    void buttonsFollowTheSelection() {
        SetEditor editor;
        QVERIFY(editor.add.isEnabled() && !editor.duplicate.isEnabled() && !editor.remove.isEnabled());
        editor.controller.selectIndex(1);
        QVERIFY(editor.add.isEnabled() && editor.duplicate.isEnabled() && editor.remove.isEnabled());
        editor.table.clearSelection();
        QVERIFY(editor.add.isEnabled() && !editor.duplicate.isEnabled() && !editor.remove.isEnabled());
    }

    void addAppendsANewSetAndSelectsIt() {
        SetEditor editor;
        editor.add.click();
        QCOMPARE(editor.titles(), threeTitles + QStringList{u"New Set"_s});
        QCOMPARE(editor.selected(), 3);
        QVERIFY(editor.at(3).markerArray()->isEmpty());
        QVERIFY(editor.at(3).markerID());
        QCOMPARE(editor.undo.undoActionName(), u"add New Set"_s);
    }

    void undoOfAddRemovesTheSetAndRedoAddsItAgain() {
        SetEditor editor;
        editor.controller.addItem();
        const MarkerSet added = editor.at(3);
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
        QCOMPARE(editor.selected(), -1);
        QCOMPARE(editor.undo.redoActionName(), u"add New Set"_s);
        editor.undo.redo();
        QVERIFY(editor.at(3).isSame(added));
        QCOMPARE(editor.selected(), 3);
        QCOMPARE(editor.undo.undoActionName(), u"add New Set"_s);
    }

    void setsAreInsertedAtTheirIndex() {
        SetEditor editor;
        editor.controller.addItemWithUndo({.item = setTitled(u"A"_s, 1), .index = 1, .action = u"x"_s});
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"A"_s, u"2"_s, u"3"_s}));
        QCOMPARE(editor.selected(), 1);
        QCOMPARE(editor.undo.undoActionName(), u"x"_s);
    }

    void aDuplicateHasTheSameTitlesAndANewIdentity() {
        SetEditor editor;
        const MarkerSet source = setTitled(u"Default Set"_s, 7);
        editor.controller.setMarkerSetArray(Array{source.record()});
        editor.controller.selectIndex(0);
        editor.duplicate.click();
        QCOMPARE(editor.titles(), (QStringList{u"Default Set"_s, u"Default Set"_s}));
        QVERIFY(*editor.at(1).markerArray() == *source.markerArray());
        QVERIFY(!editor.at(1).markerArray()->isSame(*source.markerArray()));
        QVERIFY(editor.at(1).markerID() && editor.at(1).markerID() != source.markerID());
        QCOMPARE(editor.selected(), 1);
        QCOMPARE(editor.undo.undoActionName(), u"duplicate Set"_s);
        editor.undo.undo();
        QCOMPARE(editor.titles(), QStringList{u"Default Set"_s});
        editor.undo.redo();
        QCOMPARE(editor.titles().size(), 2);
    }

    void aDuplicateGoesToTheEnd() {
        SetEditor editor;
        editor.controller.selectIndex(0);
        editor.controller.duplicateItem();
        QCOMPARE(editor.titles(), threeTitles + QStringList{u"1"_s});
    }

    void withoutASelectionNothingIsDuplicated() {
        SetEditor editor;
        editor.controller.duplicateItem();
        QCOMPARE(editor.titles(), threeTitles);
        QVERIFY(!editor.undo.canUndo());
    }

    void theOnlySetCannotBeDeleted_data() {
        QTest::addColumn<int>("row");
        QTest::newRow("selected") << 0;
        QTest::newRow("not selected") << -1;
    }
    void theOnlySetCannotBeDeleted() {
        QFETCH(const int, row);
        const FakeDialogs dialogs;
        SetEditor editor;
        editor.controller.setMarkerSetArray(Array{setTitled(u"A"_s, 1).record()});
        editor.controller.selectIndex(row);
        editor.controller.deleteItem();
        QCOMPARE(dialogs.alerts.size(), 1);
        QCOMPARE(dialogs.alerts[0].title, u"Not allowed"_s);
        QCOMPARE(dialogs.alerts[0].text,
                 u"At least one marker set is required. You cannot delete the only one."_s);
        QCOMPARE(dialogs.alerts[0].buttons, QStringList{u"OK"_s});
        QCOMPARE(editor.titles(), QStringList{u"A"_s});
        QCOMPARE(editor.selected(), row);
        QVERIFY(!editor.undo.canUndo());
    }

    void deleteSelectsTheLastRow() {
        SetEditor editor;
        editor.controller.selectIndex(0);
        editor.remove.click();
        QCOMPARE(editor.titles(), (QStringList{u"2"_s, u"3"_s}));
        QCOMPARE(editor.selected(), 1);
        QCOMPARE(editor.undo.undoActionName(), u"delete Set"_s);
    }

    void deleteWithoutASelectionOnlySelects() {
        SetEditor editor;
        editor.controller.deleteItem();
        QCOMPARE(editor.titles(), threeTitles);
        QCOMPARE(editor.selected(), 2);
        QVERIFY(!editor.undo.canUndo());
    }

    void undoOfDeletePutsTheSetBackAtItsRowAndSelectsIt() {
        SetEditor editor;
        const MarkerSet deleted = editor.at(1);
        editor.controller.selectIndex(1);
        editor.controller.deleteItem();
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
        QVERIFY(editor.at(1).isSame(deleted));
        QCOMPARE(editor.selected(), 1);
        QCOMPARE(editor.undo.redoActionName(), u"delete Set"_s);
        editor.undo.redo();
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s}));
        QCOMPARE(editor.selected(), -1);
    }

    void setsAreFoundByTheirContent() {
        SetEditor editor;
        editor.controller.deleteItemWithUndo({.item = setTitled(u"2"_s, 12), .index = 0});
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s}));
        editor.controller.deleteItemWithUndo({.item = setTitled(u"3"_s, 99), .index = 0});
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s}));
    }

    void whatIsNotListedChangesNothing() {
        SetEditor editor;
        const MarkerSet unknown = setTitled(u"A"_s, 1);
        editor.controller.deleteItemWithUndo({.item = unknown});
        editor.controller.moveItemWithUndo({.item = unknown, .index = 1});
        editor.controller.setItemNameWithUndo({.item = unknown, .itemTitle = u"B"_s});
        QCOMPARE(editor.titles(), threeTitles);
        QVERIFY(!editor.undo.canUndo());
    }

    void renamingPutsANewRecordInPlaceOfTheOldOne() {
        SetEditor editor;
        const MarkerSet former = editor.at(1);
        editor.rename(1, u"Drama"_s);
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"Drama"_s, u"3"_s}));
        QCOMPARE(former.title(), u"2"_s);
        QCOMPARE(editor.at(1).markerID(), former.markerID());
        QVERIFY(editor.at(1).markerArray()->isSame(*former.markerArray()));
        QCOMPARE(editor.undo.undoActionName(), u"change Set Title"_s);
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
        QCOMPARE(editor.undo.redoActionName(), u"change Set Title"_s);
        editor.undo.redo();
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"Drama"_s, u"3"_s}));
    }

    void setsReadFromTheSettingsCanBeRenamed() {
        SetEditor editor;
        Dictionary record = setTitled(u"Saved"_s, 1).record();
        record.freeze();
        editor.controller.setMarkerSetArray(Array{record});
        editor.rename(0, u"Renamed"_s);
        QCOMPARE(editor.titles(), QStringList{u"Renamed"_s});
        QCOMPARE(*record.string(kMarkerSetTitle), u"Saved"_s);
    }

    void theEmptyTitleIsAccepted() {
        SetEditor editor;
        editor.rename(0, QString());
        QCOMPARE(editor.at(0).title(), QString());
        QVERIFY(editor.undo.canUndo());
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
    }

    void theSameTitleIsNoChange() {
        SetEditor editor;
        const MarkerSet former = editor.at(0);
        editor.rename(0, u"1"_s);
        QVERIFY(!editor.undo.canUndo());
        QVERIFY(editor.at(0).isSame(former));
    }

    void undoOfAnAddFindsTheSetThatWasRenamedMeanwhile() {
        SetEditor editor;
        editor.controller.addItem();
        nextTurn();
        editor.rename(3, u"Drama"_s);
        nextTurn();
        editor.undo.undo();
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
        editor.undo.redo();
        editor.undo.redo();
        QCOMPARE(editor.titles(), threeTitles + QStringList{u"Drama"_s});
    }

    void movesAndTheirUndo_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("target");
        QTest::addColumn<QStringList>("moved");
        QTest::addColumn<int>("selected");
        // By hand: a move down ends one above the target, as the set itself leaves the rows above it.
        QTest::newRow("first below last") << 0 << 3 << QStringList{u"2"_s, u"3"_s, u"1"_s} << 2;
        QTest::newRow("first before last") << 0 << 2 << QStringList{u"2"_s, u"1"_s, u"3"_s} << 1;
        QTest::newRow("last above first") << 2 << 0 << QStringList{u"3"_s, u"1"_s, u"2"_s} << 0;
        QTest::newRow("last before second") << 2 << 1 << QStringList{u"1"_s, u"3"_s, u"2"_s} << 1;
        QTest::newRow("onto itself") << 1 << 1 << threeTitles << 1;
        QTest::newRow("below itself") << 1 << 2 << threeTitles << 1;
        QTest::newRow("last onto itself") << 2 << 2 << threeTitles << 2;
    }
    void movesAndTheirUndo() {
        QFETCH(const int, from);
        QFETCH(const int, target);
        QFETCH(const QStringList, moved);
        QFETCH(const int, selected);
        SetEditor editor;
        editor.controller.moveItemWithUndo({.item = editor.at(from), .index = target});
        QCOMPARE(editor.titles(), moved);
        QCOMPARE(editor.selected(), selected);
        QCOMPARE(editor.undo.undoActionName(), u"move Set"_s);
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
        QCOMPARE(editor.selected(), from);
        QCOMPARE(editor.undo.redoActionName(), u"move Set"_s);
        editor.undo.redo();
        QCOMPARE(editor.titles(), moved);
        QCOMPARE(editor.selected(), selected);
        editor.undo.undo();
        QCOMPARE(editor.titles(), threeTitles);
    }

    void manyChangesAreTakenBackInOrder() {
        SetEditor editor;
        editor.controller.selectIndex(0);
        editor.controller.duplicateItem();
        nextTurn();
        editor.controller.moveItemWithUndo({.item = editor.at(3), .index = 0});
        nextTurn();
        editor.rename(0, QString());
        nextTurn();
        editor.controller.selectIndex(1);
        editor.controller.deleteItem();
        nextTurn();
        const Array changed = editor.given.deepCopy();
        while (editor.undo.canUndo()) {
            editor.undo.undo();
        }
        QVERIFY(editor.given == SetEditor().given);
        while (editor.undo.canRedo()) {
            editor.undo.redo();
        }
        QVERIFY(editor.given == changed);
    }

    void clearActionsForgetsThisEditorsStepsOnly() {
        SetEditor editor;
        QObject other;
        editor.undo.registerUndo(&other, [] {});
        nextTurn();
        editor.controller.addItem();
        nextTurn();
        editor.controller.addItem();
        nextTurn();
        editor.undo.undo();
        editor.controller.clearActions();
        QVERIFY(!editor.undo.canRedo());
        editor.undo.undo();
        QVERIFY(!editor.undo.canUndo());
        QCOMPARE(editor.titles().size(), 4);
    }

    void undoButtonsTellWhatTheyTakeBack() {
        SetEditor editor;
        QVERIFY(!editor.undoButton.isEnabled() && !editor.redoButton.isEnabled());
        editor.controller.addItem();
        QVERIFY(editor.undoButton.isEnabled());
        QVERIFY(editor.undoButton.toolTip().startsWith("Undo add New Set ("_L1));
        editor.undoButton.click();
        QCOMPARE(editor.titles(), threeTitles);
        QVERIFY(editor.redoButton.toolTip().startsWith("Redo add New Set ("_L1));
        editor.redoButton.click();
        QCOMPARE(editor.titles().size(), 4);
    }

    void keysUndoAndRedo() {
        SetEditor editor;
        editor.show();
        editor.controller.addItem();
        QTest::keyClick(&editor.window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.titles(), threeTitles);
        QTest::keyClick(&editor.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor.titles().size(), 4);
    }

    void keysDelete_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Delete") << Qt::Key_Backspace;
        QTest::newRow("Forward Delete") << Qt::Key_Delete;
    }
    void keysDelete() {
        QFETCH(const Qt::Key, key);
        SetEditor editor;
        editor.show();
        editor.controller.selectIndex(1);
        QTest::keyClick(&editor.table, key);
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s}));
    }

    void keysMoveTheSelectedSet() {
        SetEditor editor;
        editor.show();
        editor.controller.selectIndex(1);
        QTest::keyClick(&editor.table, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s, u"2"_s}));
        QCOMPARE(editor.undo.undoActionName(), u"move Set"_s);
        nextTurn();
        QTest::keyClick(&editor.table, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(editor.titles(), (QStringList{u"1"_s, u"3"_s, u"2"_s}));
        QTest::keyClick(&editor.table, Qt::Key_Up, Qt::AltModifier);
        nextTurn();
        QTest::keyClick(&editor.table, Qt::Key_Up, Qt::AltModifier);
        nextTurn();
        QCOMPARE(editor.titles(), (QStringList{u"2"_s, u"1"_s, u"3"_s}));
        QTest::keyClick(&editor.table, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(editor.selected(), 0);
        while (editor.undo.canUndo()) {
            editor.undo.undo();
        }
        QCOMPARE(editor.titles(), threeTitles);
    }

    void aKeyOpensTheTitleWhicheverCellIsCurrent() {
        SetEditor editor;
        editor.show();
        editor.table.setCurrentIndex(
            editor.controller.model().index(1, MarkerSetEditTableModel::indexColumn));
        QTest::keyClick(&editor.table, Qt::Key_F2);
        auto* field = editor.table.findChild<QLineEdit*>();
        QVERIFY(field);
        QCOMPARE(field->text(), u"2"_s);
        field->selectAll();
        QTest::keyClicks(field, u"Drama"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(editor.titles(), (QStringList{u"1"_s, u"Drama"_s, u"3"_s}));
    }

    void aDoubleClickOpensTheTitle() {
        SetEditor editor;
        editor.show();
        const QRect cell = editor.table.visualRect(
            editor.controller.model().index(2, MarkerSetEditTableModel::menuitemColumn));
        QTest::mouseClick(editor.table.viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(editor.table.viewport(), Qt::LeftButton, {}, cell.center());
        auto* field = editor.table.findChild<QLineEdit*>();
        QVERIFY(field);
        field->clear();
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(editor.at(2).title(), QString());
    }

    void endEditingTakesOverWhatIsBeingTyped() {
        SetEditor editor;
        editor.show();
        editor.controller.selectIndex(0);
        QTest::keyClick(&editor.table, Qt::Key_F2);
        auto* field = editor.table.findChild<QLineEdit*>();
        QVERIFY(field);
        field->setText(u"Drama"_s);
        editor.controller.endEditing();
        QCOMPARE(editor.titles().first(), u"Drama"_s);
    }

    void theDeleteButtonKeepsTheFocus() {
        SetEditor editor;
        editor.show();
        editor.controller.selectIndex(0);
        editor.remove.setFocus();
        QTest::keyClick(&editor.remove, Qt::Key_Space);
        QCOMPARE(editor.titles().size(), 2);
        QVERIFY(editor.remove.hasFocus());
        editor.duplicate.setFocus();
        QTest::keyClick(&editor.duplicate, Qt::Key_Space);
        QCOMPARE(editor.titles().size(), 3);
        QVERIFY(editor.duplicate.hasFocus());
    }

    void theContextMenuOffersAllCommands() {
        SetEditor editor;
        editor.controller.selectIndex(0);
        const QContextMenuEvent event(QContextMenuEvent::Mouse, {}, {});
        QStringList texts;
        for (const QAction* action : editor.table.menuForEvent(event)->actions()) {
            texts.append(action->isSeparator() ? u"-"_s : action->text());
        }
        QCOMPARE(texts, (QStringList{u"Add Set"_s, u"Duplicate Set"_s, u"Delete Set"_s, u"Rename"_s, u"-"_s,
                                     u"Move Up"_s, u"Move Down"_s, u"-"_s, u"Undo"_s, u"Redo"_s}));
    }
};

QTEST_MAIN(MarkerSetEditTableControllerTest)
#include "MarkerSetEditTableControllerTest.moc"
