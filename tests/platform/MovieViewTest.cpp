#include "platform/MovieMaker.h"
#include "platform/MovieScrubber.h"
#include "platform/MovieView.h"

#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include <sys/stat.h>

#include <cmath>

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds; nothing here takes one second on a machine with time

MovieSource sourceOf(const QString& path, qint32 timeScale) {
    auto starts = std::make_shared<std::vector<qint64>>();
    for (const double seconds : MovieMaker::frameTimes(path)) {
        starts->push_back(static_cast<qint64>(std::ceil(seconds * timeScale - 0.0005)));
    }
    return {.path = path, .frameTimes = FrameTimes(timeScale, starts)};
}

bool load(MovieView& view, const MovieSource& source) {
    QSignalSpy loaded(&view, &MovieView::movieLoaded);
    view.setMovie(source);
    return (loaded.count() > 0 || loaded.wait(patience)) &&
           QTest::qWaitFor([&] { return !view.naturalSize().isEmpty(); }, patience);
}

// The grey in the middle of the picture on show.
int shade(MovieView& view) {
    const QImage image = view.grab().toImage();
    return qGray(image.pixel(image.width() / 2, (image.height() - MovieView::controlBarHeight) / 2));
}

bool showsFrame(MovieView& view, int frame) {
    if (QTest::qWaitFor([&] { return std::abs(shade(view) - 4 * (frame % 60)) <= 1; }, patience)) {
        return true;
    }
    qWarning("a shade of %d instead of %d", shade(view), 4 * (frame % 60));
    return false;
}

}  // namespace

class MovieViewTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void cleanup();

    void loadingShowsTheFirstFrameAndStandsStill();
    void tenStepsLeadToTheTenthFrame();
    void quickStepsAreNotLost();
    void steppingBackGoesFrameByFrame();
    void stepsEndAtBothEndsOfTheMovie();
    void seeksShowTheVeryFrame_data();
    void seeksShowTheVeryFrame();
    void everyFrameOfAMovieWithVariableFrameRateIsReached();
    void withoutAFrameTableStepsAndSeeksWorkAsWell();
    void everyDisplayedFrameIsAnnounced();
    void playingReachesTheEndAndStartsAgain();
    void keysPlayStepAndGoToTheEnds();
    void shuttleRunsBackward();
    void filesThatAreNoMoviesAreReported_data();
    void filesThatAreNoMoviesAreReported();
    void playlistsAreNotFollowed();
    void theLatestOfTwoMoviesIsShown();
    void aFailedMovieDoesNotSpoilTheNext();
    void thePictureKeepsItsShape();
    void aTurnedMovieIsShownUpright_data();
    void aTurnedMovieIsShownUpright();
    void onlyTheCleanApertureIsShown();
    void markersAreDrawnAsTicks();
    void aClickNearATickGoesThereExactly();
    void draggingAwayFromATickScrubs();
    void everyControlHasANameAndATip();
    void volumeIsKeptInBounds();
    void aMovieWithoutPictureIsPlayed();

  private:
    QString movie25() { return _maker.makeShades(u"25.mov"_s, u"25"_s, 3); }

    MovieMaker _maker;
    std::unique_ptr<MovieView> _view;
};

void MovieViewTest::init() {
    _view = std::make_unique<MovieView>();
    _view->resize(256, 192 + MovieView::controlBarHeight);
    _view->show();
    QVERIFY(QTest::qWaitForWindowExposed(_view.get()));
}

void MovieViewTest::cleanup() {
    _view.reset();
}

void MovieViewTest::loadingShowsTheFirstFrameAndStandsStill() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    QVERIFY(showsFrame(*_view, 0));
    QVERIFY(!_view->isPlaying());
    QCOMPARE(_view->currentTimeValue(), 0);
    QCOMPARE(_view->timeScale(), 600);
    QVERIFY(std::abs(_view->duration() - 3) < 0.001);
    QCOMPARE(_view->naturalSize(), QSizeF(64, 48));
}

void MovieViewTest::tenStepsLeadToTheTenthFrame() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    for (int frame = 1; frame <= 10; ++frame) {
        _view->stepForward();
        QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), frame * 24, patience);
        QVERIFY(showsFrame(*_view, frame));
    }
    QVERIFY(!_view->isPlaying());
}

