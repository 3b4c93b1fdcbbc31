// The export of a clip list as an "xmeml" document, version 1, as editing programs import it; its elements
// are described in docs/formats/exports.md. Functions without state, any thread; the clips must not change
// meanwhile.
#pragma once

#include "clipmanager/ExportDocument.h"
#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"
#include "movie/Movie.h"

#include <QStringList>

#include <span>

namespace marquill::XmemlExport {

/// How a clip counts its frames.
struct FrameRate {
    bool ntsc = true;
    int timebase = 30;      ///< frames that a second is called to have
    double factor = 29.97;  ///< frames that it is counted to have

    bool operator==(const FrameRate&) const = default;
};

/// That of a track, by its codec and its media's time scale.
FrameRate frameRateOf(FourCharCode codec, quint32 timeScale);

/// Whether pictures of that codec are stored narrower than they are meant to be shown.
bool isAnamorphic(FourCharCode codec);

/// The "marker" element of a marker, as lines of a document two levels deep. `frameRate` is in frames a
/// second.
QByteArray encodeMarker(const Marker& marker, double frameRate);

/// The "clip" element of a clip of `folder`, as lines of a document one level deep; `labels` is the list that
/// the clip's label must be in. Errors: those of opening its movie, notFound for a placeholder that is not
/// connected, unsupported for a movie without pictures.
Result<QByteArray> encodeClip(const ClipInfo& clip, const QString& folder, const QStringList& labels);

/// Writes the document of `clips`, in their order, to `path`, replacing a file there. A clip whose movie
/// cannot be opened is left out. Where the file system keeps extended attributes, the file also bears its
/// type and creator. Errors: those of writing the file, and interrupted.
Result<void> doExportAsXMLAtPath(const QString& path, std::span<const ClipInfo> clips, const QString& folder,
                                 const QStringList& labels, const ExportProgress& progress = {});

}  // namespace marquill::XmemlExport
