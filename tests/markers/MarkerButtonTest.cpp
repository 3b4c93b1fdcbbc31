// Clicks on a marker button, and its title edited in place.
#include "markers/MarkerButton.h"
#include "platform/Clock.h"
#include "platform/DelayedCalls.h"
#include "platform/FloatingPanel.h"
#include "platform/Literals.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>

#include <memory>

using namespace marquill;

namespace {

class Told : public MarkerButton::Delegate {
  public:
    QList<int> pressed;
    QStringList edited;

    void markerButtonPressed(MarkerButton& button) override { pressed.append(button.tag()); }
    void markerButtonEdited(MarkerButton& button) override { edited.append(button.title()); }
};

}  // namespace

class MarkerButtonTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<DelayedCalls::HeldTime> _held;
    std::unique_ptr<FloatingPanel> _panel;
    MarkerButton* _button = nullptr;
    MarkerButton* _other = nullptr;
    Told _told;

    // Through the window, as real events come: what the toolkit makes of them is part of what is tested.
    void press(const MarkerButton& button, Qt::MouseButton mouseButton = Qt::LeftButton) {
        QTest::mousePress(_panel->windowHandle(), mouseButton, {}, button.geometry().center());
    }
    void release(const MarkerButton& button, Qt::MouseButton mouseButton = Qt::LeftButton) {
        QTest::mouseRelease(_panel->windowHandle(), mouseButton, {}, button.geometry().center());
    }
    void click(const MarkerButton& button) {
        press(button);
        release(button);
    }
    void doubleClick(const MarkerButton& button) {
        QTest::mouseDClick(_panel->windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    }
    QLineEdit* field() const { return _panel->findChild<QLineEdit*>(u"_textField"_s); }
    bool fieldIsOpen() const { return field() && field()->isVisible(); }
    void type(const QString& text) {
        field()->selectAll();
        QTest::keyClicks(field(), text);
    }
    void edit(const QString& text) {
        _button->startTextEdit();
        QTRY_VERIFY(field()->hasFocus());
        type(text);
    }
    static QAccessible::State accessibleState(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->state();
    }

  private Q_SLOTS:
    void init() {
        _held = std::make_unique<DelayedCalls::HeldTime>();
        _told = {};
        _panel = std::make_unique<FloatingPanel>();
        _panel->resize(200, 100);
        _button = new MarkerButton(_panel.get());
        _button->setGeometry(10, 10, 120, 30);
        _button->setTag(2);
        _button->setTitle(u"Good"_s);
        _button->setDelegate(&_told);
        _other = new MarkerButton(_panel.get());
        _other->setGeometry(10, 50, 120, 30);
        _other->setTag(9);
        _other->setDelegate(&_told);
        _panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(_panel.get()));
    }

    void cleanup() {
        _panel.reset();
        _held.reset();
    }

    void aClickFiresOneSecondLater() {
        _held.reset();
        QElapsedTimer time;
        time.start();
        click(*_button);
        QVERIFY(_told.pressed.isEmpty());
        QTRY_COMPARE(_told.pressed, QList<int>{2});
        QVERIFY2(time.elapsed() >= 990, qPrintable(QString::number(time.elapsed())));
        DelayedCalls::elapse(_button, 10);
        QCOMPARE(_told.pressed, QList<int>{2});
    }

    void nothingFiresBeforeTheSecondIsOver() {
        click(*_button);
        DelayedCalls::elapse(_button, 0.5);
        QVERIFY(_told.pressed.isEmpty());
        DelayedCalls::elapse(_button, 0.5);
        QCOMPARE(_told.pressed, QList<int>{2});
    }

    void separateClicksFireOnceEach() {
        click(*_button);
        click(*_button);
        click(*_other);
        QCOMPARE(DelayedCalls::pendingCount(_button), 2);
        DelayedCalls::elapse(_button, 1);
        DelayedCalls::elapse(_other, 1);
        QCOMPARE(_told.pressed, (QList<int>{2, 2, 9}));
    }

    void holdingTheMouseFiresNothingYet() {
        press(*_button);
        DelayedCalls::elapse(_button, 5);
        QVERIFY(_told.pressed.isEmpty());
        release(*_button);
        DelayedCalls::elapse(_button, 1);
        QCOMPARE(_told.pressed, QList<int>{2});
    }

    void aClickCountsWhereverTheMouseIsReleased() {
        press(*_button);
        QTest::mouseRelease(_panel->windowHandle(), Qt::LeftButton, {}, QPoint(190, 90));
        DelayedCalls::elapse(_button, 1);
        QCOMPARE(_told.pressed, QList<int>{2});
    }

    void otherMouseButtonsDoNothing() {
        press(*_button, Qt::RightButton);
        release(*_button, Qt::RightButton);
        DelayedCalls::elapse(_button, 1);
        QVERIFY(_told.pressed.isEmpty());
    }

    void aDoubleClickEditsTheTitleAndFiresNothing() {
        doubleClick(*_button);
        QVERIFY(fieldIsOpen());
        QCOMPARE(field()->text(), u"Good"_s);
        QTRY_VERIFY(field()->hasFocus());
        DelayedCalls::elapse(_button, 10);
        QVERIFY(_told.pressed.isEmpty());
    }

    void aDoubleClickTakesBackAnEarlierClick() {
        click(*_button);
        doubleClick(*_button);
        QCOMPARE(DelayedCalls::pendingCount(_button), 0);
    }

    void aDoubleClickLeavesOtherButtonsClicksAlone() {
        click(*_other);
        doubleClick(*_button);
        DelayedCalls::elapse(_other, 1);
        QCOMPARE(_told.pressed, QList<int>{9});
    }

    void aClickOnADisabledButtonFiresNothing() {
        _button->setEnabled(false);
        click(*_button);
        DelayedCalls::elapse(_button, 10);
        QVERIFY(_told.pressed.isEmpty());
        QVERIFY(!fieldIsOpen());
    }

    void aDoubleClickOnADisabledButtonEditsItsTitle() {
        _button->setEnabled(false);
        doubleClick(*_button);
        QVERIFY(fieldIsOpen());
        QVERIFY(field()->isEnabled());
        QTRY_VERIFY(field()->hasFocus());
        type(u"Better"_s);
        QTest::keyClick(field(), Qt::Key_Return);
        QCOMPARE(_told.edited, QStringList{u"Better"_s});
        DelayedCalls::elapse(_button, 10);
        QVERIFY(_told.pressed.isEmpty());
    }

    void aDisabledButtonIsDisabledForEveryone() {
        _button->setEnabled(false);
        QVERIFY(!_button->isEnabled());
        QVERIFY(accessibleState(*_button).disabled);
        _button->setEnabled(true);
        QVERIFY(!accessibleState(*_button).disabled);
    }

    void aPressOnADisabledButtonIsNoneEvenWhenItIsEnabledMeanwhile() {
        _button->setEnabled(false);
        press(*_button);
        _button->setEnabled(true);
        release(*_button);
        DelayedCalls::elapse(_button, 10);
        QVERIFY(_told.pressed.isEmpty());
    }

    void aButtonDisabledBeforeTheReleaseFiresNothing() {
        press(*_button);
        _button->setEnabled(false);
        release(*_button);
        DelayedCalls::elapse(_button, 10);
        QVERIFY(_told.pressed.isEmpty());
    }

    void aClickThatCountedStillFiresWhenTheButtonIsDisabled() {
        click(*_button);
        _button->setEnabled(false);
        DelayedCalls::elapse(_button, 1);
        QCOMPARE(_told.pressed, QList<int>{2});
    }

    // The field covers all but the rim, so the third click is made there.
    void aTripleClickDoesNothingMore() {
        const QPoint rim = _button->geometry().topLeft() + QPoint(1, 1);
        QTest::mouseDClick(_panel->windowHandle(), Qt::LeftButton, {}, rim);
        _button->stopEditing();
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mouseClick(_panel->windowHandle(), Qt::LeftButton, {}, rim);
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mouseClick(_panel->windowHandle(), Qt::LeftButton, {}, rim);
        QCOMPARE(DelayedCalls::pendingCount(_button), 0);
        QVERIFY(!fieldIsOpen());
    }

    void aClickAfterADoubleClickIsASingleOneAgain() {
        doubleClick(*_button);
        _button->stopEditing();
        QTest::lastMouseTimestamp += QGuiApplication::styleHints()->mouseDoubleClickInterval() + 1;
        click(*_button);
        QCOMPARE(DelayedCalls::pendingCount(_button), 1);
    }

    void aButtonThatIsGoneFiresNothing() {
        _held.reset();
        click(*_button);
        delete _button;
        QTest::qWait(1100);
        QVERIFY(_told.pressed.isEmpty());
    }

    void withoutADelegateNothingHappens() {
        _button->setDelegate(nullptr);
        click(*_button);
        DelayedCalls::elapse(_button, 1);
        edit(u"Better"_s);
        QTest::keyClick(field(), Qt::Key_Return);
        QCOMPARE(_button->title(), u"Better"_s);
        QVERIFY(_told.pressed.isEmpty() && _told.edited.isEmpty());
    }

    void keysAndScreenReadersFireAtOnce() {
        QTest::keyClick(_button, Qt::Key_Space);
        QCOMPARE(_told.pressed, QList<int>{2});
        _button->click();
        QCOMPARE(_told.pressed, (QList<int>{2, 2}));
        _button->setEnabled(false);
        _button->click();
        QCOMPARE(_told.pressed, (QList<int>{2, 2}));
    }

    void theFieldLiesOnTheButton() {
        _button->startTextEdit();
        QCOMPARE(field()->geometry(), QRect(12, 12, 116, 26));
        QCOMPARE(field()->parentWidget(), _button->parentWidget());
        QCOMPARE(field()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        _button->setGeometry(20, 20, 80, 30);
        QCOMPARE(field()->geometry(), QRect(22, 22, 76, 26));
    }

    void theFieldIsMadeOnce() {
        _button->startTextEdit();
        const QLineEdit* first = field();
        _button->stopEditing();
        QVERIFY(!first->isVisible());
        QVERIFY(!first->isEnabled());
        _button->setGeometry(20, 20, 80, 30);
        _button->startTextEdit();
        QCOMPARE(_panel->findChildren<QLineEdit*>().size(), 1);
        QCOMPARE(field()->geometry(), QRect(22, 22, 76, 26));
    }

    void returnKeepsTheTitle() {
        edit(u"Better"_s);
        QTest::keyClick(field(), Qt::Key_Return);
        QCOMPARE(_button->title(), u"Better"_s);
        QCOMPARE(_told.edited, QStringList{u"Better"_s});
        QVERIFY(!fieldIsOpen());
        QVERIFY(!_button->isEditing());
    }

    void losingTheFocusKeepsTheTitle() {
        edit(u"Better"_s);
        _other->startTextEdit();
        QCOMPARE(_button->title(), u"Better"_s);
        QCOMPARE(_told.edited, QStringList{u"Better"_s});
        QVERIFY(!_button->isEditing());
        QVERIFY(_other->isEditing());
    }

    void anotherWindowTakingTheKeyboardKeepsTheTitle() {
        edit(u"Better"_s);
        QWidget window;
        window.show();
        window.activateWindow();
        QTRY_COMPARE(_told.edited, QStringList{u"Better"_s});
    }

    void aMenuBorrowingTheFocusGoesOnEditing() {
        edit(u"Better"_s);
        QFocusEvent event(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(field(), &event);
        QVERIFY(_button->isEditing());
        QVERIFY(_told.edited.isEmpty());
    }

    void anEmptyTitleIsKeptToo() {
        edit(QString());
        field()->clear();
        QTest::keyClick(field(), Qt::Key_Enter);
        QCOMPARE(_told.edited, QStringList{QString()});
        QCOMPARE(_button->title(), QString());
    }

    void whatNoClipCouldHoldCannotBeTyped() {
        edit(u"Bet"_s);
        field()->insert(QString(QChar(0x07)));
        QTest::keyClicks(field(), u"ter"_s);
        QTest::keyClick(field(), Qt::Key_Return);
        QCOMPARE(_button->title(), u"Better"_s);
    }

    void stopEditingDropsWhatWasTyped() {
        edit(u"Better"_s);
        _button->stopEditing();
        QCOMPARE(_button->title(), u"Good"_s);
        QVERIFY(!fieldIsOpen());
        QVERIFY(_told.edited.isEmpty());
        _button->startTextEdit();
        QCOMPARE(field()->text(), u"Good"_s);
    }

    void settingTheEnabledStateEndsAnEdit_data() {
        QTest::addColumn<bool>("before");
        QTest::addColumn<bool>("after");
        QTest::newRow("disabled") << true << false;
        QTest::newRow("enabled") << false << true;
        QTest::newRow("enabled again") << true << true;
        QTest::newRow("disabled again") << false << false;
    }
    void settingTheEnabledStateEndsAnEdit() {
        QFETCH(const bool, before);
        QFETCH(const bool, after);
        _button->setEnabled(before);
        edit(u"Better"_s);
        _button->setEnabled(after);
        QCOMPARE(_button->isEnabled(), after);
        QVERIFY(!fieldIsOpen());
        QCOMPARE(_button->title(), u"Good"_s);
        QVERIFY(_told.edited.isEmpty());
    }

    void theKeyboardEditsToo() {
        QTest::keyClick(_button, Qt::Key_F2);
        QVERIFY(_button->isEditing());
    }

    void clicksLeaveTheFocusWhereItIs() {
        _other->startTextEdit();
        QTRY_VERIFY(field()->hasFocus());
        click(*_button);
        QVERIFY(_other->isEditing());
    }

    void ampersandsAreLetters_data() {
        QTest::addColumn<QString>("title");
        for (const auto* title : {"Lights & Sound", "A&B", "&", "&&", "&&&"}) {
            QTest::newRow(title) << QString::fromLatin1(title);
        }
    }
    void ampersandsAreLetters() {
        QFETCH(const QString, title);
        _button->setTitle(title);
        QCOMPARE(_button->title(), title);
        QVERIFY(_button->shortcut().isEmpty());
        QCOMPARE(_button->accessibleName(), title);
    }

    void itsKeyAndWholeTitleAreTold() {
        _button->setTitle(u"A title much too long for any marker button"_s);
        QVERIFY(_button->toolTip().startsWith(_button->title()));
        QVERIFY(_button->toolTip().contains(u'3'));
        _other->setTitle(u"Cut"_s);
        QVERIFY(_other->toolTip().contains(u'0'));
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(_button);
        QCOMPARE(interface->text(QAccessible::Name), _button->title());
        QCOMPARE(interface->role(), QAccessible::Button);
    }

    void aBlankButtonStillHasAName() {
        _button->setTitle(QString());
        QCOMPARE(_button->text(), QString());
        QCOMPARE(_button->accessibleName(), u"Untitled marker 3"_s);
    }

    void titlesDoNotWidenTheButton() {
        const QSize smallest = _button->minimumSizeHint();
        const QSize usual = _button->sizeHint();
        _button->setTitle(QString(500, u'W'));
        QCOMPARE(_button->minimumSizeHint(), smallest);
        QCOMPARE(_button->sizeHint(), usual);
    }
};

QTEST_MAIN(MarkerButtonTest)
#include "MarkerButtonTest.moc"
