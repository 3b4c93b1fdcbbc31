#include "connect/ClipFolderWatch.h"

#include "platform/Clock.h"
#include "platform/Log.h"
#include "platform/Volume.h"

#include <algorithm>
#include <utility>

namespace marquill {

namespace {

using std::chrono::milliseconds;

// Long enough for one writing, which is several notices, to be over.
constexpr milliseconds noticeDelay{150};
// Until what is missing is looked for again.
constexpr milliseconds missingDelay{300};
// Until something that could not be taken is looked for again.
constexpr milliseconds waitingDelay{1000};
constexpr milliseconds leastRest{1500};
constexpr milliseconds mostRest{60'000};
// What notices do not tell, such as writing through a link, is found in the end.
constexpr milliseconds restWithNotices{30'000};
constexpr int restPerLook = 20;
constexpr std::chrono::hours temporaryAge{24};

ReadClip withFacts(ClipFile file, const QString& folder) {
    ReadClip clip{.file = std::move(file), .facts = {}};
    if (clip.file.clip) {
        clip.facts = askFiles(filesOfClip(*clip.file.clip, folder));
    }
    return clip;
}

std::vector<ReadClip> readClips(const QString& folder, const QStringList& names) {
    std::vector<ReadClip> clips;
    for (ClipFile& file : readClipFiles(folder, names)) {
        clips.push_back(withFacts(std::move(file), folder));
    }
    return clips;
}

// Moves those of `appeared` that are missing ones under another name to `renamed`.
void sortOutRenamed(const KnownFolder& known, QStringList& missing, FolderChanges& changes) {
    std::vector<ClipFile> appeared;
    for (const ReadClip& clip : changes.appeared) {
        appeared.push_back(clip.file);
    }
    std::vector<std::size_t> moved;
    for (const auto& [from, index] : findRenamed(known, missing, appeared)) {
        changes.renamed.push_back({.from = from, .clip = changes.appeared[index]});
        missing.removeOne(from);
        moved.push_back(index);
    }
    std::ranges::sort(moved, std::greater());
    for (const std::size_t index : moved) {
        changes.appeared.erase(changes.appeared.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

void readRenamed(const FolderDifference& difference, FolderChanges& changes) {
    QStringList names;
    for (const auto& [from, to] : difference.renamed) {
        names.append(to);
    }
    std::vector<ReadClip> clips = readClips(changes.folder, names);
    for (std::size_t i = 0; i < clips.size(); ++i) {
        changes.renamed.push_back({.from = difference.renamed[i].first, .clip = std::move(clips[i])});
    }
}

}  // namespace

ClipFolderWatch::ClipFolderWatch(KnownClips& known) : _known(known) {
    _clock.start();
    _timer.setSingleShot(true);
    connect(&_timer, &QTimer::timeout, this, &ClipFolderWatch::look);
}

milliseconds ClipFolderWatch::restAfter(milliseconds look) {
    return std::clamp(look * restPerLook, leastRest, mostRest);
}

void ClipFolderWatch::watch(const QString& folder) {
    stop();
    _folder = folder;
    const Date old = Clock::current().now() - temporaryAge;
    _work.start([this, folder, old](const BackgroundWork::Post& post) {
        const bool isTold = Volume::current().tellsOfChanges(folder);
        const quint64 device = fileStamp(folder).value_or(FileStamp()).device;
        if (const int count = sweepTemporaryFiles(folder, old); count > 0) {
            qCInfo(logConnect).noquote() << folder << u": left temporary files removed:"_s << count;
        }
        post([this, isTold, device] { begin(isTold, device); });
    });
}

void ClipFolderWatch::stop() {
    _work.cancel();
    _timer.stop();
    _notices.reset();
    _folder.clear();
    _missing.clear();
    _looksAgain = false;
}

void ClipFolderWatch::begin(bool isTold, quint64 device) {
    _isTold = isTold;
    _device = device;
    hearNotices();
    // On a later turn, when this work has ended.
    lookAfter(milliseconds(0));
}

void ClipFolderWatch::hearNotices() {
    _notices = _isTold ? FolderNotices::watch(_folder) : nullptr;
    if (_notices) {
        connect(_notices.get(), &FolderNotices::changed, this, [this] { lookAfter(noticeDelay); });
        connect(
            _notices.get(), &FolderNotices::ended, this,
            [this] {
                _notices.reset();
                lookAfter(noticeDelay);
            },
            Qt::QueuedConnection);
    }
}

void ClipFolderWatch::lookSoon() {
    lookAfter(_notices ? waitingDelay : _rest);
}

void ClipFolderWatch::lookAfter(milliseconds time) {
    if (!_timer.isActive() || _timer.remainingTimeAsDuration() > time) {
        _timer.start(time);
    }
}

QStringList ClipFolderWatch::missingForLong() const {
    QStringList names;
    for (const auto& [name, since] : _missing.asKeyValueRange()) {
        if (_clock.elapsed() - since >= missingDelay.count()) {
            names.append(name);
        }
    }
    return names;
}

void ClipFolderWatch::look() {
    if (_folder.isEmpty()) {
        return;
    }
    if (_work.isRunning()) {
        _looksAgain = true;
        return;
    }
    _known.beginLook();
    const Identities identities = _isTold ? Identities::last : Identities::mayChange;
    _work.start([this, folder = _folder, known = _known.ofFolder(_folder), missing = missingForLong(),
                 identities, device = _device](const BackgroundWork::Post& post) {
        const Look look = lookAt(folder, known, missing, identities, device);
        post([this, look] { ended(look); });
    });
}

// On a thread of its own.
ClipFolderWatch::Look ClipFolderWatch::lookAt(const QString& folder, const KnownFolder& known,
                                              const QStringList& missing, Identities identities,
                                              quint64 device) {
    QElapsedTimer timer;
    timer.start();
    Look look;
    look.changes.folder = folder;
    const auto present = fileStamp(folder);
    const auto files = lookAtFolder(folder);
    look.duration = milliseconds(timer.elapsed());
    // Where a volume is taken away, the empty folder that it was shown in may stay.
    const bool isAway = files && files->empty() && present && present->device != device;
    if (!files || !present || isAway) {
        return look;
    }
    look.isDone = true;
    FolderDifference difference = compareFolder(known, *files, identities);
    look.changes.appeared = readClips(folder, difference.appeared);
    look.changes.changed = readClips(folder, difference.changed);
    readRenamed(difference, look.changes);
    sortOutRenamed(known, difference.missing, look.changes);
    for (const QString& name : difference.missing) {
        (missing.contains(name) ? look.changes.gone : look.missing).append(name);
    }
    return look;
}

void ClipFolderWatch::ended(const Look& look) {
    // The work ends after this; what asks for another look meanwhile gets it on a later turn.
    if (!_notices && look.isDone) {
        hearNotices();
    }
    const bool looksAgain = std::exchange(_looksAgain, false);
    _rest = restAfter(look.duration);
    if (look.isDone) {
        QHash<QString, qint64> missing;
        for (const QString& name : look.missing) {
            missing.insert(name, _missing.value(name, _clock.elapsed()));
        }
        _missing = missing;
    }
    lookAfter(looksAgain                ? noticeDelay
              : !look.missing.isEmpty() ? missingDelay
              : _notices                ? restWithNotices
                                        : _rest);
    if (look.isDone && !look.changes.isNone()) {
        Q_EMIT changed(look.changes);
    }
    Q_EMIT looked();
}

}  // namespace marquill
