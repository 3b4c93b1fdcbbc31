// The media files that place holder clips can be connected to: which kinds there are, where they are found
// and when they were made. No state, any thread; what opens many files fans out and joins before it returns.
#pragma once

#include "platform/Date.h"
#include "platform/Literals.h"
#include "platform/Progress.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace marquill {

/// The kinds of media, as `clipProxyType` names them.
namespace ClipType {
inline const QString quickTime = u"clipTypeQT"_s;
inline const QString redH = u"clipTypeRedH"_s;
inline const QString redP = u"clipTypeRedP"_s;
inline const QString redM = u"clipTypeRedM"_s;
inline const QString redRaw = u"clipTypeRedRaw"_s;
inline const QString p2 = u"clipTypeP2"_s;
}  // namespace ClipType

/// A file that was found, and the date by which it is matched.
struct MediaCandidate {
    QString path;
    Date creationDate;

    bool operator==(const MediaCandidate&) const = default;
};

namespace MediaFiles {

/// What the names of media files of that kind contain, e.g. ".mov" and ".MOV"; nothing for a kind that is not
/// searched for by name.
QStringList endingsForClipType(const QString& clipType);

/// The kind that the name of a movie tells: of a RED proxy by its "_H.mov", "_P.mov" or "_M.mov", else
/// QuickTime.
QString clipTypeOfMovie(const QString& path);

/// The paths of all files and folders below `folder` whose path, relative to it, contains one of `endings`
/// anywhere; case counts. In the order of the walk (subpathsAtPath). None without a folder or without
/// endings, when the folder cannot be listed, and when `progress` ends the search.
std::optional<QStringList> filesInFolder(const QString& folder, const QStringList& endings,
                                         const Progress& progress = {});

/// The first entry of `folder` whose name without its extension occurs in `name`; with an extension given, of
/// those with exactly this one. So "A001_C003.mov" is found for "A001_C003_P.mov" and for "A001_C003.R3D".
/// None without a name, without a folder, and when the folder cannot be listed.
std::optional<QString> findMatchingFileName(const QString& name, const QString& folder,
                                            const std::optional<QString>& extension);

/// The same among the names of a folder that was listed before, those with that extension alone.
std::optional<QString> findMatchingFileName(const QString& name, const QStringList& listed);

/// The names in a folder that have exactly this extension, in the order of the listing; none when there is no
/// folder of that path.
QStringList namesWithExtension(const QString& folder, const QString& extension);

struct Candidates {
    std::vector<MediaCandidate> found;  ///< in the order of the files
    int lackingR3D = 0;                 ///< RED proxies that were left out: they have no R3D file beside them
};

/// The candidates among `files`, which are of that kind. A RED proxy has the creation date of the first file
/// with the extension "R3D" in its folder, an R3D file its own; any other file its own, moved as
/// recordingStart tells when it opens as a movie. Links are followed. A file whose dates cannot be read is
/// left out, and logged. Nothing when `progress` ended it.
std::optional<Candidates> candidates(const QStringList& files, const QString& clipType,
                                     const Progress& progress = {});

}  // namespace MediaFiles

}  // namespace marquill