void MovieViewTest::quickStepsAreNotLost() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    for (int i = 0; i < 10; ++i) {
        _view->stepForward();
    }
    QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), 240, patience);
    for (int i = 0; i < 4; ++i) {
        _view->stepBackward();
    }
    _view->stepForward();
    QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), 7 * 24, patience);
    QVERIFY(showsFrame(*_view, 7));
    QTest::qWait(100);
    QCOMPARE(_view->currentTimeValue(), 7 * 24);
}

void MovieViewTest::steppingBackGoesFrameByFrame() {
    const QString path = _maker.makeShades(u"29.97.mov"_s, u"30000/1001"_s, 2);
    QVERIFY(load(*_view, sourceOf(path, 600)));
    _view->setCurrentSeconds(31 * 1001.0 / 30000);
    QVERIFY(showsFrame(*_view, 31));
    for (int frame = 30; frame >= 27; --frame) {
        _view->stepBackward();
        QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), (frame * 1001 * 600 + 29999) / 30000, patience);
        QVERIFY(showsFrame(*_view, frame));
    }
}

void MovieViewTest::stepsEndAtBothEndsOfTheMovie() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    _view->stepBackward();
    QVERIFY(showsFrame(*_view, 0));
    _view->gotoEnd();
    QVERIFY(showsFrame(*_view, 74));
    QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), 74 * 24, patience);
    _view->stepForward();
    _view->stepByFrames(20);
    QTest::qWait(100);
    QVERIFY(showsFrame(*_view, 74));
    QCOMPARE(_view->currentTimeValue(), 74 * 24);
    _view->stepBackward();
    QVERIFY(showsFrame(*_view, 73));
    QVERIFY(_view->hasMovie());
}

void MovieViewTest::seeksShowTheVeryFrame_data() {
    QTest::addColumn<int>("numerator");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<int>("timeScale");
    QTest::newRow("25") << 25 << 1 << 600;
    QTest::newRow("23.976") << 24000 << 1001 << 600;
    QTest::newRow("29.97") << 30000 << 1001 << 600;
    QTest::newRow("29.97, coarse time scale") << 30000 << 1001 << 30;
    QTest::newRow("59.94") << 60000 << 1001 << 1000;
    QTest::newRow("240") << 240 << 1 << 600;
}

void MovieViewTest::seeksShowTheVeryFrame() {
    QFETCH(int, numerator);
    QFETCH(int, denominator);
    QFETCH(int, timeScale);
    const QString path = _maker.makeShades(u"%1.mov"_s.arg(QLatin1StringView(QTest::currentDataTag())),
                                           u"%1/%2"_s.arg(numerator).arg(denominator), 2);
    QVERIFY(load(*_view, sourceOf(path, timeScale)));
    const double length = double(denominator) / numerator;
    for (const int frame : {1, 40, 39, 38, 12, 11, 13, 2, 46, 0, 45}) {
        // At its beginning, and in its midst.
        for (const double within : {0.0, 0.5}) {
            _view->setCurrentSeconds((frame + within) * length);
            const auto value = static_cast<qint64>(std::ceil(frame * length * timeScale - 0.0005));
            QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), value, patience);
            QVERIFY2(showsFrame(*_view, frame), qPrintable(u"%1: %2"_s.arg(frame).arg(shade(*_view))));
            if (timeScale < 2 * numerator / denominator) {
                break;  // a movie time value is as long as a frame
            }
        }
    }
}

void MovieViewTest::everyFrameOfAMovieWithVariableFrameRateIsReached() {
    // Frame n comes up at n²/500 s.
    const QString path =
        _maker.makeShades(u"vfr.mov"_s, u"25"_s, 1.2,
                          {u"-vf"_s, u"settb=1/30000,setpts=N*N*60"_s, u"-fps_mode"_s, u"vfr"_s,
                           u"-video_track_timescale"_s, u"30000"_s, u"-enc_time_base"_s, u"1/30000"_s});
    const MovieSource source = sourceOf(path, 600);
    QCOMPARE(source.frameTimes.count(), 30);
    QVERIFY(load(*_view, source));
    for (int frame = 1; frame < 30; ++frame) {
        _view->stepForward();
        const auto value = static_cast<qint64>(std::ceil(frame * frame / 500.0 * 600 - 0.0005));
        QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), value, patience);
        QVERIFY(showsFrame(*_view, frame));
    }
    for (const int frame : {7, 28, 3, 15}) {
        _view->setCurrentSeconds((frame * frame + 1) / 500.0);
        QVERIFY(showsFrame(*_view, frame));
    }
}

