// The export of a clip list as a text to read: one paragraph for each clip, one line for each of its values.
// Lines end with a carriage return. Functions without state, any thread; the clips must not change meanwhile.
#pragma once

#include "clipmanager/ExportDocument.h"
#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"

#include <QString>

#include <span>

namespace marquill::TextExport {

/// The lines of a clip: its values, and its markers numbered from 1.
QString encodeClipAsText(const ClipInfo& clip);

/// The lines of a marker.
QString encodeMarkerAsText(const Marker& marker);

/// Writes the text of `clips`, numbered from 1, to `path`, replacing a file there. It is strict ASCII: with
/// any other character in a clip nothing is written, and the error is malformed. Other errors: those of
/// writing the file, and interrupted.
Result<void> doExportAsTextAtPath(const QString& path, std::span<const ClipInfo> clips,
                                  const ExportProgress& progress = {});

}  // namespace marquill::TextExport
