#include "movie/MovieTools.h"
#include "movie/MovieUpdate.h"
#include "movie/SampleTimes.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class SampleTimesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void previousIsTheLatestThatBeginsBefore();
    void startsAreTheFirstMomentsShown();
    void variableRatesAreFollowed();
    void presentationOrderCounts();
    void negativeOffsetsCount();
    void editListsAreFollowed_data();
    void editListsAreFollowed();
    void videoTracksAreTakenTogether();
    void manySamplesInOneMovieUnitCountOnce();
    void hostileTablesAreRefused_data();
    void hostileTablesAreRefused();
    void aFailureIsKeptAndHasAPath();
    void tablesAreReadAfterAnUpdate();
    void reorderedPicturesAgreeWithFfprobe();

  private:
    std::vector<qint64> startsOf(const MovieBuilder& builder) const {
        writeBytes(path(), builder.headerLast());
        const Result<Movie> movie = Movie::open(path());
        return movie && movie->sampleTimes() ? movie->sampleTimes()->starts() : std::vector<qint64>{-99};
    }
    QString path() const { return _folder.filePath(u"movie.mov"_s); }

    QTemporaryDir _folder;
};

namespace {

using Starts = std::vector<qint64>;

/// Five samples of 100 units at 1000 units a second, in a movie of 600 units a second.
MovieBuilder fiveSamples(std::vector<EditListEntry> edits = {}) {
    TrackPlan track;
    track.timeScale = 1000;
    track.times = {{.count = 5, .duration = 100}};
    track.edits = std::move(edits);
    return MovieBuilder{.duration = 300, .tracks = {track}};
}

}  // namespace

void SampleTimesTest::previousIsTheLatestThatBeginsBefore() {
    writeBytes(path(), fiveSamples().headerLast());
    const Result<Movie> movie = Movie::open(path());
    const Result<SampleTimes>& times = movie->sampleTimes();
    QCOMPARE(times->starts(), (Starts{0, 60, 120, 180, 240}));
    QCOMPARE(times->previousSampleTime(0), -1);
    QCOMPARE(times->previousSampleTime(-1), -1);
    QCOMPARE(times->previousSampleTime(1), 0);
    QCOMPARE(times->previousSampleTime(60), 0);
    QCOMPARE(times->previousSampleTime(61), 60);
    QCOMPARE(times->previousSampleTime(240), 180);
    QCOMPARE(times->previousSampleTime(1000000), 240);
    QCOMPARE(times->previousSampleTime(std::numeric_limits<qint64>::max()), 240);
    QCOMPARE(times->previousSampleTime(std::numeric_limits<qint64>::min()), -1);
}

void SampleTimesTest::startsAreTheFirstMomentsShown() {
    TrackPlan track;
    track.timeScale = 30000;
    track.times = {{.count = 31, .duration = 1001}};
    const Starts starts = startsOf(MovieBuilder{.tracks = {track}});
    QCOMPARE(Starts(starts.begin(), starts.begin() + 4), (Starts{0, 21, 41, 61}));
    QCOMPARE(starts.back(), 601);
}

void SampleTimesTest::variableRatesAreFollowed() {
    TrackPlan track;
    track.times = {{.count = 2, .duration = 10}, {.count = 1, .duration = 300}, {.count = 2, .duration = 5}};
    QCOMPARE(startsOf(MovieBuilder{.tracks = {track}}), (Starts{0, 10, 20, 320, 325}));
}

void SampleTimesTest::presentationOrderCounts() {
    TrackPlan track;
    track.times = {{.count = 4, .duration = 24}};
    track.offsets = {{.count = 1, .offset = 24}, {.count = 1, .offset = 72}, {.count = 2, .offset = 0}};
    // Decoded at 0, 24, 48, 72; shown at 24, 96, 48, 72.
    QCOMPARE(startsOf(MovieBuilder{.tracks = {track}}), (Starts{24, 48, 72, 96}));
    track.edits = {{.duration = 96, .mediaTime = 24}};
    QCOMPARE(startsOf(MovieBuilder{.tracks = {track}}), (Starts{0, 24, 48, 72}));
}

void SampleTimesTest::negativeOffsetsCount() {
    TrackPlan track;
    track.times = {{.count = 3, .duration = 24}};
    track.offsets = {{.count = 1, .offset = 0}, {.count = 1, .offset = 24}, {.count = 1, .offset = -24}};
    QCOMPARE(startsOf(MovieBuilder{.tracks = {track}}), (Starts{0, 24, 48}));
}

void SampleTimesTest::editListsAreFollowed_data() {
    QTest::addColumn<std::vector<EditListEntry>>("edits");
    QTest::addColumn<Starts>("starts");
    using Edits = std::vector<EditListEntry>;
    QTest::newRow("whole") << Edits{{.duration = 300, .mediaTime = 0}} << Starts{0, 60, 120, 180, 240};
    QTest::newRow("empty first") << Edits{{.duration = 50, .mediaTime = -1},
                                          {.duration = 300, .mediaTime = 0}}
                                 << Starts{50, 110, 170, 230, 290};
    QTest::newRow("from a sample") << Edits{{.duration = 300, .mediaTime = 200}} << Starts{0, 60, 120};
    QTest::newRow("into a sample") << Edits{{.duration = 300, .mediaTime = 150}} << Starts{0, 30, 90, 150};
    QTest::newRow("cut at the end") << Edits{{.duration = 120, .mediaTime = 0}} << Starts{0, 60};
    QTest::newRow("two pieces") << Edits{{.duration = 60, .mediaTime = 300}, {.duration = 90, .mediaTime = 0}}
                                << Starts{0, 60, 120};
    QTest::newRow("twice as fast") << Edits{{.duration = 150, .mediaTime = 0, .rate = 0x20000}}
                                   << Starts{0, 30, 60, 90, 120};
    QTest::newRow("half as fast") << Edits{{.duration = 600, .mediaTime = 0, .rate = 0x8000}}
                                  << Starts{0, 120, 240, 360, 480};
    QTest::newRow("held picture") << Edits{{.duration = 600, .mediaTime = 100, .rate = 0},
                                           {.duration = 60, .mediaTime = 200}}
                                  << Starts{0, 600};
    QTest::newRow("no duration") << Edits{{.duration = 0, .mediaTime = 100}} << Starts{0, 60, 120, 180};
    QTest::newRow("behind the media") << Edits{{.duration = 60, .mediaTime = 5000}} << Starts{};
    QTest::newRow("only empty") << Edits{{.duration = 60, .mediaTime = -1}} << Starts{};
    QTest::newRow("as long as can be")
        << Edits{{.duration = 0xFFFFFFFF, .mediaTime = -1}, {.duration = 0xFFFFFFFF, .mediaTime = 400}}
        << Starts{0xFFFFFFFF};
}

