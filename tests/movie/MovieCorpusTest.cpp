#include "movie/Movie.h"
#include "movie/MovieReports.h"
#include "movie/MovieTools.h"
#include "movie/MovieUpdate.h"
#include "movie/SampleTimes.h"

#include <QTemporaryDir>
#include <QTest>

#include <ctime>

using namespace marquill;

/// Movies of cameras and programs that are not ours, with what other programs read in them; see the README.md
/// of
/// ../shared/corpus. Skipped where that folder is not there.
class MovieCorpusTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase();
    void factsAgree();
    void sampleTimesAgree();
    void brokenMoviesTellWhatAndWhere();
    void updatesLeaveEverythingElseAlone();

  private:
    using Row = QHash<QString, QString>;
    bool isReadable(const Row& row) const {
        return !row[u"mvhd_dur"_s].isEmpty() && !row[u"notes"_s].contains(u"moov truncated"_s);
    }
    QString pathOf(const Row& row) const { return _folder + u'/' + row[u"file"_s]; }
    void compareFacts(const Row& row, const Movie& movie);
    void compareVideo(const Row& row, const Movie& movie);
    void compareReports(const Row& row, const QString& copy);

    QString _folder;
    QList<Row> _rows;
};

namespace {

/// What this program has had of the processor: other work on the machine does not count.
double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// The items of a row's first list: `[["XMP_", "\\xa9TIM"]]` gives both, with single backslashes.
QStringList itemTypes(const QString& text) {
    QStringList types;
    const QStringList parts = text.split(u"\"\""_s);
    for (qsizetype index = 1; index < parts.size(); index += 2) {
        types.append(QString(parts[index]).replace(uR"(\\)"_s, uR"(\)"_s));
    }
    return types;
}

/// Start times of the packets of the first video stream, in seconds, as ffprobe tells them.
std::vector<double> packetTimes(const QString& path) {
    const auto text =
        outputOf(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-select_streams"_s, u"v:0"_s, u"-show_entries"_s,
                                u"packet=pts_time,flags"_s, u"-of"_s, u"csv=p=0"_s, path});
    std::vector<double> times;
    for (const QByteArray& line : text.value_or(QByteArray()).split('\n')) {
        const QByteArrayList fields = line.split(',');
        if (fields.size() >= 2 && !fields[1].contains('D') && fields[0] != "N/A") {
            times.push_back(fields[0].toDouble());
        }
    }
    std::ranges::sort(times);
    return times;
}

std::optional<QByteArray> mediaChecksums(const QString& path) {
    return outputOf(u"ffmpeg"_s, {u"-v"_s, u"quiet"_s, u"-i"_s, path, u"-map"_s, u"0"_s, u"-c"_s, u"copy"_s,
                                  u"-f"_s, u"framemd5"_s, u"-"_s});
}

/// What an update necessarily changes in a report of another program; all else stays as it was.
constexpr std::array changedByUpdates = {
    // Copy and original are two files, in two folders and with rights of their own.
    "SourceFile"_L1,
    "System:Directory"_L1,
    "System:FilePermissions"_L1,
    // They were written and read at other times.
    "General/1/File_Modified_Date"_L1,
    "General/1/File_Modified_Date_Local"_L1,
    "System:FileAccessDate"_L1,
    "System:FileInodeChangeDate"_L1,
    "System:FileModifyDate"_L1,
    // The record takes its place,
    "General/1/FileSize"_L1,
    "System:FileSize"_L1,
    // which is the file's bytes less those of the tracks,
    "General/1/StreamSize"_L1,
    // the file's bytes by its duration,
    "General/1/OverallBitRate"_L1,
    // and the bytes behind the media, where a header that outgrew its place now stands,
    "General/1/FooterSize"_L1,
    // so that the media cannot be shown before the whole file is there.
    "General/1/IsStreamable"_L1,
};

/// In a file without media data, samples are said to be where the new header stands; mediainfo reads it as
/// sound.
constexpr auto changedWithoutMedia = "Audio/1/extra/Errors"_L1;

/// The names whose values differ, with both.
QStringList differences(const MovieReport& before, const MovieReport& after) {
    MovieReport all = before;
    all.insert(after);
    QStringList texts;
    for (const QString& name : all.keys()) {
        const QString old = before.value(name, u"(none)"_s);
        const QString fresh = after.value(name, u"(none)"_s);
        if (old != fresh && std::ranges::find(changedByUpdates, name) == changedByUpdates.end()) {
            texts.append(u"%1: %2 -> %3"_s.arg(name, old, fresh));
        }
    }
    return texts;
}

}  // namespace

