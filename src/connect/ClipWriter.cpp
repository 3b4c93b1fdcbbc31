#include "connect/ClipWriter.h"

#include "clipstore/ClipStore.h"
#include "platform/Files.h"
#include "platform/Log.h"

#include <algorithm>
#include <utility>

namespace marquill {

namespace {

QString nameOf(const ClipInfo& clip) {
    return clip.clipName().value_or(QString());
}

// The folder of "Trash" may have gone with the clip in it, when the trash was emptied.
bool isGone(const Error& error, const QString& folder) {
    return error.code == ErrorCode::notFound &&
           (folderExists(folder) || lastPathComponent(folder) == "Trash"_L1);
}

}  // namespace

ClipWriter::ClipWriter(int milliseconds)
    : _backlog(
          [this](const ClipInfo& clip, const QString& folder) { return _shared.knownStamp(clip, folder); },
          [this](const std::vector<ClipBacklog::Written>& slice) { takeWritten(slice); }) {
    _timer.setInterval(milliseconds);
    connect(&_timer, &QTimer::timeout, this, &ClipWriter::retryInTurn);
    connect(&_backlog, &ClipBacklog::progressed, this, &ClipWriter::progressed);
}

ClipWriter::~ClipWriter() {
    finishWriting();
}

void ClipWriter::write(const std::vector<ClipInfo>& clips, const QString& folder) {
    if (clips.size() > mostAtOnce) {
        writeInTurn(clips, folder);
        return;
    }
    for (const ClipInfo& clip : clips) {
        _backlog.release(folder, nameOf(clip));
    }
    const bool wasFailing = hasFailing();
    const std::vector<SharedClips::Outcome> outcomes = _shared.write(clips, folder);
    for (const ClipInfo& clip : clips) {
        forget(folder, nameOf(clip));
    }
    const std::size_t stillUnwritten = _unwritten.size();
    for (std::size_t i = 0; i < clips.size(); ++i) {
        keep(clips[i], folder, outcomes[i]);
    }
    if (_unwritten.size() > stillUnwritten) {
        _timer.start();
        Q_EMIT failed();
    } else if (wasFailing) {
        tellWhenAllWritten();
    }
}

// Whatever is shown and undone goes by the records, which are what they shall be already; only the disk is
// behind them.
void ClipWriter::writeInTurn(const std::vector<ClipInfo>& clips, const QString& folder) {
    _wasFailing = _wasFailing || hasFailing();
    _backlog.finishSlice();
    for (const ClipInfo& clip : clips) {
        forgetKept(folder, nameOf(clip));
        _shared.adopt(clip, folder);
    }
    _backlog.add(clips, folder);
}

void ClipWriter::takeWritten(const std::vector<ClipBacklog::Written>& slice) {
    for (const ClipBacklog::Written& clip : slice) {
        if (clip.stamp) {
            _shared.noteWritten(clip.clip, clip.folder, *clip.stamp, clip.held);
        } else if (clip.isExpected && clip.stamp.error().code == ErrorCode::changedMeanwhile) {
            keep(clip.clip, clip.folder, _shared.write({clip.clip}, clip.folder).front());
        } else {
            keep(clip.clip, clip.folder, {.written = std::unexpected(clip.stamp.error()), .conflicts = {}});
        }
    }
    if (isWriting()) {
        return;
    }
    if (hasFailing()) {
        _timer.start();
        Q_EMIT failed();
    } else if (_wasFailing) {
        tellWhenAllWritten();
    }
    _wasFailing = false;
}

// Keeps what was not written.
void ClipWriter::keep(const ClipInfo& clip, const QString& folder, const SharedClips::Outcome& outcome) {
    Unwritten unwritten{clip, folder, {}};
    if (!isDone(unwritten, outcome)) {
        qCWarning(logConnect).noquote() << unwritten.error.description();
        _unwritten.push_back(unwritten);
    }
}

// Writes it; whether there is nothing left to be tried for it.
bool ClipWriter::isDone(Unwritten& unwritten) {
    return isDone(unwritten, _shared.write({unwritten.clip}, unwritten.folder).front());
}

bool ClipWriter::isDone(Unwritten& unwritten, const SharedClips::Outcome& outcome) {
    if (!outcome.conflicts.empty()) {
        _conflicts.push_back({unwritten.clip, unwritten.folder, outcome.conflicts});
        Q_EMIT conflictsChanged();
        return true;
    }
    if (outcome.written) {
        return true;
    }
    unwritten.error = outcome.written.error();
    if (!isGone(unwritten.error, unwritten.folder)) {
        return false;
    }
    qCWarning(logConnect).noquote() << unwritten.error.description();
    Q_EMIT lost(textFor(unwritten));
    return true;
}

void ClipWriter::retry() {
    for (const ClipInConflict& conflict : std::vector(_conflicts)) {
        write(conflict.clip, conflict.folder);
    }
    std::erase_if(_unwritten, [this](Unwritten& unwritten) { return isDone(unwritten); });
    tellWhenAllWritten();
}

void ClipWriter::resolve(ClipInConflict conflict, ClipPreference preference) {
    forget(conflict.folder, nameOf(conflict.clip));
    keep(conflict.clip, conflict.folder,
         _shared
             .write({conflict.clip}, conflict.folder,
                    {.preference = preference, .to = std::move(conflict.keys)})
             .front());
    if (hasFailing()) {
        _timer.start();
        Q_EMIT failed();
    }
}

// Until one fails: of ten thousand clips on a volume that is full, one at a time is asked.
void ClipWriter::retryInTurn() {
    const auto failing =
        std::ranges::find_if(_unwritten, [this](Unwritten& unwritten) { return !isDone(unwritten); });
    const bool hasFailed = failing != _unwritten.end();
    _unwritten.erase(_unwritten.begin(), failing);
    if (hasFailed) {
        std::ranges::rotate(_unwritten, _unwritten.begin() + 1);
    }
    tellWhenAllWritten();
}

void ClipWriter::tellWhenAllWritten() {
    if (_unwritten.empty()) {
        _timer.stop();
        Q_EMIT allWritten();
    }
}

std::optional<ClipInfo> ClipWriter::unwritten(const QString& folder, const QString& clipName) const {
    if (const std::optional<ClipInfo> waiting = _backlog.find(folder, clipName)) {
        return waiting;
    }
    const auto conflict = std::ranges::find_if(_conflicts, [&](const ClipInConflict& kept) {
        return nameOf(kept.clip) == clipName && kept.folder == folder;
    });
    if (conflict != _conflicts.end()) {
        return conflict->clip;
    }
    const auto found = std::ranges::find_if(_unwritten, [&](const Unwritten& unwritten) {
        return nameOf(unwritten.clip) == clipName && unwritten.folder == folder;
    });
    return found == _unwritten.end() ? std::nullopt : std::optional(found->clip);
}

QString ClipWriter::unwrittenText() const {
    if (_unwritten.empty() && _conflicts.empty()) {
        return {};
    }
    if (_unwritten.empty()) {
        return tr("“%1” could not be saved: Somebody else has changed it too.")
            .arg(nameOf(_conflicts.front().clip));
    }
    const std::size_t others = _unwritten.size() - 1;
    const Unwritten& first = _unwritten.front();
    return others == 0 ? textFor(first) : textForSeveral(first, others);
}

QString ClipWriter::textFor(const Unwritten& unwritten) {
    return tr("“%1” could not be saved: %2").arg(nameOf(unwritten.clip), unwritten.error.message);
}

QString ClipWriter::textForSeveral(const Unwritten& first, std::size_t others) {
    if (others == 1) {
        return tr("“%1” and 1 other clip could not be saved: %2")
            .arg(nameOf(first.clip), first.error.message);
    }
    return tr("“%1” and %2 other clips could not be saved: %3")
        .arg(nameOf(first.clip), QString::number(others), first.error.message);
}

void ClipWriter::clipMoved(const ClipInfo& clip, const QString& from, const QString& to) {
    forget(to, nameOf(clip));
    _shared.known().move(from, nameOf(clip), to, nameOf(clip));
    const auto follow = [&](auto& kept) {
        if (kept.folder == from && nameOf(kept.clip) == nameOf(clip)) {
            kept.folder = to;
        }
    };
    std::ranges::for_each(_unwritten, follow);
    std::ranges::for_each(_conflicts, follow);
}

void ClipWriter::clipRenamed(const ClipInfo& clip, const QString& folder, const QString& oldName) {
    _shared.known().move(folder, oldName, folder, nameOf(clip));
}

void ClipWriter::clipReplaced(const ClipInfo& clip, const QString& folder) {
    const std::optional<ClipInfo> kept = unwritten(folder, nameOf(clip));
    if (kept && !kept->isSame(clip)) {
        forget(folder, nameOf(clip));
        tellWhenAllWritten();
    }
    _shared.noteOnDisk(clip, folder);
}

void ClipWriter::folderMoved(const QString& from, const QString& to) {
    _backlog.folderMoved(from, to);
    _shared.known().folderMoved(from, to);
    const auto follow = [&](auto& kept) {
        if (kept.folder == from || kept.folder == joinPath(from, u"Trash"_s)) {
            kept.folder = to + kept.folder.sliced(from.size());
        }
    };
    std::ranges::for_each(_unwritten, follow);
    std::ranges::for_each(_conflicts, follow);
}

void ClipWriter::leaveFolder(const QString& folder) {
    for (const QString& place : {folder, joinPath(folder, u"Trash"_s)}) {
        QStringList kept = _backlog.namesIn(place);
        const auto add = [&](const auto& unwritten) {
            if (unwritten.folder == place) {
                kept.append(nameOf(unwritten.clip));
            }
        };
        std::ranges::for_each(_unwritten, add);
        std::ranges::for_each(_conflicts, add);
        _shared.known().forget(place, kept);
    }
}

void ClipWriter::forget(const QString& folder, const QString& clipName) {
    _backlog.release(folder, clipName);
    forgetKept(folder, clipName);
}

void ClipWriter::forgetKept(const QString& folder, const QString& clipName) {
    const auto isMeant = [&](const auto& kept) {
        return nameOf(kept.clip) == clipName && kept.folder == folder;
    };
    std::erase_if(_unwritten, isMeant);
    if (std::erase_if(_conflicts, isMeant) > 0) {
        Q_EMIT conflictsChanged();
    }
}

}  // namespace marquill
