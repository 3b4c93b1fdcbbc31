#include "connect/ClipViewer.h"
#include "connect/MoviePreview.h"
#include "connect/ShownMovie.h"
#include "platform/DelayedCalls.h"
#include "platform/MovieMaker.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds
constexpr QRgb surround = qRgb(102, 102, 102);

QLabel* messageOf(MoviePreview& preview) {
    return preview.findChild<QLabel*>(u"message"_s);
}

}  // namespace

class MoviePreviewTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void cleanup();

    void withoutPathTheFieldShowsDashes();
    void setMovieIsRefusedAndLogged();
    void aFileThatIsNoMovieLeavesThePreviewEmpty();
    void aMovieShowsItsTimeCode();
    void timeCodeAfterTwoFramesOfTheSecondSecond();
    void framesLeaveOnePendingUpdate();
    void thePreviewTakesTheMoviesRectangle();
    void aTurnedMoviesNaturalBoundsAreTurned();
    void theSurroundLeavesOutTheMovie();
    void theMessageIsDrawnOverTheView();
    void theContextMenuNeedsAMovie();
    void onlyTheViewerItemIsAlwaysEnabled();
    void openClipInViewerOpensTheShownPath();
    void aMovieThatVanishesLeavesAMessage();
    void aMovieReplacedByAnotherIsShownAnew();
    void aMovieReplacedByRubbishLeavesAMessage();
    void aChangeWithinTheFileKeepsItOnShow();
    void aMovieThatDoesNotPlayLeavesAMessage();
    void theOwnersMessageComesFirst();
    void aRingShowsThatKeysGoToTheMovie();

  private:
    QString movie25() {
        return _maker.makeShades(u"25.mov"_s, u"25"_s, 3, {u"-video_track_timescale"_s, u"600"_s});
    }
    // A copy that a test may do away with.
    QString copyOf(const QString& path, const QString& name);
    bool show(const QString& path);

    MovieMaker _maker;
    std::unique_ptr<QLabel> _field;
    std::unique_ptr<MoviePreview> _preview;
};

void MoviePreviewTest::init() {
    _field = std::make_unique<QLabel>();
    _preview = std::make_unique<MoviePreview>();
    _preview->setTimeCodeField(_field.get());
    _preview->resize(400, 316);
    _preview->show();
    QVERIFY(QTest::qWaitForWindowExposed(_preview.get()));
}

void MoviePreviewTest::cleanup() {
    _preview.reset();
    _field.reset();
}

QString MoviePreviewTest::copyOf(const QString& path, const QString& name) {
    const QString copy = _maker.filePath(name);
    QFile::remove(copy);
    return QFile::copy(path, copy) ? copy : QString();
}

bool MoviePreviewTest::show(const QString& path) {
    _preview->setMovieByPath(path);
    return QTest::qWaitFor(
        [this] { return _preview->isLoaded() && !_preview->MovieView::naturalSize().isEmpty(); }, patience);
}

void MoviePreviewTest::aRingShowsThatKeysGoToTheMovie() {
    const auto* ring = _preview->findChild<QFrame*>(u"_focusRing"_s);
    QVERIFY(ring);
    _preview->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(_preview.get()));
    _preview->setFocus();
    QTRY_VERIFY(ring->isVisible());
    _preview->resize(500, 400);
    QTRY_COMPARE(ring->geometry(), _preview->rect());
    QVERIFY(ring->testAttribute(Qt::WA_TransparentForMouseEvents));
    _preview->clearFocus();
    QTRY_VERIFY(!ring->isVisible());
}

void MoviePreviewTest::withoutPathTheFieldShowsDashes() {
    QCOMPARE(_field->text(), u"--:--:--.--"_s);
    QVERIFY(show(movie25()));
    QVERIFY(_field->text() != u"--:--:--.--"_s);
    _preview->setMovieByPath(std::nullopt);
    QCOMPARE(_field->text(), u"--:--:--.--"_s);
    QCOMPARE(_preview->path(), std::nullopt);
    QVERIFY(!_preview->hasMovie());
}

