#include "connect/ClipViewer.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/MovieMaker.h"
#include "platform/MovieView.h"
#include "platform/WindowDescription.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds

const QLabel* messageOf(const ClipViewer* viewer) {
    return viewer->movieView().findChild<QLabel*>(u"message"_s);
}

bool isLoaded(const ClipViewer* viewer) {
    return QTest::qWaitFor([&] { return viewer->movieView().isLoaded(); }, patience);
}

}  // namespace

class ClipViewerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup();

    void withoutPathItSaysSo();
    void aMissingFileIsAlertedAndOpensNoWindow();
    void aMovieOpensInItsProportions_data();
    void aMovieOpensInItsProportions();
    void aFileThatIsNoMovieOpensAnEmptyViewer();
    void aMovieThatDoesNotPlayLeavesAMessage();
    void aMovieThatVanishesLeavesAMessage();
    void aMovieThatIsReplacedLeavesAMessage();
    void aFileHasOneViewer();
    void resizingKeepsTheProportions();
    void theTimeCodeFollowsTheFrames();
    void anUnchangedTimeIsNotWrittenAgain();
    void closingStopsTheMovieAndTakesHalfASecond();
    void theWindowsCloseButtonClosesTheViewer();
    void aQuittingProgramIsNotHeldUp();
    void aMissingDescriptionIsLogged();

  private:
    QString movie(const QString& size) {
        return _maker.make(size + u".mov"_s,
                           {u"-f"_s, u"lavfi"_s, u"-i"_s, u"color=white:s=%1:d=3:r=25"_s.arg(size), u"-c:v"_s,
                            u"libx264"_s, u"-preset"_s, u"ultrafast"_s});
    }
    ClipViewer* open(const QString& path) {
        _viewer = ClipViewer::openClipWithFile(path);
        return _viewer;
    }

    MovieMaker _maker;
    FakeDialogs _dialogs;
    QPointer<ClipViewer> _viewer;
};

void ClipViewerTest::cleanup() {
    delete _viewer;
    _dialogs.alerts.clear();
}

void ClipViewerTest::withoutPathItSaysSo() {
    QCOMPARE(ClipViewer::openClipWithFile(std::nullopt), nullptr);
    QCOMPARE(_dialogs.alerts.size(), 1);
    QCOMPARE(_dialogs.alerts[0].title, u"Clip file not specified"_s);
    QCOMPARE(_dialogs.alerts[0].text, QString());
    QCOMPARE(_dialogs.alerts[0].buttons, QStringList{u"OK"_s});
}

void ClipViewerTest::aMissingFileIsAlertedAndOpensNoWindow() {
    const auto windows = QApplication::topLevelWidgets().size();
    QCOMPARE(ClipViewer::openClipWithFile(u"/nowhere/movie.mov"_s), nullptr);
    QCOMPARE(_dialogs.alerts.size(), 1);
    QCOMPARE(_dialogs.alerts[0].title, u"Could not find Clip"_s);
    QCOMPARE(_dialogs.alerts[0].text,
             u"Please connect to clip again or mount the volume where the clip resides."_s);
    QCOMPARE(_dialogs.alerts[0].buttons, QStringList{u"OK"_s});
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
}

void ClipViewerTest::aMovieOpensInItsProportions_data() {
    QTest::addColumn<QString>("size");
    QTest::addColumn<double>("proportion");
    QTest::newRow("wide") << u"320x180"_s << 16.0 / 9;
    QTest::newRow("4:3") << u"320x240"_s << 4.0 / 3;
    QTest::newRow("tall") << u"180x320"_s << 9.0 / 16;
}

void ClipViewerTest::aMovieOpensInItsProportions() {
    QFETCH(QString, size);
    QFETCH(double, proportion);
    const ClipViewer* viewer = open(movie(size));
    QVERIFY(viewer);
    QVERIFY(viewer->window().isVisible());
    QCOMPARE(viewer->window().windowFilePath(), movie(size));
    QVERIFY(isLoaded(viewer));
    const MovieView& view = viewer->movieView();
    const double room = view.height() - MovieView::controlBarHeight;
    QVERIFY2(std::abs(view.width() - room * proportion) <= 1.5,
             qPrintable(u"%1 %2"_s.arg(view.width()).arg(room)));
    QVERIFY(viewer->window().width() <= 640);
    QVERIFY(_dialogs.alerts.isEmpty());
}

void ClipViewerTest::aFileThatIsNoMovieOpensAnEmptyViewer() {
    QFile text(_maker.filePath(u"text.mov"_s));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no movie") > 0);
    text.close();
    const ClipViewer* viewer = open(text.fileName());
    QVERIFY(viewer);
    QVERIFY(viewer->window().isVisible());
    QVERIFY(!viewer->movieView().hasMovie());
    QCOMPARE(viewer->timeCodeField().text(), QString());
    QVERIFY(_dialogs.alerts.isEmpty());
    QCOMPARE(viewer->windowWillResize({500, 100}), QSizeF(500, 100));
    QVERIFY(messageOf(viewer)->isVisible());
    QVERIFY(!messageOf(viewer)->text().isEmpty());
}

