// One look at a folder of 10,000 clips in which nothing has changed, as a volume that tells of no changes
// gets it every one and a half seconds, against listing the folder and asking for the state of each file and
// no more. Both are timed in turn in each round; "…_ms" are medians over the rounds.
#include "bench/PlaceholderFolder.h"
#include "bench/Rounds.h"
#include "clipstore/FolderComparison.h"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

using namespace marquill;

namespace {

constexpr int rounds = 15;

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

void look(benchmark::State& state) {
    const PlaceholderFolder folder;
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
    const PlaceholderFolder folder;
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
