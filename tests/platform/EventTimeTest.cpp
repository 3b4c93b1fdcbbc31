// When events arrived, by their time stamps.
#include "platform/EventTime.h"
#include "platform/FakeClock.h"

#include <QKeyEvent>
#include <QTest>

#include <chrono>
#include <cmath>
#include <utility>

using namespace marquill;

namespace {

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

// Whether an event that waited so many milliseconds is taken for as old, and for no older than it has become
// by then.
bool isAsOldAs(quint64 waited, quint64 mask = ~quint64{0}) {
    const quint64 before = monotonicMilliseconds();
    const double found = age((before - waited) & mask);
    const quint64 passed = monotonicMilliseconds() - before;
    return found >= double(waited) / 1000 && found <= double(waited + passed) / 1000;
}

// Runs on with the events' clock. The first reader loses its turn right after it has read it.
class ClockOfABusyMachine final : public Clock {
  public:
    ClockOfABusyMachine() { Clock::install(this); }
    ~ClockOfABusyMachine() override { Clock::install(nullptr); }
    ClockOfABusyMachine(const ClockOfABusyMachine&) = delete;
    ClockOfABusyMachine& operator=(const ClockOfABusyMachine&) = delete;

    Date now() const override {
        const Date date{std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())};
        if (!std::exchange(_hasBeenRead, true)) {
            QTest::qSleep(50);
        }
        return date;
    }
    quint64 microseconds() const override { return 1; }

  private:
    mutable bool _hasBeenRead = false;
};

}  // namespace

class EventTimeTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void anEventThatWaitedArrivedThatMuchEarlier() {
        QVERIFY(isAsOldAs(1500));
        QVERIFY(isAsOldAs(0));
    }

    void timeStampsAreCutToThirtyTwoBits() { QVERIFY(isAsOldAs(1500, 0xFFFFFFFFU)); }

    void aProgramThatLosesItsTurnMeanwhileDatesNothingEarlier() {
        const ClockOfABusyMachine clock;
        QKeyEvent key(QEvent::KeyPress, Qt::Key_3, Qt::AltModifier);
        key.setTimestamp(monotonicMilliseconds());
        const double stamped = static_cast<double>(key.timestamp()) / 1000;
        const double found = arrivalDate(key).time_since_epoch().count();
        QVERIFY2(std::abs(found - stamped) < 0.005, qPrintable(QString::number(found - stamped)));
    }

    void withoutATimeStampItIsNow() { QCOMPARE(age(0), 0.0); }

    void aTimeStampOfAnotherClockIsNotTrusted() {
        QCOMPARE(age(monotonicMilliseconds() + 3'600'000), 0.0);
        QCOMPARE(age(monotonicMilliseconds() - 60'000), 0.0);
    }
};

QTEST_GUILESS_MAIN(EventTimeTest)
#include "EventTimeTest.moc"
