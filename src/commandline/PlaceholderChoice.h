// Which placeholders of a record folder a command works on, and how it writes them back. Reads and writes the
// files; main thread.
#pragma once

#include "connect/SharedClips.h"

#include <QStringList>

#include <string>
#include <vector>

namespace marquill {

struct PlaceholderChoice {
    std::vector<ClipInfo> clips;  ///< the placeholders, in order; completed (completeRecords)
    bool isComplete = true;       ///< otherwise what is wrong has been told on standard error
    /// What their files held when they were read, for writeChanges.
    std::unique_ptr<SharedClips> shared = std::make_unique<SharedClips>();
};

/// The placeholders of `folder` in the order of its listing or, where `names` are given, these in their
/// order. A name is that of the clip's file, with or without its extension. One whose record belongs to
/// another file is left out: the change would be written to that one.
PlaceholderChoice choosePlaceholders(const QString& folder, const std::vector<std::string>& names);

/// Writes clips that were changed back into `folder`, several at a time, merged with what others have written
/// into them since `shared` came to know them. Which of them were written; of the others it is told why not.
std::vector<bool> writeChanges(const std::vector<ClipInfo>& clips, const QString& folder,
                               SharedClips& shared);

/// Whether the record read from the file `name` in `folder` is that file's own; what is wrong has been told
/// otherwise.
bool isOwnRecord(const ClipInfo& clip, const QString& folder, const QString& name);

}  // namespace marquill
