#include "connect/SharedClips.h"

#include "clipstore/ClipStore.h"

#include <numeric>
#include <utility>

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
    noteWritten(clip, folder, stamp, std::make_shared<const ClipPrint>(clip));
}

void SharedClips::noteWritten(const ClipInfo& clip, const QString& folder, const FileStamp& stamp,
                              std::shared_ptr<const ClipPrint> held) {
    _known.set(folder, nameOf(clip), {.stamp = stamp, .held = std::move(held), .clip = clip});
}

std::optional<FileStamp> SharedClips::knownStamp(const ClipInfo& clip, const QString& folder) const {
    const KnownClip* known = _known.find(folder, nameOf(clip));
    return known && known->held ? std::optional(known->stamp) : std::nullopt;
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

std::vector<SharedClips::Outcome> SharedClips::write(const std::vector<ClipInfo>& clips,
                                                     const QString& folder) {
    return write(clips, folder, {});
}

// A file that others write at the same moment is looked at again, and then left for later.
std::vector<SharedClips::Outcome> SharedClips::write(const std::vector<ClipInfo>& clips,
                                                     const QString& folder, const Answer& answer) {
    constexpr int mostTries = 4;
    std::vector<Outcome> outcomes(clips.size());
    std::vector<std::size_t> waiting(clips.size());
    std::iota(waiting.begin(), waiting.end(), std::size_t{0});
    for (int tries = 0; tries < mostTries && !waiting.empty(); ++tries) {
        writePrepared(clips, folder, answer, waiting, outcomes);
    }
    return outcomes;
}

// Writes those that wait, all at a time; those whose files have changed at that very moment wait on.
void SharedClips::writePrepared(const std::vector<ClipInfo>& clips, const QString& folder,
                                const Answer& answer, std::vector<std::size_t>& waiting,
                                std::vector<Outcome>& outcomes) {
    std::vector<std::size_t> written;
    std::vector<ClipInfo> records;
    std::vector<std::optional<FileStamp>> expected;
    for (const std::size_t index : std::exchange(waiting, {})) {
        adopt(clips[index], folder);
        Preparation preparation = prepare(clips[index], folder, answer);
        outcomes[index] = {.written = {}, .conflicts = std::move(preparation.conflicts)};
        if (!preparation.isWritten && outcomes[index].conflicts.empty()) {
            written.push_back(index);
            records.push_back(clips[index]);
            expected.push_back(preparation.expected);
        }
    }
    const std::vector<Result<FileStamp>> results = ClipStore::writeClipInfos(records, folder, expected);
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i]) {
            noteWritten(records[i], folder, *results[i]);
            continue;
        }
        outcomes[written[i]].written = std::unexpected(results[i].error());
        if (expected[i] && results[i].error().code == ErrorCode::changedMeanwhile) {
            waiting.push_back(written[i]);
        }
    }
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
