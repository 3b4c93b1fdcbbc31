// Poster frames on disk, in the user's cache: one small JPEG a movie, named by the movie's identity and date,
// so that a movie that was changed or replaced has none. What is damaged there counts as absent. Any thread.
#pragma once

#include "platform/FileSystem.h"

#include <QImage>

#include <mutex>
#include <optional>

namespace marquill {

class PosterCache {
  public:
    static constexpr qint64 defaultLimit = qint64{200} * 1024 * 1024;

    /// Keeps the pictures in `folder`, which is made when it is needed, and removes the oldest where all of
    /// them together grow beyond `mostBytes`.
    explicit PosterCache(QString folder, qint64 mostBytes = defaultLimit);

    /// The folder marquill/posters of the user's cache.
    static QString usersFolder();

    /// Where the picture of the movie with these attributes stands, or would.
    QString pathFor(const FileAttributes& movie) const;
    std::optional<QImage> read(const FileAttributes& movie) const;
    /// Replaces one that is there. Errors: those of writing a file.
    Result<void> write(const FileAttributes& movie, const QImage& picture);

  private:
    void noteWritten(qint64 bytes);
    void removeOldest() const;

    QString _folder;
    qint64 _mostBytes;
    std::mutex _mutex;
    std::optional<qint64> _unchecked;  // bytes written since all were counted; none: never counted
};

}  // namespace marquill
