// Calls made later: when, in which order, and when not.
#include "platform/DelayedCalls.h"
#include "platform/Literals.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace marquill;

class DelayedCallsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aCallComesOnceAndNotBeforeItsTime() {
        QObject target;
        int calls = 0;
        QElapsedTimer timer;
        timer.start();
        qint64 after = -1;
        DelayedCalls::performAfterDelay(&target, 0.05, [&] {
            ++calls;
            after = timer.elapsed();
        });
        QCOMPARE(calls, 0);
        QCOMPARE(DelayedCalls::pendingCount(&target), 1);
        QTRY_COMPARE(calls, 1);
        QVERIFY2(after >= 49, qPrintable(QString::number(after)));
        QTest::qWait(60);
        QCOMPARE(calls, 1);
        QCOMPARE(DelayedCalls::pendingCount(&target), 0);
    }

    void noDelayMeansTheNextTurnOfTheEventLoop() {
        QObject target;
        bool called = false;
        DelayedCalls::performAfterDelay(&target, 0, [&] { called = true; });
        QVERIFY(!called);
        QTRY_VERIFY(called);
    }

    void cancellingDropsTheCallsOfThatTargetOnly() {
        QObject target;
        QObject other;
        QString calls;
        DelayedCalls::performAfterDelay(&target, 0.01, [&] { calls += u"t"_s; });
        DelayedCalls::performAfterDelay(&target, 0.02, [&] { calls += u"t"_s; });
        DelayedCalls::performAfterDelay(&other, 0.03, [&] { calls += u"o"_s; });
        DelayedCalls::cancelAll(&target);
        QCOMPARE(DelayedCalls::pendingCount(&target), 0);
        QTRY_COMPARE(calls, u"o"_s);
        QTest::qWait(20);
        QCOMPARE(calls, u"o"_s);
    }

    void aTargetThatDiesTakesItsCallsAlong() {
        auto target = std::make_unique<QObject>();
        const auto captured = std::make_shared<int>(1);
        bool called = false;
        DelayedCalls::performAfterDelay(target.get(), 0.01, [&called, captured] { called = true; });
        QCOMPARE(captured.use_count(), 2);
        target.reset();
        QCOMPARE(captured.use_count(), 1);
        QTest::qWait(30);
        QVERIFY(!called);
    }

    void aCallMayDestroyItsTargetOrCancel() {
        auto* target = new QObject;
        bool later = false;
        DelayedCalls::performAfterDelay(target, 0.001, [&] {
            DelayedCalls::cancelAll(target);
            delete target;
            target = nullptr;
        });
        DelayedCalls::performAfterDelay(target, 0.002, [&] { later = true; });
        QTRY_VERIFY(!target);
        QTest::qWait(20);
        QVERIFY(!later);
    }

    void elapseMakesTheCallsOfThatTimeInOrder() {
        const DelayedCalls::HeldTime held;
        QObject target;
        QString calls;
        DelayedCalls::performAfterDelay(&target, 5, [&] { calls += u"c"_s; });
        DelayedCalls::performAfterDelay(&target, 1, [&] {
            calls += u"a"_s;
            DelayedCalls::performAfterDelay(&target, 2, [&] { calls += u"b"_s; });
        });
        DelayedCalls::elapse(&target, 0.5);
        QCOMPARE(calls, QString());
        DelayedCalls::elapse(&target, 3);
        QCOMPARE(calls, u"ab"_s);
        QCOMPARE(DelayedCalls::pendingCount(&target), 1);
        DelayedCalls::elapse(&target, 1.5);
        QCOMPARE(calls, u"abc"_s);
    }

    void elapseBringsLaterCallsNearer() {
        QObject target;
        bool called = false;
        DelayedCalls::performAfterDelay(&target, 10'000.01, [&] { called = true; });
        DelayedCalls::elapse(&target, 10'000);
        QTRY_VERIFY(called);
    }

    void whileTimeIsHeldOnlyElapseMakesLaterCalls() {
        const DelayedCalls::HeldTime held;
        QObject target;
        QString calls;
        DelayedCalls::performAfterDelay(&target, 0.001, [&] { calls += u"later"_s; });
        DelayedCalls::performAfterDelay(&target, 0, [&] { calls += u"now "_s; });
        QTRY_COMPARE(calls, u"now "_s);
        QTest::qWait(20);
        QCOMPARE(calls, u"now "_s);
        DelayedCalls::elapse(&target, 0.0009);
        QCOMPARE(calls, u"now "_s);
        DelayedCalls::elapse(&target, 0.0001);
        QCOMPARE(calls, u"now later"_s);
    }
};

QTEST_GUILESS_MAIN(DelayedCallsTest)
#include "DelayedCallsTest.moc"
