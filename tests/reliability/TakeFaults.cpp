// Takes under faults: recorded with their journal, and recovered from one.
#include "clipstore/ClipStore.h"
#include "markers/Marker.h"
#include "platform/FakeClock.h"
#include "recording/RecorderPanel.h"
#include "recording/TakeJournal.h"
#include "recording/TakeJournalFormat.h"
#include "recording/TakeRecovery.h"
#include "reliability/FaultStages.h"

#include <QTemporaryDir>
#include <QTest>

namespace marquill {

namespace {

constexpr int markers = 3;

bool always() {
    return true;
}

// The markers of each clip in the folder; -1 for one that cannot be read.
QList<qsizetype> markersOfClips(const QString& folder) {
    QList<qsizetype> counts;
    for (const QString& name : FileSystem::system().list(folder).value_or(QStringList())) {
        if (!name.startsWith(u'.')) {
            const ClipInfo clip = ClipStore::infoForClip(joinPath(folder, name)).value_or(ClipInfo());
            counts.append(clip.clipMarkerArray() ? clip.clipMarkerArray()->size() : -1);
        }
    }
    return counts;
}

// A take of three markers is recorded. It is in a clip, or in a journal, or was never begun.
class RecordStage final : public FaultStage {
  public:
    RecordStage() : _recorder(_place.path()) {
        QObject::connect(OfflineRecorder::shared()->journal(), &TakeJournal::problemChanged, &_listener,
                         [](const QString& problem) { Told::tell(problem); });
    }

    void perform() override {
        OfflineRecorder::startRecording();
        _hasBegun = OfflineRecorder::isRecording();
        for (int number = 1; number <= markers; ++number) {
            _clock.advance(2);
            Q_EMIT Notifications::centre().newMarkerIssued(
                MarkerSets::getMarkerWithTitle(u"Action"_s, std::nullopt).record(), _clock.now());
            wait();
        }
        OfflineRecorder::shared()->heartbeat();
        wait();
        OfflineRecorder::stopRecording();
        wait();
    }

    bool isDone() override { return markersOfClips(_recorder.clips()) == QList<qsizetype>{markers}; }

    QString damage() override {
        for (const Alert& alert : std::exchange(_dialogs.alerts, {})) {
            Told::tell(alert.title);
        }
        const QList<qsizetype> found = markersOfClips(_recorder.clips());
        const bool isKept = !TakeRecovery::keptTakes(_recorder.journals()).empty();
        if (found.size() > 1 || found.contains(-1)) {
            return u"there are %1 clips"_s.arg(found.size());
        }
        return found.isEmpty() && !isKept && _hasBegun ? u"the take is lost"_s : QString();
    }

    // The next launch.
    void doAgain() override {
        TakeRecovery::recoverAll(_recorder.journals(), always);
        if (!_hasBegun) {
            perform();
        }
    }

  private:
    static void wait() {
        using namespace std::chrono_literals;
        static_cast<void>(OfflineRecorder::shared()->journal()->waitUntilWritten(60s));
    }

    QTemporaryDir _place;
    FakeClock _clock;
    FakeDialogs _dialogs;
    RecorderWithJournal _recorder;
    QObject _listener;
    bool _hasBegun = false;
};

// A take that an earlier run left is recovered. It is in a clip or in its journal, and never in two clips.
class RecoverStage final : public FaultStage {
  public:
    RecoverStage() {
        QDir().mkpath(clips());
        QDir().mkpath(journals());
        const TakeRecord take{.name = u"Harbour"_s,
                              .scene = u"12A"_s,
                              .folder = clips(),
                              .start = Date(std::chrono::duration<double>(1795251600)),
                              .elapsed = 0,
                              .markers = {},
                              .comment = {}};
        QByteArray lines = TakeJournalFormat::startLine(take);
        for (int number = 1; number <= markers; ++number) {
            lines += TakeJournalFormat::markerLine(Dictionary{{clipMarkerIn, 2.0 * number}}, 2.0 * number);
        }
        static_cast<void>(writeNewFile(joinPath(journals(), u"take-0123456789abcdef.journal"_s), lines));
        QTest::qSleep(20);  // or the clip would be as old as the journal
    }

    void perform() override {
        for (const TakeRecovery::KeptTake& kept : TakeRecovery::recoverAll(journals(), always).kept) {
            Told::tell(kept.take.name + u" could not be saved where recorded"_s);
        }
    }
    bool isDone() override { return markersOfClips(clips()) == QList<qsizetype>{markers}; }
    QString damage() override {
        const QList<qsizetype> found = markersOfClips(clips());
        const bool isKept = fileExists(joinPath(journals(), u"take-0123456789abcdef.journal"_s));
        if (found.size() > 1 || found.contains(-1)) {
            return u"there are %1 clips"_s.arg(found.size());
        }
        return found.isEmpty() && !isKept ? u"the take is lost"_s : QString();
    }
    void doAgain() override { perform(); }

  private:
    QString clips() const { return _place.filePath(u"Day 1"_s); }
    QString journals() const { return _place.filePath(u"takes"_s); }

    QTemporaryDir _place;
};

}  // namespace

std::vector<NamedStage> takeStages() {
    return {{u"record a take"_s, [] { return std::make_unique<RecordStage>(); }},
            {u"recover a take"_s, [] { return std::make_unique<RecoverStage>(); }}};
}

}  // namespace marquill
