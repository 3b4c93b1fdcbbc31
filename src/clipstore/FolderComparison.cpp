#include "clipstore/FolderComparison.h"

#include "clipstore/ClipStore.h"
#include "platform/Files.h"

#include <algorithm>

namespace marquill {

namespace {

bool isChanged(const FileStamp& known, const FileStamp& now, Identities identities) {
    return identities == Identities::last ? known != now : !known.looksLike(now);
}

bool isRenamed(const FileStamp& known, const FolderFile& file) {
    const bool isPlaceholder = pathExtension(file.name) == "xml"_L1;
    return known.isSameFile(file.stamp) && (!isPlaceholder || known.looksLike(file.stamp));
}

// Which missing file `file` was.
std::optional<QString> formerName(const KnownFolder& known, const QMultiHash<quint64, QString>& missing,
                                  const FolderFile& file) {
    for (const QString& name : missing.values(file.stamp.inode)) {
        if (pathExtension(name) == pathExtension(file.name) &&
            isRenamed(known.constFind(name)->stamp, file)) {
            return name;
        }
    }
    return std::nullopt;
}

std::optional<Date> beginningOf(const ClipInfo& clip) {
    const std::optional<Date> start = clip.clipRecordingStartTime();
    return start ? start : clip.clipCreationDate();
}

// Without what belongs to the name, and what is added to a record by showing it.
Dictionary enteredPart(const ClipInfo& clip) {
    Dictionary record = clip.record().copy();
    for (const QString& key : {ClipKey::clipName, ClipKey::clipTake, ClipKey::clipFileSize,
                               ClipKey::clipDuration, ClipKey::clipCreationDate}) {
        record.remove(key);
    }
    return record;
}

}  // namespace

Result<std::vector<FolderFile>> lookAtFolder(const QString& folder) {
    const Result<QStringList> names = FileSystem::current().list(folder);
    if (!names) {
        return std::unexpected(names.error());
    }
    std::vector<FolderFile> files;
    for (const QString& name : *names) {
        if (ClipStore::isClipFileName(name)) {
            files.push_back({name, fileStamp(joinPath(folder, name)).value_or(FileStamp())});
        }
    }
    return files;
}

FolderDifference compareFolder(const KnownFolder& known, const std::vector<FolderFile>& files,
                               Identities identities) {
    FolderDifference difference;
    std::vector<const FolderFile*> unknown;
    QSet<QString> present;
    present.reserve(static_cast<qsizetype>(files.size()));
    for (const FolderFile& file : files) {
        present.insert(file.name);
        const auto found = known.constFind(file.name);
        if (found == known.cend()) {
            unknown.push_back(&file);
        } else if (isChanged(found->stamp, file.stamp, identities)) {
            difference.changed.append(file.name);
        }
    }
    QMultiHash<quint64, QString> missing;
    for (const auto& [name, clip] : known.asKeyValueRange()) {
        if (!present.contains(name)) {
            missing.insert(clip.stamp.inode, name);
        }
    }
    for (const FolderFile* file : unknown) {
        if (const std::optional<QString> former = formerName(known, missing, *file)) {
            missing.remove(file->stamp.inode, *former);
            difference.renamed.emplace_back(*former, file->name);
        } else {
            difference.appeared.append(file->name);
        }
    }
    difference.missing = missing.values();
    difference.missing.sort();
    return difference;
}

std::vector<std::pair<QString, std::size_t>> findRenamed(const KnownFolder& known, const QStringList& missing,
                                                         const std::vector<ClipFile>& appeared) {
    QMultiHash<double, QString> byBeginning;
    for (const QString& name : missing) {
        const auto found = known.constFind(name);
        const std::optional<Date> begun =
            found != known.cend() && found->held ? beginningOf(*found->held) : std::nullopt;
        if (begun) {
            byBeginning.insert(begun->time_since_epoch().count(), name);
        }
    }
    std::vector<std::pair<QString, std::size_t>> renamed;
    for (std::size_t i = 0; i < appeared.size(); ++i) {
        const std::optional<Date> begun = appeared[i].held ? beginningOf(*appeared[i].held) : std::nullopt;
        if (!begun) {
            continue;
        }
        const double beginning = begun->time_since_epoch().count();
        for (const QString& name : byBeginning.values(beginning)) {
            if (pathExtension(name) == pathExtension(appeared[i].name) &&
                enteredPart(*known.constFind(name)->held) == enteredPart(*appeared[i].held)) {
                renamed.emplace_back(name, i);
                byBeginning.remove(beginning, name);
                break;
            }
        }
    }
    return renamed;
}

}  // namespace marquill