void MovieViewTest::withoutAFrameTableStepsAndSeeksWorkAsWell() {
    QVERIFY(load(*_view, {.path = movie25(), .frameTimes = FrameTimes(600, nullptr)}));
    _view->setCurrentSeconds(1);
    QVERIFY(showsFrame(*_view, 25));
    QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), 600, patience);
    _view->stepByFrames(2);
    QVERIFY(showsFrame(*_view, 27));
    _view->stepBackward();
    QVERIFY(showsFrame(*_view, 26));
    _view->gotoEnd();
    QVERIFY(showsFrame(*_view, 74));
}

void MovieViewTest::everyDisplayedFrameIsAnnounced() {
    QSignalSpy displayed(_view.get(), &MovieView::willDisplayImage);
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    QVERIFY(showsFrame(*_view, 0));
    for (int frame = 1; frame <= 5; ++frame) {
        displayed.clear();
        _view->stepForward();
        QVERIFY(showsFrame(*_view, frame));
        QTRY_VERIFY_WITH_TIMEOUT(displayed.count() >= 1, patience);
    }
}

void MovieViewTest::playingReachesTheEndAndStartsAgain() {
    const QString path = _maker.makeShades(u"short.mov"_s, u"25"_s, 0.4);
    QVERIFY(load(*_view, sourceOf(path, 600)));
    QSignalSpy playing(_view.get(), &MovieView::playingChanged);
    _view->play();
    QTRY_VERIFY_WITH_TIMEOUT(playing.count() == 2, patience);
    QCOMPARE(playing[0][0].toBool(), true);
    QCOMPARE(playing[1][0].toBool(), false);
    QVERIFY(showsFrame(*_view, 9));
    _view->play();
    QTRY_VERIFY_WITH_TIMEOUT(playing.count() == 4, patience);
    QCOMPARE(playing[2][0].toBool(), true);
    QCOMPARE(playing[3][0].toBool(), false);
    QVERIFY(showsFrame(*_view, 9));
}

void MovieViewTest::keysPlayStepAndGoToTheEnds() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    _view->setFocus();
    QTest::keyClick(_view.get(), Qt::Key_Right);
    QVERIFY(showsFrame(*_view, 1));
    QTest::keyClick(_view.get(), Qt::Key_End);
    QVERIFY(showsFrame(*_view, 74));
    QTest::keyClick(_view.get(), Qt::Key_Left);
    QVERIFY(showsFrame(*_view, 73));
    QTest::keyClick(_view.get(), Qt::Key_Home);
    QVERIFY(showsFrame(*_view, 0));
    // One that is not over before the second key.
    QVERIFY(load(*_view, sourceOf(_maker.makeShades(u"long.mov"_s, u"25"_s, 90), 600)));
    for (const Qt::Key play : {Qt::Key_Space, Qt::Key_L}) {
        QTest::keyClick(_view.get(), play);
        QTRY_VERIFY_WITH_TIMEOUT(_view->isPlaying(), patience);
        QTest::keyClick(_view.get(), play == Qt::Key_Space ? Qt::Key_Space : Qt::Key_K);
        QTRY_VERIFY_WITH_TIMEOUT(!_view->isPlaying(), patience);
    }
    _view->gotoBeginning();
    QVERIFY(showsFrame(*_view, 0));
    QTest::keyPress(_view.get(), Qt::Key_K);
    QTest::keyClick(_view.get(), Qt::Key_L);
    QVERIFY(showsFrame(*_view, 1));
    QTest::keyRelease(_view.get(), Qt::Key_K);
    QVERIFY(!_view->isPlaying());
}

void MovieViewTest::shuttleRunsBackward() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    _view->setCurrentSeconds(2.4);
    QVERIFY(showsFrame(*_view, 60));
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(_view.get(), Qt::Key_J);
    }
    QTRY_COMPARE_WITH_TIMEOUT(_view->currentTimeValue(), 0, patience);
    QVERIFY(showsFrame(*_view, 0));
    QVERIFY(!_view->isPlaying());
}

