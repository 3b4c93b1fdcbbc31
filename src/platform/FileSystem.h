// All access to files goes through FileSystem: one interface that tests replace to make the n-th operation
// fail or the process die at it. The process-wide one is the operating system's. Any thread.
#pragma once

#include "platform/Date.h"
#include "platform/Error.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace marquill {

enum class FileType { regular, folder, symbolicLink, other };

enum class Links { follow, keep };  ///< whether a symbolic link stands for its target or for itself

struct FileAttributes {
    FileType type = FileType::other;
    qint64 size = 0;  ///< bytes
    Date modificationDate;
    std::optional<Date> birthDate;  ///< none where the file system knows none
    quint64 device = 0;
    quint64 inode = 0;
    quint32 permissions = 0;  ///< the twelve POSIX bits, e.g. 0644

    /// The earlier of birth time and modification time. A file copied with its times kept then has a creation
    /// date equal to its modification date.
    Date creationDate() const;
    bool isSameFile(const FileAttributes& other) const {
        return device == other.device && inode == other.inode;
    }
};

struct FolderEntry {
    QString name;
    FileType type = FileType::other;  ///< of the entry itself: a link is a link
};

/// A file held open; closed when it is destroyed. Offsets and lengths are in bytes.
class OpenFile {
  public:
    OpenFile() = default;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    virtual ~OpenFile() = default;

    virtual Result<FileAttributes> attributes() = 0;
    /// What they were when it was opened; the system is not asked again.
    virtual Result<FileAttributes> attributesAtOpening() { return attributes(); }
    /// Fills `buffer` from `offset`; the count is smaller only where the file ends.
    virtual Result<qint64> read(qint64 offset, std::span<char> buffer) = 0;
    /// Writes all of `bytes` at `offset`, or fails; a failed write may have written a part.
    virtual Result<void> write(qint64 offset, QByteArrayView bytes) = 0;
    /// Returns when what was written is on the device.
    virtual Result<void> sync() = 0;
    /// Gives the file these POSIX permission bits.
    virtual Result<void> setPermissions(quint32 permissions) = 0;
};

enum class OpenMode {
    read,
    readWrite,  ///< an existing file
    createNew,  ///< fails with alreadyExists when something has the name
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// Opens a regular file; anything else (folder, pipe, device) is refused with notAFile, and never blocks.
    virtual Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) = 0;
    virtual Result<FileAttributes> attributes(const QString& path, Links links) = 0;
    /// Where a symbolic link points to, as it is written in the link.
    virtual Result<QString> linkTarget(const QString& link) = 0;
    /// The names in a folder, without "." and "..", in the order the file system lists them. Names whose
    /// bytes are no text cannot be told apart as texts; they are left out, and logged.
    virtual Result<QStringList> list(const QString& folder) = 0;
    /// The same, with what stands behind each name.
    virtual Result<std::vector<FolderEntry>> entries(const QString& folder);
    /// Gives `from` the name `to` in one step, replacing a file of that name.
    virtual Result<void> replace(const QString& from, const QString& to) = 0;
    /// Gives `from` the name `to` in one step; alreadyExists when something has it.
    virtual Result<void> move(const QString& from, const QString& to) = 0;
    /// Removes a file or a symbolic link.
    virtual Result<void> removeFile(const QString& path) = 0;
    /// Removes an empty folder.
    virtual Result<void> removeFolder(const QString& path) = 0;
    /// Makes a folder whose parent exists.
    virtual Result<void> makeFolder(const QString& path) = 0;
    /// Returns when the folder's entries are on the device.
    virtual Result<void> syncFolder(const QString& path) = 0;
    /// Gives a file an extended attribute, e.g. "user.com.apple.FinderInfo", replacing one of that name.
    /// unsupported where the file system keeps none.
    virtual Result<void> setExtendedAttribute(const QString& path, const QByteArray& name,
                                              QByteArrayView value);

    /// The one in use: the operating system's, unless a test has installed its own.
    static FileSystem& current();
    /// The operating system's.
    static FileSystem& system();
    /// Makes `fileSystem` the one in use until it is called with null; the caller keeps the ownership.
    static void install(FileSystem* fileSystem);
};

}  // namespace marquill
