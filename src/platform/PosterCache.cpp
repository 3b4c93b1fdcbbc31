#include "platform/PosterCache.h"

#include "platform/Files.h"
#include "platform/Literals.h"
#include "platform/Log.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QStandardPaths>

#include <algorithm>

namespace marquill {

namespace {

constexpr qint64 largestFile = qint64{1024} * 1024;
constexpr int quality = 80;

// Every JPEG file begins and ends so; one that was cut off does not.
bool isWholeJpeg(const QByteArray& bytes) {
    return bytes.startsWith("\xff\xd8") && bytes.endsWith("\xff\xd9");
}

struct CachedFile {
    QString path;
    qint64 size;
    Date date;
};

std::vector<CachedFile> filesIn(const QString& folder) {
    std::vector<CachedFile> files;
    for (const QString& name : FileSystem::current().list(folder).value_or(QStringList())) {
        const QString path = joinPath(folder, name);
        const Result<FileAttributes> found = FileSystem::current().attributes(path, Links::keep);
        if (found && found->type == FileType::regular) {
            files.push_back({.path = path, .size = found->size, .date = found->modificationDate});
        }
    }
    return files;
}

}  // namespace

PosterCache::PosterCache(QString folder, qint64 mostBytes)
    : _folder(std::move(folder)), _mostBytes(mostBytes) {}

QString PosterCache::usersFolder() {
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation),
                    u"marquill/posters"_s);
}

QString PosterCache::pathFor(const FileAttributes& movie) const {
    const QByteArray identity = QByteArray::number(movie.device) + ' ' + QByteArray::number(movie.inode) +
                                ' ' + QByteArray::number(movie.size) + ' ' +
                                QByteArray::number(movie.modificationDate.time_since_epoch().count(), 'f', 6);
    const QByteArray hash = QCryptographicHash::hash(identity, QCryptographicHash::Sha256).toHex();
    return joinPath(_folder, QString::fromLatin1(hash.first(32)) + u".jpg"_s);
}

std::optional<QImage> PosterCache::read(const FileAttributes& movie) const {
    const QString path = pathFor(movie);
    const Result<FileAttributes> found = FileSystem::current().attributes(path, Links::follow);
    if (!found || found->size > largestFile) {
        return std::nullopt;
    }
    const Result<QByteArray> bytes = readFile(path);
    if (!bytes || !isWholeJpeg(*bytes)) {
        return std::nullopt;
    }
    const QImage picture = QImage::fromData(*bytes, "JPG");
    return picture.isNull() ? std::nullopt : std::optional(picture);
}

Result<void> PosterCache::write(const FileAttributes& movie, const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "JPG", quality)) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("PosterCache", "The picture cannot be encoded."));
    }
    if (Result<void> made = makeFolders(_folder); !made) {
        return made;
    }
    Result<void> written = writeFile(pathFor(movie), bytes);
    if (written) {
        noteWritten(bytes.size());
    }
    return written;
}

// Counting them all takes a while, so it is done now and then.
void PosterCache::noteWritten(qint64 bytes) {
    constexpr qint64 partsOfLimit = 16;
    const std::scoped_lock lock(_mutex);
    const bool isDue = !_unchecked || *_unchecked + bytes > _mostBytes / partsOfLimit;
    _unchecked = isDue ? 0 : *_unchecked + bytes;
    if (isDue) {
        removeOldest();
    }
}

void PosterCache::removeOldest() const {
    std::vector<CachedFile> files = filesIn(_folder);
    std::ranges::sort(files, {}, &CachedFile::date);
    qint64 total = 0;
    for (const CachedFile& file : files) {
        total += file.size;
    }
    if (total <= _mostBytes) {
        return;
    }
    const qint64 wanted = _mostBytes - _mostBytes / 10;
    for (const CachedFile& file : files) {
        if (total <= wanted) {
            return;
        }
        if (const Result<void> removed = FileSystem::current().removeFile(file.path); !removed) {
            qCWarning(logPlatform).noquote() << removed.error().description();
        }
        total -= file.size;
    }
}

}  // namespace marquill