void MovieViewTest::filesThatAreNoMoviesAreReported_data() {
    QTest::addColumn<QString>("path");
    const auto write = [this](const QString& name, const QByteArray& bytes) {
        QFile file(_maker.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write %s", qPrintable(file.fileName()));
        }
        return file.fileName();
    };
    QTest::newRow("missing") << _maker.filePath(u"missing.mov"_s);
    QTest::newRow("empty") << write(u"empty.mov"_s, {});
    QTest::newRow("text") << write(u"text.mov"_s, "This is a shopping list.\n");
    QTest::newRow("folder") << _maker.filePath(QString());
    QTest::newRow("no path") << QString();
    QTest::newRow("address") << u"http://127.0.0.1:9/movie.mov"_s;
    QTest::newRow("memory") << u"memory://abc"_s;
    QFile whole(movie25());
    QVERIFY(whole.open(QIODevice::ReadOnly));
    QTest::newRow("cut short") << write(u"cut.mov"_s, whole.read(2000));
    const QString pipe = _maker.filePath(u"pipe.mov"_s);
    QVERIFY(mkfifo(pipe.toUtf8().constData(), 0600) == 0);
    QTest::newRow("pipe") << pipe;
}

void MovieViewTest::filesThatAreNoMoviesAreReported() {
    QFETCH(QString, path);
    QSignalSpy failed(_view.get(), &MovieView::movieFailed);
    _view->setMovie({.path = path});
    QVERIFY2(failed.count() == 0, "the failure comes from the event loop");
    QVERIFY(failed.wait(patience));
    QVERIFY(!failed[0][0].toString().isEmpty());
    QVERIFY(!_view->hasMovie());
    QCOMPARE(_view->currentTimeValue(), 0);
    _view->stepForward();
    _view->play();
    _view->setCurrentSeconds(1);
    QTest::qWait(20);
    QCOMPARE(failed.count(), 1);
}

