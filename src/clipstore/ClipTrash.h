// The trash of a record folder: its subfolder "Trash", which the clip table moves deleted clips into and from
// which undo brings them back. Here what lies there is listed, and deleted for good. No state; main thread.
#pragma once

#include "platform/Progress.h"

#include <QString>
#include <QStringList>

namespace marquill {

class ClipTrash {
  public:
    /// Where the clips deleted from the record folder `folder` are: "FOLDER/Trash".
    static QString trashFolder(const QString& folder);
    /// Whether it is there, as a folder of its own: what a symbolic link leads to is nobody's trash.
    static bool hasTrash(const QString& folder);

    /// The full paths of the clips in the trash of these record folders, folder by folder, each in the order
    /// the file system lists it: what ends in ".mov" or ".xml", "tmp_" at the front or not. A trash that is a
    /// symbolic link adds nothing, as what it leads to was not put there by deleting clips.
    static QStringList getTrashClips(const QStringList& folders);

    /// Removes each path for good, a bundle with all it holds, going on after one that cannot be removed; the
    /// log tells why. Symbolic links are removed, never followed. Returns those that could not be removed.
    /// The rest stays once `progress` does not want to go on. Any thread.
    static QStringList deleteClips(const QStringList& paths, const Progress& progress = {});
};

}  // namespace marquill
