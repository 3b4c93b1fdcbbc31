// The poster frames of movies: asked for by path, made in the background, a few at a time, and kept in memory
// and in the user's cache. The main thread never waits for a disk. Owned by whoever shows them. Main thread.
#pragma once

#include "platform/BackgroundWork.h"
#include "platform/MovieStill.h"
#include "platform/PosterCache.h"

#include <QCache>
#include <QHash>
#include <QPixmap>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <memory>

namespace marquill {

class PosterFrames : public QObject {
    Q_OBJECT

  public:
    struct Limits {
        std::chrono::milliseconds patience{
            30'000};     ///< with one movie; after it the movie has none for a while
        int atOnce = 2;  ///< movies that are read at the same time
        qint64 memoryBytes = qint64{32} * 1024 * 1024;
        qint64 cacheBytes = PosterCache::defaultLimit;
    };
    static constexpr int width = 256;  ///< pixels, at most; of the height too

    explicit PosterFrames(const QString& cacheFolder, QObject* parent = nullptr);
    PosterFrames(const QString& cacheFolder, const Limits& limits, QObject* parent = nullptr);
    ~PosterFrames() override;

    /// What makes a picture, on a thread of its own: takeMovieStill, unless a test puts something else here.
    std::function<decltype(takeMovieStill)> takeStill = takeMovieStill;

    /// The picture of the movie at `path` as far as it is in memory; null while it is not, and of a movie
    /// that has none.
    QPixmap poster(const QString& path) const;
    /// Whether it is known that the movie has none.
    bool hasNone(const QString& path) const;
    /// Makes the pictures of these movies, in this order, and forgets what was wanted before and has not
    /// begun. Those that are known are looked at again after a while: a movie that was changed gets another
    /// picture.
    void want(const QStringList& paths);
    /// Nothing is wanted any more.
    void cancel();
    /// Whether any movie is being read or waits to be.
    bool isBusy() const;

  Q_SIGNALS:
    /// There is another picture of the movie now, or it is known that there is none.
    void posterChanged(const QString& path);

  private:
    struct Known {
        std::optional<FileAttributes> movie;  // none: it was not there, or did not answer in time
        bool hasPicture = false;
        quint64 asked = 0;  // microseconds of the clock
    };
    struct Slot {
        BackgroundWork work;
        QTimer deadline;
        QString path;
        std::optional<FileAttributes> movie;
    };

    bool isFresh(const QString& path) const;
    bool isRunning(const QString& path) const;
    void startNext();
    void start(Slot& slot, const QString& path);
    void finish(Slot& slot, const QImage& picture);
    void finishUnchanged(Slot& slot);
    void giveUp(Slot& slot);
    void keep(const QString& path, const Known& known, const QImage& picture);

    std::shared_ptr<PosterCache> _cache;
    Limits _limits;
    std::vector<std::unique_ptr<Slot>> _slots;
    QStringList _wanted;
    QHash<QString, Known> _known;
    QCache<QString, QPixmap> _pictures;  // their cost is kilobytes
    std::shared_ptr<std::atomic<int>> _threads = std::make_shared<std::atomic<int>>(0);
};

}  // namespace marquill
