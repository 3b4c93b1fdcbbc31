// Batches of 5,000 placeholders in the clip table, offscreen: how long each takes, and how long the event
// loop stands still meanwhile. Takes the number of clips as its argument. Run with QT_QPA_PLATFORM=offscreen.
#include "connect/ClipConnecting.h"
#include "connect/ClipTable.h"
#include "connect/MediaFolder.h"
#include "platform/PropertyListWriter.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace marquill;

namespace {

constexpr int usualCount = 5'000;
constexpr int shotEvery = 100;  // seconds
constexpr int secondsOfMovie = 60;

/// Measures the longest time in which the event loop did nothing else.
class StandStill {
  public:
    StandStill() {
        _timer.setInterval(1);
        QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { beat(); });
    }
    /// Milliseconds from the start of `work` until `isDone`, and the longest stand-still in them.
    std::pair<double, double> during(const std::function<void()>& work, const std::function<bool()>& isDone) {
        QElapsedTimer whole;
        whole.start();
        _longest = 0;
        _beat.start();
        _timer.start();
        work();
        QCoreApplication::processEvents();
        while (!isDone()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        beat();
        _timer.stop();
        return {static_cast<double>(whole.nsecsElapsed()) / 1e6, _longest};
    }

  private:
    void beat() {
        _longest = std::max(_longest, static_cast<double>(_beat.nsecsElapsed()) / 1e6), _beat.start();
    }

    QTimer _timer;
    QElapsedTimer _beat;
    double _longest = 0;
};

class Batches {
  public:
    explicit Batches(int count) : _count(count) {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < count; ++number) {
            clips.push_back(placeholderAt(u"Shot %1#01.xml"_s.arg(number), number * shotEvery));
            _t.folder.make(*clips.back().clipName(), *writePropertyList(clips.back().record()));
            _media.makeMovie(u"M%1.mov"_s.arg(number), number * shotEvery + 1, secondsOfMovie);
        }
        _t.show();
        _t.showFolder();
        _t.controller->selectClips(_t.controller->clipArray());
    }

    void run() {
        ClipTableController& table = *_t.controller;
        _t.dialogs.chosen = {_media.path()};
        measure("connect", [&] { table.connecting().batchConnectQTClips(); });
        measure("undo", [&] { _t.undo.undo(); });
        measure("redo", [&] { _t.undo.redo(); });
        table.selectClips(table.clipArray());
        measure("disconnect", [&] { table.connecting().unConnectSelectedClips(); });
        table.selectClips(table.clipArray());
        measure("delete", [&] { table.deleteItem(); });
        measure("undo the deletion", [&] { _t.undo.undo(); });
    }

  private:
    void measure(const char* name, const std::function<void()>& work) {
        const auto [whole, longest] = _standStill.during(work, [this] {
            return !_t.controller->connecting().sheet().isRunning() && !_t.controller->writer().isWriting();
        });
        _t.undo.closeStep();
        std::printf("%-20s %6.0f ms, longest stand-still %6.0f ms; %d connected of %d\n", name, whole,
                    longest, connected(), _count);
    }

    int connected() const {
        return static_cast<int>(std::ranges::count_if(
            _t.controller->clipArray(), [](const ClipInfo& clip) { return clip.clipPath().has_value(); }));
    }

    int _count;
    ClipTable _t;
    MediaFolder _media;
    StandStill _standStill;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Batches(argc > 1 ? std::max(1, std::atoi(argv[1])) : usualCount).run();
    return 0;
}
