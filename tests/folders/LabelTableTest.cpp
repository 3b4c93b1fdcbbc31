// The label list: its operations with their undo, its rows, its buttons, menu and keys.
#include "folders/LabelList.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>

using namespace marquill;

namespace {

// Ends the undo step, as the next turn of the event loop does.
void nextTurn() {
    QCoreApplication::processEvents();
}

}  // namespace

class LabelTableTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void setLabelItemsReplacesTheListAndDeselects() {
        LabelList list;
        list.table.selectRow(2);
        list.controller.setLabelItems({u"A"_s, u"B"_s, u"C"_s});
        QCOMPARE(list.labels(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
        QCOMPARE(list.selected(), -1);
        QVERIFY(!list.remove.isEnabled());
        QCOMPARE(list.posts.count(), 0);
        list.controller.setLabelItems({});
        QCOMPARE(list.labels(), QStringList());
    }

    void setLabelItemsForgetsWhatCouldBeUndoneInTheFormerList() {
        LabelList list;
        list.controller.addLabelItem();
        list.controller.setLabelItems({u"A"_s});
        QVERIFY(!list.undo.canUndo());
    }

    void theModelHasOneColumnOfTheLabels() {
        LabelList list;
        const LabelTableModel& model = list.controller.model();
        QCOMPARE(LabelTableModel::identifier(), u"labelitem"_s);
        QCOMPARE(model.rowCount(), 5);
        QCOMPARE(model.columnCount(), 1);
        QCOMPARE(model.data(model.index(3, 0), Qt::DisplayRole).toString(), u"1st Half"_s);
        QCOMPARE(model.data(model.index(3, 0), Qt::EditRole).toString(), u"1st Half"_s);
    }

    void addAppendsANewLabelAndSelectsIt() {
        LabelList list;
        list.controller.addLabelItem();
        QCOMPARE(list.labels(), fiveLabels + QStringList{u"New Label"_s});
        QCOMPARE(list.selected(), 5);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.undoActionName(), u"add Label"_s);
    }

    void addingTwiceGivesTwoNewLabels() {
        LabelList list;
        list.controller.addLabelItem();
        list.controller.addLabelItem();
        QCOMPARE(list.labels(), fiveLabels + QStringList({u"New Label"_s, u"New Label"_s}));
    }

