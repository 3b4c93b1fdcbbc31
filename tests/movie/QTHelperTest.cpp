#include "movie/MovieBuilder.h"
#include "movie/QTHelper.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace marquill;

class QTHelperTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void wholeSeconds_data();
    void wholeSeconds();
    void hoursAreNeverWrapped();
    void negativeSecondsDivideTowardZero();

    void previousKeepsScaleAndFlags();
    void previousStartsAtTheLow32Bits();
    void framesCountFromTheSecond_data();
    void framesCountFromTheSecond();
    void variableRatesCountWhatIsThere();
    void timesOutsideTheMovieEnd_data();
    void timesOutsideTheMovieEnd();
    void aMovieWithoutVideoHasNoFrames();
    void unreadableTablesGiveNoFrames();

  private:
    Movie movieOf(const MovieBuilder& builder) const {
        const QString path = _folder.filePath(u"movie.mov"_s);
        writeBytes(path, builder.headerLast());
        return Movie::open(path).value();
    }
    /// Ten seconds of 25 frames a second, 600 units a second.
    Movie tenSeconds() const {
        TrackPlan track;
        track.times = {{.count = 250, .duration = 24}};
        return movieOf({.duration = 6000, .tracks = {track}});
    }

    QTemporaryDir _folder;
};

void QTHelperTest::wholeSeconds_data() {
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("withoutSeconds");
    QTest::addColumn<QString>("withSeconds");
    const auto row = [](qint64 seconds, const char* shortText, const char* longText) {
        QTest::addRow("%lld", seconds)
            << seconds << QString::fromLatin1(shortText) << QString::fromLatin1(longText);
    };
    row(0, "00:00", "00:00:00");
    row(59, "00:00", "00:00:59");
    row(60, "00:01", "00:01:00");
    row(3599, "00:59", "00:59:59");
    row(3600, "01:00", "01:00:00");
    row(3725, "01:02", "01:02:05");
    row(86400, "24:00", "24:00:00");
}

void QTHelperTest::wholeSeconds() {
    QFETCH(qint64, seconds);
    QTEST(QTHelper::timeCodeStringHHMM(seconds), "withoutSeconds");
    QTEST(QTHelper::timeCodeStringHHMMSS(seconds), "withSeconds");
}

void QTHelperTest::hoursAreNeverWrapped() {
    QCOMPARE(QTHelper::timeCodeStringHHMM(360000), u"100:00"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(qint64{3600} * 1234567), u"1234567:00:00"_s);
}

void QTHelperTest::negativeSecondsDivideTowardZero() {
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(-1), u"00:00:-1"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMMSS(-3725), u"-1:-2:-5"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMM(-59), u"00:00"_s);
    QCOMPARE(QTHelper::timeCodeStringHHMM(-3725), u"-1:-2"_s);
}

void QTHelperTest::previousKeepsScaleAndFlags() {
    const Movie movie = tenSeconds();
    const MovieTime time{.value = 100, .timeScale = 600, .flags = 7};
    QCOMPARE(QTHelper::previousSampleTimeForTime(time, movie), (MovieTime{96, 600, 7}));
    const MovieTime first{.value = 0, .timeScale = 25, .flags = -3};
    QCOMPARE(QTHelper::previousSampleTimeForTime(first, movie), (MovieTime{-1, 25, -3}));
}

void QTHelperTest::previousStartsAtTheLow32Bits() {
    const Movie movie = tenSeconds();
    const auto previous = [&](qint64 value) {
        return QTHelper::previousSampleTimeForTime({.value = value, .timeScale = 600}, movie).value;
    };
    QCOMPARE(previous((qint64{1} << 32) + 100), 96);
    QCOMPARE(previous((qint64{5} << 40) + 24), 0);
    QCOMPARE(previous(0x80000000), -1);
    QCOMPARE(previous(0xFFFFFFFF), -1);
    QCOMPARE(previous(0x7FFFFFFF), 249 * 24);
}

void QTHelperTest::framesCountFromTheSecond_data() {
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("at 0") << qint64{0} << u"00:00:00.00"_s;
    QTest::newRow("at 1.08 s") << qint64{648} << u"00:00:01.02"_s;
    QTest::newRow("first of a second") << qint64{600} << u"00:00:01.00"_s;
    QTest::newRow("second of a second") << qint64{624} << u"00:00:01.01"_s;
    QTest::newRow("last of a second") << qint64{1176} << u"00:00:01.24"_s;
    QTest::newRow("second frame") << qint64{24} << u"00:00:00.01"_s;
    QTest::newRow("last frame") << qint64{5976} << u"00:00:09.24"_s;
    // A time within a sample begins after it, so that sample counts too.
    QTest::newRow("within a sample") << qint64{601} << u"00:00:01.01"_s;
}

