// Panels leave the keyboard to the window that has it, until it is wanted of them.
#include "platform/FloatingPanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>

using namespace marquill;

class FloatingPanelTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> _main;
    std::unique_ptr<FloatingPanel> _panel;
    QLineEdit* _mainField = nullptr;
    QLineEdit* _panelField = nullptr;
    QPushButton* _button = nullptr;

    bool panelTakesKeyboard() const {
        return !_panel->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    }

  private Q_SLOTS:
    void init() {
        _main = std::make_unique<QWidget>();
        _mainField = new QLineEdit(_main.get());
        _panel = std::make_unique<FloatingPanel>();
        _panelField = new QLineEdit(_panel.get());
        _panelField->setGeometry(0, 0, 100, 30);
        _button = new QPushButton(_panel.get());
        _button->setFocusPolicy(Qt::TabFocus);
        _button->setGeometry(0, 40, 100, 30);
        _main->show();
        _main->activateWindow();
        _mainField->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(_main.get()));
        _panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(_panel.get()));
    }

    void showingAPanelLeavesTheKeyboardWhereItIs() {
        QVERIFY(!panelTakesKeyboard());
        QVERIFY(_panel->testAttribute(Qt::WA_ShowWithoutActivating));
        _main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_main.get()));
        QVERIFY(_mainField->hasFocus());
    }

    void aClickOnAButtonLeavesTheFocusWhereItIs() {
        _main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_main.get()));
        int clicks = 0;
        connect(_button, &QPushButton::clicked, this, [&clicks] { ++clicks; });
        QTest::mouseClick(_panel->windowHandle(), Qt::LeftButton, {}, _button->geometry().center());
        QCOMPARE(clicks, 1);
        QCOMPARE(QApplication::focusWidget(), _mainField);
        QCOMPARE(QApplication::activeWindow(), _main.get());
        QVERIFY(!panelTakesKeyboard());
    }

    void aClickIntoATextFieldTakesTheKeyboard() {
        QTest::mouseClick(_panel->windowHandle(), Qt::LeftButton, {}, _panelField->geometry().center());
        QVERIFY(panelTakesKeyboard());
        QVERIFY(QTest::qWaitForWindowActive(_panel.get()));
        QVERIFY(_panelField->hasFocus());
    }

    void aPanelThatLosesTheKeyboardDoesNotTakeItAgain() {
        _panel->makeKeyAndOrderFront();
        QVERIFY(panelTakesKeyboard());
        QVERIFY(QTest::qWaitForWindowActive(_panel.get()));
        _main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_main.get()));
        QVERIFY(!panelTakesKeyboard());
    }

    void closingAsksAndHidingDoesNot() {
        int questions = 0;
        _panel->windowShouldClose = [&questions] {
            ++questions;
            return false;
        };
        _panel->close();
        QVERIFY(_panel->isVisible());
        QCOMPARE(questions, 1);
        _panel->hide();
        QVERIFY(!_panel->isVisible());
        QCOMPARE(questions, 1);
    }

    void aPanelHiddenWithTheMainWindowIsStillOpen() {
        _panel->setHiddenWithMainWindow(true);
        QVERIFY(!_panel->isVisible());
        QVERIFY(_panel->isOpen());
        _panel->setHiddenWithMainWindow(false);
        QVERIFY(_panel->isVisible());
    }

    // As some window managers do with the panels of a window that they minimise.
    void aPanelMinimisedWithTheMainWindowComesBackOpen() {
        _panel->setHiddenWithMainWindow(true);
        _panel->setWindowState(_panel->windowState() | Qt::WindowMinimized);
        _panel->setHiddenWithMainWindow(false);
        QVERIFY(_panel->isVisible());
        QVERIFY(!_panel->isMinimized());
    }

    void aPanelThatWasClosedBeforeStaysClosed() {
        _panel->hide();
        _panel->setHiddenWithMainWindow(true);
        QVERIFY(!_panel->isOpen());
        _panel->setHiddenWithMainWindow(false);
        QVERIFY(!_panel->isVisible());
    }

    void aPanelShownMeanwhileAndClosedStaysClosed() {
        _panel->setHiddenWithMainWindow(true);
        _panel->show();
        _panel->hide();
        QVERIFY(!_panel->isOpen());
        _panel->setHiddenWithMainWindow(false);
        QVERIFY(!_panel->isVisible());
    }
};

QTEST_MAIN(FloatingPanelTest)
#include "FloatingPanelTest.moc"
