// A day of shooting, eight hours of which none passes: 2,000 takes with 40,000 markers by keys, in the whole
// program without a screen. Prints by tenths what it holds and how long its keys take.
//
//     QT_QPA_PLATFORM=offscreen build/release/bench/Soak [TAKES] [shown]
//
// With "shown" the window lists the clips as they come, and holds their records.
#include "reliability/Soak.h"

#include <QTemporaryDir>

#include <cstdio>

using namespace marquill;

namespace {

constexpr double mebibyte = 1024.0 * 1024.0;

void print(const Soak::Part& part) {
    std::printf("%6d  %9.2f  %9.2f  %10.0f  %10.0f  %8.1f\n", part.takes,
                static_cast<double>(part.heapBytes) / mebibyte,
                static_cast<double>(part.residentBytes) / mebibyte, part.markerMedian, part.markerLate,
                part.stopMedian / 1000);
}

double percent(qint64 from, qint64 to) {
    return 100.0 * static_cast<double>(to - from) / static_cast<double>(from);
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir place;
    const int takes = argc > 1 ? std::max(10, std::atoi(argv[1])) : 2000;
    const bool showsFolder = argc > 2 && QByteArrayView(argv[2]) == "shown";
    int ownArguments = 1;
    Application application(ownArguments, argv, {.settingsFile = place.filePath(u"settings.plist"_s)});
    Soak soak(application, place.path(), showsFolder);
    const std::vector<Soak::Part> parts = soak.shoot(takes, 10);
    std::printf(" takes   heap MiB    RSS MiB  marker us  late of 100  stop ms\n");
    for (const Soak::Part& part : parts) {
        print(part);
    }
    const Soak::Part& warm = parts.front();
    const Soak::Part& last = parts.back();
    std::printf("from the first tenth to the last: heap %+.1f %%, RSS %+.1f %%, marker %+.1f %%\n",
                percent(warm.heapBytes, last.heapBytes), percent(warm.residentBytes, last.residentBytes),
                100 * (last.markerMedian / warm.markerMedian - 1));
    std::printf("heap for each take between them: %.0f bytes\n",
                static_cast<double>(last.heapBytes - warm.heapBytes) / (last.takes - warm.takes));
    return application.shouldTerminate() == Application::TerminateReply::now ? 0 : 1;
}
