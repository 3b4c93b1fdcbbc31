#include "recording/TakeJournalFile.h"

#include "platform/Files.h"
#include "platform/Log.h"
#include "recording/TakeJournalFormat.h"

#include <QRandomGenerator>

#include <algorithm>

namespace marquill {

namespace {

QString newName() {
    return TakeJournalFile::prefix +
           u"%1"_s.arg(QRandomGenerator::system()->generate64(), 16, 16, QChar(u'0'));
}

}  // namespace

TakeJournalFile::TakeJournalFile(QString folder) : _folder(std::move(folder)) {}

QString TakeJournalFile::path() const {
    const std::scoped_lock lock(_mutex);
    return _path;
}

void TakeJournalFile::append(QByteArrayView lines) {
    const std::scoped_lock lock(_mutex);
    if (_synced + _pending.size() + lines.size() <= TakeJournalFormat::mostBytes) {
        _pending.append(lines);
    }
}

Result<void> TakeJournalFile::write() {
    if (!_file) {
        if (Result<void> created = create(); !created) {
            return created;
        }
    }
    std::unique_lock lock(_mutex);
    const QByteArray bytes = _pending.sliced(_written - _synced);
    const qint64 offset = _written;
    const int failedSyncs = _failedSyncs;
    lock.unlock();
    if (bytes.isEmpty()) {
        return {};
    }
    // A part of it that a failure left is written over by the same bytes.
    if (Result<void> written = _file->write(offset, bytes); !written) {
        return written;
    }
    lock.lock();
    if (_failedSyncs == failedSyncs) {
        _written = offset + bytes.size();
    }
    return {};
}

Result<void> TakeJournalFile::flush() {
    const Result<void> written = write();
    return written ? sync() : written;
}

Result<void> TakeJournalFile::create() {
    if (Result<void> made = makeFolders(_folder); !made) {
        return made;
    }
    const QString path = joinPath(_folder, newName() + newSuffix);
    Result<std::unique_ptr<OpenFile>> file = FileSystem::current().open(path, OpenMode::createNew);
    if (!file) {
        return std::unexpected(file.error());
    }
    Result<std::unique_ptr<FileLock>> fileLock = FileLock::take(path);
    if (fileLock) {
        _lock = *std::move(fileLock);
    } else {
        // Written all the same. Where nothing can be locked, nothing is recovered by itself either.
        qCWarning(logRecording).noquote() << fileLock.error().description();
    }
    const std::scoped_lock lock(_mutex);
    _file = *std::move(file);
    _path = path;
    return {};
}

Result<void> TakeJournalFile::sync() {
    std::unique_lock lock(_mutex);
    const std::shared_ptr<OpenFile> file = _file;
    const qint64 written = _written;
    const bool isThere = file && !_isDoneWith && written > 0;
    const bool isDone = written == _synced && _isNamed;
    lock.unlock();
    if (!isThere || isDone) {
        return {};
    }
    if (Result<void> synced = file->sync(); !synced) {
        // The system may have forgotten what it could not write.
        lock.lock();
        ++_failedSyncs;
        _written = _synced;
        return synced;
    }
    lock.lock();
    const qint64 newlySynced = std::max(written - _synced, qint64{0});
    _pending.remove(0, newlySynced);
    _synced += newlySynced;
    lock.unlock();
    return giveName();
}

Result<void> TakeJournalFile::giveName() {
    std::unique_lock lock(_mutex);
    if (_isNamed || _isDoneWith) {
        return {};
    }
    const QString named = _path.chopped(newSuffix.size()) + suffix;
    if (Result<void> moved = FileSystem::current().move(_path, named); !moved) {
        return moved;
    }
    _path = named;
    _isNamed = true;
    lock.unlock();
    return FileSystem::current().syncFolder(_folder);
}

Result<void> TakeJournalFile::remove() {
    std::unique_lock lock(_mutex);
    _pending.clear();
    _isDoneWith = true;
    _file.reset();
    const QString path = _path;
    // Removed while it is locked, or another Marquill could recover the take in between.
    const Result<void> removed = path.isEmpty() ? Result<void>() : FileSystem::current().removeFile(path);
    lock.unlock();
    _lock.reset();
    return removed;
}

void TakeJournalFile::release() {
    const std::scoped_lock lock(_mutex);
    _isDoneWith = true;
    _file.reset();
    _lock.reset();
}

}  // namespace marquill
