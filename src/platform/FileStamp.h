// What tells one state of a file from another without reading it, and writing that minds it: for files that
// several programs write. Values, any thread.
#pragma once

#include "platform/FileSystem.h"

namespace marquill {

struct FileStamp {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;  ///< bytes
    Date modificationDate;

    static FileStamp of(const FileAttributes& attributes);

    /// Whether both are stamps of one file, whatever was written into it meanwhile.
    bool isSameFile(const FileStamp& other) const { return device == other.device && inode == other.inode; }
    /// Whether size and date are the same: on a volume that gives files new identities now and then, that is
    /// all there is to go by.
    bool looksLike(const FileStamp& other) const {
        return size == other.size && modificationDate == other.modificationDate;
    }
    bool operator==(const FileStamp& other) const = default;
};

/// The stamp of the file at `path`, links followed.
Result<FileStamp> fileStamp(const QString& path);

/// Writes a whole file as writeFile does, if it still has the stamp `expected`, and returns the stamp of what
/// was written. changedMeanwhile, and nothing changed, when the file has another stamp. It is compared
/// immediately before the new file takes the old one's place, after all that waits for the disk; what another
/// program does between these two calls of the system, a few microseconds, is not seen. Without `expected` no
/// stamp is compared.
Result<FileStamp> replaceFile(const QString& path, QByteArrayView bytes,
                              const std::optional<FileStamp>& expected);

/// Removes the temporary files in `folder` that programs left when they were ended while they wrote: those
/// named as writeFile names its own, and last written before `date`. Returns how many.
int sweepTemporaryFiles(const QString& folder, Date date);

}  // namespace marquill
