// Reading a folder of 10,000 placeholders of eight markers each, against opening, reading and closing the
// same files without a look at them, and against libplist's parsing of them in memory. All are timed in turn
// in each round; "…_ms" are medians over the rounds, "to_bare" and "to_libplist" the medians' ratios.
#include "bench/PlaceholderFolder.h"
#include "bench/Rounds.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <plist/plist.h>
#include <unistd.h>

#include <span>

using namespace marquill;

namespace {

constexpr int rounds = 15;

/// Opens, reads and closes a file, as little as that can be.
std::span<const char> readBare(const QByteArray& path, std::span<char> buffer) {
    const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    const ssize_t size = read(file, buffer.data(), buffer.size());
    close(file);
    return buffer.first(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

void parseWithLibplist(std::span<const char> bytes) {
    plist_t root = nullptr;
    plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
    benchmark::DoNotOptimize(root);
    plist_free(root);
}

void listing(benchmark::State& state) {
    const PlaceholderFolder folder;
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
        if (clips.size() != PlaceholderFolder::clipCount ||
            clips.front().clipMarkerArray()->size() != PlaceholderFolder::markerCount) {
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
