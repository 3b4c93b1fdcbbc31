// The marker set editor as a sheet on the marker window, and what becomes of the sets when it ends.
#include "markers/MarkerSetSheet.h"
#include "markers/MarkerWindow.h"
#include "markers/SetEditor.h"
#include "platform/WindowFrame.h"

#include <QAccessible>
#include <QFile>
#include <QLabel>

using namespace marquill;

namespace {

Dictionary threeSets() {
    return Dictionary{{u"kMarkerSetArray"_s, Array{savedSet(u"Drama"_s, {u"Action"_s, u"Cut"_s}, 11),
                                                   savedSet(u"Interview"_s, {u"Question"_s}, 12),
                                                   savedSet(u"Sports"_s, {u"Goal"_s}, 13)}},
                      {u"kMarkerCurrSet"_s, 12}};
}

MarkerSets& sets() {
    return *MarkerSets::controller();
}

MarkerSetSheet& sheet() {
    return *sets().sheet();
}

MarkerSetEditTableController& editor() {
    return sheet().editTableController();
}

template <class Widget>
Widget& inSheet(const QString& name) {
    return *sheet().window().findChild<Widget*>(name);
}

QPushButton& editButton() {
    return *MarkerSets::window()->findChild<QPushButton*>(u"_editSetButton"_s);
}

// Starts with three sets, the second one current, and opens the editor.
void openEditor() {
    launch(threeSets());
    editButton().click();
}

void pressOK() {
    inSheet<QPushButton>(u"_okButton"_s).click();
}

void pressCancel() {
    inSheet<QPushButton>(u"_cancelButton"_s).click();
}

void rename(int row, const QString& title) {
    editor().model().setData(editor().model().index(row, MarkerSetEditTableModel::menuitemColumn), title,
                             Qt::EditRole);
}

// What the settings file holds, read anew as another launch does.
Dictionary onDisk() {
    const std::optional<Value> saved = UserDefaults(UserDefaults::standard().path()).value(u"kMarkerSets"_s);
    return saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
}

QStringList titlesOnDisk() {
    return titlesOf(onDisk().array(u"kMarkerSetArray"_s).value_or(Array()));
}

}  // namespace

class MarkerSetSheetTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { useSettingsOfOurOwn(); }

    void cleanup() {
        MarkerSets::finish();
        WindowDescription::useFolder(u":/windows"_s);
        UserDefaults::standard().remove(u"kMarkerWindowFrame"_s);
        UserDefaults::standard().remove(u"kMarkerSets"_s);
        QVERIFY(UserDefaults::standard().save());
    }

    void theEditButtonOpensASheetWithTheCurrentSetSelected() {
        openEditor();
        QVERIFY(sheet().window().isVisible());
        QCOMPARE(sheet().window().windowModality(), Qt::WindowModal);
        QCOMPARE(sheet().window().parentWidget(), MarkerSets::window());
        QVERIFY(sheet().window().isWindow());
        QCOMPARE(titlesOf(editor().markerSetArray()), (QStringList{u"Drama"_s, u"Interview"_s, u"Sports"_s}));
        QCOMPARE(editor().selectedIndex(), 1);
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        QVERIFY(inSheet<TableView>(u"_tableView"_s).hasFocus());
    }

    void theSheetEditsACopyOfTheListWithTheSameSets() {
        openEditor();
        QVERIFY(!editor().markerSetArray().isSame(sets().markerSetArray()));
        QVERIFY(editor().model().itemAt(0)->record().isSame(*sets().markerSetArray().at(0).dictionary()));
    }

    void openingTheSheetAbandonsAnOpenEdit() {
        launch();
        typeTitle(button(0), u"Half a ti"_s);
        sets().editSet();
        QVERIFY(!openField());
        QCOMPARE(button(0).title(), u"untitled (1)"_s);
    }

    void aSheetThatIsOpenKeepsWhatWasDoneInIt() {
        openEditor();
        editor().addItem();
        sets().editSet();
        QCOMPARE(editor().markerSetArray().size(), 4);
    }

    void okTakesTheListOver() {
        openEditor();
        editor().addItem();
        rename(0, u"Fiction"_s);
        editor().moveItemWithUndo({.item = *editor().model().itemAt(2), .index = 0});
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Interview"_s, u"Sports"_s}));
        pressOK();
        QVERIFY(!sheet().window().isVisible());
        const QStringList expected{u"Sports"_s, u"Fiction"_s, u"Interview"_s, u"New Set"_s};
        QCOMPARE(popupTitles(), expected);
        QCOMPARE(sets().currSet()->markerID(), quint64(12));
        QCOMPARE(popup().currentIndex(), 2);
        QCOMPARE(button(0).title(), u"Question"_s);
    }

    void okAfterRenamingTheCurrentSetKeepsItCurrent() {
        openEditor();
        rename(1, QString());
        pressOK();
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, QString(), u"Sports"_s}));
        QCOMPARE(sets().currSet()->markerID(), quint64(12));
    }

    void okAfterTheCurrentSetWasDeletedMakesTheFirstOneCurrent() {
        openEditor();
        editor().deleteItem();
        pressOK();
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Sports"_s}));
        QCOMPARE(popup().currentIndex(), 0);
        QCOMPARE(button(0).title(), u"Action"_s);
    }

    void cancelDropsEverything() {
        openEditor();
        const Array former = sets().markerSetArray();
        editor().addItem();
        rename(0, u"Fiction"_s);
        editor().moveItemWithUndo({.item = *editor().model().itemAt(2), .index = 0});
        editor().selectIndex(1);
        editor().deleteItem();
        pressCancel();
        QVERIFY(!sheet().window().isVisible());
        QVERIFY(sets().markerSetArray().isSame(former));
        QCOMPARE(popupTitles(), (QStringList{u"Drama"_s, u"Interview"_s, u"Sports"_s}));
        QCOMPARE(titlesOf(former), popupTitles());
        QCOMPARE(popup().currentIndex(), 1);
        QCOMPARE(button(0).title(), u"Question"_s);
    }

    // Sets of the settings file are read-only, those made since the start are not.
    void cancelGivesASetMadeBeforeItsOldTitleBack() {
        openEditor();
        editor().addItem();
        pressOK();
        sets().editSet();
        rename(3, u"Fiction"_s);
        QCOMPARE(titlesOf(editor().markerSetArray()).at(3), u"Fiction"_s);
        pressCancel();
        QCOMPARE(titlesOf(sets().markerSetArray()).at(3), u"New Set"_s);
        QCOMPARE(popupTitles().at(3), u"New Set"_s);
    }

    void closingTheSheetByItsFrameCancels() {
        openEditor();
        editor().addItem();
        sheet().window().close();
        QCOMPARE(popup().count(), 3);
        QVERIFY(!sheet().undoManager().canUndo());
    }

    void theNextSheetStartsAfresh() {
        openEditor();
        editor().addItem();
        pressCancel();
        editButton().click();
        QCOMPARE(editor().markerSetArray().size(), 3);
        QCOMPARE(editor().selectedIndex(), 1);
    }

    void bothWaysOfEndingForgetWhatCouldBeUndone_data() {
        QTest::addColumn<bool>("accepted");
        QTest::newRow("OK") << true;
        QTest::newRow("Cancel") << false;
    }
    void bothWaysOfEndingForgetWhatCouldBeUndone() {
        QFETCH(const bool, accepted);
        openEditor();
        editor().addItem();
        QCoreApplication::processEvents();
        editor().addItem();
        QCoreApplication::processEvents();
        sheet().undoManager().undo();
        accepted ? pressOK() : pressCancel();
        QVERIFY(!sheet().undoManager().canUndo());
        QVERIFY(!sheet().undoManager().canRedo());
    }

    void keysUndoAndRedoInTheSheet() {
        openEditor();
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        editor().addItem();
        QTest::keyClick(&sheet().window(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor().markerSetArray().size(), 3);
        QTest::keyClick(&sheet().window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor().markerSetArray().size(), 4);
    }

    void returnIsOKUnlessATitleIsBeingTyped() {
        openEditor();
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        auto& table = inSheet<TableView>(u"_tableView"_s);
        QTest::keyClick(&table, Qt::Key_F2);
        auto* field = table.findChild<QLineEdit*>();
        QVERIFY(field);
        field->setText(u"Talk"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(editor().model().itemAt(1)->title(), u"Talk"_s);
        QVERIFY(sheet().window().isVisible());
        QTRY_VERIFY(table.hasFocus());
        QTest::keyClick(&table, Qt::Key_Return);
        QVERIFY(!sheet().window().isVisible());
        QCOMPARE(popup().itemText(1), u"Talk"_s);
    }

    void returnPressesTheButtonWithTheFocus() {
        openEditor();
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        auto& add = inSheet<QPushButton>(u"_addItemButton"_s);
        add.setFocus();
        QTest::keyClick(&add, Qt::Key_Return);
        QVERIFY(sheet().window().isVisible());
        QCOMPARE(editor().markerSetArray().size(), 4);
        auto& cancel = inSheet<QPushButton>(u"_cancelButton"_s);
        cancel.setFocus();
        QTest::keyClick(&cancel, Qt::Key_Return);
        QCOMPARE(popup().count(), 3);
    }

    void okTakesOverATitleThatIsStillBeingTyped() {
        openEditor();
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        auto& table = inSheet<TableView>(u"_tableView"_s);
        QTest::keyClick(&table, Qt::Key_F2);
        table.findChild<QLineEdit*>()->setText(u"Talk"_s);
        pressOK();
        QCOMPARE(popup().itemText(1), u"Talk"_s);
        QVERIFY(!sheet().undoManager().canUndo());
    }

    void cancelDropsATitleThatIsStillBeingTyped() {
        openEditor();
        QVERIFY(QTest::qWaitForWindowActive(&sheet().window()));
        auto& table = inSheet<TableView>(u"_tableView"_s);
        QTest::keyClick(&table, Qt::Key_F2);
        table.findChild<QLineEdit*>()->setText(u"Talk"_s);
        pressCancel();
        QCoreApplication::processEvents();
        QCOMPARE(popup().itemText(1), u"Interview"_s);
        QVERIFY(!sheet().undoManager().canUndo());
    }

    void quittingCancelsAnOpenSheet() {
        openEditor();
        editor().addItem();
        rename(0, u"Fiction"_s);
        MarkerSets::finish();
        QCOMPARE(titlesOf(*savedSettings().array(u"kMarkerSetArray"_s)),
                 (QStringList{u"Drama"_s, u"Interview"_s, u"Sports"_s}));
    }

    void markersAreFiredWhileTheSheetIsOpen() {
        openEditor();
        rename(1, u"Talk"_s);
        const FiredMarkers fired;
        MarkerSets::processNumKey(1, Date());
        QCOMPARE(fired.titles(), QStringList{u"Question"_s});
    }

    void withoutItsDescriptionThereIsNoEditor() {
        const QTemporaryDir empty;
        launch(threeSets());
        WindowDescription::useFolder(empty.path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate MarkerSetEditor nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"window description is missing"_s));
        editButton().click();
        QVERIFY(!sets().sheet());
        QVERIFY(!editButton().isEnabled());
        QCOMPARE(popup().count(), 3);
    }

    void aWrongDescriptionGivesNoEditor_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("no dialog") << QByteArray("QDialog") << QByteArray("QWidget");
        QTest::newRow("no table") << QByteArray("\"_tableView\"") << QByteArray("\"_table\"");
    }
    void aWrongDescriptionGivesNoEditor() {
        QFETCH(const QByteArray, before);
        QFETCH(const QByteArray, after);
        const QTemporaryDir folder;
        QFile own(u":/windows/MarkerSetEditor.ui"_s);
        QVERIFY(own.open(QIODevice::ReadOnly));
        QFile changed(folder.filePath(u"MarkerSetEditor.ui"_s));
        QVERIFY(changed.open(QIODevice::WriteOnly));
        changed.write(own.readAll().replace(before, after));
        changed.close();
        launch(threeSets());
        WindowDescription::useFolder(folder.path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate MarkerSetEditor nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"description"_s));
        sets().editSet();
        QVERIFY(!sets().sheet());
    }

    // What a crash does not cost.

    void okSavesTheSetsAtOnce() {
        openEditor();
        editor().deleteItem();
        pressOK();
        QCOMPARE(titlesOnDisk(), (QStringList{u"Drama"_s, u"Sports"_s}));
        QCOMPARE(onDisk().integer(u"kMarkerCurrSet"_s), 11);
        QVERIFY(UserDefaults(UserDefaults::standard().path()).value(u"kMarkerWindowFrame"_s));
    }

    void cancelSavesNothing() {
        openEditor();
        editor().deleteItem();
        pressCancel();
        QVERIFY(onDisk().isEmpty());
    }

    void choosingASetSavesItAtOnce() {
        launch(threeSets());
        choose(2);
        QCOMPARE(onDisk().integer(u"kMarkerCurrSet"_s), 13);
    }

    void aButtonsTitleIsSavedAtOnce() {
        launch();
        retitle(button(0), u"Good"_s);
        const Array saved = *onDisk().array(u"kMarkerSetArray"_s);
        QCOMPARE(stringsOfArray(*MarkerSet(*saved.at(0).dictionary()).markerArray()), QStringList{u"Good"_s});
        // What was saved is a copy: the set itself can still be changed.
        retitle(button(0), u"Better"_s);
        QCOMPARE(MarkerSets::markerStringAtIndex(0, *sets().currSet()), u"Better"_s);
    }

    void theWindowsPlaceIsSavedOnceItStandsStill() {
        launch(threeSets());
        setWindowFrame(*MarkerSets::window(), {120, 140, 200, 250});
        QVERIFY(onDisk().isEmpty());
        QTRY_VERIFY(!onDisk().isEmpty());
        const std::optional<Value> frame =
            UserDefaults(UserDefaults::standard().path()).value(u"kMarkerWindowFrame"_s);
        QCOMPARE(frame->string(), u"120 140 200 250"_s);
    }

    void aLaunchByItselfSavesNothing() {
        launch();
        QVERIFY(onDisk().isEmpty());
    }

    // How it looks.

    void everyControlHasANameAndTheFocusGoesInReadingOrder() {
        openEditor();
        editor().addItem();
        QCoreApplication::processEvents();
        editor().addItem();
        sheet().undoManager().undo();
        editor().selectIndex(0);
        QStringList order;
        QWidget* const first = &inSheet<TableView>(u"_tableView"_s);
        for (QWidget* at = first; order.isEmpty() || at != first; at = at->nextInFocusChain()) {
            if (at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) && at->isVisible()) {
                order.append(QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name));
            }
        }
        QCOMPARE(order, (QStringList{u"Marker sets"_s, u"Add set"_s, u"Duplicate set"_s, u"Delete set"_s,
                                     u"Undo"_s, u"Redo"_s, u"Cancel"_s, u"OK"_s}));
        QCOMPARE(QAccessible::queryAccessibleInterface(&editButton())->text(QAccessible::Name),
                 u"Edit the marker sets"_s);
        QVERIFY(!editButton().toolTip().isEmpty());
    }

    void nothingIsClippedInTheSmallestSheet() {
        openEditor();
        QDialog& window = sheet().window();
        window.resize(1, 1);
        for (const QPushButton* button : window.findChildren<QPushButton*>()) {
            QVERIFY(window.rect().contains(button->geometry()));
            QVERIFY(button->width() >= button->sizeHint().width());
        }
        const auto& table = inSheet<TableView>(u"_tableView"_s);
        QVERIFY(table.geometry().bottom() < inSheet<QPushButton>(u"_addItemButton"_s).geometry().top());
        const auto& hint = inSheet<QLabel>(u"setsHint"_s);
        QVERIFY(hint.height() >= hint.heightForWidth(hint.width()));
    }
};

QTEST_MAIN(MarkerSetSheetTest)
#include "MarkerSetSheetTest.moc"
