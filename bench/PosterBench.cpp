// Poster frames of a 4K movie: making one against ffmpeg making it in a process of its own, and reading one
// from the cache against reading the bare file. Run with QT_QPA_PLATFORM=offscreen; needs ffmpeg.
#include "platform/Files.h"
#include "platform/MovieMaker.h"
#include "platform/MovieStill.h"
#include "platform/PosterCache.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QThread>

#include <algorithm>
#include <cstdio>

using namespace marquill;

namespace {

// The median, in milliseconds.
template <class Work>
double measured(int rounds, Work work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void printRatio(const char* what, double ours, double peer) {
    std::printf("%s: %.2f ms, peer %.2f ms, ratio %.2f\n", what, ours, peer, ours / peer);
}

QImage poster(const QString& movie) {
    QImage picture;
    takeMovieStill(
        movie, 256, [] { return true; },
        [&](const Result<QImage>& taken) { picture = taken.value_or(QImage()); });
    return picture;
}

// On a thread of its own, which gives way to others as the program's do.
void inThread(const std::function<void()>& work) {
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->start();
    thread->wait();
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    MovieMaker maker;
    const QString movie =
        maker.make(u"4k.mov"_s,
                   {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc2=s=3840x2160:d=4:r=25"_s, u"-c:v"_s, u"libx264"_s,
                    u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p"_s, u"-g"_s, u"25"_s});
    QImage picture;
    const double ours = measured(9, [&] { inThread([&] { picture = poster(movie); }); });
    const QString frame = maker.filePath(u"frame.jpg"_s);
    const double peer = measured(9, [&] {
        QProcess::execute(u"nice"_s,
                          {u"-n"_s, u"10"_s, u"ffmpeg"_s, u"-v"_s, u"error"_s, u"-y"_s, u"-noaccurate_seek"_s,
                           u"-threads"_s, u"1"_s, u"-ss"_s, u"0.4"_s, u"-i"_s, movie, u"-frames:v"_s, u"1"_s,
                           u"-vf"_s, u"scale=256:-1"_s, frame});
    });
    printRatio("poster of a 4K movie, against ffmpeg", ours, peer);

    PosterCache cache(maker.filePath(u"cache"_s));
    const FileAttributes attributes = *FileSystem::current().attributes(movie, Links::follow);
    if (!cache.write(attributes, picture)) {
        return 1;
    }
    const double cached = measured(101, [&] { picture = cache.read(attributes).value_or(QImage()); });
    const double bare = measured(101, [&] { static_cast<void>(readFile(cache.pathFor(attributes))); });
    printRatio("poster from the cache, against reading the file", cached, bare);
    return 0;
}