void QTHelperTest::framesCountFromTheSecond() {
    QFETCH(qint64, value);
    QTEST(QTHelper::timeCodeStringFromQTTime({.value = value, .timeScale = 600}, tenSeconds()), "text");
}

void QTHelperTest::variableRatesCountWhatIsThere() {
    TrackPlan track;
    track.times = {
        {.count = 3, .duration = 200}, {.count = 1, .duration = 1500}, {.count = 100, .duration = 6}};
    const Movie movie = movieOf({.duration = 2700, .tracks = {track}});
    const auto text = [&](qint64 value) {
        return QTHelper::timeCodeStringFromQTTime({.value = value, .timeScale = 600}, movie);
    };
    QCOMPARE(text(400), u"00:00:00.02"_s);
    QCOMPARE(text(600), u"00:00:01.00"_s);
    // Nothing begins in the seconds 2 and 3 before 3.5 s.
    QCOMPARE(text(1300), u"00:00:02.00"_s);
    QCOMPARE(text(2100), u"00:00:03.00"_s);
    QCOMPARE(text(2106), u"00:00:03.01"_s);
    QCOMPARE(text(2694), u"00:00:04.49"_s);
}

void QTHelperTest::timesOutsideTheMovieEnd_data() {
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("timeScale");
    QTest::addColumn<QString>("text");
    QTest::newRow("far behind the end") << qint64{60000} << 600 << u"00:01:40.00"_s;
    QTest::newRow("just behind the end") << qint64{6000} << 600 << u"00:00:10.00"_s;
    QTest::newRow("-1") << qint64{-1} << 600 << u"00:00:-1.00"_s;
    QTest::newRow("a second before") << qint64{-600} << 600 << u"00:00:-1.00"_s;
    QTest::newRow("two seconds before") << qint64{-1200} << 600 << u"00:00:-2.00"_s;
    QTest::newRow("an hour before") << qint64{-3725 * 600} << 600 << u"-1:-2:-5.00"_s;
    QTest::newRow("above 32 bits") << (qint64{1} << 32) + 700 << 600 << u"1988:24:39.00"_s;
    QTest::newRow("no time scale") << qint64{0} << 0 << u"00:00:00.00"_s;
    QTest::newRow("negative time scale") << qint64{600} << -600 << u"00:00:-1.24"_s;
}

void QTHelperTest::timesOutsideTheMovieEnd() {
    QFETCH(qint64, value);
    QFETCH(int, timeScale);
    QTEST(QTHelper::timeCodeStringFromQTTime({.value = value, .timeScale = timeScale}, tenSeconds()), "text");
    for (const qint64 extreme : {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()}) {
        QVERIFY(!QTHelper::timeCodeStringFromQTTime({.value = extreme, .timeScale = timeScale}, tenSeconds())
                     .isEmpty());
    }
}

void QTHelperTest::aMovieWithoutVideoHasNoFrames() {
    const Movie movie = movieOf({.tracks = {TrackPlan{.handler = "soun", .codec = "twos"}}});
    QCOMPARE(QTHelper::timeCodeStringFromQTTime({.value = 240, .timeScale = 600}, movie), u"00:00:00.00"_s);
}

void QTHelperTest::unreadableTablesGiveNoFrames() {
    const QString path = _folder.filePath(u"bad.mov"_s);
    QByteArray file = MovieBuilder{}.headerLast();
    file.replace(file.indexOf("stts") + 8, 4, "\xff\xff\xff\xff");
    writeBytes(path, file);
    const Result<Movie> movie = Movie::open(path);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"bad.mov.*stts.*at byte"_s));
    QCOMPARE(QTHelper::timeCodeStringFromQTTime({.value = 100, .timeScale = 600}, *movie), u"00:00:00.00"_s);
    QCOMPARE(QTHelper::previousSampleTimeForTime({.value = 100, .timeScale = 600}, *movie).value, -1);
}

QTEST_APPLESS_MAIN(QTHelperTest)
#include "QTHelperTest.moc"