void SampleTimesTest::editListsAreFollowed() {
    QFETCH(std::vector<EditListEntry>, edits);
    QTEST(startsOf(fiveSamples(edits)), "starts");
}

void SampleTimesTest::videoTracksAreTakenTogether() {
    TrackPlan first;
    first.times = {{.count = 2, .duration = 100}};
    TrackPlan second = first;
    second.id = 2;
    second.edits = {{.duration = 150, .mediaTime = -1}, {.duration = 200, .mediaTime = 0}};
    TrackPlan sound = first;
    sound.id = 3;
    sound.handler = FourCharCode("soun");
    sound.times = {{.count = 50, .duration = 1}};
    QCOMPARE(startsOf(MovieBuilder{.tracks = {first, second, sound}}), (Starts{0, 100, 150, 250}));
}

void SampleTimesTest::manySamplesInOneMovieUnitCountOnce() {
    TrackPlan track;
    track.timeScale = 100;
    track.times = {{.count = 100, .duration = 1}};
    QCOMPARE(startsOf(MovieBuilder{.timeScale = 4, .tracks = {track}}), (Starts{0, 1, 2, 3, 4}));
}

void SampleTimesTest::hostileTablesAreRefused_data() {
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const QByteArray head = QByteArray("stts") + QByteArray(4, '\0');
    QTest::newRow("too many samples")
        << head + QByteArray::fromHex("0000000100000005") << head + QByteArray::fromHex("00000001ffffffff");
    QTest::newRow("too many entries")
        << head + QByteArray::fromHex("00000001") << head + QByteArray::fromHex("ffffffff");
    QTest::newRow("newer edit list") << QByteArray("elst\0", 5) << QByteArray("elst\7", 5);
    QTest::newRow("no time scale") << QByteArray::fromHex("000003e8") << QByteArray::fromHex("00000000");
}

void SampleTimesTest::hostileTablesAreRefused() {
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray file = fiveSamples({{.duration = 300, .mediaTime = 0}}).headerLast();
    QVERIFY(file.contains(from));
    file.replace(file.indexOf(from), from.size(), to);
    writeBytes(path(), file);
    const Result<Movie> movie = Movie::open(path());
    QVERIFY(movie);
    QVERIFY(!movie->sampleTimes());
}

void SampleTimesTest::aFailureIsKeptAndHasAPath() {
    QByteArray file = fiveSamples().headerLast();
    file.replace(file.indexOf("stts") + 8, 4, "\xff\xff\xff\xff");
    writeBytes(path(), file);
    const Result<Movie> movie = Movie::open(path());
    const Result<SampleTimes>& times = movie->sampleTimes();
    QCOMPARE(times.error().code, ErrorCode::malformed);
    QCOMPARE(times.error().path, path());
    QVERIFY(times.error().byteOffset);
    QCOMPARE(&movie->sampleTimes(), &times);
}

void SampleTimesTest::tablesAreReadAfterAnUpdate() {
    MovieBuilder builder = fiveSamples();
    builder.userData = QByteArray();
    writeBytes(path(), builder.headerLast());
    const Result<Movie> movie = Movie::open(path());
    for (int round = 1; round < 6; ++round) {
        QVERIFY(setUserDataItem(path(), "KVXN", 1, QByteArray(round * 100, 'x')));
    }
    QCOMPARE(movie->sampleTimes()->starts().size(), std::size_t{5});
}

void SampleTimesTest::reorderedPicturesAgreeWithFfprobe() {
    const QString file = ffmpegMovie(u"reordered.mov"_s,
                                     {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=24000/1001"_s,
                                      u"-frames:v"_s, u"60"_s, u"-c:v"_s, u"libx264"_s, u"-bf"_s, u"3"_s});
    const auto text = outputOf(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"packet=pts"_s,
                                              u"-of"_s, u"csv=p=0"_s, file});
    QVERIFY(text);
    const Result<Movie> movie = Movie::open(file);
    const quint32 mediaScale = movie->visualTrack()->timeScale;
    Starts expected;
    for (const QByteArray& line : text->split('\n')) {
        if (!line.isEmpty()) {
            // Movie time 1000 a second; the first value that is not before the sample.
            expected.push_back((line.toLongLong() * movie->timeScale() + mediaScale - 1) / mediaScale);
        }
    }
    std::ranges::sort(expected);
    QCOMPARE(expected.size(), std::size_t{60});
    QCOMPARE(movie->sampleTimes()->starts(), expected);
}

QTEST_GUILESS_MAIN(SampleTimesTest)
#include "SampleTimesTest.moc"
