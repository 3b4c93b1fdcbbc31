// When events arrived, by their time stamps.
#include "platform/EventTime.h"
#include "platform/FakeClock.h"

#include <QKeyEvent>
#include <QTest>

#include <chrono>

using namespace marquill;

namespace {

// How much the clocks may run on between two lines of a test, in seconds.
constexpr double slack = 0.25;

quint64 monotonicMilliseconds() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<quint64>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

// How long before the present the key is taken to have been struck, in seconds.
double age(quint64 timestamp) {
    const FakeClock clock;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_3, Qt::AltModifier);
    key.setTimestamp(timestamp);
    return secondsBetween(arrivalDate(key), clock.now());
}

bool isAbout(double seconds, double expected) {
    return seconds >= expected && seconds < expected + slack;
}

}  // namespace

class EventTimeTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void anEventThatWaitedArrivedThatMuchEarlier() {
        QVERIFY(isAbout(age(monotonicMilliseconds() - 1500), 1.5));
        QVERIFY(isAbout(age(monotonicMilliseconds()), 0.0));
    }

    void timeStampsAreCutToThirtyTwoBits() {
        QVERIFY(isAbout(age((monotonicMilliseconds() - 1500) & 0xFFFFFFFFU), 1.5));
    }

    void withoutATimeStampItIsNow() { QCOMPARE(age(0), 0.0); }

    void aTimeStampOfAnotherClockIsNotTrusted() {
        QCOMPARE(age(monotonicMilliseconds() + 5000), 0.0);
        QCOMPARE(age(monotonicMilliseconds() - 60'000), 0.0);
    }
};

QTEST_GUILESS_MAIN(EventTimeTest)
#include "EventTimeTest.moc"