void MovieCorpusTest::initTestCase() {
    _folder = qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/movies"_s;
    const QList<QByteArray> lines = readBytes(_folder + u"/MANIFEST.tsv"_s).split('\n');
    if (lines.size() < 2) {
        QSKIP("../shared/corpus/movies is not there; its movies are left out.");
    }
    const QStringList keys = QString::fromUtf8(lines.first()).split(u'\t');
    for (const QByteArray& line : lines.mid(1)) {
        const QStringList values = QString::fromUtf8(line).split(u'\t');
        Row row;
        for (qsizetype index = 0; index < std::min(keys.size(), values.size()); ++index) {
            row[keys[index]] = values[index];
        }
        if (row.size() == keys.size()) {
            _rows.append(row);
        }
    }
    QVERIFY(_rows.size() > 30);
    for (const char* program : {"ffprobe", "ffmpeg", "mediainfo", "exiftool"}) {
        QVERIFY2(!QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty(), program);
    }
}

void MovieCorpusTest::factsAgree() {
    int compared = 0;
    for (const Row& row : _rows) {
        if (!isReadable(row)) {
            continue;
        }
        const Result<Movie> movie = Movie::open(pathOf(row));
        QVERIFY2(movie, movie ? "" : qPrintable(movie.error().description()));
        compareFacts(row, *movie);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(row[u"file"_s]));
        ++compared;
    }
    qInfo("%d movies compared", compared);
    QVERIFY(compared > 25);
}

void MovieCorpusTest::compareFacts(const Row& row, const Movie& movie) {
    QCOMPARE(movie.timeScale(), row[u"mvhd_ts"_s].toUInt());
    const bool fragmented = row[u"notes"_s].contains(u"fragmented"_s);
    QCOMPARE(movie.isFragmented(), fragmented);
    if (fragmented) {
        QVERIFY(std::abs(movie.seconds() - row[u"ff_dur"_s].toDouble()) < 0.01);
    } else {
        QCOMPARE(movie.duration(), row[u"mvhd_dur"_s].toULongLong());
    }
    QCOMPARE(movie.header().beforeMedia, row[u"order"_s] != u"mdat-first"_s);
    QCOMPARE(movie.userData().has_value(), row[u"has_udta"_s] == u"yes"_s);
    if (movie.userData()) {
        QStringList types;
        for (const RawAtom& item : movie.userData()->items()) {
            types.append(item.type.text());
        }
        QCOMPARE(types, itemTypes(row[u"udta_items"_s]));
    }
    const int videos =
        static_cast<int>(std::ranges::count(movie.tracks(), FourCharCode("vide"), &Track::handler));
    QCOMPARE(videos, row[u"n_visual"_s].toInt());
    if (videos > 0) {
        compareVideo(row, movie);
    }
}

void MovieCorpusTest::compareVideo(const Row& row, const Movie& movie) {
    const Track& video = *std::ranges::find(movie.tracks(), FourCharCode("vide"), &Track::handler);
    QCOMPARE(video.codec.text(), row[u"first_vis_fourcc"_s]);
    QCOMPARE(video.timeScale, row[u"media_ts"_s].toUInt());
    if (!movie.isFragmented()) {
        QCOMPARE(video.sampleCount, row[u"stsz_count"_s].toULongLong());
        QCOMPARE(video.duration, row[u"media_dur"_s].toULongLong());
    } else {
        QCOMPARE(video.sampleCount, static_cast<quint64>(packetTimes(movie.path()).size()));
    }
    QVERIFY(video.width > 0 && video.height > 0);
}

