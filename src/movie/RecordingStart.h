// When the recording of a movie began, by the dates of its file. No state, any thread.
#pragma once

#include "platform/FileSystem.h"

namespace marquill {

/// Whether a file was written in one go when the recording ended: its modification and creation date are
/// exactly equal.
inline bool wasWrittenAtEnd(const FileAttributes& attributes) {
    return attributes.modificationDate == attributes.creationDate();
}

/// The creation date of a file that holds a movie of that many seconds; of one that was written at the end of
/// the recording, that many seconds earlier.
inline Date recordingStart(const FileAttributes& attributes, double seconds) {
    const Date created = attributes.creationDate();
    return wasWrittenAtEnd(attributes) ? dateByAdding(created, -seconds) : created;
}

}  // namespace marquill
