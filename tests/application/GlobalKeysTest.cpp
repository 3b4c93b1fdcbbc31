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

// As macOS tells of one: by its virtual key code.
QKeyEvent pressOnMac(int key, Qt::KeyboardModifiers modifiers, const QString& text, quint32 virtualKey) {
    return QKeyEvent(QEvent::KeyPress, key, modifiers, 0, virtualKey, 0, text);
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

    void theDigitRowFiresWhereDigitsNeedShift() {
        // A French keyboard types & and à with the keys of 1 and 0.
        const QKeyEvent one = press(Qt::Key_Ampersand, Qt::AltModifier, u"&"_s, false, keyCodeOf1);
        QCOMPARE(GlobalKeys::markerDigit(one, KeySystem::x11), std::optional(1));
        const QKeyEvent zero = press(Qt::Key_Agrave, Qt::AltModifier, u"à"_s, false, keyCodeOf0);
        QCOMPARE(GlobalKeys::markerDigit(zero, KeySystem::x11), std::optional(0));
    }

    void shiftMakesOtherKeysOfTheDigitRow() {
        const Qt::KeyboardModifiers both = Qt::AltModifier | Qt::ShiftModifier;
        QVERIFY(
            !GlobalKeys::markerDigit(press(Qt::Key_Exclam, both, u"!"_s, false, keyCodeOf1), KeySystem::x11));
        // On a French keyboard it makes the digit.
        QCOMPARE(GlobalKeys::markerDigit(press(Qt::Key_1, both, u"1"_s, false, keyCodeOf1), KeySystem::x11),
                 std::optional(1));
    }

    // Option with 1, 2, 5 and 0 of an American keyboard; 5 and 6 have changed places among the codes.
    void onAMacTheDigitRowFiresWhateverOptionMakesOfIt() {
        const auto digit = [](int key, const QString& text, quint32 virtualKey) {
            return GlobalKeys::markerDigit(pressOnMac(key, Qt::AltModifier, text, virtualKey),
                                           KeySystem::mac);
        };
        QCOMPARE(digit(Qt::Key_exclamdown, u"¡"_s, 18), std::optional(1));
        QCOMPARE(digit(0x2122, u"™"_s, 19), std::optional(2));
        QCOMPARE(digit(0x221e, u"∞"_s, 23), std::optional(5));
        QCOMPARE(digit(Qt::Key_section, u"§"_s, 22), std::optional(6));
        QCOMPARE(digit(Qt::Key_masculine, u"º"_s, 29), std::optional(0));
        // Option with A.
        QCOMPARE(digit(Qt::Key_Aring, u"å"_s, 0), std::nullopt);
    }

    void onAMacControlIsTheKeySoLabelledAndCommandIsNot() {
        const QKeyEvent control = pressOnMac(Qt::Key_Space, Qt::MetaModifier, u" "_s, 49);
        QVERIFY(GlobalKeys::startsRecording(control, KeySystem::mac));
        const QKeyEvent command = pressOnMac(Qt::Key_Space, Qt::ControlModifier, u" "_s, 49);
        QVERIFY(!GlobalKeys::startsRecording(command, KeySystem::mac));
        QCOMPARE(GlobalKeys::startRecordingKey(KeySystem::mac), QKeySequence(Qt::META | Qt::Key_Space));
    }

    void onWindowsAltFiresAndAltGrTypes() {
        constexpr quint32 scanCodeOf2 = 3;
        const QKeyEvent alt = press(Qt::Key_2, Qt::AltModifier, u"2"_s, false, scanCodeOf2);
        QCOMPARE(GlobalKeys::markerDigit(alt, KeySystem::windows), std::optional(2));
        const QKeyEvent altOnAFrenchOne = press(Qt::Key_Eacute, Qt::AltModifier, u"é"_s, false, scanCodeOf2);
        QCOMPARE(GlobalKeys::markerDigit(altOnAFrenchOne, KeySystem::windows), std::optional(2));
        const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;
        const QKeyEvent altGr = press(Qt::Key_2, both, u"²"_s, false, scanCodeOf2);
        QCOMPARE(GlobalKeys::markerDigit(altGr, KeySystem::windows), std::nullopt);
        const QKeyEvent controlAlt = press(Qt::Key_2, both, {}, false, scanCodeOf2);
        QCOMPARE(GlobalKeys::markerDigit(controlAlt, KeySystem::windows), std::optional(2));
    }
};

QTEST_GUILESS_MAIN(GlobalKeysTest)
#include "GlobalKeysTest.moc"