void MoviePreviewTest::setMovieIsRefusedAndLogged() {
    QTest::ignoreMessage(QtWarningMsg, "'setMovie' not allowed!");
    static_cast<MovieView&>(*_preview).setMovie({.path = movie25()});
    QVERIFY(!_preview->hasMovie());
}

void MoviePreviewTest::aFileThatIsNoMovieLeavesThePreviewEmpty() {
    QVERIFY(show(movie25()));
    for (const QString& path : {u"/nowhere/movie.mov"_s, QString::fromUtf8(__FILE__), u"/"_s, QString()}) {
        _preview->setMovieByPath(path);
        QCOMPARE(_field->text(), u"--:--:--.--"_s);
        QCOMPARE(_preview->path(), std::nullopt);
        QVERIFY(!_preview->hasMovie());
        QVERIFY(messageOf(*_preview)->isHidden());
    }
}

void MoviePreviewTest::aMovieShowsItsTimeCode() {
    _preview->setMovieByPath(movie25());
    QCOMPARE(_field->text(), u"00:00:00.00"_s);
    QCOMPARE(_preview->path(), movie25());
    QVERIFY(show(movie25()));
    QCOMPARE(_field->text(), u"00:00:00.00"_s);
}

void MoviePreviewTest::timeCodeAfterTwoFramesOfTheSecondSecond() {
    QVERIFY(show(movie25()));
    _preview->setCurrentSeconds(1.08);
    QTRY_COMPARE_WITH_TIMEOUT(_field->text(), u"00:00:01.02"_s, patience);
    QCOMPARE(_preview->currentTime().seconds(), 1.08);
    _preview->stepBackward();
    QTRY_COMPARE_WITH_TIMEOUT(_field->text(), u"00:00:01.01"_s, patience);
}

void MoviePreviewTest::framesLeaveOnePendingUpdate() {
    QVERIFY(show(movie25()));
    const DelayedCalls::HeldTime held;
    DelayedCalls::elapse(_preview.get(), 1);
    QCOMPARE(DelayedCalls::pendingCount(_preview.get()), 0);
    for (int i = 0; i < 5; ++i) {
        Q_EMIT _preview->willDisplayImage();
    }
    _field->setText(u"stale"_s);
    QVERIFY(DelayedCalls::pendingCount(_preview.get()) > 0);
    DelayedCalls::elapse(_preview.get(), 0.19);
    QCOMPARE(_field->text(), u"stale"_s);
    DelayedCalls::elapse(_preview.get(), 0.02);
    QCOMPARE(_field->text(), u"00:00:00.00"_s);
    QCOMPARE(DelayedCalls::pendingCount(_preview.get()), 0);
}

void MoviePreviewTest::thePreviewTakesTheMoviesRectangle() {
    QCOMPARE(_preview->movieRect(), QRectF(0, 0, 400, 16));
    const QString pal = _maker.make(
        u"pal.mov"_s,
        {u"-f"_s, u"lavfi"_s, u"-i"_s, u"color=white:s=720x576:d=0.1"_s, u"-c:v"_s, u"libx264"_s});
    QVERIFY(show(pal));
    const QRectF rect = _preview->movieRect();
    QCOMPARE(rect.topLeft(), QPointF(0, 0));
    QCOMPARE(rect.width(), 400.0);
    QVERIFY(std::abs(rect.height() - 315.9063) < 0.001);
    const QString sound = _maker.make(u"sound.m4a"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=0.3"_s});
    _preview->setMovieByPath(sound);
    QCOMPARE(_preview->movieRect(), QRectF(0, 0, 400, 16));
}

void MoviePreviewTest::aTurnedMoviesNaturalBoundsAreTurned() {
    const QString flat = _maker.make(
        u"hdv.mov"_s,
        {u"-f"_s, u"lavfi"_s, u"-i"_s, u"color=white:s=1440x1080:d=0.1"_s, u"-c:v"_s, u"libx264"_s});
    const QString turned =
        _maker.make(u"turned.mov"_s, {u"-i"_s, flat, u"-c"_s, u"copy"_s, u"-metadata:s:v"_s, u"rotate=90"_s});
    const Result<Movie> movie = Movie::open(turned);
    QVERIFY(movie);
    QCOMPARE(naturalBounds(*movie), QSizeF(1080, 1440));
    QVERIFY(show(turned));
    // 300 high and not widened: the size is not that of HDV any more.
    QCOMPARE(_preview->movieRect(), QRectF((400 - 225) / 2.0, 0, 225, 316));
}

void MoviePreviewTest::theSurroundLeavesOutTheMovie() {
    QCOMPARE(_preview->grab().toImage().pixel(200, 100), surround);
    QVERIFY(show(_maker.make(u"white.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"color=white:s=320x80:d=0.1"_s,
                                              u"-c:v"_s, u"libx264"_s})));
    // 400 × 100 above the bar: from 200 to 300 from the top.
    QCOMPARE(_preview->movieRect(), QRectF(0, 0, 400, 116));
    QTRY_VERIFY_WITH_TIMEOUT(qGray(_preview->grab().toImage().pixel(200, 250)) > 240, patience);
    const QImage image = _preview->grab().toImage();
    QCOMPARE(image.pixel(200, 190), surround);
    QVERIFY(qGray(image.pixel(200, 205)) > 240);
    _preview->setMovieByPath(std::nullopt);
    QCOMPARE(_preview->grab().toImage().pixel(200, 250), surround);
}

