// Searching 100,000 clips offscreen: a letter typed into the search, until the table has its rows and has
// painted them, beside a bare search of the same folded texts in one buffer. Run with
// QT_QPA_PLATFORM=offscreen.
#include "bench/ManyClips.h"

using namespace marquill;

namespace {

const std::vector<ClipInfo>& clips() {
    constexpr int markerCount = 4;
    return marquill::clips<markerCount>();
}

struct Window : ClipWindow {
    Window() : ClipWindow(clips()) {}

    void search(const QString& query) {
        controller.setQuery(query);
        table.viewport()->grab();
    }
};

// What is typed, letter by letter: the whole way from the first letter to the last.
const QStringList typed = {u"b"_s,      u"bo"_s,      u"boa"_s,      u"boat"_s,
                           u"boat 4"_s, u"boat 42"_s, u"boat 421"_s, u"boat 4210"_s};

// Each letter after the one before it; the mean is reported, and the slowest as "slowest_ms".
void typeALetter(benchmark::State& state) {
    Window window;
    window.controller.setQuery(u"nothing has this"_s);
    double slowest = 0;
    for (auto _ : state) {
        double all = 0;
        for (const QString& query : typed) {
            const auto start = std::chrono::steady_clock::now();
            window.search(query);
            const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - start;
            slowest = std::max(slowest, lasted.count());
            all += lasted.count();
        }
        state.SetIterationTime(all / static_cast<double>(typed.size()));
        state.PauseTiming();
        window.search(u""_s);
        state.ResumeTiming();
    }
    state.counters["slowest_ms"] = slowest * 1e3;
}

// The same words looked for in one buffer of the same folded texts, every clip's end known: the least that
// can be done.
void rawScan(benchmark::State& state) {
    std::string all;
    for (const ClipInfo& info : clips()) {
        all += ClipSearchText(info).text();
        all += '\n';
    }
    for (auto _ : state) {
        std::size_t found = 0;
        for (const QString& query : typed) {
            const std::string word = query.section(u' ', -1).toStdString();
            for (std::size_t place = all.find(word); place != std::string::npos;
                 place = all.find(word, all.find('\n', place))) {
                ++found;
            }
        }
        benchmark::DoNotOptimize(found);
        state.counters["megabytes"] = static_cast<double>(all.size()) / 1e6;
    }
    state.counters["letters"] = static_cast<double>(typed.size());
}

// One query over all clips, the table already painted with another one.
void query(benchmark::State& state, const char* text) {
    Window window;
    window.controller.setQuery(u"nothing has this"_s);
    for (auto _ : state) {
        window.search(QString::fromUtf8(text));
        state.PauseTiming();
        window.search(u""_s);
        state.ResumeTiming();
    }
}

// What the first search of a folder costs once more, when nothing was prepared; and what it keeps.
void firstQuery(benchmark::State& state) {
    Window window;
    for (auto _ : state) {
        state.PauseTiming();
        window.controller.setQuery(u""_s);
        window.controller.setClipArray(clips(), u"/nowhere"_s);
        window.table.viewport()->grab();
        const double before = heapBytes();
        state.ResumeTiming();
        window.search(u"b"_s);
        state.counters["bytes_per_clip"] = (heapBytes() - before) / clipCount;
    }
}

BENCHMARK(typeALetter)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
BENCHMARK(rawScan)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(query, everyClip, "scene")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(query, everyOtherClip, "rating:>=3 boat")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(query, noClip, "qqq")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(query, oneClip, "\"interview 4242\"")->Unit(benchmark::kMillisecond);
BENCHMARK(firstQuery)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
    return runBenchmarks(argc, argv);
}
