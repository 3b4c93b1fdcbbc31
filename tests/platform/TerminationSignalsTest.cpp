// The signals by which a program is asked to end.
#include "platform/TerminationSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace marquill;

class TerminationSignalsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void eachIsToldFromTheEventLoop_data() {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGHUP") << SIGHUP;
        QTest::newRow("SIGINT") << SIGINT;
    }
    void eachIsToldFromTheEventLoop() {
        QFETCH(const int, number);
        int count = 0;
        const TerminationSignals signals([&count] { ++count; });
        QCOMPARE(raise(number), 0);
        QCOMPARE(count, 0);
        QTRY_COMPARE_WITH_TIMEOUT(count, 1, 60'000);
        QCOMPARE(raise(number), 0);
        QTRY_COMPARE_WITH_TIMEOUT(count, 2, 60'000);
    }

    void oneThatIsIgnoredStaysIgnored() {
        struct sigaction ignored = {};
        ignored.sa_handler = SIG_IGN;
        struct sigaction before = {};
        QCOMPARE(sigaction(SIGHUP, &ignored, &before), 0);
        {
            const TerminationSignals signals([] { QFAIL("told"); });
            struct sigaction now = {};
            QCOMPARE(sigaction(SIGHUP, nullptr, &now), 0);
            QVERIFY(now.sa_handler == SIG_IGN);
        }
        QCOMPARE(sigaction(SIGHUP, &before, nullptr), 0);
    }

    void afterItTheSignalsAreWhatTheyWere() {
        struct sigaction before = {};
        QCOMPARE(sigaction(SIGTERM, nullptr, &before), 0);
        {
            const TerminationSignals signals([] {});
        }
        struct sigaction after = {};
        QCOMPARE(sigaction(SIGTERM, nullptr, &after), 0);
        QVERIFY(after.sa_handler == before.sa_handler);
    }
};

QTEST_GUILESS_MAIN(TerminationSignalsTest)
#include "TerminationSignalsTest.moc"
