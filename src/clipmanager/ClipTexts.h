// A clip's and a marker's values as the text and table exports write them, and the writing of such a
// document. Values, any thread.
#pragma once

#include "clipmanager/ExportDocument.h"
#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"

#include <QString>

#include <vector>

namespace marquill {

/// What stands for a value that is missing, where nothing else is said.
inline const QString missingText = u"(null)"_s;
/// What stands for one of the fields that are for people to fill in.
inline const QString notFilledIn = u"-"_s;

struct ClipTexts {
    explicit ClipTexts(const ClipInfo& clip);

    QString name;  ///< the display name
    bool isProxyClip = false;
    QString mediaName;      ///< "-" when it is not connected
    QString mediaLocation;  ///< the folder; "-" when it is not connected
    QString duration;       ///< HH:MM:SS
    QString fileSize;       ///< "12 MB", of 1,048,576 bytes each, the rest cut off
    QString creationDate;   ///< MM/DD/YYYY HH:MM:SS in the local time zone
    QString rating;
    QString shot;  ///< "-" when missing, as the next ones; an empty text stays empty
    QString scene;
    QString take;
    QString comment;
    QString frameDrops;  ///< their number, as the next one
    QString frameCorrupts;
    std::vector<Marker> markers;
};

struct MarkerTexts {
    explicit MarkerTexts(const Marker& marker);

    QString title;
    QString start;     ///< HH:MM:SS
    QString duration;  ///< HH:MM:SS
    QString comment;   ///< "-" when missing or empty
};

/// Writes the texts of `count` clips, in order, to `path` as strict ASCII. `textOf` gives the text of the
/// clip at an index, from 0, on several threads. Errors: malformed for another character, and then nothing is
/// written; those of writing the file; interrupted.
Result<void> writeAsciiDocument(const QString& path, qsizetype count,
                                const std::function<QString(qsizetype index)>& textOf,
                                const ExportProgress& progress);

}  // namespace marquill
