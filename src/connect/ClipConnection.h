// Connects the record of a place holder clip to its media, and parts them. No window, nothing is written; any
// thread.
#pragma once

#include "clipstore/ClipInfo.h"

namespace marquill::ClipConnection {

/// Makes `info` the record of a clip whose media are the movie at `path`, which began at `creationDate`;
/// without one, at the file's own (recordingStart, links followed). Sets `clipPath`, `clipDuration`,
/// `clipProxyType`, `clipRecordingStartTime`, and in `clipMarkerOffset` how much later than before the clip
/// now begins; a record that knew no start gets no offset. Its markers stay as they are. False, and nothing
/// changed, when the movie does not open or the file's dates are wanted and cannot be read.
bool doConnectToClip(ClipInfo& info, const QString& clipType, const QString& path,
                     const std::optional<Date>& creationDate);

/// Gives `to` what doConnectToClip has set in `from`.
void takeConnection(const ClipInfo& from, ClipInfo& to);

/// Gives `info` its own start and duration back and removes what tells of media. False, and nothing changed,
/// when it is not connected.
bool unConnectClip(ClipInfo& info);

}  // namespace marquill::ClipConnection
