// What the file system knows of a clip's files: whether its media stand where the record says, how large they
// are, and when the clip's file was made. Asked once per clip and kept by the clip table, so that painting
// never waits for a volume. Values, any thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Progress.h"

#include <optional>
#include <span>

namespace marquill {

/// Which files of a clip to ask for; "" for none.
struct ClipFiles {
    QString media;  ///< of a movie: itself; of a placeholder: its `clipPath`
    QString clip;   ///< the clip's own file, when the record knows no creation date
};

struct ClipFileFacts {
    bool mediaExist = false;
    std::optional<qint64> mediaSize;  ///< bytes
    std::optional<Date> creationDate;

    bool operator==(const ClipFileFacts&) const = default;
};

ClipFiles filesOfClip(const ClipInfo& clip, const QString& folder);

/// Asks the file system; on a slow volume that takes long.
ClipFileFacts askFiles(const ClipFiles& files);

/// Stores into the record what the clip table's columns show of the clip: where it knows no creation date,
/// that of its file; the size of its media, where they stand; its take.
void completeRecord(ClipInfo& clip, const ClipFileFacts& facts);

/// The same for clips of `folder` and what the file system says of them now; on a slow volume that takes
/// long. False when `progress` ended it.
bool completeRecords(std::span<ClipInfo> clips, const QString& folder, const Progress& progress = {});

/// The path of the movie, or the `clipPath` of a placeholder; "" when it is not connected.
QString mediaPathOfClip(const ClipInfo& clip, const QString& folder);

}  // namespace marquill
