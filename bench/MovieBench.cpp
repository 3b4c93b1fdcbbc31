// What opening a movie costs, beside the bare system calls for the same bytes and beside libavformat, in one
// process; and whether a long movie opens as fast as a short one.
#include "movie/Movie.h"
#include "movie/MovieReader.h"
#include "movie/SampleTimes.h"
#include "tests/movie/MovieBuilder.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

extern "C" {
#include <libavformat/avformat.h>
}

#include <fcntl.h>
#include <unistd.h>

using namespace marquill;

namespace {

constexpr int movieCount = 1000;

struct Place {
    QByteArray path;
    qint64 offset = 0;
    qint64 size = 0;
};

/// A thousand clips of 30 seconds with two tracks, reordered pictures, a record of 2 kB and the header behind
/// 200 kB of media: headers of 10 kB.
class Movies {
  public:
    Movies() {
        TrackPlan video;
        video.times = {{.count = 750, .duration = 24}};
        for (int index = 0; index < 750; ++index) {
            video.offsets.push_back({.count = 1, .offset = 24 * (index % 3)});
        }
        video.edits = {{.duration = 18000, .mediaTime = 0}};
        const TrackPlan sound{.id = 2, .handler = "soun", .codec = "twos"};
        const MovieBuilder builder{
            .duration = 18000, .tracks = {video, sound}, .userData = atom("KVXN", QByteArray(2000, 'k'))};
        const QByteArray file = builder.headerLast(atom("skip", QByteArray(200000, 's')));
        for (int index = 0; index < movieCount; ++index) {
            const QString path = _folder.filePath(u"%1.mov"_s.arg(index));
            writeBytes(path, file);
            const Movie movie = Movie::open(path).value();
            places.push_back({QFile::encodeName(path), movie.header().offset, movie.header().size});
            paths.append(path);
        }
    }

    std::vector<Place> places;
    QStringList paths;

  private:
    QTemporaryDir _folder;
};

const Movies& movies() {
    static const Movies shared;
    return shared;
}

/// The least that can be done when it is known where the header is.
void bareOpenAndRead(benchmark::State& state) {
    const Movies& all = movies();
    QByteArray buffer(1 << 20, Qt::Uninitialized);
    for (auto _ : state) {
        for (const Place& place : all.places) {
            const int file = open(place.path.constData(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(
                pread(file, buffer.data(), static_cast<std::size_t>(place.size), place.offset));
            close(file);
        }
    }
}

void openMovies(benchmark::State& state) {
    const Movies& all = movies();
    for (auto _ : state) {
        for (const QString& path : all.paths) {
            benchmark::DoNotOptimize(Movie::open(path)->userData()->item("KVXN", 1));
        }
    }
}

void openWithLibavformat(benchmark::State& state) {
    const Movies& all = movies();
    av_log_set_level(AV_LOG_QUIET);
    for (auto _ : state) {
        for (const Place& place : all.places) {
            AVFormatContext* context = nullptr;
            if (avformat_open_input(&context, place.path.constData(), nullptr, nullptr) != 0) {
                state.SkipWithError("libavformat does not open the movie");
                return;
            }
            avformat_close_input(&context);
        }
    }
}

/// A movie with that many samples, each with its own entry in every table, and the header last.
QByteArray movieOf(quint32 samples) {
    TrackPlan video;
    video.times.clear();
    for (quint32 index = 0; index < samples; ++index) {
        video.times.push_back({.count = 1, .duration = 20 + index % 2});
        video.offsets.push_back({.count = 1, .offset = 20});
    }
    return MovieBuilder{.duration = samples * 20, .tracks = {video}}.headerLast();
}

void openOneMovie(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"movie.mov"_s);
    writeBytes(path, movieOf(static_cast<quint32>(state.range(0))));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Movie::open(path));
    }
}

void loadSampleTimes(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"movie.mov"_s);
    writeBytes(path, movieOf(static_cast<quint32>(state.range(0))));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Movie::open(path)->sampleTimes()->starts().size());
    }
}

void previousSampleTime(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"movie.mov"_s);
    writeBytes(path, movieOf(static_cast<quint32>(state.range(0))));
    const Movie movie = Movie::open(path).value();
    const SampleTimes times = movie.sampleTimes().value();
    qint64 value = 0;
    for (auto _ : state) {
        value = (value + 7919) % (state.range(0) * 20);
        benchmark::DoNotOptimize(times.previousSampleTime(value));
    }
}

BENCHMARK(bareOpenAndRead)->Unit(benchmark::kMillisecond);
BENCHMARK(openMovies)->Unit(benchmark::kMillisecond);
BENCHMARK(openWithLibavformat)->Unit(benchmark::kMillisecond);
BENCHMARK(openOneMovie)->Arg(100)->Arg(200000)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadSampleTimes)->Arg(100)->Arg(200000)->Unit(benchmark::kMicrosecond);
BENCHMARK(previousSampleTime)->Arg(100)->Arg(200000);

}  // namespace

BENCHMARK_MAIN();