void ClipViewerTest::aMovieThatDoesNotPlayLeavesAMessage() {
    // A codec that nobody knows.
    const QString path = _maker.filePath(u"codec.mov"_s);
    QVERIFY(QFile::copy(movie(u"320x180"_s), path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains("avc1"));
    bytes.replace("avc1", "zzzz").replace("avcC", "zzzC");
    QVERIFY(file.seek(0) && file.write(bytes) == bytes.size());
    file.close();
    const ClipViewer* viewer = open(path);
    QVERIFY(viewer);
    QVERIFY(!messageOf(viewer)->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(messageOf(viewer)->isVisible(), patience);
    QVERIFY(messageOf(viewer)->text().startsWith(u"This movie cannot be shown: "_s));
    QVERIFY(!viewer->movieView().hasMovie());
}

void ClipViewerTest::aMovieThatVanishesLeavesAMessage() {
    const QString path = _maker.filePath(u"vanishing.mov"_s);
    QVERIFY(QFile::copy(movie(u"64x48"_s), path));
    ClipViewer* viewer = ClipViewer::openClipWithFile(path);
    viewer->movieView().play();
    QVERIFY(QFile::remove(path));
    QTRY_COMPARE_WITH_TIMEOUT(messageOf(viewer)->text(), u"This movie is gone. Was it moved or deleted?"_s,
                              patience);
}

void ClipViewerTest::aMovieThatIsReplacedLeavesAMessage() {
    const QString path = _maker.filePath(u"replaced.mov"_s);
    QVERIFY(QFile::copy(movie(u"64x48"_s), path));
    ClipViewer* viewer = ClipViewer::openClipWithFile(path);
    QVERIFY(writeFile(path, "no movie"));
    QTRY_COMPARE_WITH_TIMEOUT(messageOf(viewer)->text(),
                              u"This movie was replaced, and cannot be shown any more."_s, patience);
}

void ClipViewerTest::aFileHasOneViewer() {
    ClipViewer* viewer = open(movie(u"320x180"_s));
    QCOMPARE(ClipViewer::openClipWithFile(movie(u"320x180"_s)), viewer);
    ClipViewer* other = ClipViewer::openClipWithFile(movie(u"320x240"_s));
    QVERIFY(other != viewer);
    delete other;
}

void ClipViewerTest::resizingKeepsTheProportions() {
    const ClipViewer* viewer = open(movie(u"320x180"_s));
    QVERIFY(isLoaded(viewer));
    QTest::qWait(50);
    const double chrome =
        viewer->window().height() - (viewer->movieView().height() - MovieView::controlBarHeight);
    QVERIFY(chrome > MovieView::controlBarHeight);
    QCOMPARE(viewer->windowWillResize({960, 700}), QSizeF(960, 540 + chrome));
    QCOMPARE(viewer->windowWillResize({960, 300}), QSizeF((300 - chrome) * 16 / 9, 300));
    // As the window system tells it.
    viewer->window().windowHandle()->resize(800, 700);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->window().size(), QSizeF(800, 450 + chrome).toSize(), patience);
}

void ClipViewerTest::theTimeCodeFollowsTheFrames() {
    const ClipViewer* viewer = open(movie(u"320x180"_s));
    QCOMPARE(viewer->timeCodeField().text(), u"00:00:00.00"_s);
    QVERIFY(isLoaded(viewer));
    viewer->movieView().setCurrentSeconds(1.08);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->timeCodeField().text(), u"00:00:01.02"_s, patience);
}

void ClipViewerTest::anUnchangedTimeIsNotWrittenAgain() {
    ClipViewer* viewer = open(movie(u"320x180"_s));
    QVERIFY(isLoaded(viewer));
    viewer->timeCodeField().setText(u"kept"_s);
    viewer->updateTimeCode();
    QCOMPARE(viewer->timeCodeField().text(), u"kept"_s);
}

void ClipViewerTest::closingStopsTheMovieAndTakesHalfASecond() {
    ClipViewer* viewer = open(movie(u"320x180"_s));
    QVERIFY(isLoaded(viewer));
    const QSignalSpy playing(&viewer->movieView(), &MovieView::playingChanged);
    viewer->movieView().play();
    QTRY_VERIFY_WITH_TIMEOUT(!playing.isEmpty(), patience);
    const DelayedCalls::HeldTime held;
    viewer->close();
    QTRY_VERIFY_WITH_TIMEOUT(!viewer->movieView().isPlaying(), patience);
    viewer->close();
    DelayedCalls::elapse(viewer, 0.05);
    QVERIFY(viewer->window().isVisible());
    DelayedCalls::elapse(viewer, 0.5);
    QTRY_VERIFY_WITH_TIMEOUT(_viewer.isNull(), patience);
}

void ClipViewerTest::theWindowsCloseButtonClosesTheViewer() {
    open(movie(u"320x180"_s));
    QVERIFY(!_viewer->window().close());
    QVERIFY(_viewer->window().isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(_viewer.isNull(), patience);
}

void ClipViewerTest::aQuittingProgramIsNotHeldUp() {
    open(movie(u"320x180"_s));
    QTimer::singleShot(0, qApp, [] { QCoreApplication::quit(); });
    QTimer watchdog;
    watchdog.callOnTimeout(qApp, [] { QCoreApplication::exit(1); });
    watchdog.start(patience);
    QCOMPARE(QCoreApplication::exec(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(_viewer.isNull(), patience);
}

void ClipViewerTest::aMissingDescriptionIsLogged() {
    WindowDescription::useFolder(_maker.filePath(QString()));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ClipViewer.ui"_s));
    QCOMPARE(ClipViewer::openClipWithFile(movie(u"320x180"_s)), nullptr);
    WindowDescription::useFolder(u":/windows"_s);
}

QTEST_MAIN(ClipViewerTest)
#include "ClipViewerTest.moc"
