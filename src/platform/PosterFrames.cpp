#include "platform/PosterFrames.h"

#include "platform/Clock.h"
#include "platform/Log.h"

#include <algorithm>
#include <clocale>

namespace marquill {

namespace {

constexpr quint64 freshFor = 10'000'000;  // microseconds
constexpr quint64 restFor = 600'000'000;
constexpr int mostKnown = 50'000;
constexpr int hangingThreads = 4;  // on volumes that went away; more are not started

bool isSameMovie(const FileAttributes& one, const FileAttributes& other) {
    return one.isSameFile(other) && one.size == other.size && one.modificationDate == other.modificationDate;
}

std::optional<FileAttributes> regularFile(const QString& path) {
    const Result<FileAttributes> found = FileSystem::current().attributes(path, Links::follow);
    return found && found->type == FileType::regular ? std::optional(*found) : std::nullopt;
}

// Counts a thread for as long as it lives.
class Counted {
  public:
    explicit Counted(std::shared_ptr<std::atomic<int>> count) : _count(std::move(count)) {}
    ~Counted() { --*_count; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    std::shared_ptr<std::atomic<int>> _count;
};

}  // namespace

PosterFrames::PosterFrames(const QString& cacheFolder, QObject* parent)
    : PosterFrames(cacheFolder, Limits(), parent) {}

PosterFrames::PosterFrames(const QString& cacheFolder, const Limits& limits, QObject* parent)
    : QObject(parent),
      _cache(std::make_shared<PosterCache>(cacheFolder, limits.cacheBytes)),
      _limits(limits),
      _pictures(limits.memoryBytes / 1024) {
    // libmpv refuses to start where numbers have commas.
    std::setlocale(LC_NUMERIC, "C");
    for (int i = 0; i < limits.atOnce; ++i) {
        _slots.push_back(std::make_unique<Slot>());
        Slot& slot = *_slots.back();
        slot.deadline.setSingleShot(true);
        slot.deadline.setInterval(limits.patience);
        connect(&slot.deadline, &QTimer::timeout, this, [this, &slot] { giveUp(slot); });
    }
}

PosterFrames::~PosterFrames() {
    cancel();
}

QPixmap PosterFrames::poster(const QString& path) const {
    const QPixmap* picture = _pictures.object(path);
    return picture ? *picture : QPixmap();
}

bool PosterFrames::hasNone(const QString& path) const {
    const auto known = _known.find(path);
    return known != _known.end() && !known->hasPicture;
}

bool PosterFrames::isFresh(const QString& path) const {
    const auto known = _known.find(path);
    if (known == _known.end() || (known->hasPicture && !_pictures.contains(path))) {
        return false;
    }
    return Clock::current().microseconds() < known->asked + freshFor;
}

bool PosterFrames::isRunning(const QString& path) const {
    return std::ranges::any_of(
        _slots, [&](const auto& slot) { return slot->work.isRunning() && slot->path == path; });
}

bool PosterFrames::isBusy() const {
    return !_wanted.isEmpty() ||
           std::ranges::any_of(_slots, [](const auto& slot) { return slot->work.isRunning(); });
}

void PosterFrames::want(const QStringList& paths) {
    _wanted.clear();
    for (const QString& path : paths) {
        if (!path.isEmpty() && !isFresh(path) && !isRunning(path) && !_wanted.contains(path)) {
            _wanted.append(path);
        }
    }
    startNext();
}

void PosterFrames::cancel() {
    _wanted.clear();
    for (const std::unique_ptr<Slot>& slot : _slots) {
        slot->deadline.stop();
        slot->work.cancel();
    }
}

void PosterFrames::startNext() {
    for (const std::unique_ptr<Slot>& slot : _slots) {
        const bool mayStart = *_threads < _limits.atOnce + hangingThreads;
        if (!_wanted.isEmpty() && !slot->work.isRunning() && mayStart) {
            start(*slot, _wanted.takeFirst());
        }
    }
}

void PosterFrames::start(Slot& slot, const QString& path) {
    slot.path = path;
    slot.movie.reset();
    const auto known = _known.find(path);
    const bool isInMemory = known != _known.end() && (!known->hasPicture || _pictures.contains(path));
    const std::optional<FileAttributes> before = isInMemory ? known->movie : std::nullopt;
    ++*_threads;
    slot.deadline.start();
    slot.work.start([this, &slot, path, before, cache = _cache, take = takeStill,
                     count = _threads](const BackgroundWork::Post& post) {
        const Counted counted(count);
        const std::optional<FileAttributes> movie = regularFile(path);
        if (!movie) {
            post([this, &slot] { finish(slot, {}); });
            return;
        }
        if (before && isSameMovie(*before, *movie)) {
            post([this, &slot] { finishUnchanged(slot); });
            return;
        }
        post([&slot, movie] { slot.movie = movie; });
        if (const std::optional<QImage> picture = cache->read(*movie)) {
            post([this, &slot, picture] { finish(slot, *picture); });
            return;
        }
        take(
            path, width, [&post] { return post.isWanted(); },
            [&](const Result<QImage>& made) {
                post([this, &slot, picture = made.value_or(QImage())] { finish(slot, picture); });
                const Result<void> written = made ? cache->write(*movie, *made) : Result<void>();
                if (!written) {
                    qCWarning(logPlatform).noquote() << written.error().description();
                }
            });
    });
}

void PosterFrames::finish(Slot& slot, const QImage& picture) {
    slot.deadline.stop();
    slot.work.cancel();
    // Who hears of the picture may start the next one in this slot.
    const QString path = slot.path;
    keep(path,
         {.movie = slot.movie, .hasPicture = !picture.isNull(), .asked = Clock::current().microseconds()},
         picture);
    startNext();
}

void PosterFrames::finishUnchanged(Slot& slot) {
    slot.deadline.stop();
    slot.work.cancel();
    _known[slot.path].asked = Clock::current().microseconds();
    startNext();
}

// The disk may have been slow, or the machine busy: after a rest it is tried again.
void PosterFrames::giveUp(Slot& slot) {
    const QString path = slot.path;
    qCWarning(logPlatform).noquote() << path << "gave no picture in time";
    slot.movie.reset();
    finish(slot, {});
    _known[path].asked += restFor;
}

void PosterFrames::keep(const QString& path, const Known& known, const QImage& picture) {
    if (_known.size() >= mostKnown) {
        _known.clear();
    }
    _known.insert(path, known);
    if (picture.isNull()) {
        _pictures.remove(path);
    } else {
        _pictures.insert(path, new QPixmap(QPixmap::fromImage(picture)),
                         std::max<qsizetype>(picture.sizeInBytes() / 1024, 1));
    }
    Q_EMIT posterChanged(path);
}

}  // namespace marquill
