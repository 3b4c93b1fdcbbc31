// Linux: statx, which knows when a file was born, renameat2, and fdatasync, which reaches the device.
#include "platform/ExclusiveMove.h"
#include "platform/PosixCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace marquill {

namespace {

int outcome(int result) {
    return result == 0 ? 0 : errno;
}

Date dateOf(const statx_timestamp& time) {
    return Date(std::chrono::duration<double>(static_cast<double>(time.tv_sec) + time.tv_nsec * 1e-9));
}

FileAttributes attributesOf(const struct statx& status) {
    FileAttributes attributes;
    attributes.type = fileTypeOf(status.stx_mode);
    attributes.size = static_cast<qint64>(status.stx_size);
    attributes.modificationDate = dateOf(status.stx_mtime);
    if (status.stx_mask & STATX_BTIME) {
        attributes.birthDate = dateOf(status.stx_btime);
    }
    attributes.device = (quint64{status.stx_dev_major} << 32) | status.stx_dev_minor;
    attributes.inode = status.stx_ino;
    attributes.permissions = status.stx_mode & 07777;
    return attributes;
}

int readStatus(int folder, const char* name, int flags, FileAttributes& attributes) {
    struct statx status = {};
    int result = 0;
    do {
        result = statx(folder, name, flags, STATX_BASIC_STATS | STATX_BTIME, &status);
    } while (result == -1 && errno == EINTR);
    if (result != 0) {
        return errno;
    }
    attributes = attributesOf(status);
    return 0;
}

}  // namespace

int readAttributes(const char* name, Links links, FileAttributes& attributes) {
    return readStatus(AT_FDCWD, name, links == Links::keep ? AT_SYMLINK_NOFOLLOW : 0, attributes);
}

int readAttributes(int descriptor, FileAttributes& attributes) {
    return readStatus(descriptor, "", AT_EMPTY_PATH, attributes);
}

int syncToDevice(int descriptor) {
    return outcome(fdatasync(descriptor));
}

int setExtendedAttributeOf(const char* path, const char* name, QByteArrayView value) {
    return outcome(setxattr(path, name, value.data(), static_cast<std::size_t>(value.size()), 0));
}

int renameIfFree(const char* from, const char* to) {
    return outcome(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE));
}

}  // namespace marquill
