#include "movie/Movie.h"
#include "movie/MovieTools.h"
#include "movie/SampleTimes.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class MovieTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void headerPlacesAreFound_data();
    void headerPlacesAreFound();
    void factsOfAMovie();
    void version1AtomsAreRead();
    void pictureFactsAreRead();
    void compactSizesAreCounted();
    void samplesAreCountedByTimeWithoutSizes();
    void severalTracksAndTheVisualOne();
    void disabledAndOtherPictures();
    void aMovieWithoutPicturesHasNoVisualTrack();
    void referenceMoviesAreToldAsSuch();
    void fragmentsCount();
    void aCutFragmentCountsAsFarAsItGoes();
    void ffmpegsFragmentsCount();
    void compressedHeadersOfOtherKindsAreUnsupported();
    void compressedHeadersThatLieAreMalformed();
    void partialMediaAreNoFault();
    void cutHeadersEndEarly();
    void missingFilesAndFolders();
    void foreignFilesTellOffsetAndCause_data();
    void foreignFilesTellOffsetAndCause();
    void deepNestingEnds();
    void everyTruncationEnds();

  private:
    Result<Movie> opened(const QByteArray& file) const {
        writeBytes(path(), file);
        return Movie::open(path());
    }
    QString path() const { return _folder.filePath(u"movie.mov"_s); }

    QTemporaryDir _folder;
};

namespace {

/// A movie of one track in two fragments of five samples, 20 units each, after an empty header.
QByteArray fragmentedMovie(bool withDuration) {
    TrackPlan track;
    track.timeScale = 1000;
    track.times = {};
    MovieBuilder builder{.timeScale = 500, .duration = 0, .tracks = {track}};
    const TrackExtendsAtom defaults{.trackId = 1, .sampleDuration = 20};
    QByteArray extends = written(defaults);
    if (withDuration) {
        extends = written(MovieExtendsHeaderAtom{.duration = 150}) + extends;
    }
    builder.moreHeader = atom("mvex", extends);
    QByteArray file = builder.headerFirst();
    for (const quint32 start : {0U, 100U}) {
        TrackFragmentHeaderAtom header;
        header.trackId = 1;
        TrackFragmentDecodeTimeAtom time;
        time.baseMediaDecodeTime = start;
        TrackRunAtom run;
        run.sampleCount = 5;
        file += atom("moof", atom("mfhd", QByteArray(8, '\1')) +
                                 atom("traf", written(header) + written(time) + written(run)));
        file += atom("mdat", QByteArray(20, 'm'));
    }
    return file;
}

}  // namespace

void MovieTest::headerPlacesAreFound_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("compressed");
    QTest::addColumn<bool>("beforeMedia");
    const MovieBuilder builder;
    const QByteArray body = builder.headerBody(500);
    const QByteArray media = atom("mdat", builder.media());
    const QByteArray type = MovieBuilder::fileType();
    QTest::newRow("header first") << builder.headerFirst() << false << true;
    QTest::newRow("header last") << builder.headerLast() << false << false;
    QTest::newRow("no file type") << media + atom("moov", body) << false << false;
    QTest::newRow("64-bit media") << type + longAtom("mdat", builder.media()) + atom("moov", body) << false
                                  << false;
    QTest::newRow("64-bit header") << type + longAtom("moov", body) + media << false << true;
    QTest::newRow("header to the end") << type + media + atomToEnd("moov", body) << false << false;
    QTest::newRow("media to the end")
        << type + atom("moov", body) + atomToEnd("mdat", builder.media()) << false << true;
    QTest::newRow("wide, skip and free")
        << type + atom("wide", {}) + atom("skip", "x") + atom("free", "yy") + atom("moov", body) + media
        << false << true;
    QTest::newRow("compressed") << builder.headerCompressed() << true << false;
    QTest::newRow("zeros at the end") << builder.headerLast() + QByteArray(4, '\0') << false << false;
    QTest::newRow("two headers") << builder.headerLast() +
                                        atom("moov", MovieBuilder{.duration = 9}.headerBody(0))
                                 << false << false;
    QTest::newRow("zero at the header's end")
        << type + media + atom("moov", body + QByteArray(4, '\0')) << false << false;
}