/// Every sample begins at most one unit of the movie's time scale after the time that ffprobe tells.
void MovieCorpusTest::sampleTimesAgree() {
    int compared = 0;
    for (const Row& row : _rows) {
        // Several videos are shown together here, and ffprobe reads on where an edit list is broken.
        if (row[u"tier"_s] != u"A"_s || row[u"n_visual"_s] != u"1"_s || row[u"order"_s] == u"nomdat"_s) {
            continue;
        }
        const Result<Movie> movie = Movie::open(pathOf(row));
        QVERIFY(movie);
        const Result<SampleTimes>& times = movie->sampleTimes();
        QVERIFY2(times, times ? "" : qPrintable(times.error().description()));
        const std::vector<double> packets = packetTimes(pathOf(row));
        std::vector<qint64> expected;
        for (const double seconds : packets) {
            expected.push_back(static_cast<qint64>(std::ceil(seconds * movie->timeScale() - 0.01)));
        }
        const auto repeated = std::ranges::unique(expected);
        expected.erase(repeated.begin(), repeated.end());
        bool agrees = times->starts().size() == expected.size();
        for (std::size_t index = 0; agrees && index < expected.size(); ++index) {
            agrees = std::abs(times->starts()[index] - expected[index]) <= 1;
        }
        if (!agrees) {
            qWarning("%s: %zu starts here, %zu there; first %lld and %lld", qPrintable(row[u"file"_s]),
                     times->starts().size(), expected.size(),
                     times->starts().empty() ? -1 : times->starts().front(),
                     expected.empty() ? -1 : expected.front());
        }
        compared += agrees ? 1 : 0;
    }
    qInfo("%d movies agree", compared);
    QVERIFY(compared > 15);
}

void MovieCorpusTest::brokenMoviesTellWhatAndWhere() {
    for (const Row& row : _rows) {
        if (isReadable(row)) {
            continue;
        }
        const double before = processorSeconds();
        const Result<Movie> movie = Movie::open(pathOf(row));
        QVERIFY2(processorSeconds() - before < 1, qPrintable(row[u"file"_s]));
        if (movie) {
            QVERIFY2(!row[u"ff_dur"_s].isEmpty(), qPrintable(row[u"file"_s]));
            continue;
        }
        qInfo().noquote() << movie.error().description();
        QCOMPARE(movie.error().path, pathOf(row));
        QVERIFY(movie.error().byteOffset);
        QVERIFY(!movie.error().message.isEmpty());
        QVERIFY(movie.error().code == ErrorCode::endsEarly || movie.error().code == ErrorCode::malformed);
    }
}

void MovieCorpusTest::updatesLeaveEverythingElseAlone() {
    const QTemporaryDir folder;
    int updated = 0;
    for (const Row& row : _rows) {
        const Result<Movie> movie = Movie::open(pathOf(row));
        if (!movie || !movie->userData()) {
            continue;
        }
        const QString copy = folder.filePath(row[u"file"_s]);
        const QByteArray original = readBytes(pathOf(row));
        QVERIFY(writeBytes(copy, original));
        const QByteArray record(1234, 'k');
        const Result<void> result = setUserDataItem(copy, "KVXN", 1, record);
        if (!result) {
            qInfo().noquote() << result.error().description();
            QCOMPARE(result.error().code, ErrorCode::unsupported);
            QVERIFY(readBytes(copy) == original);
            continue;
        }
        const Result<Movie> again = Movie::open(copy);
        QVERIFY(again);
        QCOMPARE(again->userData()->item("KVXN", 1), std::optional(record));
        QCOMPARE(again->userData()->items().size(), movie->userData()->items().size() + 1);
        QVERIFY2(ffprobe(copy) == ffprobe(pathOf(row)), qPrintable(row[u"file"_s]));
        // A file without media data has its samples elsewhere; what is at their offsets here means nothing.
        if (row[u"order"_s] != u"nomdat"_s) {
            QVERIFY2(mediaChecksums(copy) == mediaChecksums(pathOf(row)), qPrintable(row[u"file"_s]));
        }
        compareReports(row, copy);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(row[u"file"_s]));
        ++updated;
    }
    qInfo("%d movies updated", updated);
    QVERIFY(updated > 10);
}

void MovieCorpusTest::compareReports(const Row& row, const QString& copy) {
    using Reporter = MovieReport (*)(const QString&);
    for (const Reporter report : {Reporter(mediainfoReport), Reporter(exiftoolReport)}) {
        const MovieReport before = report(pathOf(row));
        QVERIFY(before.size() > 10);
        QStringList changed = differences(before, report(copy));
        if (row[u"order"_s] == u"nomdat"_s) {
            changed.removeIf([](const QString& text) { return text.startsWith(changedWithoutMedia); });
        }
        QVERIFY2(changed.isEmpty(), qPrintable(changed.join(u'\n')));
    }
}

QTEST_GUILESS_MAIN(MovieCorpusTest)
#include "MovieCorpusTest.moc"
