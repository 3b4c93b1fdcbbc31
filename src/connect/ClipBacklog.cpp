#include "connect/ClipBacklog.h"

#include "clipstore/ClipStore.h"
#include "platform/Files.h"

#include <QSemaphore>

#include <algorithm>
#include <iterator>
#include <utility>

namespace marquill {

namespace {

/// So many are copied and handed over at a time: enough that their disk commits them together, few enough
/// that whoever has to wait for them does not notice.
constexpr std::size_t clipsOfSlice = 256;

QString nameOf(const ClipInfo& clip) {
    return clip.clipName().value_or(QString());
}

}  // namespace

/// What the main thread and the thread that writes share: until `isWritten`, that thread has the last four.
struct ClipBacklog::Slice {
    QString folder;
    std::vector<ClipInfo> clips;  // of the program
    std::vector<ClipInfo> copies;
    std::vector<std::optional<FileStamp>> expected;
    std::vector<Result<FileStamp>> stamps;
    std::vector<std::shared_ptr<const ClipPrint>> held;
    QSemaphore isWritten;

    void write() {
        stamps = ClipStore::writeClipInfos(copies, folder, expected);
        held.resize(copies.size());
        for (std::size_t i = 0; i < copies.size(); ++i) {
            if (stamps[i]) {
                held[i] = std::make_shared<const ClipPrint>(copies[i]);
            }
        }
    }
};

ClipBacklog::ClipBacklog(Expected expected, Done done)
    : _expected(std::move(expected)), _done(std::move(done)) {}

ClipBacklog::~ClipBacklog() {
    finish();
}

void ClipBacklog::add(const std::vector<ClipInfo>& clips, const QString& folder) {
    finishSlice();
    const qsizetype before = _waiting.size();
    for (const ClipInfo& clip : clips) {
        const Key key(folder, nameOf(clip));
        if (!_waiting.contains(key)) {
            _order.push_back(key);
        }
        _waiting.insert(key, clip);
    }
    _total += _waiting.size() - before;
    if (!isEmpty()) {
        tellProgress();
        goOnLater();
    }
}

// Not within this turn of the event loop: whoever has finished a slice may move files until it ends.
void ClipBacklog::goOnLater() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!_slice) {
                startSlice();
            }
        },
        Qt::QueuedConnection);
}

void ClipBacklog::release(const QString& folder, const QString& clipName) {
    if (isEmpty()) {
        return;
    }
    const auto isMeant = [&](const ClipInfo& clip) { return nameOf(clip) == clipName; };
    if (_slice && _slice->folder == folder && std::ranges::any_of(_slice->clips, isMeant)) {
        finishSlice();
    }
    _waiting.remove({folder, clipName});
    if (isEmpty()) {
        tellProgress();
    }
}

// Those of one folder, in their order.
std::shared_ptr<ClipBacklog::Slice> ClipBacklog::nextSlice() {
    auto slice = std::make_shared<Slice>();
    while (!_order.empty() && slice->clips.size() < clipsOfSlice) {
        const auto waiting = _waiting.constFind(_order.front());
        const QString folder = _order.front().first;
        if (waiting != _waiting.cend()) {
            if (!slice->clips.empty() && folder != slice->folder) {
                break;
            }
            slice->folder = folder;
            slice->clips.push_back(*waiting);
            slice->copies.push_back(waiting->deepCopy());
            slice->expected.push_back(_expected(*waiting, folder));
            _waiting.erase(waiting);
        }
        _order.pop_front();
    }
    return slice->clips.empty() ? nullptr : slice;
}

void ClipBacklog::startSlice() {
    _slice = nextSlice();
    if (_slice) {
        _work.start([this, slice = _slice](const BackgroundWork::Post& post) {
            slice->write();
            slice->isWritten.release();
            post([this, slice] {
                if (slice == _slice) {
                    takeSlice();
                    goOnLater();
                }
            });
        });
    }
}

void ClipBacklog::takeSlice() {
    const std::shared_ptr<Slice> slice = std::exchange(_slice, nullptr);
    std::vector<Written> written;
    for (std::size_t i = 0; i < slice->clips.size(); ++i) {
        written.push_back({.clip = slice->clips[i],
                           .folder = slice->folder,
                           .isExpected = slice->expected[i].has_value(),
                           .stamp = slice->stamps[i],
                           .held = slice->held[i]});
    }
    _done(written);
    tellProgress();
}

void ClipBacklog::tellProgress() {
    const qsizetype total = isEmpty() ? std::exchange(_total, 0) : _total;
    Q_EMIT progressed(total - _waiting.size(), total);
}

void ClipBacklog::finishSlice() {
    if (_slice) {
        _slice->isWritten.acquire();
        takeSlice();
        goOnLater();
    }
}

void ClipBacklog::finish() {
    while (!isEmpty()) {
        if (!_slice) {
            startSlice();
        }
        finishSlice();
    }
}

std::optional<ClipInfo> ClipBacklog::find(const QString& folder, const QString& clipName) const {
    const auto waiting = _waiting.constFind({folder, clipName});
    if (waiting != _waiting.cend()) {
        return *waiting;
    }
    if (_slice && _slice->folder == folder) {
        const auto found = std::ranges::find(_slice->clips, clipName, nameOf);
        return found != _slice->clips.end() ? std::optional(*found) : std::nullopt;
    }
    return std::nullopt;
}

QStringList ClipBacklog::namesIn(const QString& folder) const {
    QStringList names;
    for (const Key& key : _waiting.keys()) {
        if (key.first == folder) {
            names.append(key.second);
        }
    }
    if (_slice && _slice->folder == folder) {
        std::ranges::transform(_slice->clips, std::back_inserter(names), nameOf);
    }
    return names;
}

void ClipBacklog::folderMoved(const QString& from, const QString& to) {
    finishSlice();
    QHash<Key, ClipInfo> waiting;
    for (Key& key : _order) {
        const auto clip = _waiting.constFind(key);
        if (key.first == from || key.first == joinPath(from, u"Trash"_s)) {
            key.first = to + key.first.sliced(from.size());
        }
        if (clip != _waiting.cend()) {
            waiting.insert(key, *clip);
        }
    }
    _waiting = std::move(waiting);
}

}  // namespace marquill
