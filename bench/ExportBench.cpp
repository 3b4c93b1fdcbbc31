// Exporting 10,000 connected clips of ten markers each. "xmeml" is timed against opening, reading and closing
// the same movies' headers where they are known to stand, the texts against writing the same bytes in the
// same safe way. Both sides are timed in turn in each round; "…_ms" are medians over the rounds, "ratio"
// theirs.
#include "bench/Rounds.h"
#include "clipmanager/TableExport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "platform/Files.h"
#include "tests/movie/MovieBuilder.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace marquill;

namespace {

constexpr int clipCount = 10'000;
constexpr int markerCount = 10;
constexpr int rounds = 9;

struct Place {
    QByteArray path;
    qint64 offset = 0;
    qint64 size = 0;
};

Array markers() {
    Array markers;
    for (int marker = 0; marker < markerCount; ++marker) {
        const Dictionary tags = marker == 0 ? Dictionary{{markerTagIn, true}} : Dictionary();
        markers.append(Dictionary{{clipMarkerTitle, u"Close-up of the letter %1"_s.arg(marker)},
                                  {clipMarkerIn, 7.25 + marker * 2.48},
                                  {clipMarkerDur, 0.5},
                                  {clipMarkerComment, u""_s},
                                  {clipMarkerTags, tags}});
    }
    return markers;
}

ClipInfo clip(int number, const QString& media) {
    ClipInfo info;
    info.setClipName(u"Harbour#%1.xml"_s.arg(number, 2, 10, QChar(u'0')));
    info.setClipPath(media);
    info.setClipScene(u"24A"_s);
    info.setClipRating(4);
    info.setClipLabel(u"Print"_s);
    info.setClipComment(u"Boats & gulls"_s);
    info.setClipDuration(30);
    info.setClipCreationDate(Date(std::chrono::duration<double>(1'795'248'300 + number * 60)));
    info.setClipMarkerArray(markers());
    return info;
}

/// Clips and their movies: 30 seconds of reordered pictures and sound, headers of 8 kB behind the media.
class Clips {
  public:
    Clips() {
        TrackPlan video{.codec = "avc1", .timeScale = 25000};
        video.times = {{.count = 750, .duration = 1000}};
        for (int index = 0; index < 750; ++index) {
            video.offsets.push_back({.count = 1, .offset = 1000 * (index % 3)});
        }
        const TrackPlan sound{.id = 2, .handler = "soun", .codec = "twos"};
        const MovieBuilder builder{.duration = 18000, .tracks = {video, sound}};
        const QByteArray file = builder.headerLast();
        for (int number = 0; number < clipCount; ++number) {
            const QString path = _folder.filePath(u"A001_C%1.mov"_s.arg(number));
            writeBytes(path, file);
            const MovieHeaderPlace header = Movie::open(path).value().header();
            places.push_back({QFile::encodeName(path), header.offset, header.size});
            records.push_back(clip(number, path));
        }
    }

    QString folder() const { return _folder.path(); }
    QString target() const { return _folder.filePath(u"export"_s); }

    std::vector<Place> places;
    std::vector<ClipInfo> records;

  private:
    QTemporaryDir _folder;
};

const Clips& clips() {
    static const Clips shared;
    return shared;
}

void check(const Result<void>& result) {
    if (!result) {
        std::abort();
    }
}

/// Times `work` and `bare` in turn.
void compare(benchmark::State& state, const auto& work, const auto& bare) {
    std::vector<double> ours;
    std::vector<double> theirs;
    for (auto _ : state) {
        ours.push_back(millisecondsOf(work));
        theirs.push_back(millisecondsOf(bare));
    }
    state.counters["bytes"] = static_cast<double>(QFile(clips().target()).size());
    state.counters["ours_ms"] = median(ours);
    state.counters["bare_ms"] = median(theirs);
    state.counters["ratio"] = median(ours) / median(theirs);
}

void readHeaders() {
    static QByteArray buffer(1 << 20, Qt::Uninitialized);
    for (const Place& place : clips().places) {
        const int file = open(place.path.constData(), O_RDONLY | O_CLOEXEC);
        benchmark::DoNotOptimize(
            pread(file, buffer.data(), static_cast<std::size_t>(place.size), place.offset));
        close(file);
    }
}

void xmeml(benchmark::State& state) {
    const Clips& all = clips();
    const QStringList labels = {u"Print"_s, u"Trash"_s};
    compare(
        state,
        [&] { check(XmemlExport::doExportAsXMLAtPath(all.target(), all.records, all.folder(), labels)); },
        readHeaders);
}

void text(benchmark::State& state) {
    const Clips& all = clips();
    check(TextExport::doExportAsTextAtPath(all.target(), all.records));
    const QByteArray bytes = *readFile(all.target());
    compare(
        state, [&] { check(TextExport::doExportAsTextAtPath(all.target(), all.records)); },
        [&] { check(writeFile(all.target(), bytes)); });
}

void table(benchmark::State& state) {
    const Clips& all = clips();
    check(TableExport::doExportAsTableAtPath(all.target(), u"\t"_s, all.records));
    const QByteArray bytes = *readFile(all.target());
    compare(
        state, [&] { check(TableExport::doExportAsTableAtPath(all.target(), u"\t"_s, all.records)); },
        [&] { check(writeFile(all.target(), bytes)); });
}

/// What the window does before an export, so that the records may be edited meanwhile.
void copyRecords(benchmark::State& state) {
    const auto bytes = [] { return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd); };
    for (auto _ : state) {
        const double before = bytes();
        std::vector<ClipInfo> copies;
        for (const ClipInfo& record : clips().records) {
            copies.push_back(record.deepCopy());
        }
        state.counters["bytes_per_clip"] = (bytes() - before) / clipCount;
    }
}

BENCHMARK(xmeml)->Iterations(rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(text)->Iterations(rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(table)->Iterations(rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(copyRecords)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