void MovieTest::headerPlacesAreFound() {
    QFETCH(QByteArray, file);
    const Result<Movie> movie = opened(file);
    QVERIFY2(movie, movie ? "" : qPrintable(movie.error().description()));
    QCOMPARE(movie->duration(), quint64{240});
    QCOMPARE(movie->timeScale(), quint32{600});
    QCOMPARE(movie->tracks().front().sampleCount, quint64{10});
    QVERIFY(movie->userData());
    QTEST(movie->header().compressed, "compressed");
    QTEST(movie->header().beforeMedia, "beforeMedia");
    QCOMPARE(file.mid(movie->header().offset + 4, 4), "moov");
    QVERIFY(!movie->isFragmented());
    QVERIFY(!movie->isReferenceMovie());
    const Result<SampleTimes>& times = movie->sampleTimes();
    QVERIFY(times);
    QCOMPARE(times->starts().size(), std::size_t{10});
}

void MovieTest::factsOfAMovie() {
    const Result<Movie> movie = opened(MovieBuilder{}.headerLast());
    const Track& track = movie->tracks().front();
    QCOMPARE(track.id, 1U);
    QVERIFY(track.enabled);
    QCOMPARE(track.handler, FourCharCode("vide"));
    QCOMPARE(track.codec, FourCharCode("jpeg"));
    QCOMPARE(track.timeScale, 600U);
    QCOMPARE(track.duration, quint64{240});
    QCOMPARE(track.width, 320);
    QCOMPARE(track.height, 240);
    QCOMPARE(movie->seconds(), 0.4);
    QCOMPARE(movie->path(), path());
    QCOMPARE(movie->identity().size, QFileInfo(path()).size());
    QVERIFY(movie->identity().inode != 0);
}

void MovieTest::version1AtomsAreRead() {
    MovieBuilder builder{.duration = 0x300000000, .version = 1};
    builder.tracks.front().version = 1;
    const Result<Movie> movie = opened(builder.headerLast());
    QCOMPARE(movie->duration(), quint64{0x300000000});
    QCOMPARE(movie->tracks().front().duration, quint64{240});
}

void MovieTest::pictureFactsAreRead() {
    TrackPlan track;
    track.matrix.values = {0, 0x10000, 0, -0x10000, 0, 0, 0, 0, 0x40000000};
    track.extensions.atoms = {
        {.type = "pasp", .body = written(PixelAspectRatioAtom{8, 9}).sliced(8)},
        {.type = "clap", .body = written(CleanApertureAtom{704, 1, 480, 1, 0, 1, 0, 1}).sliced(8)}};
    const Result<Movie> movie = opened(MovieBuilder{.tracks = {track}}.headerLast());
    const Track& read = movie->tracks().front();
    QCOMPARE(read.rotation, 90);
    QVERIFY(read.pixelAspectRatio == (PixelAspectRatioAtom{8, 9}));
    QVERIFY(read.cleanAperture == (CleanApertureAtom{704, 1, 480, 1, 0, 1, 0, 1}));
    QCOMPARE(read.naturalWidth, 320.0);
    QCOMPARE(read.naturalHeight, 240.0);
}

void MovieTest::compactSizesAreCounted() {
    TrackPlan track;
    track.compactSizes = true;
    QCOMPARE(opened(MovieBuilder{.tracks = {track}}.headerLast())->tracks().front().sampleCount, quint64{10});
}

void MovieTest::samplesAreCountedByTimeWithoutSizes() {
    QByteArray file = MovieBuilder{}.headerLast();
    file.replace("stsz", "xxxx");
    QCOMPARE(opened(file)->tracks().front().sampleCount, quint64{10});
}

void MovieTest::severalTracksAndTheVisualOne() {
    const TrackPlan sound{.id = 1, .handler = "soun", .codec = "twos"};
    const TrackPlan text{.id = 2, .handler = "text", .codec = "text"};
    const TrackPlan video{.id = 3};
    const Result<Movie> movie = opened(MovieBuilder{.tracks = {sound, text, video}}.headerLast());
    QCOMPARE(movie->tracks().size(), std::size_t{3});
    QCOMPARE(movie->tracks()[0].codec, FourCharCode("twos"));
    QCOMPARE(movie->tracks()[0].width, 0);
    QCOMPARE(movie->visualTrack()->id, 3U);
}

