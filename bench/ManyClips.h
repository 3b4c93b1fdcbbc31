// A hundred thousand clips in a table of its own window, offscreen, for what is measured of it. Header only;
// main thread.
#pragma once

#include "connect/ClipTableController.h"
#include "platform/TableView.h"
#include "platform/Theme.h"
#include "platform/UndoManager.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QLabel>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace marquill {

constexpr int clipCount = 100'000;

inline ClipInfo clip(int number, int markerCount) {
    ClipInfo info;
    info.setClipName(u"Interview %1#%2.xml"_s.arg(number * 7919 % clipCount).arg(number % 12));
    info.setClipScene(u"Scene %1"_s.arg(number % 977));
    info.setClipTake(QString::number(number % 12));
    info.setClipLabel(number % 3 == 0 ? u"Print"_s : u"Hold"_s);
    info.setClipRating(number % 6);
    info.setClipComment(u"The boat %1 enters from the left, café behind"_s.arg(number % 5003));
    info.setClipDuration(number * 31 % 7200);
    info.setClipPath(u"/media/A001_C%1.mov"_s.arg(number % 99991));
    info.setClipCreationDate(Date(std::chrono::duration<double>(1'795'248'300 - number * 17 % 864'000)));
    Array markers;
    for (int marker = 0; marker < markerCount; ++marker) {
        markers.append(Dictionary{{u"clipMarkerTitle"_s, u"Action %1"_s.arg(marker)},
                                  {u"clipMarkerComment"_s, u"cue %1"_s.arg((number + marker) % 61)}});
    }
    if (markerCount > 0) {
        info.setClipMarkerArray(markers);
    }
    return info;
}

template <int markerCount>
const std::vector<ClipInfo>& clips() {
    static const std::vector<ClipInfo> made = [] {
        std::vector<ClipInfo> all;
        for (int number = 0; number < clipCount; ++number) {
            all.push_back(clip(number, markerCount));
        }
        return all;
    }();
    return made;
}

/// What the program has on the heap.
inline double heapBytes() {
    return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd);
}

struct ClipWindow {
    QWidget window;
    TableView table{&window};
    QLabel count;
    UndoManager undo;
    ClipTableController controller{table, count, undo};

    explicit ClipWindow(const std::vector<ClipInfo>& clips = {}) {
        window.resize(1200, 800);
        table.resize(1200, 800);
        window.show();
        controller.setClipArray(clips, u"/nowhere"_s);
        QApplication::processEvents();
    }
};

inline int runBenchmarks(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    UserDefaults::useFile(settings.filePath(u"settings.plist"_s));
    Theme::apply(application, Theme::Choice::dark);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

}  // namespace marquill
