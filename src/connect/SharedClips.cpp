#include "connect/SharedClips.h"

#include "clipstore/ClipStore.h"

namespace marquill {

namespace {

QString nameOf(const ClipInfo& clip) {
    return clip.clipName().value_or(QString());
}

// A placeholder that is just being written by a program that does not replace it in one step, or is broken,
// reads as an empty record. It takes nothing away here.
bool isReadable(const ClipFile& file) {
    return file.clip && !file.clip->record().isEmpty();
}

}  // namespace

void SharedClips::noteRead(const QString& folder, const std::vector<ClipFile>& files) {
    for (const ClipFile& file : files) {
        if (!_known.find(folder, file.name)) {
            _known.set(folder, file.name, {.stamp = file.stamp, .held = file.held, .clip = file.clip});
        }
    }
}

void SharedClips::noteOnDisk(const ClipInfo& clip, const QString& folder) {
    const std::optional<QString> path = ClipStore::clipPath(folder, nameOf(clip));
    const Result<FileStamp> stamp = path ? fileStamp(*path) : Result<FileStamp>();
    if (!path || !stamp) {
        return;
    }
    const KnownClip* known = _known.find(folder, nameOf(clip));
    if (known && known->stamp == *stamp) {
        adopt(clip, folder);
    } else {
        noteWritten(clip, folder, *stamp);
    }
}

void SharedClips::noteWritten(const ClipInfo& clip, const QString& folder, const FileStamp& stamp) {
    _known.set(folder, nameOf(clip),
               {.stamp = stamp, .held = std::make_shared<const ClipPrint>(clip), .clip = clip});
}

void SharedClips::adopt(const ClipInfo& clip, const QString& folder) {
    const KnownClip* found = _known.find(folder, nameOf(clip));
    if (found && !(found->clip && found->clip->isSame(clip))) {
        KnownClip known = *found;
        known.clip = clip;
        _known.set(folder, nameOf(clip), known);
    }
}

SharedClips::Preparation SharedClips::prepare(const ClipInfo& clip, const QString& folder,
                                              const Answer& answer) {
    const QString name = nameOf(clip);
    const KnownClip* known = _known.find(folder, name);
    const std::optional<QString> path = ClipStore::clipPath(folder, name);
    if (!known || !known->held || !path) {
        return {};
    }
    const Result<FileStamp> stamp = fileStamp(*path);
    if (!stamp || *stamp == known->stamp) {
        return {.expected = stamp ? std::optional(*stamp) : std::nullopt};
    }
    const ClipFile file = readClipFiles(folder, {name}).front();
    if (!isReadable(file)) {
        return {.expected = file.stamp};
    }
    const std::vector<ClipConflict> conflicts = merge(clip, folder, file, answer);
    return {
        .expected = file.stamp, .isWritten = conflicts.empty() && clip == *file.clip, .conflicts = conflicts};
}

SharedClips::Taken SharedClips::take(const QString& folder, const ClipFile& file) {
    const KnownClip* found = _known.find(folder, file.name);
    if (!found || !found->clip) {
        return Taken::all;
    }
    if (!isReadable(file)) {
        KnownClip known = *found;
        known.stamp = file.stamp;
        _known.set(folder, file.name, known);
        return Taken::all;
    }
    const ClipInfo clip = *found->clip;
    return merge(clip, folder, file, {}).empty() ? Taken::all : Taken::withConflicts;
}

// With conflicts that are not answered, what is known stays as it was, so that the next writing finds them
// again. What both sides agree on is taken all the same.
std::vector<ClipConflict> SharedClips::merge(const ClipInfo& clip, const QString& folder,
                                             const ClipFile& file, const Answer& answer) {
    Q_EMIT aboutToMerge(clip);
    const KnownClip* known = _known.find(folder, file.name);
    const ClipPrint base = known && known->held ? *known->held : ClipPrint(clip);
    ClipMerge merge = mergeClips(base, clip, *file.clip);
    if (!merge.conflicts.empty() && merge.conflicts == answer.to) {
        merge = mergeClips(base, clip, *file.clip, answer.preference);
    }
    ClipInfo present = clip;
    takeMerged(present, merge.merged);
    if (merge.conflicts.empty()) {
        _known.set(folder, file.name, {.stamp = file.stamp, .held = file.held, .clip = clip});
    }
    Q_EMIT merged(clip, *file.clip);
    return merge.conflicts;
}

}  // namespace marquill
