#include "recording/TakeRecovery.h"

#include "clipstore/ClipStore.h"
#include "platform/Clock.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PropertyListText.h"
#include "recording/TakeJournalFile.h"
#include "recording/TakeJournalFormat.h"
#include "recording/TakeWriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace marquill::TakeRecovery {

namespace {

using TakeJournalFormat::Journal;

// As much of the file as a journal can have.
Result<QByteArray> readStartOfFile(const QString& path) {
    const Result<std::unique_ptr<OpenFile>> file = FileSystem::current().open(path, OpenMode::read);
    if (!file) {
        return std::unexpected(file.error());
    }
    const Result<FileAttributes> attributes = (*file)->attributes();
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    QByteArray bytes(std::min(attributes->size, TakeJournalFormat::mostBytes), Qt::Uninitialized);
    const Result<qint64> count =
        (*file)->read(0, std::span(bytes.data(), static_cast<std::size_t>(bytes.size())));
    if (!count) {
        return std::unexpected(count.error());
    }
    bytes.truncate(*count);
    return bytes;
}

Result<Journal> readJournal(const QString& path) {
    const Result<QByteArray> bytes = readStartOfFile(path);
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    Result<Journal> journal = TakeJournalFormat::read(*bytes);
    if (!journal) {
        journal.error().path = path;
    }
    return journal;
}

// Clip files hold whole seconds.
bool isSameSecond(Date one, Date other) {
    return std::floor(one.time_since_epoch().count()) == std::floor(other.time_since_epoch().count());
}

// Two takes of one name and scene may have begun within a second; they do not last equally long and hold as
// many markers.
bool isClipOf(const ClipInfo& clip, const Journal& journal) {
    const std::optional<Date> start = clip.clipRecordingStartTime();
    if (!start || !isSameSecond(*start, journal.take.start) ||
        clip.clipScene().value_or(QString()) != propertyListText(journal.take.scene)) {
        return false;
    }
    const auto known = static_cast<qint64>(std::trunc(journal.take.elapsed));
    const qint64 duration = clip.clipDuration().value_or(-1);
    const qsizetype markers = clip.clipMarkerArray().value_or(Array()).size();
    return (journal.isStopped ? duration == known : duration >= known) &&
           markers >= journal.take.markers.size();
}

// Whether the clip was there before the take began; where the volume does not tell, it need not have been.
bool isOlder(const QString& clipPath, const QString& journalPath) {
    const Result<FileAttributes> clip = FileSystem::current().attributes(clipPath, Links::follow);
    const Result<FileAttributes> journal = FileSystem::current().attributes(journalPath, Links::keep);
    return clip && journal && journal->birthDate && clip->modificationDate <= *journal->birthDate;
}

// The clip of this take, if it was written before the program ended.
std::optional<ClipInfo> writtenClip(const Journal& journal, const QString& journalPath) {
    const QString stem = propertyListText(journal.take.name) + u'#';
    const QString untitledStem = TakeWriter::untitled + u'#';
    for (const QString& name : ClipStore::getClipsForFolder(journal.take.folder)) {
        if (!name.startsWith(stem) && !name.startsWith(untitledStem)) {
            continue;
        }
        const QString path = joinPath(journal.take.folder, name);
        const std::optional<ClipInfo> clip =
            pathExtension(name) == "xml"_L1 ? ClipStore::infoForClip(path) : std::nullopt;
        if (clip && isClipOf(*clip, journal) && !isOlder(path, journalPath)) {
            return clip;
        }
    }
    return std::nullopt;
}

Result<ClipInfo> writeClip(Journal& journal, const QString& journalPath) {
    if (!folderExists(journal.take.folder)) {
        return failure(
            ErrorCode::notFound,
            QCoreApplication::translate("TakeRecovery", "The folder does not exist or is offline."),
            journal.take.folder);
    }
    if (std::optional<ClipInfo> clip = writtenClip(journal, journalPath)) {
        return *std::move(clip);
    }
    journal.take.comment = comment;
    return TakeWriter::write(journal.take);
}

bool isUnnamed(const QString& path) {
    return lastPathComponent(path).startsWith(TakeJournalFile::prefix) &&
           path.endsWith(TakeJournalFile::newSuffix);
}

// One without its name whose owner is about to lock it has no byte yet, and is not to be locked here.
bool mayBeJournal(const QString& path) {
    if (!isUnnamed(path)) {
        return path.endsWith(TakeJournalFile::suffix);
    }
    const Result<FileAttributes> attributes = FileSystem::current().attributes(path, Links::keep);
    return attributes && attributes->size > 0;
}

// Whether it has been lying there for longer than anybody takes to write the first line.
bool isOld(const QString& path) {
    constexpr double old = 60;  // seconds
    const Result<FileAttributes> attributes = FileSystem::current().attributes(path, Links::keep);
    return attributes && secondsBetween(attributes->modificationDate, Clock::current().now()) > old;
}

// Removes what a program left that ended before it had written the first line.
void sweep(const QString& journalFolder) {
    for (const QString& name : FileSystem::current().list(journalFolder).value_or(QStringList())) {
        const QString path = joinPath(journalFolder, name);
        if (!isUnnamed(name) || !isOld(path)) {
            continue;
        }
        const Result<std::unique_ptr<FileLock>> lock = FileLock::take(path);
        if (lock && !readJournal(path)) {
            if (const Result<void> removed = FileSystem::current().removeFile(path); !removed) {
                qCWarning(logRecording).noquote() << removed.error().description();
            }
        }
    }
}

}  // namespace

