// Merging what two have made of one clip's record, key by key. Pure functions over records, any thread.
#pragma once

#include "clipstore/ClipPrint.h"

#include <vector>

namespace marquill {

/// A key that both sides have changed, to different values; nothing where a side has taken it away.
struct ClipConflict {
    QString key;
    Value mine;
    Value theirs;

    bool operator==(const ClipConflict&) const = default;
};

/// What becomes of a key that both sides have changed.
enum class ClipPreference {
    ask,  ///< it is told as a conflict, and is `mine` in the merged record
    mine,
    theirs
};

struct ClipMerge {
    /// Shares the markers that are unchanged here with `mine`, and nothing with `theirs`.
    ClipInfo merged;
    std::vector<ClipConflict> conflicts;
};

/// `base` is what both began with. A key that one side has changed is as that side has it. Markers are merged
/// one by one: what either side added, changed or removed is so; they are a conflict when one marker was
/// changed on both sides. What showing a clip adds to its record is no change of a person's and no conflict:
/// its take as the name has it, the date of its file, the size and the length of its media.
ClipMerge mergeClips(const ClipPrint& base, const ClipInfo& mine, const ClipInfo& theirs,
                     ClipPreference preference = ClipPreference::ask);

/// Gives `clip` the keys of `merged`; the record stays the same one. Whether it had others.
bool takeMerged(ClipInfo& clip, const ClipInfo& merged);

}  // namespace marquill