void MoviePreviewTest::theMessageIsDrawnOverTheView() {
    const auto whitePixels = [this] {
        const QImage image = _preview->grab(QRect(0, 0, 400, 300)).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) == qRgb(255, 255, 255) ? 1 : 0;
            }
        }
        return count;
    };
    QCOMPARE(whitePixels(), 0);
    _preview->setString(u"Clip is offline"_s);
    QVERIFY(whitePixels() > 50);
    QCOMPARE(messageOf(*_preview)->font().family(), u"Helvetica"_s);
    QCOMPARE(messageOf(*_preview)->font().pointSize(), 16);
    _preview->setString(std::nullopt);
    QCOMPARE(whitePixels(), 0);
}

void MoviePreviewTest::theContextMenuNeedsAMovie() {
    const auto rightClick = [this] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {50, 50}, _preview->mapToGlobal(QPoint(50, 50)));
        QCoreApplication::sendEvent(_preview.get(), &event);
        const bool shown = _preview->menuForEvent()->isVisible();
        _preview->menuForEvent()->hide();
        return shown;
    };
    QVERIFY(!rightClick());
    QVERIFY(show(movie25()));
    QVERIFY(rightClick());
    QCOMPARE(_preview->menuForEvent()->font().pointSize(), 10);
}

void MoviePreviewTest::onlyTheViewerItemIsAlwaysEnabled() {
    const QAction other;
    QVERIFY(_preview->validateMenuItem(*_preview->menuForEvent()->actions().constFirst()));
    QVERIFY(!_preview->validateMenuItem(other));
    QVERIFY(show(movie25()));
    QVERIFY(_preview->validateMenuItem(other));
}

void MoviePreviewTest::openClipInViewerOpensTheShownPath() {
    const auto viewers = [] {
        QStringList paths;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"ClipViewer"_s) {
                paths.append(window->windowFilePath());
            }
        }
        return paths;
    };
    _preview->openClipInViewer();
    QVERIFY(viewers().isEmpty());
    QVERIFY(show(movie25()));
    _preview->openClipInViewer();
    QCOMPARE(viewers(), QStringList{movie25()});
    ClipViewer::openClipWithFile(movie25())->close();
    QTRY_VERIFY_WITH_TIMEOUT(viewers().isEmpty(), patience);
}

