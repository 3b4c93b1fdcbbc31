// The day timeline with 10,000 takes of one day, offscreen: laying them out against sorting them, and
// painting them against filling their rectangles one by one. Run with QT_QPA_PLATFORM=offscreen.
#include "clipmanager/DayTimelineView.h"
#include "platform/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <cstdio>

using namespace marquill;

namespace {

constexpr int takeCount = 10'000;
constexpr int rounds = 41;

std::vector<TimelineTake> takesOfADay() {
    std::vector<TimelineTake> takes;
    for (int number = 0; number < takeCount; ++number) {
        const double second = number * 7919 % 43'200;
        takes.push_back({.start = Date(std::chrono::duration<double>(1'795'240'800 + second)),
                         .duration = static_cast<double>(number * 31 % 120),
                         .markers = {1, 20, 50},
                         .rating = number % 6,
                         .clip = number});
    }
    return takes;
}

// The median, in milliseconds.
template <class Work>
double measured(Work work) {
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

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Theme::apply(application, Theme::Choice::dark);
    const std::vector<TimelineTake> takes = takesOfADay();
    const DayTimeline timeline(takes);
    const double layingOut = measured([&] { DayTimeline(takes).layOut(0, 1600, 60); });
    const double sorting = measured([&] {
        std::vector<TimelineTake> sorted = takes;
        std::ranges::stable_sort(sorted, {}, &TimelineTake::start);
    });
    printRatio("layout, against sorting", layingOut, sorting);

    DayTimelineView view;
    view.resize(1600, view.sizeHint().height());
    view.setDay(&timeline, 0);
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    const double painting = measured([&] { view.render(&image); });
    std::vector<QRectF> rects;
    for (std::size_t take = 0; take < takeCount; ++take) {
        rects.push_back(view.blockRect(take));
        for (const double x : view.tickPlaces(timeline.takes()[take])) {
            rects.emplace_back(x, 4, 1, 5);
        }
    }
    const double raw = measured([&] {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Theme::colours().base);
        for (const QRectF& rect : rects) {
            painter.fillRect(rect, Theme::colours().mutedText);
        }
    });
    printRatio("painting, against filling each rectangle", painting, raw);
    return 0;
}