void MovieViewTest::playlistsAreNotFollowed() {
    const QString movie = movie25();
    const QList<std::pair<QString, QByteArray>> lists = {
        {u"list.m3u"_s, "#EXTM3U\n" + movie.toUtf8() + "\n"},
        {u"list.mov"_s, "#EXTM3U\n#EXTINF:3,\n" + movie.toUtf8() + "\n"},
        {u"list.m3u8"_s,
         "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXTINF:3,\n" + movie.toUtf8() + "\n#EXT-X-ENDLIST\n"},
        {u"list.edl"_s, "# mpv EDL v0\n" + movie.toUtf8() + "\n"},
        {u"list.ffconcat"_s, "ffconcat version 1.0\nfile '" + movie.toUtf8() + "'\n"},
        {u"list.cue"_s, "FILE \"25.mov\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"},
    };
    for (const auto& [name, text] : lists) {
        QFile file(_maker.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        QSignalSpy failed(_view.get(), &MovieView::movieFailed);
        QSignalSpy loaded(_view.get(), &MovieView::movieLoaded);
        _view->setMovie({.path = file.fileName()});
        QVERIFY2(failed.wait(patience), qPrintable(name));
        QCOMPARE(loaded.count(), 0);
    }
}

void MovieViewTest::theLatestOfTwoMoviesIsShown() {
    const QString other = _maker.makeShades(u"other.mov"_s, u"25"_s, 3, {u"-vf"_s, u"negate"_s});
    QSignalSpy failed(_view.get(), &MovieView::movieFailed);
    QSignalSpy loaded(_view.get(), &MovieView::movieLoaded);
    for (int i = 0; i < 5; ++i) {
        _view->setMovie({.path = movie25()});
        _view->setMovie({.path = _maker.filePath(u"missing.mov"_s)});
        _view->setMovie({.path = other});
    }
    QTRY_VERIFY_WITH_TIMEOUT(_view->isLoaded(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(shade(*_view) >= 250, patience);
    QTest::qWait(50);
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(failed.count(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(std::abs(_view->duration() - 3) < 0.001, patience);
}

void MovieViewTest::aFailedMovieDoesNotSpoilTheNext() {
    QSignalSpy failed(_view.get(), &MovieView::movieFailed);
    _view->setMovie({.path = _maker.filePath(u"missing.mov"_s)});
    QVERIFY(failed.wait(patience));
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    QVERIFY(showsFrame(*_view, 0));
    _view->clearMovie();
    QVERIFY(!_view->hasMovie());
    QCOMPARE(_view->movieRect(), QRectF(0, 0, 256, 16));
}

void MovieViewTest::thePictureKeepsItsShape() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    _view->resize(400, 116);
    QCOMPARE(_view->movieRect(), QRectF((400 - 133.0 - 1.0 / 3) / 2, 0, 133 + 1.0 / 3, 116));
    _view->resize(64, 416);
    QCOMPARE(_view->movieRect(), QRectF(0, 0, 64, 48 + 16));
}

void MovieViewTest::aTurnedMovieIsShownUpright_data() {
    QTest::addColumn<QString>("rotation");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QPointF>("white");
    // What ffmpeg's muxer makes of the word "rotate" is a turn against the clock; where the white half comes
    // to lie is what ffmpeg's own decoding shows. As a share of the picture.
    QTest::newRow("not") << u"0"_s << QSizeF(64, 48) << QPointF(0.25, 0.5);
    QTest::newRow("a quarter to the left") << u"90"_s << QSizeF(48, 64) << QPointF(0.5, 0.75);
    QTest::newRow("upside down") << u"180"_s << QSizeF(64, 48) << QPointF(0.75, 0.5);
    QTest::newRow("a quarter to the right") << u"270"_s << QSizeF(48, 64) << QPointF(0.5, 0.25);
}

void MovieViewTest::aTurnedMovieIsShownUpright() {
    QFETCH(QString, rotation);
    QFETCH(QSizeF, size);
    QFETCH(QPointF, white);
    const QString flat =
        _maker.make(u"flat.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s,
                                    u"color=black:s=64x48:d=0.2,drawbox=w=32:h=48:color=white:t=fill"_s,
                                    u"-c:v"_s, u"libx264"_s});
    const QString turned =
        _maker.make(u"turned%1.mov"_s.arg(rotation),
                    {u"-i"_s, flat, u"-c"_s, u"copy"_s, u"-metadata:s:v"_s, u"rotate="_s + rotation});
    QVERIFY(load(*_view, {.path = turned}));
    QTRY_COMPARE_WITH_TIMEOUT(_view->naturalSize(), size, patience);
    const QSize picture = (size * 4).toSize();
    _view->resize(picture + QSize(0, MovieView::controlBarHeight));
    const auto looksRight = [&] {
        const QImage image = _view->grab().toImage();
        const QPoint there(qRound(white.x() * picture.width()), qRound(white.y() * picture.height()));
        const QPoint opposite = QPoint(picture.width(), picture.height()) - there;
        return qGray(image.pixel(there)) > 200 && qGray(image.pixel(opposite)) < 50;
    };
    QTRY_VERIFY_WITH_TIMEOUT(looksRight(), patience);
}

void MovieViewTest::onlyTheCleanApertureIsShown() {
    const QString path = _maker.make(
        u"frame.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s,
                         u"color=white:s=80x64:d=0.2,drawbox=x=8:y=8:w=64:h=48:color=black:t=fill"_s,
                         u"-c:v"_s, u"libx264"_s});
    QVERIFY(load(*_view, {.path = path, .cleanAperture = QRectF(8, 8, 64, 48)}));
    QTRY_COMPARE_WITH_TIMEOUT(_view->naturalSize(), QSizeF(64, 48), patience);
    const auto isBlack = [this] {
        const QImage image = _view->grab().toImage();
        return qGray(image.pixel(3, 3)) < 50 && qGray(image.pixel(250, 185)) < 50;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isBlack(), patience);
}

void MovieViewTest::markersAreDrawnAsTicks() {
    QVERIFY(load(*_view, sourceOf(movie25(), 600)));
    auto* scrubber = _view->findChild<MovieScrubber*>();
    QTRY_VERIFY_WITH_TIMEOUT(scrubber->isEnabled(), patience);
    const auto ink = [&](double seconds) {
        const QImage image = scrubber->grab().toImage();
        // Above the groove, where only ticks and the knob are.
        return qGray(image.pixel(qRound(scrubber->positionOf(seconds)), 5));
    };
    const int paper = ink(1.5);
    QCOMPARE(ink(1), paper);
    _view->setMarkerTimes({1, 2, 99, -1});
    QVERIFY(std::abs(ink(1) - paper) > 60);
    QVERIFY(std::abs(ink(2) - paper) > 60);
    QCOMPARE(ink(1.5), paper);
    QCOMPARE(ink(3), paper);
    _view->clearMovie();
    QVERIFY(scrubber->markerTimes().isEmpty());
}

void MovieViewTest::aClickNearATickGoesThereExactly() {
    MovieScrubber scrubber;
    scrubber.resize(320, 16);
    scrubber.setDuration(10);
    // The third and the fourth are 6 pixels apart, the others not to be seen.
    scrubber.setMarkerTimes({-1, 99, 4.0, 4.2, 9.0, std::nan("")});
    const QSignalSpy scrubbed(&scrubber, &MovieScrubber::scrubbed);
    const QSignalSpy clicked(&scrubber, &MovieScrubber::markerClicked);
    const auto click = [&](double x) {
        QTest::mouseClick(&scrubber, Qt::LeftButton, Qt::NoModifier, QPoint(qRound(x), 8));
    };
    click(scrubber.positionOf(4.0) + 2);
    click(scrubber.positionOf(4.2) - 2);
    click(scrubber.positionOf(9.0) + 3);
    QCOMPARE(scrubbed.size(), 3);
    QCOMPARE(scrubbed[0][0].toDouble(), 4.0);
    QCOMPARE(scrubbed[1][0].toDouble(), 4.2);
    QCOMPARE(scrubbed[2][0].toDouble(), 9.0);
    QCOMPARE(clicked.size(), 3);
    QCOMPARE(clicked[0][0].toInt(), 2);
    QCOMPARE(clicked[1][0].toInt(), 3);
    QCOMPARE(clicked[2][0].toInt(), 4);
    click(scrubber.positionOf(9.0) - 6);
    click(scrubber.positionOf(0.0));
    QCOMPARE(scrubbed.size(), 5);
    QCOMPARE(clicked.size(), 3);
}

void MovieViewTest::draggingAwayFromATickScrubs() {
    MovieScrubber scrubber;
    scrubber.resize(320, 16);
    scrubber.setDuration(10);
    scrubber.setMarkerTimes({5.0});
    const QSignalSpy scrubbed(&scrubber, &MovieScrubber::scrubbed);
    const QSignalSpy clicked(&scrubber, &MovieScrubber::markerClicked);
    const QPoint tick(qRound(scrubber.positionOf(5.0)), 8);
    QTest::mousePress(&scrubber, Qt::LeftButton, Qt::NoModifier, tick);
    QTest::mouseMove(&scrubber, tick + QPoint(2, 0));
    QCOMPARE(scrubbed.size(), 1);
    QTest::mouseMove(&scrubber, tick + QPoint(40, 0));
    QCOMPARE(scrubbed.size(), 2);
    QVERIFY(scrubbed[1][0].toDouble() > 6);
    // Back over the tick it is a drag still.
    QTest::mouseMove(&scrubber, tick);
    QTest::mouseRelease(&scrubber, Qt::LeftButton, Qt::NoModifier, tick);
    QCOMPARE(scrubbed.size(), 3);
    QCOMPARE(clicked.size(), 0);
}

void MovieViewTest::everyControlHasANameAndATip() {
    QCOMPARE(_view->findChild<MovieControlBar*>()->height(), 16);
    int controls = 0;
    for (const QWidget* control : _view->findChild<MovieControlBar*>()->findChildren<QWidget*>()) {
        QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
        QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
        QVERIFY2(control->focusPolicy() & Qt::TabFocus, qPrintable(control->objectName()));
        ++controls;
    }
    QCOMPARE(controls, 6);
}

void MovieViewTest::volumeIsKeptInBounds() {
    QSignalSpy changed(_view.get(), &MovieView::volumeChanged);
    _view->setVolume(30);
    QTRY_COMPARE_WITH_TIMEOUT(_view->volume(), 30, patience);
    QCOMPARE(_view->findChild<QSlider*>(u"volume"_s)->value(), 30);
    _view->setVolume(500);
    QTRY_COMPARE_WITH_TIMEOUT(_view->volume(), 100, patience);
    _view->setVolume(-1);
    QTRY_COMPARE_WITH_TIMEOUT(_view->volume(), 0, patience);
}

void MovieViewTest::aMovieWithoutPictureIsPlayed() {
    const QString path = _maker.make(u"sound.m4a"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=0.3"_s});
    QSignalSpy loaded(_view.get(), &MovieView::movieLoaded);
    QSignalSpy failed(_view.get(), &MovieView::movieFailed);
    _view->setMovie({.path = path});
    QVERIFY(loaded.wait(patience));
    _view->play();
    QTest::qWait(100);
    QCOMPARE(failed.count(), 0);
}

QTEST_MAIN(MovieViewTest)
#include "MovieViewTest.moc"