void MoviePreviewTest::aMovieThatVanishesLeavesAMessage() {
    const QString path = copyOf(movie25(), u"vanishing.mov"_s);
    QVERIFY(show(path));
    const QSignalSpy playing(_preview.get(), &MovieView::playingChanged);
    _preview->play();
    QTRY_VERIFY_WITH_TIMEOUT(!playing.isEmpty(), patience);
    QVERIFY(QFile::remove(path));
    QTRY_VERIFY_WITH_TIMEOUT(!_preview->hasMovie(), patience);
    QCOMPARE(_field->text(), u"--:--:--.--"_s);
    QVERIFY(messageOf(*_preview)->isVisible());
    QVERIFY(messageOf(*_preview)->text().contains(u"gone"_s));
    _preview->setMovieByPath(movie25());
    QVERIFY(messageOf(*_preview)->isHidden());
}

void MoviePreviewTest::aMovieReplacedByAnotherIsShownAnew() {
    const QString path = copyOf(movie25(), u"replaced.mov"_s);
    const QString other = copyOf(_maker.makeShades(u"short.mov"_s, u"25"_s, 1), u"other.mov"_s);
    QVERIFY(show(path));
    QCOMPARE(_preview->duration(), 3.0);
    QVERIFY(std::rename(other.toUtf8().constData(), path.toUtf8().constData()) == 0);
    QTRY_COMPARE_WITH_TIMEOUT(_preview->duration(), 1.0, patience);
    QTRY_VERIFY_WITH_TIMEOUT(_preview->isLoaded(), patience);
    QCOMPARE(_preview->path(), path);
}

void MoviePreviewTest::aMovieReplacedByRubbishLeavesAMessage() {
    const QString path = copyOf(movie25(), u"spoilt.mov"_s);
    QVERIFY(show(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.close();
    QTRY_VERIFY_WITH_TIMEOUT(!_preview->hasMovie(), patience);
    QVERIFY(messageOf(*_preview)->isVisible());
    QCOMPARE(_field->text(), u"--:--:--.--"_s);
}

void MoviePreviewTest::aChangeWithinTheFileKeepsItOnShow() {
    const QString path = copyOf(movie25(), u"changing.mov"_s);
    QVERIFY(show(path));
    _preview->setCurrentSeconds(1);
    QTRY_COMPARE_WITH_TIMEOUT(_field->text(), u"00:00:01.00"_s, patience);
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append) && file.write(QByteArray("\0\0\0\x08"
                                                                  "free",
                                                                  8)) == 8);
    file.close();
    QTest::qWait(200);
    QVERIFY(_preview->isLoaded());
    QCOMPARE(_preview->currentTime().value, _preview->timeScale());
}

void MoviePreviewTest::aMovieThatDoesNotPlayLeavesAMessage() {
    // A codec that nobody knows.
    const QString path = copyOf(movie25(), u"codec.mov"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains("avc1"));
    bytes.replace("stsd\0\0\0\0\0\0\0\1", "stsd\0\0\0\0\0\0\0\1")
        .replace("avc1", "zzzz")
        .replace("avcC", "zzzC");
    QVERIFY(file.seek(0) && file.write(bytes) == bytes.size());
    file.close();
    QSignalSpy failed(_preview.get(), &MovieView::movieFailed);
    _preview->setMovieByPath(path);
    QVERIFY(failed.wait(patience));
    QVERIFY(messageOf(*_preview)->isVisible());
    QVERIFY(messageOf(*_preview)->text().startsWith(u"This movie cannot be shown: "_s));
    QCOMPARE(_field->text(), u"--:--:--.--"_s);
    QCOMPARE(_preview->path(), std::nullopt);
    QCOMPARE(_preview->movieRect(), QRectF(0, 0, 400, 16));
}

void MoviePreviewTest::theOwnersMessageComesFirst() {
    const QString path = copyOf(movie25(), u"spoken.mov"_s);
    QVERIFY(show(path));
    _preview->setString(u"Clip is offline"_s);
    QVERIFY(QFile::remove(path));
    QTRY_VERIFY_WITH_TIMEOUT(!_preview->hasMovie(), patience);
    QCOMPARE(messageOf(*_preview)->text(), u"Clip is offline"_s);
    _preview->setString(std::nullopt);
    QVERIFY(messageOf(*_preview)->text().contains(u"gone"_s));
}

QTEST_MAIN(MoviePreviewTest)
#include "MoviePreviewTest.moc"
