#include "clipstore/ClipMerge.h"

#include "clipstore/ClipStore.h"
#include "clipstore/MarkerMerge.h"

namespace marquill {

namespace {

// Nobody enters them; where they differ, either is as good.
bool isFoundOut(const QString& key) {
    return key == ClipKey::clipFileSize || key == ClipKey::clipDuration || key == ClipKey::clipCreationDate;
}

// The take that the name has is the take, whether it stands in the record or not.
Value valueOf(const ClipInfo& clip, const QString& key) {
    if (key == ClipKey::clipTake) {
        const QString take = ClipStore::takeFromClip(clip);
        return take.isEmpty() ? Value() : Value(take);
    }
    const Value* value = clip.record().find(key);
    return value ? *value : Value();
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
std::optional<Array> mergedMarkers(const ClipInfo& base, const ClipInfo& mine, const ClipInfo& theirs) {
    return mergeMarkers(base.clipMarkerArray().value_or(Array()), mine.clipMarkerArray().value_or(Array()),
                        theirs.clipMarkerArray().value_or(Array()));
}

QStringList keysOf(const ClipInfo& base, const ClipInfo& mine, const ClipInfo& theirs) {
    QStringList keys = base.record().keys() + mine.record().keys() + theirs.record().keys();
    keys.sort();
    keys.removeDuplicates();
    return keys;
}

}  // namespace

ClipMerge mergeClips(const ClipInfo& base, const ClipInfo& mine, const ClipInfo& theirs,
                     ClipPreference preference) {
    ClipMerge merge{.merged = ClipInfo(mine.record().copy()), .conflicts = {}};
    for (const QString& key : keysOf(base, mine, theirs)) {
        const Value before = valueOf(base, key);
        const Value here = valueOf(mine, key);
        const Value there = valueOf(theirs, key);
        // The name is that of the file, which only one of them can be right about.
        if (there == before || there == here || key == ClipKey::clipName) {
            continue;
        }
        // Markers that stay keep their records, also where the list has changed on one side alone.
        const bool isList = key == ClipKey::clipMarkerArray && there.array();
        if (std::optional<Array> markers; isList && (markers = mergedMarkers(base, mine, theirs))) {
            merge.merged.setClipMarkerArray(markers);
        } else if (here == before || isFoundOut(key)) {
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
