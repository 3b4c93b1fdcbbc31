// What the clip table's undoable operations are told, and told again by undo and redo. Values.
#pragma once

#include "clipstore/ClipInfo.h"

#include <optional>
#include <vector>

namespace marquill {

/// Clips that were added to, or deleted from, a folder.
struct ClipSet {
    QString clipFolder;  ///< path of the record folder they belong to
    std::vector<ClipInfo> clipArray;
};

/// Clips that were replaced: element i of one array by element i of the other, which are equally long.
struct ClipChangeSet {
    std::vector<ClipInfo> oldClips;
    std::vector<ClipInfo> newClips;
    QString actionName;                      ///< title of the undo step, e.g. "connect Clips"
    std::optional<QString> clipFolder = {};  ///< nothing: the folder shown when it is first done
    /// For undo and redo: what the records were, when they were last written by it, that are to be replaced.
    /// Element i belongs to clip i.
    std::vector<ClipInfo> asLeft = {};
};

}  // namespace marquill
