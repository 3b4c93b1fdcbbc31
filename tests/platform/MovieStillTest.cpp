#include "platform/Files.h"
#include "platform/MovieMaker.h"
#include "platform/MovieStill.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace marquill;

namespace {

Result<QImage> still(const QString& path, const std::function<bool()>& isWanted = [] { return true; }) {
    std::optional<Result<QImage>> taken;
    takeMovieStill(path, 256, isWanted, [&](const Result<QImage>& result) { taken = result; });
    return taken.value_or(failure(ErrorCode::unsupported, u"nothing was taken"_s));
}

}  // namespace

class MovieStillTest : public QObject {
    Q_OBJECT

  private:
    MovieMaker _maker;

    // Left half red, right half blue; of one colour in time.
    QString halves(const QString& name, const QString& size, const QStringList& more = {}) {
        return _maker.make(
            name,
            QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s,
                        u"color=red:s=%1:d=2:r=25,drawbox=x=iw/2:w=iw/2:h=ih:color=blue:t=fill"_s.arg(size),
                        u"-c:v"_s, u"libx264"_s, u"-pix_fmt"_s, u"yuv420p"_s} +
                more);
    }

    static bool isNear(const QColor& colour, const QColor& expected) {
        return qAbs(colour.red() - expected.red()) < 24 && qAbs(colour.green() - expected.green()) < 24 &&
               qAbs(colour.blue() - expected.blue()) < 24;
    }

  private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    void aLargePictureIsMadeSmaller() {
        const Result<QImage> taken = still(halves(u"large.mov"_s, u"640x360"_s));
        QVERIFY2(taken, taken ? "" : qPrintable(taken.error().description()));
        QCOMPARE(taken->size(), QSize(256, 144));
        QVERIFY(isNear(taken->pixelColor(40, 72), Qt::red));
        QVERIFY(isNear(taken->pixelColor(216, 72), Qt::blue));
    }

    void aSmallPictureStaysAsItIs() {
        QCOMPARE(still(halves(u"small.mov"_s, u"64x48"_s))->size(), QSize(64, 48));
    }

    void aPictureOnItsSideIsTurned() {
        // What ffmpeg's muxer makes of the word "rotate" is a turn against the clock.
        const QString turned =
            _maker.make(u"turned.mov"_s, {u"-i"_s, halves(u"large.mov"_s, u"640x360"_s), u"-c"_s, u"copy"_s,
                                          u"-metadata:s:v"_s, u"rotate=90"_s});
        const Result<QImage> taken = still(turned);
        QVERIFY(taken);
        QCOMPARE(taken->size(), QSize(144, 256));
        // What was right is on top.
        QVERIFY(isNear(taken->pixelColor(72, 40), Qt::blue));
        QVERIFY(isNear(taken->pixelColor(72, 216), Qt::red));
    }

    void pixelsThatAreNotSquareBecomeSo() {
        const Result<QImage> taken = still(halves(u"wide.mov"_s, u"64x48"_s, {u"-vf"_s, u"setsar=2"_s}));
        QVERIFY(taken);
        QCOMPARE(taken->size(), QSize(128, 48));
    }

    // Each frame another shade: 4 a frame. A tenth into ten seconds is frame 25, where a key frame is.
    void thePictureIsOneTenthIntoTheMovie() {
        const Result<QImage> taken = still(_maker.makeShades(u"shades.mov"_s, u"25"_s, 10));
        QVERIFY(taken);
        const int grey = taken->pixelColor(32, 24).green();
        QVERIFY2(qAbs(grey - (100 - 16) * 255 / 219) < 12, qPrintable(QString::number(grey)));
    }

    void whatIsNoMovieHasNone_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("#EXTM3U\nother.mov\n");
        QTest::newRow("a header alone") << QByteArray(
            "\0\0\0\x14"
            "ftypqt  \0\0\2\0qt  ",
            20);
    }
    void whatIsNoMovieHasNone() {
        QFETCH(const QByteArray, bytes);
        const QTemporaryDir place;
        const QString path = place.filePath(u"clip.mov"_s);
        QVERIFY(writeFile(path, bytes));
        QCOMPARE(still(path).error().code, ErrorCode::malformed);
    }

    void aMovieOfSoundAloneHasNone() {
        const QString path = _maker.make(
            u"sound.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=1"_s, u"-c:a"_s, u"pcm_s16le"_s});
        QVERIFY(!path.isEmpty());
        QCOMPARE(still(path).error().code, ErrorCode::malformed);
    }

    void pipesAndFoldersAreNotOpened() {
        const QTemporaryDir place;
        const QString pipe = place.filePath(u"pipe.mov"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(still(pipe).error().code, ErrorCode::notAFile);
        QCOMPARE(still(place.path()).error().code, ErrorCode::notAFile);
        QCOMPARE(still(place.filePath(u"none.mov"_s)).error().code, ErrorCode::notFound);
    }

    void whatIsNotWantedIsGivenUp() {
        QCOMPARE(still(halves(u"large.mov"_s, u"640x360"_s), [] { return false; }).error().code,
                 ErrorCode::interrupted);
    }
};

QTEST_GUILESS_MAIN(MovieStillTest)
#include "MovieStillTest.moc"
