// The system's clock, and the one that tests put in its place.
#include "platform/Clock.h"
#include "platform/FakeClock.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <set>
#include <thread>
#include <vector>

using namespace marquill;

class ClockTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void nowIsTheSystemsDate() {
        const double before = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1e3 - 0.001;
        const double now = Clock::current().now().time_since_epoch().count();
        const double after = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1e3 + 0.001;
        QVERIFY(now >= before && now <= after);
    }

    void microsecondsCountFromTheSystemsStart() {
        QFile uptime(QStringLiteral("/proc/uptime"));
        if (!uptime.open(QIODevice::ReadOnly)) {
            QSKIP("this system tells its uptime elsewhere");
        }
        const auto counted = [] { return static_cast<double>(Clock::current().microseconds()) / 1e6; };
        const double before = counted();
        const double told = uptime.readAll().split(' ').first().toDouble();
        const double after = counted();
        QVERIFY2(told > before - 5 && told < after + 5, qPrintable(QString::number(before - told)));
    }

    void microsecondsNeverRepeatAcrossThreads() {
        constexpr int each = 2000;
        std::vector<std::vector<quint64>> readings(4);
        std::vector<std::thread> threads;
        for (std::vector<quint64>& reading : readings) {
            threads.emplace_back([&reading] {
                for (int count = 0; count < each; ++count) {
                    reading.push_back(Clock::current().microseconds());
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        std::set<quint64> all;
        for (const std::vector<quint64>& reading : readings) {
            QVERIFY(std::ranges::is_sorted(reading));
            all.insert(reading.begin(), reading.end());
        }
        QCOMPARE(all.size(), readings.size() * each);
    }

    void aFakeClockStandsStillUntilItIsMoved() {
        Clock* const system = &Clock::current();
        {
            FakeClock clock(Date(std::chrono::duration<double>(100)));
            QCOMPARE(&Clock::current(), &clock);
            QCOMPARE(Clock::current().now().time_since_epoch().count(), 100.0);
            clock.advance(2.5);
            QCOMPARE(Clock::current().now().time_since_epoch().count(), 102.5);
            const quint64 first = Clock::current().microseconds();
            QVERIFY(Clock::current().microseconds() > first);
        }
        QCOMPARE(&Clock::current(), system);
    }
};

QTEST_GUILESS_MAIN(ClockTest)
#include "ClockTest.moc"
