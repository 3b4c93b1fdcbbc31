// The export of a clip list as a table of two columns, captions and values, with a table of markers below
// each clip that has any. Lines end with a carriage return; values are neither quoted nor escaped. Functions
// without state, any thread; the clips must not change meanwhile.
#pragma once

#include "clipmanager/ExportDocument.h"
#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"

#include <QString>

#include <span>

namespace marquill::TableExport {

/// The rows of a clip, and behind them those of its markers, numbered from 1; the last marker's row has no
/// line end.
QString encodeClipAsTable(const ClipInfo& clip, const QString& delimiter);

/// The values of a marker, each with the delimiter behind it.
QString encodeMarkerAsTable(const Marker& marker, const QString& delimiter);

/// Writes the table of `clips`, numbered from 1, to `path`, replacing a file there. It is strict ASCII: with
/// any other character in a clip nothing is written, and the error is malformed. Other errors: those of
/// writing the file, and interrupted.
Result<void> doExportAsTableAtPath(const QString& path, const QString& delimiter,
                                   std::span<const ClipInfo> clips, const ExportProgress& progress = {});

}  // namespace marquill::TableExport
