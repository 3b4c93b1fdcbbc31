// What others have changed in a folder, read so far that it can be shown. Values.
#pragma once

#include "clipstore/KnownClips.h"
#include "connect/ClipFileFacts.h"

#include <vector>

namespace marquill {

struct ReadClip {
    ClipFile file;
    ClipFileFacts facts;  ///< of the record in the file, if it has one
};

struct RenamedClip {
    QString from;
    ReadClip clip;  ///< under its new name
};

struct FolderChanges {
    QString folder;
    std::vector<ReadClip> appeared;
    std::vector<ReadClip> changed;
    std::vector<RenamedClip> renamed;
    QStringList gone;

    bool isNone() const { return appeared.empty() && changed.empty() && renamed.empty() && gone.isEmpty(); }
};

}  // namespace marquill
