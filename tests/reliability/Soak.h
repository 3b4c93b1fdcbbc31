// A day of shooting at a clock that a test moves: the whole program without a screen, takes with twenty
// markers each, by keys. What it costs is measured by tenths of the day. Main thread, one per process.
#pragma once

#include "application/Application.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/ClipStore.h"
#include "folders/RecordFolderController.h"
#include "markers/MarkerSets.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeClock.h"
#include "platform/Files.h"
#include "recording/OfflineRecorder.h"
#include "recording/TakeJournal.h"

#include <QFile>
#include <QKeyEvent>
#include <QMainWindow>
#include <QWindow>

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace marquill {

class Soak {
  public:
    static constexpr int markersOfATake = 20;
    static constexpr double secondsOfATake = 14.4;  // 2,000 of them are eight hours

    /// What the program held when a part of the day was over, and how long its keys took in it.
    struct Part {
        int takes = 0;             ///< so far
        qint64 heapBytes = 0;      ///< in use
        qint64 residentBytes = 0;  ///< of the process
        double markerMedian = 0;   ///< microseconds from the key to the line in the journal
        double markerLate = 0;     ///< of which one in a hundred is longer
        double stopMedian = 0;     ///< microseconds from the key to the clip on the disk
    };

    /// Shoots below `place`, with the application that has not been launched yet. With `showsFolder` the
    /// window lists the clips as they come; else it shows another folder, of 50 clips.
    Soak(Application& application, const QString& place, bool showsFolder) : _place(place) {
        for (const QString& folder : {recorded(), other()}) {
            static_cast<void>(makeFolders(folder));
        }
        for (int take = 1; take <= 50; ++take) {
            ClipInfo clip;
            clip.setClipName(u"Old#%1.xml"_s.arg(take, 2, 10, QChar(u'0')));
            static_cast<void>(ClipStore::createProxyClip(clip, other()));
        }
        application.finishLaunching();
        RecordFolderController& list = ClipManager::getClipManager()->folderList();
        const FolderRecord recording = FolderRecord::forPath(recorded());
        list.setFolderArray({recording, FolderRecord::forPath(other())});
        list.setRecordingFolder(recording);
        list.selectFolder(showsFolder ? recorded() : other());
        while (ClipManager::getClipManager()->isReading()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        }
    }

    /// Shoots that many takes, measured in `parts`.
    std::vector<Part> shoot(int takes, int parts) {
        std::vector<Part> measured;
        for (int part = 1; part <= parts; ++part) {
            _markers.clear();
            _stops.clear();
            while (_takes < takes * part / parts) {
                shootOne();
            }
            measured.push_back(measure());
        }
        return measured;
    }

    /// The folder that is recorded into.
    QString recorded() const { return joinPath(_place, u"Day 1"_s); }

  private:
    QString other() const { return joinPath(_place, u"Day 0"_s); }

    void shootOne() {
        press(Qt::Key_Space, Qt::ControlModifier, u" "_s);
        for (int marker = 0; marker < markersOfATake; ++marker) {
            pass(secondsOfATake / (markersOfATake + 2));
            _markers.push_back(press(Qt::Key_0 + marker % 10, Qt::AltModifier, {}));
        }
        pass(secondsOfATake / (markersOfATake + 2));
        _stops.push_back(press(Qt::Key_Escape, Qt::NoModifier, {}));
        pass(secondsOfATake / (markersOfATake + 2));
        ++_takes;
    }

    // What the timers do in that time, of which next to none passes here.
    void pass(double seconds) {
        _clock.advance(seconds);
        _sinceHeartbeat += seconds;
        OfflineRecorder::shared()->timerRecordAction();
        if (_sinceHeartbeat >= 2) {
            OfflineRecorder::shared()->heartbeat();
            _sinceHeartbeat = 0;
        }
        DelayedCalls::elapse(MarkerSets::controller(), seconds);
        QCoreApplication::processEvents();
        // What waits for an event loop to delete it waits for one that was entered.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Microseconds until the program has dealt with the key.
    static double press(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QWindow* window = ClipManager::getClipManager()->window()->windowHandle();
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        const auto before = std::chrono::steady_clock::now();
        QCoreApplication::sendEvent(window, &event);
        return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - before).count();
    }

    Part measure() {
        using namespace std::chrono_literals;
        static_cast<void>(OfflineRecorder::shared()->journal()->waitUntilWritten(60s));
        QCoreApplication::processEvents();
        malloc_trim(0);
        const struct mallinfo2 heap = mallinfo2();
        return {.takes = _takes,
                .heapBytes = static_cast<qint64>(heap.uordblks + heap.hblkhd),
                .residentBytes = residentBytes(),
                .markerMedian = quantile(_markers, 0.5),
                .markerLate = quantile(_markers, 0.99),
                .stopMedian = quantile(_stops, 0.5)};
    }

    static qint64 residentBytes() {
        QFile file(u"/proc/self/statm"_s);
        constexpr qint64 pageBytes = 4096;
        return file.open(QFile::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * pageBytes : 0;
    }

    static double quantile(std::vector<double> values, double share) {
        if (values.empty()) {
            return 0;
        }
        const auto place = static_cast<std::ptrdiff_t>(static_cast<double>(values.size() - 1) * share);
        std::ranges::nth_element(values, values.begin() + place);
        return values[static_cast<std::size_t>(place)];
    }

    QString _place;
    FakeClock _clock;
    int _takes = 0;
    double _sinceHeartbeat = 0;
    std::vector<double> _markers;
    std::vector<double> _stops;
};

}  // namespace marquill
