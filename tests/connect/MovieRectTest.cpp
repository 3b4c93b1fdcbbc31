#include "connect/MovieRect.h"

#include <QTest>

#include <cmath>

using namespace marquill;

class MovieRectTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aPalClipFillsTheWidth();
    void pixelFactorsOfKnownFrameSizes_data();
    void pixelFactorsOfKnownFrameSizes();
    void hdvIsShownAt16To9();
    void fullHdIsShownUnchanged();
    void aTallMovieStandsInTheMiddleOfTheBottomEdge();
    void aMovieWithoutASizeHasOnlyItsBar();
    void aViewAsLowAsItsBarHasNoPicture();
    void arithmeticIsInSinglePrecision();
    void wideMoviesTakeTheProposedWidth();
    void tallMoviesTakeTheProposedHeight();
    void withoutMovieBoundsTheProposedSizeIsRight();
    void aSizeThatFitsIsKept();
};

void MovieRectTest::aPalClipFillsTheWidth() {
    const MovieRect rect = movieRect(400, 316, 720, 576);
    QCOMPARE(rect.x, 0.0F);
    QCOMPARE(rect.y, 0.0F);
    QCOMPARE(rect.width, 400.0F);
    // 400 · 576 / 768.24, and the bar
    QVERIFY(std::abs(rect.height - (299.9063F + 16)) < 0.001F);
}

void MovieRectTest::pixelFactorsOfKnownFrameSizes_data() {
    QTest::addColumn<float>("width");
    QTest::addColumn<float>("height");
    QTest::addColumn<float>("factor");
    QTest::newRow("PAL") << 720.0F << 576.0F << 1.067F;
    QTest::newRow("NTSC") << 720.0F << 480.0F << 0.889F;
    QTest::newRow("HDV") << 1440.0F << 1080.0F << 1.3333F;
    QTest::newRow("DVCPRO HD") << 1280.0F << 1080.0F << 1.5F;
    QTest::newRow("DVCPRO HD 720") << 960.0F << 720.0F << 1.3333F;
    QTest::newRow("720p") << 1280.0F << 720.0F << 1.0F;
    QTest::newRow("1080p") << 1920.0F << 1080.0F << 1.0F;
    QTest::newRow("NTSC with all lines") << 720.0F << 486.0F << 1.0F;
    QTest::newRow("PAL turned") << 576.0F << 720.0F << 1.0F;
    QTest::newRow("HDV turned") << 1080.0F << 1440.0F << 1.0F;
}

void MovieRectTest::pixelFactorsOfKnownFrameSizes() {
    QFETCH(float, width);
    QFETCH(float, height);
    QFETCH(float, factor);
    QCOMPARE(pixelAspectFactor(width, height), factor);
}

void MovieRectTest::hdvIsShownAt16To9() {
    const MovieRect rect = movieRect(1920, 2000, 1440, 1080);
    QCOMPARE(rect.width, 1920.0F);
    QVERIFY(std::abs(rect.height - 16 - 1080) < 0.1F);
}

void MovieRectTest::fullHdIsShownUnchanged() {
    QCOMPARE(movieRect(1920, 1096, 1920, 1080), (MovieRect{0, 0, 1920, 1096}));
    QCOMPARE(movieRect(640, 500, 1920, 1080), (MovieRect{0, 0, 640, 376}));
}

void MovieRectTest::aTallMovieStandsInTheMiddleOfTheBottomEdge() {
    QCOMPARE(movieRect(400, 216, 1080, 1920), (MovieRect{(400 - 112.5F) / 2, 0, 112.5F, 216}));
}

void MovieRectTest::aMovieWithoutASizeHasOnlyItsBar() {
    QCOMPARE(movieRect(400, 316, 0, 0), (MovieRect{0, 0, 400, 16}));
    QCOMPARE(movieRect(400, 316, 720, 0), (MovieRect{0, 0, 400, 16}));
    QCOMPARE(movieRect(400, 316, 0, 576), (MovieRect{0, 0, 400, 16}));
}

void MovieRectTest::aViewAsLowAsItsBarHasNoPicture() {
    QCOMPARE(movieRect(400, 16, 1920, 1080), (MovieRect{200, 0, 0, 16}));
    QCOMPARE(movieRect(400, 4, 1920, 1080), (MovieRect{200, 0, 0, 16}));
}

void MovieRectTest::arithmeticIsInSinglePrecision() {
    // 720 · 1.067 is 768.24 in real numbers, and 768.23999… as the nearest single-precision number.
    const MovieRect rect = movieRect(768.24F, 1000, 720, 576);
    QCOMPARE(rect.height, 768.24F * 576.0F / (720.0F * 1.067F) + 16.0F);
}

void MovieRectTest::wideMoviesTakeTheProposedWidth() {
    // Title-less window of 480 with 440 for the picture: 40 for the rest.
    QCOMPARE(viewerWindowSize({640, 480}, {1920, 1080}, 480, {640, 440}), QSizeF(640, 360 + 40));
}

void MovieRectTest::tallMoviesTakeTheProposedHeight() {
    QCOMPARE(viewerWindowSize({640, 480}, {1080, 1920}, 480, {640, 440}), QSizeF(440 * 9.0 / 16, 480));
    // 4:3 in 640 × 480 is not wider than what is proposed.
    QCOMPARE(viewerWindowSize({640, 480}, {640, 480}, 480, {640, 440}), QSizeF(440 * 4.0 / 3, 480));
}

void MovieRectTest::withoutMovieBoundsTheProposedSizeIsRight() {
    QCOMPARE(viewerWindowSize({640, 480}, {1920, 1080}, 480, {0, 440}), QSizeF(640, 480));
    QCOMPARE(viewerWindowSize({640, 480}, {1920, 1080}, 480, {640, 0}), QSizeF(640, 480));
    QCOMPARE(viewerWindowSize({640, 480}, {0, 0}, 480, {640, 440}), QSizeF(640, 480));
}

void MovieRectTest::aSizeThatFitsIsKept() {
    for (const QSizeF natural : {QSizeF(1920, 1080), QSizeF(640, 480), QSizeF(1080, 1920)}) {
        const QSizeF first = viewerWindowSize({640, 480}, natural, 480, {640, 440});
        const QSizeF second =
            viewerWindowSize(first, natural, first.height(), {first.width(), first.height() - 40});
        QVERIFY(std::abs(first.width() - second.width()) < 1e-9);
        QVERIFY(std::abs(first.height() - second.height()) < 1e-9);
    }
}

QTEST_APPLESS_MAIN(MovieRectTest)
#include "MovieRectTest.moc"
