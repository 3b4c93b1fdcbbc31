#include "platform/BackgroundWork.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <memory>

using namespace marquill;

class BackgroundWorkTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void resultsArriveInOrderOnTheMainThread() {
        BackgroundWork work;
        QList<int> results;
        work.start([&results](const BackgroundWork::Post& post) {
            for (int i = 0; i < 3; ++i) {
                post([&results, i] {
                    QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
                    results.append(i);
                });
            }
        });
        QVERIFY(work.isRunning());
        QTRY_VERIFY(!work.isRunning());
        QCOMPARE(results, QList<int>({0, 1, 2}));
    }

    void cancelledWorkIsNotHeardOfAnyMore() {
        std::atomic<bool> posted = false;
        std::atomic<bool> goOn = false;
        std::atomic<bool> ended = false;
        bool called = false;
        BackgroundWork work;
        work.start([&](const BackgroundWork::Post& post) {
            post([&called] { called = true; });
            posted = true;
            while (!goOn) {
                QThread::yieldCurrentThread();
            }
            const bool isWanted = post.isWanted();
            post([&called] { called = true; });
            ended = true;
            QVERIFY(!isWanted);
        });
        while (!posted) {
            QThread::yieldCurrentThread();
        }
        work.cancel();
        QVERIFY(!work.isRunning());
        goOn = true;
        QTRY_VERIFY(ended.load());
        QCoreApplication::processEvents();
        QVERIFY(!called);
    }

    void newWorkTakesThePlaceOfTheOld() {
        BackgroundWork work;
        QStringList results;
        const auto tell = [&results](const QString& result) {
            return [&results, result](const BackgroundWork::Post& post) {
                post([&results, result] { results.append(result); });
            };
        };
        work.start(tell(QStringLiteral("old")));
        work.start(tell(QStringLiteral("new")));
        QTRY_VERIFY(!work.isRunning());
        QCOMPARE(results, QStringList(QStringLiteral("new")));
    }

    void endingWaitsForWorkThatEnds() {
        const auto ended = std::make_shared<std::atomic<bool>>(false);
        QElapsedTimer timer;
        {
            BackgroundWork work;
            work.start([ended](const BackgroundWork::Post& post) {
                while (post.isWanted()) {
                    QThread::yieldCurrentThread();
                }
                *ended = true;
            });
            timer.start();
        }
        // Its patience may run out on a machine that lets the thread wait as long.
        QVERIFY(*ended || timer.elapsed() >= 1990);
    }
};

QTEST_GUILESS_MAIN(BackgroundWorkTest)
#include "BackgroundWorkTest.moc"
