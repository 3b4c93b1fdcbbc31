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

// Seconds.
std::optional<double> startOf(const std::optional<ClipInfo>& clip) {
    const std::optional<Date> recorded = clip ? clip->clipRecordingStartTime() : std::nullopt;
    const std::optional<Date> start = recorded || !clip ? recorded : clip->clipCreationDate();
    return start ? std::optional(start->time_since_epoch().count()) : std::nullopt;
}

// But for what belongs to the name, and what is added to a record by showing it.
bool sayTheSame(const ClipPrint& clip, const ClipPrint& other) {
    return clip.isSame(other, {ClipKey::clipName, ClipKey::clipTake, ClipKey::clipFileSize,
                               ClipKey::clipDuration, ClipKey::clipCreationDate});
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
    QMultiHash<double, QString> missingByStart;
    for (const QString& name : missing) {
        const auto found = known.constFind(name);
        if (found != known.cend() && found->held) {
            if (const std::optional<double> start = startOf(found->clip)) {
                missingByStart.insert(*start, name);
            }
        }
    }
    QHash<double, int> appearedByStart;
    for (const ClipFile& file : appeared) {
        if (const std::optional<double> start = startOf(file.clip)) {
            ++appearedByStart[*start];
        }
    }
    std::vector<std::pair<QString, std::size_t>> renamed;
    for (std::size_t i = 0; i < appeared.size(); ++i) {
        const std::optional<double> start = startOf(appeared[i].clip);
        const QStringList former = start ? QStringList(missingByStart.values(*start)) : QStringList();
        const bool isOnlyOne = former.size() == 1 && appearedByStart.value(*start) == 1;
        const auto found = std::ranges::find_if(former, [&](const QString& name) {
            return pathExtension(name) == pathExtension(appeared[i].name) &&
                   (isOnlyOne || sayTheSame(*known.constFind(name)->held, *appeared[i].held));
        });
        if (found != former.end()) {
            renamed.emplace_back(*found, i);
            missingByStart.remove(*start, *found);
        }
    }
    return renamed;
}

}  // namespace marquill
