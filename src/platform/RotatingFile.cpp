#include "platform/RotatingFile.h"

#include "platform/FileLock.h"
#include "platform/Files.h"

#include <QCoreApplication>

#include <thread>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds betweenTries{2};
constexpr int mostTries = 500;
constexpr int mostFiles = 100;  // that the name may mean while one thing is written

/// The lock that lets one of several programs write at a time. Nothing when another one keeps it, as if it
/// had been stopped in between, or where the volume knows no locks: a line that mixes with another one's is
/// better than none.
std::unique_ptr<FileLock> lockWithPatience(const QString& path) {
    for (int tries = 0; tries < mostTries; ++tries) {
        Result<std::unique_ptr<FileLock>> lock = FileLock::take(path);
        if (lock) {
            return *std::move(lock);
        }
        if (lock.error().code != ErrorCode::alreadyExists) {
            break;
        }
        std::this_thread::sleep_for(betweenTries);
    }
    return nullptr;
}

}  // namespace

RotatingFile::RotatingFile(const QString& folder, const QString& name, qint64 mostBytes, int olderFiles)
    : _path(joinPath(folder, name)), _mostBytes(mostBytes), _olderFiles(olderFiles) {}

Result<void> RotatingFile::append(QByteArrayView lines) {
    for (int tries = 0; tries < mostFiles; ++tries) {
        if (Result<void> opened = open(); !opened) {
            return opened;
        }
        const std::unique_ptr<FileLock> lock = lockWithPatience(_path);
        // While the lock was waited for, the name may have come to mean a new file, which is to be locked
        // too.
        if (!isStillThere()) {
            continue;
        }
        const Result<FileAttributes> attributes = _file->attributes();
        if (!attributes) {
            return std::unexpected(attributes.error());
        }
        if (attributes->size == 0 || attributes->size + lines.size() <= _mostBytes) {
            return write(attributes->size, lines);
        }
        if (Result<void> rotated = rotate(); !rotated) {
            return rotated;
        }
    }
    return failure(ErrorCode::changedMeanwhile,
                   QCoreApplication::translate("RotatingFile", "Other programs keep replacing the file."),
                   _path);
}

Result<void> RotatingFile::write(qint64 offset, QByteArrayView lines) {
    const QByteArray bytes = (_isWithinLine ? "\n" : "") + lines.toByteArray();
    Result<void> written = _file->write(offset, bytes);
    _isWithinLine = !written;
    return written;
}

// Opens it anew when another program has rotated it, or somebody has removed it.
Result<void> RotatingFile::open() {
    if (_file && isStillThere()) {
        return {};
    }
    _file.reset();
    Result<std::unique_ptr<OpenFile>> file = FileSystem::current().open(_path, OpenMode::readWrite);
    if (!file && file.error().code == ErrorCode::notFound) {
        if (Result<void> created = create(); !created) {
            return created;
        }
        file = FileSystem::current().open(_path, OpenMode::readWrite);
    }
    if (!file) {
        return std::unexpected(file.error());
    }
    _file = *std::move(file);
    return {};
}

Result<void> RotatingFile::create() const {
    if (Result<void> made = makeFolders(parentFolder(_path)); !made) {
        return made;
    }
    const Result<std::unique_ptr<OpenFile>> file = FileSystem::current().open(_path, OpenMode::createNew);
    if (!file && file.error().code != ErrorCode::alreadyExists) {
        return std::unexpected(file.error());
    }
    return {};
}

bool RotatingFile::isStillThere() const {
    const Result<FileAttributes> named = FileSystem::current().attributes(_path, Links::follow);
    const Result<FileAttributes> open = _file->attributes();
    return named && open && named->isSameFile(*open);
}

Result<void> RotatingFile::rotate() const {
    for (int number = _olderFiles; number > 0; --number) {
        const Result<void> moved = FileSystem::current().replace(nameOf(number - 1), nameOf(number));
        if (!moved && (number == 1 || moved.error().code != ErrorCode::notFound)) {
            return moved;
        }
    }
    return {};
}

QString RotatingFile::nameOf(int number) const {
    return number == 0 ? _path : withoutPathExtension(_path) + u".%1."_s.arg(number) + pathExtension(_path);
}

}  // namespace marquill