std::vector<KeptTake> keptTakes(const QString& journalFolder) {
    std::vector<KeptTake> kept;
    const Result<QStringList> names = FileSystem::current().list(journalFolder);
    if (!names && folderExists(journalFolder)) {
        qCWarning(logRecording).noquote() << names.error().description();
    }
    for (const QString& name : names.value_or(QStringList())) {
        const QString path = joinPath(journalFolder, name);
        if (!mayBeJournal(path) || !FileLock::take(path)) {
            continue;
        }
        if (Result<Journal> journal = readJournal(path)) {
            kept.push_back({path, std::move(journal->take)});
        } else if (!isUnnamed(name)) {
            qCWarning(logRecording).noquote() << journal.error().description();
        }
    }
    std::ranges::sort(kept, {}, [](const KeptTake& one) { return one.take.start; });
    return kept;
}

Result<RecoveredTake> recover(const QString& journalPath, const std::optional<QString>& folder) {
    // Held to the end, so that no other Marquill recovers the take too.
    const Result<std::unique_ptr<FileLock>> lock = FileLock::take(journalPath);
    if (!lock) {
        return std::unexpected(lock.error());
    }
    Result<Journal> journal = readJournal(journalPath);
    if (!journal) {
        return std::unexpected(journal.error());
    }
    journal->take.folder = folder.value_or(journal->take.folder);
    const Result<ClipInfo> clip = writeClip(*journal, journalPath);
    if (!clip) {
        return std::unexpected(clip.error());
    }
    if (const Result<void> removed = FileSystem::current().removeFile(journalPath); !removed) {
        qCWarning(logRecording).noquote() << removed.error().description();
    }
    return RecoveredTake{*clip, journal->take.folder};
}

Outcome recoverAll(const QString& journalFolder, const std::function<bool()>& isWanted) {
    Outcome outcome;
    for (const KeptTake& kept : keptTakes(journalFolder)) {
        if (!isWanted()) {
            break;
        }
        if (Result<RecoveredTake> recovered = recover(kept.journal)) {
            outcome.recovered.push_back(*std::move(recovered));
        } else if (recovered.error().code != ErrorCode::alreadyExists) {
            qCWarning(logRecording).noquote() << recovered.error().description();
            outcome.kept.push_back(kept);
        }
    }
    sweep(journalFolder);
    return outcome;
}

Result<void> discard(const QString& journal) {
    const Result<std::unique_ptr<FileLock>> lock = FileLock::take(journal);
    return lock ? FileSystem::current().removeFile(journal) : std::unexpected(lock.error());
}

}  // namespace marquill::TakeRecovery
