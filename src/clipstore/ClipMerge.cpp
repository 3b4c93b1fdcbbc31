#include "clipstore/ClipMerge.h"

#include "clipstore/MarkerMerge.h"

namespace marquill {

namespace {

// Nobody enters them; where they differ, either is as good.
bool isFoundOut(const QString& key) {
    return key == ClipKey::clipFileSize || key == ClipKey::clipDuration || key == ClipKey::clipCreationDate;
}

void store(ClipInfo& clip, const QString& key, const ClipInfo& from) {
    Dictionary record = clip.record();
    if (const Value* value = from.record().find(key)) {
        record.set(key, value->deepCopy());
    } else {
        record.remove(key);
    }
}

// A list of markers that is not there is an empty one.
std::optional<Array> mergedMarkers(const ClipPrint& base, const ClipInfo& mine, const ClipInfo& theirs) {
    return mergeMarkers(base.markers(), mine.clipMarkerArray().value_or(Array()),
                        theirs.clipMarkerArray().value_or(Array()));
}

QStringList keysOf(const ClipInfo& mine, const ClipInfo& theirs) {
    QStringList keys = mine.record().keys() + theirs.record().keys();
    keys.sort();
    keys.removeDuplicates();
    return keys;
}

}  // namespace

ClipMerge mergeClips(const ClipPrint& base, const ClipInfo& mine, const ClipInfo& theirs,
                     ClipPreference preference) {
    ClipMerge merge{.merged = ClipInfo(mine.record().copy()), .conflicts = {}};
    for (const QString& key : keysOf(mine, theirs)) {
        const Value here = ClipPrint::valueOf(mine, key);
        const Value there = ClipPrint::valueOf(theirs, key);
        const bool isNameOfFile = key == ClipKey::clipName && !here.isNothing();
        // The name is that of the file, which whoever shows it knows.
        if (there == here || base.held(key, there) || isNameOfFile) {
            continue;
        }
        // Markers that stay keep their records, also where the list has changed on one side alone.
        const bool isList = key == ClipKey::clipMarkerArray && there.array();
        if (std::optional<Array> markers; isList && (markers = mergedMarkers(base, mine, theirs))) {
            merge.merged.setClipMarkerArray(markers);
        } else if (base.held(key, here) || isFoundOut(key)) {
            store(merge.merged, key, theirs);
        } else if (preference == ClipPreference::theirs) {
            store(merge.merged, key, theirs);
        } else if (preference == ClipPreference::ask) {
            merge.conflicts.push_back({key, here, there});
        }
    }
    return merge;
}

bool takeMerged(ClipInfo& clip, const ClipInfo& merged) {
    Dictionary record = clip.record();
    bool hasChanged = false;
    for (const QString& key : record.keys()) {
        if (!merged.record().contains(key)) {
            record.remove(key);
            hasChanged = true;
        }
    }
    for (const Dictionary::Entry& entry : merged.record().entries()) {
        const Value* present = record.find(entry.key);
        if (!present || *present != entry.value) {
            record.set(entry.key, entry.value);
            hasChanged = true;
        }
    }
    return hasChanged;
}

}  // namespace marquill
