#include "connect/ClipWriter.h"

#include "clipstore/ClipStore.h"
#include "platform/Files.h"
#include "platform/Log.h"

#include <algorithm>

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

ClipWriter::ClipWriter(int milliseconds) {
    _timer.setInterval(milliseconds);
    connect(&_timer, &QTimer::timeout, this, &ClipWriter::retryInTurn);
}

void ClipWriter::write(const std::vector<ClipInfo>& clips, const QString& folder) {
    const bool hadUnwritten = hasUnwritten();
    const std::vector<Result<void>> results = ClipStore::writeClipInfos(clips, folder);
    bool hasFailed = false;
    for (std::size_t i = 0; i < clips.size(); ++i) {
        forget(folder, nameOf(clips[i]));
        Unwritten unwritten{clips[i], folder, {}};
        if (!isDone(unwritten, results[i])) {
            qCWarning(logConnect).noquote() << unwritten.error.description();
            _unwritten.push_back(unwritten);
            hasFailed = true;
        }
    }
    if (hasFailed) {
        _timer.start();
        Q_EMIT failed();
    } else if (hadUnwritten) {
        tellWhenAllWritten();
    }
}

// Writes it; whether there is nothing left to be done for it.
bool ClipWriter::isDone(Unwritten& unwritten) {
    return isDone(unwritten, ClipStore::writeClipInfo(unwritten.clip, unwritten.folder));
}

bool ClipWriter::isDone(Unwritten& unwritten, const Result<void>& written) {
    if (written) {
        return true;
    }
    unwritten.error = written.error();
    if (!isGone(unwritten.error, unwritten.folder)) {
        return false;
    }
    qCWarning(logConnect).noquote() << unwritten.error.description();
    Q_EMIT lost(textFor(unwritten));
    return true;
}

void ClipWriter::retry() {
    std::erase_if(_unwritten, [this](Unwritten& unwritten) { return isDone(unwritten); });
    tellWhenAllWritten();
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
    const auto found = std::ranges::find_if(_unwritten, [&](const Unwritten& unwritten) {
        return nameOf(unwritten.clip) == clipName && unwritten.folder == folder;
    });
    return found == _unwritten.end() ? std::nullopt : std::optional(found->clip);
}

QString ClipWriter::unwrittenText() const {
    if (_unwritten.empty()) {
        return {};
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
    for (Unwritten& unwritten : _unwritten) {
        if (unwritten.folder == from && nameOf(unwritten.clip) == nameOf(clip)) {
            unwritten.folder = to;
        }
    }
}

void ClipWriter::clipReplaced(const ClipInfo& clip, const QString& folder) {
    const std::optional<ClipInfo> kept = unwritten(folder, nameOf(clip));
    if (kept && !kept->isSame(clip)) {
        forget(folder, nameOf(clip));
        tellWhenAllWritten();
    }
}

void ClipWriter::folderMoved(const QString& from, const QString& to) {
    for (Unwritten& unwritten : _unwritten) {
        if (unwritten.folder == from || unwritten.folder == joinPath(from, u"Trash"_s)) {
            unwritten.folder = to + unwritten.folder.sliced(from.size());
        }
    }
}

void ClipWriter::forget(const QString& folder, const QString& clipName) {
    std::erase_if(_unwritten, [&](const Unwritten& unwritten) {
        return nameOf(unwritten.clip) == clipName && unwritten.folder == folder;
    });
}

}  // namespace marquill
