#include "platform/ParallelWork.h"

#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <vector>

using namespace marquill;

class ParallelWorkTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyNumberIsWorkedOnOnce_data() {
        QTest::addColumn<int>("count");
        for (const int count : {0, 1, 7, 8, 9, 31, 32, 33, 1000, 10'001}) {
            QTest::newRow(qPrintable(QString::number(count))) << count;
        }
    }
    void everyNumberIsWorkedOnOnce() {
        QFETCH(const int, count);
        std::vector<std::atomic<int>> calls(static_cast<std::size_t>(count));
        const bool isDone =
            forEachInParallel(count, [&](qsizetype index) { ++calls[static_cast<std::size_t>(index)]; });
        QVERIFY(isDone);
        QVERIFY(std::ranges::all_of(calls, [](const std::atomic<int>& number) { return number == 1; }));
    }

    void progressIsToldHereAndNeverFallsBack() {
        qsizetype last = 0;
        const bool isDone = forEachInParallel(
            1000, [](qsizetype) {},
            [&, here = QThread::currentThreadId()](qsizetype done, qsizetype total) {
                const bool isRight =
                    done >= last && done <= total && total == 1000 && QThread::currentThreadId() == here;
                last = done;
                return isRight;
            });
        QVERIFY(isDone);
    }

    void progressEndsTheWork() {
        std::atomic<int> calls = 0;
        std::atomic<bool> hasEnded = false;
        QVERIFY(!forEachInParallel(
            100'000,
            [&, here = QThread::currentThreadId()](qsizetype) {
                ++calls;
                // The other threads do not run ahead while this one gets no turn.
                while (calls > 1000 && !hasEnded && QThread::currentThreadId() != here) {
                    QThread::yieldCurrentThread();
                }
            },
            [&](qsizetype done, qsizetype) {
                hasEnded = done >= 100;
                return !hasEnded;
            }));
        QVERIFY2(calls < 10'000, qPrintable(QString::number(calls)));
    }
};

QTEST_APPLESS_MAIN(ParallelWorkTest)
#include "ParallelWorkTest.moc"