void MovieTest::disabledAndOtherPictures() {
    const TrackPlan off{.id = 1, .flags = 0};
    const TrackPlan on{.id = 2};
    const TrackPlan subtitles{.id = 3, .handler = "sbtl", .codec = "tx3g"};
    QCOMPARE(opened(MovieBuilder{.tracks = {off, on}}.headerLast())->visualTrack()->id, 2U);
    QCOMPARE(opened(MovieBuilder{.tracks = {subtitles, off}}.headerLast())->visualTrack()->id, 1U);
    QCOMPARE(opened(MovieBuilder{.tracks = {subtitles}}.headerLast())->visualTrack()->id, 3U);
    QCOMPARE(opened(MovieBuilder{.tracks = {on, on}}.headerLast())->visualTracks().size(), std::size_t{2});
}

void MovieTest::aMovieWithoutPicturesHasNoVisualTrack() {
    const TrackPlan sound{.handler = "soun", .codec = "twos"};
    const TrackPlan timeCode{.id = 2, .handler = "tmcd", .codec = "tmcd"};
    const Result<Movie> movie = opened(MovieBuilder{.tracks = {sound, timeCode}}.headerLast());
    QVERIFY(!movie->visualTrack());
    QVERIFY(movie->sampleTimes()->starts().empty());
    QVERIFY(!opened(MovieBuilder{.tracks = {}}.headerLast())->visualTrack());
}

void MovieTest::referenceMoviesAreToldAsSuch() {
    DataReferenceAtom reference;
    reference.referenceType = FourCharCode("url ");
    reference.reference = "other.mov";
    const QByteArray rmra = atom("rmra", atom("rmda", written(reference)));
    const Result<Movie> movie = opened(MovieBuilder::fileType() + atom("moov", rmra));
    QVERIFY(movie);
    QVERIFY(movie->isReferenceMovie());
    QVERIFY(movie->tracks().empty());
    QCOMPARE(movie->seconds(), 0.0);
    QVERIFY(!movie->visualTrack());
}

void MovieTest::fragmentsCount() {
    for (const bool withDuration : {true, false}) {
        const Result<Movie> movie = opened(fragmentedMovie(withDuration));
        QVERIFY(movie);
        QVERIFY(movie->isFragmented());
        QCOMPARE(movie->tracks().front().sampleCount, quint64{10});
        QCOMPARE(movie->tracks().front().duration, quint64{200});
        QCOMPARE(movie->duration(), quint64{withDuration ? 150U : 100U});
        QCOMPARE(movie->sampleTimes()->starts(),
                 (std::vector<qint64>{0, 10, 20, 30, 40, 50, 60, 70, 80, 90}));
    }
}

void MovieTest::aCutFragmentCountsAsFarAsItGoes() {
    const QByteArray whole = fragmentedMovie(false);
    const qsizetype second = whole.lastIndexOf("moof") - 4;
    for (const qsizetype size : {second, second + 4, second + 8, second + 40}) {
        const Result<Movie> movie = opened(whole.first(size));
        QVERIFY(movie);
        QCOMPARE(movie->tracks().front().sampleCount, quint64{5});
        QCOMPARE(movie->duration(), quint64{50});
    }
}

void MovieTest::ffmpegsFragmentsCount() {
    const QString file = ffmpegMovie(
        u"fragmented.mp4"_s,
        {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=30000/1001"_s, u"-frames:v"_s, u"95"_s,
         u"-c:v"_s, u"libx264"_s, u"-g"_s, u"30"_s, u"-movflags"_s, u"frag_keyframe+empty_moov"_s});
    const Result<Movie> movie = Movie::open(file);
    QVERIFY(movie);
    QVERIFY(movie->isFragmented());
    QCOMPARE(movie->tracks().front().sampleCount, quint64{95});
    QCOMPARE(movie->sampleTimes()->starts().size(), std::size_t{95});
    QVERIFY(std::abs(movie->seconds() - 95 * 1001 / 30000.0) < 0.1);
}

void MovieTest::compressedHeadersOfOtherKindsAreUnsupported() {
    const Result<Movie> movie = opened(MovieBuilder{}.headerCompressed("lzma"));
    QCOMPARE(movie.error().code, ErrorCode::unsupported);
    QVERIFY(movie.error().message.contains(u"lzma"_s));
}

