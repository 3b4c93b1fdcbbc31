// Which key of which keyboard means what.
#include "application/GlobalKeys.h"
#include "platform/Literals.h"

#include <QTest>

using namespace marquill;

namespace {

// Key codes of the digit row under X11.
constexpr quint32 keyCodeOf1 = 10;
constexpr quint32 keyCodeOf0 = 19;

QKeyEvent press(int key, Qt::KeyboardModifiers modifiers, const QString& text = {}, bool autoRepeat = false,
                quint32 scanCode = 0) {
    return QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, text, autoRepeat);
}

}  // namespace

class GlobalKeysTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void controlSpaceStarts() {
        QVERIFY(GlobalKeys::startsRecording(press(Qt::Key_Space, Qt::ControlModifier, u" "_s)));
        QVERIFY(!GlobalKeys::startsRecording(press(Qt::Key_Space, Qt::NoModifier, u" "_s)));
        QVERIFY(!GlobalKeys::startsRecording(press(Qt::Key_Space, Qt::AltModifier, u" "_s)));
    }

    void aTypedGraveAccentStartsWhateverKeyTypesIt() {
        QVERIFY(GlobalKeys::startsRecording(press(Qt::Key_QuoteLeft, Qt::NoModifier, u"`"_s)));
        QVERIFY(GlobalKeys::startsRecording(press(Qt::Key_7, Qt::GroupSwitchModifier, u"`"_s)));
        QVERIFY(!GlobalKeys::startsRecording(press(Qt::Key_Dead_Grave, Qt::NoModifier)));
        QVERIFY(!GlobalKeys::startsRecording(press(Qt::Key_QuoteLeft, Qt::ShiftModifier, u"~"_s)));
    }

    void optionWithADigitFiresThatDigit() {
        for (int digit = 0; digit <= 9; ++digit) {
            QCOMPARE(GlobalKeys::markerDigit(press(Qt::Key_0 + digit, Qt::AltModifier)),
                     std::optional(digit));
        }
    }

    void withoutOptionADigitFiresNothing() {
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_3, Qt::NoModifier, u"3"_s)));
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_3, Qt::ControlModifier)));
    }

    void otherOptionKeysFireNothing() {
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_A, Qt::AltModifier, u"a"_s, false, 38)));
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_F1, Qt::AltModifier, {}, false, 67)));
    }

    void aKeyHeldDownFiresOnce() {
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_3, Qt::AltModifier, {}, true)));
    }

    void theNumberPadFiresToo() {
        QCOMPARE(GlobalKeys::markerDigit(press(Qt::Key_4, Qt::AltModifier | Qt::KeypadModifier)),
                 std::optional(4));
    }

#ifdef Q_OS_LINUX
    void theDigitRowFiresWhereDigitsNeedShift() {
        // A French keyboard types & and à with the keys of 1 and 0.
        const QKeyEvent one = press(Qt::Key_Ampersand, Qt::AltModifier, u"&"_s, false, keyCodeOf1);
        QCOMPARE(GlobalKeys::markerDigit(one), std::optional(1));
        const QKeyEvent zero = press(Qt::Key_Agrave, Qt::AltModifier, u"à"_s, false, keyCodeOf0);
        QCOMPARE(GlobalKeys::markerDigit(zero), std::optional(0));
    }

    void shiftMakesOtherKeysOfTheDigitRow() {
        const Qt::KeyboardModifiers both = Qt::AltModifier | Qt::ShiftModifier;
        QVERIFY(!GlobalKeys::markerDigit(press(Qt::Key_Exclam, both, u"!"_s, false, keyCodeOf1)));
        // On a French keyboard it makes the digit.
        QCOMPARE(GlobalKeys::markerDigit(press(Qt::Key_1, both, u"1"_s, false, keyCodeOf1)),
                 std::optional(1));
    }
#endif
};

QTEST_GUILESS_MAIN(GlobalKeysTest)
#include "GlobalKeysTest.moc"
