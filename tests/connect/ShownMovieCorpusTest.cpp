// Every movie of ../shared/corpus/movies through the preview and a viewer, one after the other: sound ones
// show the frames that ffprobe tells of, with their time codes, and broken ones do no harm.
#include "connect/ClipViewer.h"
#include "connect/MoviePreview.h"
#include "movie/QTHelper.h"
#include "platform/FakeDialogs.h"
#include "platform/MovieMaker.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QTest>

#include <cmath>

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds, for each movie
constexpr int steps = 40;         // frames of each movie that are stepped through

// Movies whose samples ffprobe does not tell one by one.
constexpr std::pair<QLatin1StringView, const char*> withoutOracle[] = {
    {"cmarrin_av_out_of_sync.mov"_L1, "ffprobe drops the sample the edit begins with"},
    {"luke-cha_svq3_watermark.mov"_L1, "ffprobe drops a sample that repeats the picture before"},
    {"luke-cha_invalid_elst_entry_count.mov"_L1, "the sample tables cannot be read; ffprobe guesses"},
};

QString corpus() {
    return qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/movies"_s;
}

// The time codes of the frames at `seconds`: in each second of the movie's clock they are counted from 0.
QStringList timeCodes(const QList<double>& seconds, qint32 timeScale) {
    QStringList texts;
    qint64 second = -1;
    int frame = 0;
    qint64 last = -1;
    for (const double time : seconds) {
        // ffprobe cuts the times off after six digits.
        const auto value = static_cast<qint64>(std::ceil(time * timeScale - 0.05));
        if (value == last) {
            continue;
        }
        last = value;
        frame = value / timeScale == second ? frame + 1 : 0;
        second = value / timeScale;
        texts.append(QTHelper::timeCodeStringHHMMSS(second) + QString::asprintf(".%02d", frame));
    }
    return texts;
}

}  // namespace

class ShownMovieCorpusTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase();
    void previewShowsOrRefusesEveryMovie_data() { addMovies(); }
    void previewShowsOrRefusesEveryMovie();
    void viewerOpensEveryMovie_data() { addMovies(); }
    void viewerOpensEveryMovie();
    void timeCodesAreThoseOfTheFrames_data();
    void timeCodesAreThoseOfTheFrames();

  private:
    static void addMovies();
    bool settles();

    FakeDialogs _dialogs;
    QLabel _field;
    MoviePreview _preview;
};

void ShownMovieCorpusTest::initTestCase() {
    if (!QDir(corpus()).exists()) {
        QSKIP("../shared/corpus/movies is absent; no movie is shown.");
    }
    _preview.setTimeCodeField(&_field);
    _preview.resize(320, 196);
    _preview.show();
}

void ShownMovieCorpusTest::addMovies() {
    QTest::addColumn<QString>("path");
    const QDir folder(corpus());
    for (const QString& name :
         folder.entryList({u"*.mov"_s, u"*.mp4"_s, u"*.3gp"_s, u"*.m4a"_s}, QDir::Files)) {
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }
}

// The movie is there or has failed.
bool ShownMovieCorpusTest::settles() {
    return QTest::qWaitFor([this] { return !_preview.hasMovie() || _preview.isLoaded(); }, patience);
}

void ShownMovieCorpusTest::previewShowsOrRefusesEveryMovie() {
    QFETCH(QString, path);
    _preview.setMovieByPath(path);
    QVERIFY(settles());
    _preview.play();
    QTest::qWait(50);
    _preview.setCurrentSeconds(_preview.duration() / 2);
    _preview.stepForward();
    _preview.stepBackward();
    _preview.gotoEnd();
    QTest::qWait(50);
    _preview.grab();
    // On to the next one whatever the player is busy with.
    QVERIFY(_preview.hasMovie() || _field.text() == u"--:--:--.--"_s);
}

void ShownMovieCorpusTest::viewerOpensEveryMovie() {
    QFETCH(QString, path);
    const std::unique_ptr<ClipViewer> viewer(ClipViewer::openClipWithFile(path));
    QVERIFY(viewer);
    const MovieView& view = viewer->movieView();
    QVERIFY(QTest::qWaitFor([&] { return !view.hasMovie() || view.isLoaded(); }, patience));
    QTest::qWait(20);
    viewer->window().grab();
}

void ShownMovieCorpusTest::timeCodesAreThoseOfTheFrames_data() {
    addMovies();
}

void ShownMovieCorpusTest::timeCodesAreThoseOfTheFrames() {
    QFETCH(QString, path);
    _preview.setMovieByPath(path);
    QVERIFY(settles());
    const QString name = QFileInfo(path).fileName();
    for (const auto& [other, reason] : withoutOracle) {
        if (name == other) {
            QSKIP(reason);
        }
    }
    const QList<double> frames = MovieMaker::frameTimes(path, {u"-read_intervals"_s, u"%+#80"_s});
    if (!_preview.hasMovie() || !_preview.movie()->visualTrack() || frames.isEmpty()) {
        QSKIP("there is no picture");
    }
    const QStringList expected = timeCodes(frames, _preview.timeScale());
    QTest::qWait(50);
    for (qsizetype i = 0; i < std::min<qsizetype>(steps, expected.size()); ++i) {
        if (i > 0) {
            _preview.stepForward();
        }
        const auto shown = [&] {
            return QTHelper::timeCodeStringFromQTTime(_preview.currentTime(), *_preview.movie());
        };
        if (!QTest::qWaitFor([&] { return shown() == expected[i]; }, patience)) {
            QCOMPARE(shown(), expected[i]);
        }
    }
}

QTEST_MAIN(ShownMovieCorpusTest)
#include "ShownMovieCorpusTest.moc"