void MovieTest::compressedHeadersThatLieAreMalformed() {
    const QByteArray good = MovieBuilder{}.headerCompressed();
    const qsizetype size = good.indexOf("cmvd") + 4;
    for (const char* lie : {"\x00\x00\x00\x09", "\x00\xff\xff\xff", "\x00\x00\x00\x00"}) {
        QByteArray file = good;
        file.replace(size, 4, QByteArray(lie, 4));
        const Result<Movie> movie = opened(file);
        QVERIFY(!movie);
        QCOMPARE(movie.error().code, ErrorCode::malformed);
        QVERIFY(movie.error().byteOffset);
    }
    QByteArray huge = good;
    huge.replace(size, 4, "\xff\xff\xff\xff");
    QCOMPARE(opened(huge).error().code, ErrorCode::unsupported);
    QByteArray noise = good;
    noise.replace(size + 4, 8, "noise...");
    QCOMPARE(opened(noise).error().code, ErrorCode::malformed);
}

void MovieTest::partialMediaAreNoFault() {
    const QByteArray file = MovieBuilder{}.headerFirst();
    QVERIFY(opened(file.chopped(20)));
}

void MovieTest::cutHeadersEndEarly() {
    const QByteArray file = MovieBuilder{}.headerLast();
    for (const qsizetype cut : {1, 40, 300}) {
        const Result<Movie> movie = opened(file.chopped(cut));
        QCOMPARE(movie.error().code, ErrorCode::endsEarly);
        QCOMPARE(movie.error().path, path());
        QCOMPARE(movie.error().byteOffset, file.indexOf("moov") - 4);
    }
}

void MovieTest::missingFilesAndFolders() {
    QCOMPARE(Movie::open(_folder.filePath(u"none.mov"_s)).error().code, ErrorCode::notFound);
    QCOMPARE(Movie::open(_folder.path()).error().code, ErrorCode::notAFile);
    QCOMPARE(opened({}).error().code, ErrorCode::endsEarly);
    QCOMPARE(opened("abc").error().code, ErrorCode::endsEarly);
}

void MovieTest::foreignFilesTellOffsetAndCause_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("code");
    QTest::addColumn<qint64>("offset");
    const auto row = [](const char* name, const QByteArray& file, ErrorCode code, qint64 offset) {
        QTest::newRow(name) << file << static_cast<int>(code) << offset;
    };
    const QByteArray type = MovieBuilder::fileType();
    const qint64 begin = type.size();
    row("text", "This is a text and no movie at all.", ErrorCode::endsEarly, 0);
    row("no header", type, ErrorCode::endsEarly, begin);
    row("size too small", type + QByteArray::fromHex("00000004") + "moov", ErrorCode::malformed, begin);
    row("impossible size", type + QByteArray::fromHex("000000016d6f6f76ffffffffffffffff"),
        ErrorCode::malformed, begin);
    row("child too large", type + atom("moov", QByteArray::fromHex("000fffff") + "trak"),
        ErrorCode::malformed, begin + 8);
    row("empty header", type + atom("moov", {}), ErrorCode::malformed, begin);
    row("cut movie header", type + atom("moov", atom("mvhd", "cut")), ErrorCode::endsEarly, begin + 17);
    row("media larger than the file", type + QByteArray::fromHex("7fffffff") + "mdat", ErrorCode::endsEarly,
        begin);
}

void MovieTest::foreignFilesTellOffsetAndCause() {
    QFETCH(QByteArray, file);
    const Result<Movie> movie = opened(file);
    QVERIFY(!movie);
    QTEST(static_cast<int>(movie.error().code), "code");
    QTEST(movie.error().byteOffset.value_or(-1), "offset");
    QCOMPARE(movie.error().path, path());
    QVERIFY(!movie.error().message.isEmpty());
}

void MovieTest::deepNestingEnds() {
    QByteArray nested;
    for (int depth = 0; depth < 5000; ++depth) {
        nested = atom("mdia", nested);
    }
    QVERIFY(!opened(MovieBuilder::fileType() + atom("moov", atom("trak", nested))));
}

void MovieTest::everyTruncationEnds() {
    const QByteArray file = MovieBuilder{}.headerFirst();
    for (qsizetype size = 0; size < file.size(); ++size) {
        const Result<Movie> movie = opened(file.first(size));
        QCOMPARE(movie.has_value(), size >= file.indexOf("mdat") - 4);
    }
}

QTEST_GUILESS_MAIN(MovieTest)
#include "MovieTest.moc"
