#include "platform/FrameTimes.h"

#include <QTest>

#include <cmath>

using namespace marquill;

namespace {

// The frames of a movie of `numerator`/`denominator` frames a second, begun at the first value they are shown
// at.
FrameTimes regularFrames(qint32 timeScale, qint64 numerator, qint64 denominator, qint64 count) {
    auto starts = std::make_shared<std::vector<qint64>>();
    for (qint64 i = 0; i < count; ++i) {
        starts->push_back((i * denominator * timeScale + numerator - 1) / numerator);
    }
    return {timeScale, starts};
}

}  // namespace

class FrameTimesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyPresentationTimeFindsItsOwnFrame_data();
    void everyPresentationTimeFindsItsOwnFrame();
    void aSeekPointLiesBehindTheFrameBeforeAndNotBehindItsOwn_data();
    void aSeekPointLiesBehindTheFrameBeforeAndNotBehindItsOwn();
    void aMomentWithinAFrameShowsThatFrame();
    void momentsOutsideTheMovieShowItsFirstAndLastFrame();
    void withoutATableTimesAreOnlyConverted();
    void notANumberIsTheBeginning();

  private:
    static void addRates();
};

void FrameTimesTest::addRates() {
    QTest::addColumn<int>("timeScale");
    QTest::addColumn<qint64>("numerator");
    QTest::addColumn<qint64>("denominator");
    QTest::newRow("25 in 600") << 600 << qint64{25} << qint64{1};
    QTest::newRow("29.97 in 600") << 600 << qint64{30000} << qint64{1001};
    QTest::newRow("23.976 in 600") << 600 << qint64{24000} << qint64{1001};
    QTest::newRow("23.976 in 24") << 24 << qint64{24000} << qint64{1001};
    QTest::newRow("59.94 in 1000") << 1000 << qint64{60000} << qint64{1001};
    QTest::newRow("240 in 600") << 600 << qint64{240} << qint64{1};
    QTest::newRow("600 in 600") << 600 << qint64{600} << qint64{1};
    QTest::newRow("29.97 in 30000") << 30000 << qint64{30000} << qint64{1001};
}

void FrameTimesTest::everyPresentationTimeFindsItsOwnFrame_data() {
    addRates();
}

void FrameTimesTest::everyPresentationTimeFindsItsOwnFrame() {
    QFETCH(int, timeScale);
    QFETCH(qint64, numerator);
    QFETCH(qint64, denominator);
    const FrameTimes times = regularFrames(timeScale, numerator, denominator, 100'000);
    for (qsizetype i = 0; i < times.count(); ++i) {
        const double seconds =
            static_cast<double>(i) * static_cast<double>(denominator) / static_cast<double>(numerator);
        QCOMPARE(times.indexOfFrame(seconds), i);
        QCOMPARE(times.indexOfFrame(std::nextafter(seconds, 1e9)), i);
        QCOMPARE(times.valueOfFrame(seconds), (i * denominator * timeScale + numerator - 1) / numerator);
        QCOMPARE(times.indexAt(seconds), i);
    }
}

void FrameTimesTest::aSeekPointLiesBehindTheFrameBeforeAndNotBehindItsOwn_data() {
    addRates();
}

void FrameTimesTest::aSeekPointLiesBehindTheFrameBeforeAndNotBehindItsOwn() {
    QFETCH(int, timeScale);
    QFETCH(qint64, numerator);
    QFETCH(qint64, denominator);
    const FrameTimes times = regularFrames(timeScale, numerator, denominator, 5000);
    for (qsizetype i = 1; i < times.count(); ++i) {
        const double length = static_cast<double>(denominator) / static_cast<double>(numerator);
        const double point = times.seekPoint(i);
        QVERIFY2(point > static_cast<double>(i - 1) * length, qPrintable(QString::number(i)));
        QVERIFY2(point <= static_cast<double>(i) * length, qPrintable(QString::number(i)));
    }
}

void FrameTimesTest::aMomentWithinAFrameShowsThatFrame() {
    const auto starts = std::make_shared<std::vector<qint64>>(std::vector<qint64>{0, 40, 300, 320});
    const FrameTimes times(1000, starts);
    QCOMPARE(times.indexAt(0.039), 0);
    QCOMPARE(times.indexAt(0.04), 1);
    QCOMPARE(times.indexAt(0.299), 1);
    QCOMPARE(times.indexAt(0.3), 2);
    // What a player says to show is taken to be the frame next to it.
    QCOMPARE(times.indexOfFrame(0.299), 2);
    QCOMPARE(times.valueOfFrame(0.299), 300);
}

void FrameTimesTest::momentsOutsideTheMovieShowItsFirstAndLastFrame() {
    const FrameTimes times = regularFrames(600, 25, 1, 10);
    QCOMPARE(times.indexAt(-3), 0);
    QCOMPARE(times.indexAt(1e12), 9);
    QCOMPARE(times.valueOfFrame(-0.08), 0);
    QCOMPARE(times.seekPoint(-5), 0.0);
    QCOMPARE(times.seekPoint(99), times.seekPoint(9));
}

void FrameTimesTest::withoutATableTimesAreOnlyConverted() {
    const FrameTimes times(600, nullptr);
    QVERIFY(!times.areKnown());
    QCOMPARE(times.indexAt(1), std::nullopt);
    QCOMPARE(times.valueOfFrame(1001.0 / 30000), 21);
    QCOMPARE(times.valueOfFrame(1), 600);
    QCOMPARE(FrameTimes().valueOfFrame(7), 0);
}

void FrameTimesTest::notANumberIsTheBeginning() {
    QCOMPARE(FrameTimes(600, nullptr).valueOfFrame(std::nan("")), 0);
    QCOMPARE(FrameTimes(600, nullptr).valueOfFrame(1e300), 0);
}

QTEST_APPLESS_MAIN(FrameTimesTest)
#include "FrameTimesTest.moc"
