// macOS: stat has the birth time, renamex_np the exclusive rename, and only F_FULLFSYNC makes a drive write
// what it holds in its own cache.
#include "platform/ExclusiveMove.h"
#include "platform/PosixCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace marquill {

namespace {

int outcome(int result) {
    return result == 0 ? 0 : errno;
}

Date dateOf(const timespec& time) {
    return Date(std::chrono::duration<double>(static_cast<double>(time.tv_sec) +
                                              static_cast<double>(time.tv_nsec) * 1e-9));
}

int takeStatus(int result, const struct stat& status, FileAttributes& attributes) {
    if (result != 0) {
        return errno;
    }
    attributes.type = fileTypeOf(status.st_mode);
    attributes.size = status.st_size;
    attributes.modificationDate = dateOf(status.st_mtimespec);
    // Volumes without birth times tell the beginning of time, or one before it.
    if (status.st_birthtimespec.tv_sec > 0) {
        attributes.birthDate = dateOf(status.st_birthtimespec);
    }
    attributes.device = static_cast<quint64>(static_cast<quint32>(status.st_dev));
    attributes.inode = status.st_ino;
    attributes.permissions = status.st_mode & 07777;
    return 0;
}

}  // namespace

int readAttributes(const char* name, Links links, FileAttributes& attributes) {
    struct stat status = {};
    const int result = links == Links::keep ? lstat(name, &status) : stat(name, &status);
    return takeStatus(result, status, attributes);
}

int readAttributes(int descriptor, FileAttributes& attributes) {
    struct stat status = {};
    const int result = fstat(descriptor, &status);
    return takeStatus(result, status, attributes);
}

// Network volumes and some drives do not know the full sync; what they do know has to do.
int syncToDevice(int descriptor) {
    if (fcntl(descriptor, F_FULLFSYNC) == 0) {
        return 0;
    }
    return errno == EINTR ? EINTR : outcome(fsync(descriptor));
}

// Linux asks for a "user." before the names of a user's own attributes; here they have none.
int setExtendedAttributeOf(const char* path, const char* name, QByteArrayView value) {
    constexpr char prefix[] = "user.";
    const char* const ownName =
        std::strncmp(name, prefix, sizeof prefix - 1) == 0 ? name + sizeof prefix - 1 : name;
    return outcome(setxattr(path, ownName, value.data(), static_cast<std::size_t>(value.size()), 0, 0));
}

int renameIfFree(const char* from, const char* to) {
    return outcome(renamex_np(from, to, RENAME_EXCL));
}

}  // namespace marquill