    void undoOfAddRemovesTheRowAndRedoAddsItAtTheSameIndex() {
        LabelList list;
        list.controller.addItemWithUndo({.label = u"Good"_s, .index = 2, .action = u"add Label"_s});
        const QStringList added = list.labels();
        QCOMPARE(added.indexOf(u"Good"_s), 2);
        list.posts.clear();
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.selected(), -1);
        QVERIFY(list.postedOnce());
        QVERIFY(list.undo.canRedo());
        QCOMPARE(list.undo.redoActionName(), QString());
        list.undo.redo();
        QCOMPARE(list.labels(), added);
        QCOMPARE(list.selected(), 2);
        QVERIFY(list.postedOnce());
    }

    void deleteRemovesTheSelectedLabelAndDeselects() {
        LabelList list;
        list.table.selectRow(1);
        list.controller.deleteLabelItem();
        QCOMPARE(list.labels(), (QStringList{u"Print"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s}));
        QCOMPARE(list.selected(), -1);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.undoActionName(), u"delete Label"_s);
    }

    void deleteWithoutSelectionDoesNothing() {
        LabelList list;
        list.controller.deleteLabelItem();
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.posts.count(), 0);
        QVERIFY(!list.undo.canUndo());
    }

    void deleteTakesTheFirstOfEqualLabels() {
        LabelList list;
        list.controller.setLabelItems({u"A"_s, u"B"_s, u"A"_s, u"C"_s});
        list.table.selectRow(2);
        list.controller.deleteLabelItem();
        QCOMPARE(list.labels(), (QStringList{u"B"_s, u"A"_s, u"C"_s}));
        list.undo.undo();
        QCOMPARE(list.labels(), (QStringList{u"A"_s, u"B"_s, u"A"_s, u"C"_s}));
        QCOMPARE(list.selected(), 0);
    }

    void undoOfDeletePutsTheLabelBackAndRedoDeletesIt() {
        LabelList list;
        list.table.selectRow(3);
        list.controller.deleteLabelItem();
        const QStringList deleted = list.labels();
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.selected(), 3);
        QCOMPARE(list.undo.redoActionName(), QString());
        list.undo.redo();
        QCOMPARE(list.labels(), deleted);
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
    }

    void deletingALabelThatIsNotThereDoesNothing() {
        LabelList list;
        list.controller.deleteItemWithUndo({.label = u"print"_s, .index = 0});
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.posts.count(), 0);
        QVERIFY(!list.undo.canUndo());
    }

    void renameReplacesTheLabel() {
        LabelList list;
        list.rename(1, u"No Good"_s);
        const QStringList renamed = {u"Print"_s, u"No Good"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s};
        QCOMPARE(list.labels(), renamed);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.undoActionName(), u"change Label Title"_s);
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.redoActionName(), u"change Label Title"_s);
        list.undo.redo();
        QCOMPARE(list.labels(), renamed);
        QCOMPARE(list.undo.undoActionName(), u"change Label Title"_s);
    }

    void renamingToTheSameTextRegistersNoUndo() {
        LabelList list;
        list.rename(1, u"Trash"_s);
        QVERIFY(!list.undo.canUndo());
        QCOMPARE(list.posts.count(), 0);
        QCOMPARE(list.labels(), fiveLabels);
    }

    void renamingARowThatIsNotThereDoesNothing() {
        LabelList list;
        list.controller.setItemName({.label = u"X"_s, .index = 5});
        list.controller.setItemName({.label = u"X"_s, .index = -1});
        QCOMPARE(list.labels(), fiveLabels);
        QVERIFY(!list.undo.canUndo());
    }

    void aTypedTextBecomesOneLineThatTheSettingsCanHold() {
        LabelList list;
        list.rename(0, u"a\u0001b\nc\t\uFFFE"_s + QChar(0xD800) + u"😀é"_s);
        QCOMPARE(list.labels().first(), u"abc?😀é"_s);
    }

    void moveDownEndsOneBeforeTheDropPosition() {
        LabelList list;
        list.controller.moveItemWithUndo({.label = u"Print"_s, .index = 3});
        const QStringList moved = {u"Trash"_s, u"Audio"_s, u"Print"_s, u"1st Half"_s, u"2nd Half"_s};
        QCOMPARE(list.labels(), moved);
        QCOMPARE(list.selected(), 2);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.undoActionName(), u"move Item"_s);
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.selected(), 0);
        QVERIFY(list.postedOnce());
        QCOMPARE(list.undo.redoActionName(), u"move Item"_s);
        list.undo.redo();
        QCOMPARE(list.labels(), moved);
        QCOMPARE(list.selected(), 2);
    }

    void moveUpEndsAtTheDropPosition() {
        LabelList list;
        list.controller.moveItemWithUndo({.label = u"1st Half"_s, .index = 1});
        const QStringList moved = {u"Print"_s, u"1st Half"_s, u"Trash"_s, u"Audio"_s, u"2nd Half"_s};
        QCOMPARE(list.labels(), moved);
        QCOMPARE(list.selected(), 1);
        list.undo.undo();
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.selected(), 3);
        list.undo.redo();
        QCOMPARE(list.labels(), moved);
        QCOMPARE(list.selected(), 1);
    }

    void everyMoveIsTakenBackAndMadeAgain() {
        for (int from = 0; from < 5; ++from) {
            for (int to = 0; to <= 5; ++to) {
                LabelList list;
                QStringList expected = fiveLabels;
                expected.move(from, to > from ? to - 1 : to);
                list.controller.moveItemWithUndo({.label = fiveLabels[from], .index = to});
                QCOMPARE(list.labels(), expected);
                QVERIFY(list.postedOnce());
                list.undo.undo();
                QCOMPARE(list.labels(), fiveLabels);
                QCOMPARE(list.selected(), from);
                list.undo.redo();
                QCOMPARE(list.labels(), expected);
            }
        }
    }

    void movingTakesTheFirstOfEqualLabels() {
        LabelList list;
        list.controller.setLabelItems({u"A"_s, u"B"_s, u"A"_s, u"C"_s});
        list.controller.moveItemWithUndo({.label = u"A"_s, .index = 4});
        QCOMPARE(list.labels(), (QStringList{u"B"_s, u"A"_s, u"C"_s, u"A"_s}));
    }

    void movingALabelThatIsNotThereDoesNothing() {
        LabelList list;
        list.controller.moveItemWithUndo({.label = u"None"_s, .index = 1});
        QCOMPARE(list.labels(), fiveLabels);
        QCOMPARE(list.posts.count(), 0);
        QVERIFY(!list.undo.canUndo());
    }

    void aDayOfChangesIsTakenBackStepByStep() {
        LabelList list;
        QList<QStringList> states = {list.labels()};
        const std::function<void()> changes[] = {
            [&] { list.controller.addLabelItem(); },
            [&] { list.rename(5, u"Good"_s); },
            [&] { list.controller.moveItemWithUndo({.label = u"Good"_s, .index = 0}); },
            [&] { list.controller.deleteLabelItem(); },
            [&] { list.rename(0, u"Circle"_s); },
        };
        for (const std::function<void()>& change : changes) {
            change();
            nextTurn();
            states.append(list.labels());
        }
        for (int round = 0; round < 2; ++round) {
            for (qsizetype step = states.size() - 2; step >= 0; --step) {
                list.undo.undo();
                QCOMPARE(list.labels(), states[step]);
            }
            QVERIFY(!list.undo.canUndo());
            for (qsizetype step = 1; step < states.size(); ++step) {
                list.undo.redo();
                QCOMPARE(list.labels(), states[step]);
            }
            QVERIFY(!list.undo.canRedo());
        }
    }

    void deleteIsEnabledExactlyWhileARowIsSelected() {
        LabelList list;
        QVERIFY(!list.remove.isEnabled());
        list.table.selectRow(0);
        QVERIFY(list.remove.isEnabled());
        list.table.clearSelection();
        QVERIFY(!list.remove.isEnabled());
        list.table.selectRow(0);
        list.remove.click();
        QVERIFY(!list.remove.isEnabled());
        QCOMPARE(list.labels().size(), 4);
        list.add.click();
        QVERIFY(list.remove.isEnabled());
    }

    void theUndoButtonsFollowTheUndoManager() {
        LabelList list;
        QVERIFY(!list.undoButton.isEnabled());
        QVERIFY(!list.redoButton.isEnabled());
        list.add.click();
        QVERIFY(list.undoButton.isEnabled());
        QVERIFY2(list.undoButton.toolTip().startsWith(u"Undo add Label"_s),
                 qPrintable(list.undoButton.toolTip()));
        list.undoButton.click();
        QCOMPARE(list.labels(), fiveLabels);
        QVERIFY(!list.undoButton.isEnabled());
        QVERIFY(list.redoButton.isEnabled());
        list.redoButton.click();
        QCOMPARE(list.labels().size(), 6);
    }

    void keysUndoAndRedo() {
        LabelList list;
        list.show();
        list.controller.addLabelItem();
        nextTurn();
        QTest::keyClick(&list.table, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list.labels(), fiveLabels);
        QTest::keyClick(&list.table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(list.labels().size(), 6);
    }

    void controlAndArrowKeysMoveTheSelectedLabel() {
        LabelList list;
        list.show();
        list.table.selectRow(1);
        QTest::keyClick(&list.table, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(list.labels(),
                 (QStringList{u"Print"_s, u"Audio"_s, u"Trash"_s, u"1st Half"_s, u"2nd Half"_s}));
        QCOMPARE(list.selected(), 2);
        nextTurn();
        QTest::keyClick(&list.table, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(list.labels(), fiveLabels);
        QTest::keyClick(&list.table, Qt::Key_Up, Qt::ControlModifier);
        nextTurn();
        list.posts.clear();
        QTest::keyClick(&list.table, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(list.labels().first(), u"Trash"_s);
        QCOMPARE(list.posts.count(), 0);
        list.table.selectRow(4);
        QTest::keyClick(&list.table, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(list.labels().last(), u"2nd Half"_s);
        QCOMPARE(list.posts.count(), 0);
    }

    void theDeleteKeysDeleteTheSelectedLabel() {
        LabelList list;
        list.show();
        list.table.selectRow(0);
        QTest::keyClick(&list.table, Qt::Key_Delete);
        QCOMPARE(list.labels().first(), u"Trash"_s);
        list.table.selectRow(0);
        QTest::keyClick(&list.table, Qt::Key_Backspace);
        QCOMPARE(list.labels().first(), u"Audio"_s);
    }

    void anEditEndsWithTheTableAndNotInTheNextRow() {
        LabelList list;
        list.show();
        QTest::mouseClick(list.table.viewport(), Qt::LeftButton, Qt::NoModifier, list.centreOf(1));
        QTest::mouseDClick(list.table.viewport(), Qt::LeftButton, Qt::NoModifier, list.centreOf(1));
        auto* editor = list.table.findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, u"No Good"_s);
        QTest::keyClick(editor, Qt::Key_Tab);
        nextTurn();
        QCOMPARE(list.labels()[1], u"No Good"_s);
        QVERIFY(list.table.hasFocus());
        QTRY_VERIFY(!list.table.findChild<QLineEdit*>());
        QCOMPARE(list.selected(), 1);
        QVERIFY(list.postedOnce());
    }

    void theContextMenuOffersWhatTheSelectionAllows() {
        LabelList list;
        const QContextMenuEvent event(QContextMenuEvent::Mouse, {}, {});
        QMenu* menu = list.table.menuForEvent(event);
        QVERIFY(menu);
        const auto enabled = [menu] {
            QStringList texts;
            for (const QAction* action : menu->actions()) {
                if (action->isEnabled() && !action->isSeparator()) {
                    texts.append(action->text());
                }
            }
            return texts;
        };
        QCOMPARE(enabled(), QStringList(u"Add Label"_s));
        list.table.selectRow(0);
        QCOMPARE(enabled(), (QStringList{u"Add Label"_s, u"Delete Label"_s, u"Rename"_s, u"Move Down"_s}));
        list.controller.deleteLabelItem();
        QCOMPARE(enabled(), (QStringList{u"Add Label"_s, u"Undo delete Label"_s}));
    }

    void anEmptyListSaysSo() {
        LabelList list;
        list.show();
        const auto* hint = list.table.viewport()->findChild<QLabel*>();
        QVERIFY(hint);
        QVERIFY(!hint->isVisible());
        list.controller.setLabelItems({});
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), u"No labels"_s);
    }

    void undoEntriesGoWithTheController() {
        UndoManager undo;
        {
            TableView table;
            QPushButton buttons[4];
            LabelTableController controller({table, buttons[0], buttons[1], buttons[2], buttons[3]}, undo);
            controller.addLabelItem();
        }
        QVERIFY(!undo.canUndo());
    }
};

QTEST_MAIN(LabelTableTest)
#include "LabelTableTest.moc"
