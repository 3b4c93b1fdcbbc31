// Reading a folder of 10,000 placeholders of eight markers each, against opening, reading and closing the
// same files without a look at them, and against libplist's parsing of them in memory. All are timed in turn
// in each round; "…_ms" are medians over the rounds, "to_bare" and "to_libplist" the medians' ratios.
#include "clipstore/ClipStore.h"
#include "platform/Files.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <plist/plist.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <span>

using namespace marquill;

namespace {

constexpr int clipCount = 10'000;
constexpr int markerCount = 8;
constexpr int rounds = 15;

ClipInfo clip(const QString& name) {
    Array markers;
    for (int marker = 0; marker < markerCount; ++marker) {
        markers.append(Dictionary{{u"clipMarkerTitle"_s, u"Close-up of the letter %1"_s.arg(marker)},
                                  {u"clipMarkerIn"_s, 7.25 + marker * 12.48},
                                  {u"clipMarkerDur"_s, 0.0},
                                  {u"clipMarkerComment"_s, u""_s},
                                  {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}}});
    }
    const Date start(std::chrono::duration<double>(1'795'248'300));
    ClipInfo info;
    info.setClipName(name);
    info.setClipScene(u"24A"_s);
    info.setClipRating(4);
    info.setClipComment(u"Boats & gulls"_s);
    info.setClipDuration(104);
    info.setClipOldDuration(104);
    info.setClipRecordingStartTime(start);
    info.setClipOldRecordingStartTime(start);
    info.setClipCreationDate(start);
    info.setClipMarkerArray(markers);
    return info;
}

/// A folder of placeholders. One is written as the program does, the others are its like: syncing each of
/// them would take minutes.
class Folder {
  public:
    Folder() {
        const QString firstName = u"Harbour#01.xml"_s;
        if (!ClipStore::createProxyClip(clip(firstName), path())) {
            std::abort();
        }
        const QByteArray first = *readFile(joinPath(path(), firstName));
        _paths.push_back(joinPath(path(), firstName).toUtf8());
        for (int number = 2; number <= clipCount; ++number) {
            add(u"Harbour#%1.xml"_s.arg(number, 2, 10, QChar(u'0')), first);
        }
    }

    QString path() const { return _folder.path(); }
    const std::vector<QByteArray>& paths() const { return _paths; }

  private:
    void add(const QString& name, QByteArray like) {
        const QString path = joinPath(_folder.path(), name);
        const auto file = FileSystem::system().open(path, OpenMode::createNew);
        if (!file || !(*file)->write(0, like.replace("Harbour#01.xml", name.toUtf8()))) {
            std::abort();
        }
        _paths.push_back(path.toUtf8());
    }

    QTemporaryDir _folder;
    std::vector<QByteArray> _paths;
};

/// Opens, reads and closes a file, as little as that can be.
std::span<const char> readBare(const QByteArray& path, std::span<char> buffer) {
    const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    const ssize_t size = read(file, buffer.data(), buffer.size());
    close(file);
    return buffer.first(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

double millisecondsOf(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void parseWithLibplist(std::span<const char> bytes) {
    plist_t root = nullptr;
    plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
    benchmark::DoNotOptimize(root);
    plist_free(root);
}

void listing(benchmark::State& state) {
    const Folder folder;
    std::vector<char> buffer(1 << 20);
    std::vector<double> bare;
    std::vector<double> ours;
    std::vector<double> libplist;
    for (auto _ : state) {
        bare.push_back(millisecondsOf([&] {
            for (const QByteArray& path : folder.paths()) {
                benchmark::DoNotOptimize(readBare(path, buffer));
            }
        }));
        std::vector<ClipInfo> clips;
        ours.push_back(millisecondsOf([&] { clips = ClipStore::readClipInfoForFolder(folder.path()); }));
        if (clips.size() != clipCount || clips.front().clipMarkerArray()->size() != markerCount) {
            std::abort();
        }
        // The parsing alone, without the reading.
        double parsing = 0;
        for (const QByteArray& path : folder.paths()) {
            const std::span<const char> bytes = readBare(path, buffer);
            parsing += millisecondsOf([&] { parseWithLibplist(bytes); });
        }
        libplist.push_back(parsing);
    }
    state.counters["bytes"] = static_cast<double>(readBare(folder.paths().front(), buffer).size());
    state.counters["bare_ms"] = median(bare);
    state.counters["ours_ms"] = median(ours);
    state.counters["libplist_ms"] = median(libplist);
    state.counters["to_bare"] = median(ours) / median(bare);
    state.counters["to_libplist"] = median(ours) / median(libplist);
}
BENCHMARK(listing)->Iterations(rounds)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
