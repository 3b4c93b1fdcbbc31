// One look at a folder of 10,000 clips in which nothing has changed, as a volume that tells of no changes
// gets it every one and a half seconds, against listing the folder and asking for the state of each file and
// no more. Both are timed in turn in each round; "…_ms" are medians over the rounds.
#include "clipstore/ClipStore.h"
#include "clipstore/FolderComparison.h"
#include "platform/Files.h"
#include "platform/PropertyListWriter.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace marquill;

namespace {

constexpr int clipCount = 10'000;
constexpr int markerCount = 8;
constexpr int rounds = 15;

Dictionary record(const QString& name) {
    Array markers;
    for (int marker = 0; marker < markerCount; ++marker) {
        markers.append(Dictionary{{u"clipMarkerTitle"_s, u"Close-up of the letter %1"_s.arg(marker)},
                                  {u"clipMarkerIn"_s, 7.25 + marker * 12.48},
                                  {u"clipMarkerDur"_s, 0.0}});
    }
    return Dictionary{
        {u"clipName"_s, name}, {u"clipScene"_s, u"24A"_s}, {u"clipComment"_s, u"Boats & gulls"_s},
        {u"clipRating"_s, 4},  {u"clipDuration"_s, 104},   {u"clipMarkerArray"_s, markers}};
}

void make(const QString& folder) {
    for (int number = 0; number < clipCount; ++number) {
        const QString name = u"Harbour#%1.xml"_s.arg(number, 5, 10, QChar(u'0'));
        const auto bytes = writePropertyList(record(name));
        const auto file = FileSystem::system().open(joinPath(folder, name), OpenMode::createNew);
        if (!bytes || !file || !(*file)->write(0, *bytes)) {
            std::abort();
        }
    }
}

// The names, and the state of each file, as little as that can be.
int lookBare(const QByteArray& path) {
    DIR* const folder = opendir(path.constData());
    int count = 0;
    struct stat status = {};
    while (const dirent* entry = readdir(folder)) {
        count += fstatat(dirfd(folder), static_cast<const char*>(entry->d_name), &status, 0) == 0 ? 1 : 0;
    }
    closedir(folder);
    return count;
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

void look(benchmark::State& state) {
    const QTemporaryDir folder;
    make(folder.path());
    KnownFolder known;
    for (const ClipFile& file : readClipFiles(folder.path(), ClipStore::getClipsForFolder(folder.path()))) {
        known.insert(file.name, {.stamp = file.stamp, .held = file.held, .clip = file.clip});
    }
    std::vector<double> bare;
    std::vector<double> ours;
    for (auto _ : state) {
        bare.push_back(millisecondsOf([&] { benchmark::DoNotOptimize(lookBare(folder.path().toUtf8())); }));
        ours.push_back(millisecondsOf([&] {
            const auto files = lookAtFolder(folder.path());
            if (!files || !compareFolder(known, *files, Identities::mayChange).isNone()) {
                std::abort();
            }
        }));
    }
    state.counters["bare_ms"] = median(bare);
    state.counters["ours_ms"] = median(ours);
    state.counters["to_bare"] = median(ours) / median(bare);
}
void read(benchmark::State& state) {
    const QTemporaryDir folder;
    make(folder.path());
    const QStringList names = ClipStore::getClipsForFolder(folder.path());
    std::vector<double> records;
    std::vector<double> files;
    for (auto _ : state) {
        records.push_back(millisecondsOf(
            [&] { benchmark::DoNotOptimize(ClipStore::readClipInfos(folder.path(), names)); }));
        files.push_back(
            millisecondsOf([&] { benchmark::DoNotOptimize(readClipFiles(folder.path(), names)); }));
    }
    state.counters["records_ms"] = median(records);
    state.counters["files_ms"] = median(files);
    state.counters["to_records"] = median(files) / median(records);
}
BENCHMARK(read)->Iterations(rounds)->Unit(benchmark::kMillisecond);
BENCHMARK(look)->Iterations(rounds)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
