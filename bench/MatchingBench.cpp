// Matching place holder clips with media: on its own, beside walking all candidates for each place holder;
// and finding and dating the media of a card, beside opening each file and reading the movie header from its
// known place. "…_ms" are medians over the rounds, "to_bare" their ratio, each round timing both in turn.
#include "bench/Rounds.h"
#include "connect/MediaFiles.h"
#include "connect/MediaMatching.h"
#include "movie/Movie.h"
#include "platform/Files.h"
#include "tests/connect/MediaFolder.h"
#include "tests/connect/NaiveMatching.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>

using namespace marquill;

namespace {

constexpr int fileCount = 10'000;
constexpr int rounds = 15;

struct Dates {
    std::vector<std::optional<Date>> placeholders;
    std::vector<Date> candidates;
};

/// As many of each within a month, in no order.
Dates someDates(std::int64_t count) {
    std::mt19937_64 random(7);  // NOLINT(cert-msc51-cpp): the same dates each time
    std::uniform_real_distribution<double> seconds(0, 30 * 86400.0);
    Dates dates;
    for (std::int64_t index = 0; index < count; ++index) {
        dates.placeholders.emplace_back(noon(seconds(random)));
        dates.candidates.push_back(noon(seconds(random)));
    }
    return dates;
}

void matching(benchmark::State& state) {
    const Dates dates = someDates(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(matchMedia(dates.placeholders, dates.candidates));
    }
}
BENCHMARK(matching)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// With the sorting that files get before.
void matchingInOrderOfDates(benchmark::State& state) {
    const Dates dates = someDates(state.range(0));
    for (auto _ : state) {
        std::vector<std::optional<Date>> sorted;
        for (const std::size_t index : orderByDate(dates.placeholders)) {
            sorted.push_back(dates.placeholders[index]);
        }
        std::vector<Date> candidates = dates.candidates;
        std::ranges::stable_sort(candidates);
        benchmark::DoNotOptimize(matchMedia(sorted, candidates));
    }
}
BENCHMARK(matchingInOrderOfDates)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void walkingAll(benchmark::State& state) {
    const Dates dates = someDates(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(naiveMatching(dates.placeholders, dates.candidates));
    }
}
BENCHMARK(walkingAll)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

struct Place {
    QByteArray path;
    qint64 offset = 0;
    qint64 size = 0;
};

/// Movies in a hundred folders, their headers behind their media.
class Card {
  public:
    Card() {
        const QByteArray movie = MovieBuilder{.duration = 36000}.headerLast();
        for (int index = 0; index < fileCount; ++index) {
            const QString name = u"%1/take%2.mov"_s.arg(index % 100).arg(index);
            if (!makeFolders(parentFolder(_folder.path(name)))) {
                std::abort();
            }
            _folder.makeDated(name, movie, index);
            const Movie opened = Movie::open(_folder.path(name)).value();
            _places.push_back({_folder.path(name).toUtf8(), opened.header().offset, opened.header().size});
        }
    }

    QString path() const { return _folder.path(); }
    /// The least that opening them can be.
    void openBare(QByteArray& buffer) const {
        for (const Place& place : _places) {
            const int file = open(place.path.constData(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(
                pread(file, buffer.data(), static_cast<std::size_t>(place.size), place.offset));
            close(file);
        }
    }

  private:
    MediaFolder _folder;
    std::vector<Place> _places;
};

void gathering(benchmark::State& state) {
    const Card card;
    QByteArray buffer(1 << 20, Qt::Uninitialized);
    std::vector<double> bare;
    std::vector<double> walk;
    std::vector<double> ours;
    for (auto _ : state) {
        bare.push_back(millisecondsOf([&] { card.openBare(buffer); }));
        std::optional<QStringList> files;
        walk.push_back(
            millisecondsOf([&] { files = MediaFiles::filesInFolder(card.path(), {u".mov"_s, u".MOV"_s}); }));
        ours.push_back(walk.back() + millisecondsOf([&] {
                           const auto all = MediaFiles::candidates(*files, ClipType::quickTime);
                           if (all->found.size() != fileCount) {
                               std::abort();
                           }
                       }));
    }
    state.counters["bare_ms"] = median(bare);
    state.counters["walk_ms"] = median(walk);
    state.counters["ours_ms"] = median(ours);
    state.counters["to_bare"] = median(ours) / median(bare);
}
BENCHMARK(gathering)->Iterations(rounds)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
