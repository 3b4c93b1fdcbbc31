// What differs between what is known of a folder's clips and a look at it: which clips are new, gone, changed
// or renamed. Pure functions over values, any thread.
#pragma once

#include "clipstore/KnownClips.h"

namespace marquill {

/// A name in a folder that can be a clip's, and the stamp of its file: an empty one where it has none that
/// can be asked for.
struct FolderFile {
    QString name;
    FileStamp stamp;
};

/// The clip files that a folder holds now, in the order the file system lists them. Asks the file system one
/// question for the names and one for each stamp; on a slow volume that takes long. Fails when the folder
/// cannot be listed.
Result<std::vector<FolderFile>> lookAtFolder(const QString& folder);

/// Whether a file keeps its identity as long as it is not replaced, as on a volume of this computer.
enum class Identities { last, mayChange };

struct FolderDifference {
    QStringList appeared;
    QStringList changed;
    QStringList missing;
    std::vector<std::pair<QString, QString>> renamed;  ///< from, to: neither missing nor appeared

    bool isNone() const {
        return appeared.isEmpty() && changed.isEmpty() && missing.isEmpty() && renamed.empty();
    }
};

/// The names in the order of `files`, what is missing sorted. A file is renamed when the identity of one that
/// is missing comes under another name; a placeholder, which is replaced when it is written, must also look
/// as it did.
FolderDifference compareFolder(const KnownFolder& known, const std::vector<FolderFile>& files,
                               Identities identities);

/// Of files that appeared while others went: which were given another name and written anew, as Marquill
/// itself does when it renames a clip. From and to, the latter as an index into `appeared`. Their takes began
/// at the same moment; of several that did, those that say the same in all that a person enters.
std::vector<std::pair<QString, std::size_t>> findRenamed(const KnownFolder& known, const QStringList& missing,
                                                         const std::vector<ClipFile>& appeared);

}  // namespace marquill
