#include "platform/Literals.h"
#include "platform/TableView.h"
#include "platform/Theme.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QStandardItemModel>
#include <QTest>

using namespace marquill;

class TableViewTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QWidget> _window;
    TableView* _table = nullptr;
    QStandardItemModel _model{3, 2};

    QLineEdit* editor() const { return _table->findChild<QLineEdit*>(); }

    void startEditing() {
        _table->setCurrentIndex(_model.index(1, 0));
        _table->edit(_model.index(1, 0));
        QVERIFY(editor());
        QTRY_VERIFY(editor()->hasFocus());
    }

    void openContextMenu() {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), _table->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(_table->viewport(), &event);
    }

  private Q_SLOTS:
    void init() {
        _model.clear();
        for (const QString& text : {u"apple"_s, u"bread"_s, u"cheese"_s}) {
            _model.appendRow({new QStandardItem(text), new QStandardItem(text)});
        }
        _window = std::make_unique<QWidget>();
        _table = new TableView(_window.get());
        _table->setModel(&_model);
        _table->resize(300, 200);
        _window->resize(320, 220);
        _window->show();
        _window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_window.get()));
        _table->setFocus();
        _table->setCurrentIndex(_model.index(0, 0));
    }

    void cleanup() { _window.reset(); }

    void bothDeleteKeysDeleteAndGoNoFurther() {
        int deletes = 0;
        int keys = 0;
        _table->deleteItem = [&deletes] { ++deletes; };
        _table->keyDown = [&keys](QKeyEvent&) { ++keys; };
        QTest::keyClick(_table, Qt::Key_Backspace);
        QTest::keyClick(_table, Qt::Key_Delete);
        QCOMPARE(deletes, 2);
        QCOMPARE(keys, 0);
    }

    void homeAndEndGoToTheFirstAndTheLastRowOfTheSameColumn() {
        _table->setCurrentIndex(_model.index(1, 1));
        QTest::keyClick(_table, Qt::Key_End);
        QCOMPARE(_table->currentIndex(), _model.index(2, 1));
        QTest::keyClick(_table, Qt::Key_Home);
        QCOMPARE(_table->currentIndex(), _model.index(0, 1));
    }

    void tabIsOfferedOnceAndElseMovesTheFocusOn() {
        QWidget next(_window.get());
        next.setFocusPolicy(Qt::StrongFocus);
        next.show();
        bool takes = true;
        int keys = 0;
        _table->keyDown = [&](QKeyEvent& event) {
            ++keys;
            event.setAccepted(takes && event.key() == Qt::Key_Tab);
        };
        QTest::keyClick(_table, Qt::Key_Tab);
        QVERIFY(_table->hasFocus());
        QCOMPARE(keys, 1);
        QTest::keyClick(_table, Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(!_table->hasFocus());
        QCOMPARE(keys, 1);
        _table->setFocus();
        takes = false;
        QTest::keyClick(_table, Qt::Key_Tab);
        QVERIFY(!_table->hasFocus());
        QCOMPARE(keys, 2);
    }

    void deleteKeysWithoutAnyoneToAnswerDoNothing() {
        int keys = 0;
        _table->keyDown = [&keys](QKeyEvent&) { ++keys; };
        QTest::keyClick(_table, Qt::Key_Delete);
        QCOMPARE(keys, 0);
        QCOMPARE(_model.rowCount(), 3);
    }

    void keyOfOneCharacterGoesToTheControllerAndThenToTheTable() {
        QString seen;
        _table->keyDown = [&seen](QKeyEvent& event) { seen += event.text(); };
        _table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        QTest::keyClick(_table, Qt::Key_C, Qt::NoModifier);
        QCOMPARE(seen, u"c"_s);
        QCOMPARE(_table->currentIndex().row(), 2);  // the table's own search by typing
    }

    void acceptedKeyGoesNoFurther() {
        _table->keyDown = [](QKeyEvent& event) { event.accept(); };
        QTest::keyClick(_table, Qt::Key_C, Qt::NoModifier);
        QCOMPARE(_table->currentIndex().row(), 0);
    }

    void keysOfNoneOrSeveralCharactersGoToTheTableOnly() {
        int keys = 0;
        _table->keyDown = [&keys](QKeyEvent&) { ++keys; };
        QTest::keyClick(_table, Qt::Key_Down);
        QCOMPARE(_table->currentIndex().row(), 1);
        QKeyEvent several(QEvent::KeyPress, 0, Qt::NoModifier, u"ch"_s);
        QApplication::sendEvent(_table, &several);
        QCOMPARE(keys, 0);
    }

    void rightClickPopsUpTheControllersMenu() {
        QMenu menu;
        menu.addAction(u"Rename"_s);
        _table->menuForEvent = [&menu](const QContextMenuEvent&) { return &menu; };
        openContextMenu();
        QVERIFY(menu.isVisible());
        menu.hide();
    }

    void rightClickWithoutAControllersMenuShowsNone() {
        openContextMenu();
        QVERIFY(!QApplication::activePopupWidget());
        _table->menuForEvent = [](const QContextMenuEvent&) { return nullptr; };
        openContextMenu();
        QVERIFY(!QApplication::activePopupWidget());
    }

    void endOfEditingStaysInTheCellAndTakesTheFocusBack_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Tab") << int(Qt::Key_Tab);
        QTest::newRow("Backtab") << int(Qt::Key_Backtab);
    }

    void endOfEditingStaysInTheCellAndTakesTheFocusBack() {
        QFETCH(int, key);
        startEditing();
        editor()->setText(u"butter"_s);
        QTest::keyClick(editor(), Qt::Key(key));
        QTRY_COMPARE(_model.index(1, 0).data().toString(), u"butter"_s);
        QTRY_VERIFY(_table->hasFocus());
        QCOMPARE(_table->currentIndex(), _model.index(1, 0));
        QTRY_VERIFY(!editor());
    }

    void editorFillsItsCell() {
        Theme::apply(*qApp, Theme::Choice::dark);
        startEditing();
        QCOMPARE(editor()->geometry(), _table->visualRect(_model.index(1, 0)));
        qApp->setStyleSheet(QString());
    }

    void escapeKeepsTheOldTextAndTakesTheFocusBack() {
        startEditing();
        editor()->setText(u"butter"_s);
        QTest::keyClick(editor(), Qt::Key_Escape);
        QTRY_VERIFY(!editor());
        QVERIFY(_table->hasFocus());
        QCOMPARE(_model.index(1, 0).data().toString(), u"bread"_s);
    }

    void deleteInsideAnEditorEditsText() {
        int deletes = 0;
        _table->deleteItem = [&deletes] { ++deletes; };
        startEditing();
        QTest::keyClick(editor(), Qt::Key_Delete);
        QCOMPARE(deletes, 0);
    }
};

QTEST_MAIN(TableViewTest)
#include "TableViewTest.moc"
