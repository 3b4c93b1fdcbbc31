#include "recording/TakeJournalFile.h"

#include "platform/Files.h"
#include "platform/Log.h"
#include "recording/TakeJournalFormat.h"

#include <QRandomGenerator>

namespace marquill {

namespace {

// Until it holds its first line and is locked, it bears a name that nobody takes for a journal.
constexpr auto newSuffix = ".new"_L1;

QString newName() {
    return u"take-%1"_s.arg(QRandomGenerator::system()->generate64(), 16, 16, QChar(u'0'));
}

}  // namespace

TakeJournalFile::TakeJournalFile(QString folder) : _folder(std::move(folder)) {}

void TakeJournalFile::append(QByteArrayView lines) {
    if (_written + _pending.size() + lines.size() <= TakeJournalFormat::mostBytes) {
        _pending.append(lines);
    }
}

Result<void> TakeJournalFile::flush() {
    if (!_file) {
        if (Result<void> created = create(); !created) {
            return created;
        }
    }
    if (Result<void> written = writePending(); !written) {
        return written;
    }
    return giveName();
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
    Result<std::unique_ptr<FileLock>> lock = FileLock::take(path);
    if (lock) {
        _lock = *std::move(lock);
    } else {
        // Written all the same. Where nothing can be locked, nothing is recovered by itself either.
        qCWarning(logRecording).noquote() << lock.error().description();
    }
    _file = *std::move(file);
    _path = path;
    return {};
}

Result<void> TakeJournalFile::writePending() {
    if (_pending.isEmpty()) {
        return {};
    }
    // A part of it that a failure left is written over by the same bytes.
    if (Result<void> written = _file->write(_written, _pending); !written) {
        return written;
    }
    if (Result<void> synced = _file->sync(); !synced) {
        return synced;
    }
    _written += _pending.size();
    _pending.clear();
    return {};
}

Result<void> TakeJournalFile::giveName() {
    if (_isNamed || _written == 0) {
        return {};
    }
    const QString named = _path.chopped(newSuffix.size()) + suffix;
    if (Result<void> moved = FileSystem::current().move(_path, named); !moved) {
        return moved;
    }
    _path = named;
    _isNamed = true;
    return FileSystem::current().syncFolder(_folder);
}

Result<void> TakeJournalFile::remove() {
    _pending.clear();
    _file.reset();
    // Removed while it is locked, or another Marquill could recover the take in between.
    const Result<void> removed = _path.isEmpty() ? Result<void>() : FileSystem::current().removeFile(_path);
    _lock.reset();
    return removed;
}

}  // namespace marquill
