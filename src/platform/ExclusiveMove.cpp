#include "platform/ExclusiveMove.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace marquill {

namespace {

int outcome(int result) {
    return result == 0 ? 0 : errno;
}

bool isUnknownMeans(int number) {
    return number == EINVAL || number == ENOSYS || number == EOPNOTSUPP || number == EPERM;
}

int renameFolderIfFree(const char* from, const char* to) {
    struct stat attributes = {};
    if (lstat(to, &attributes) == 0) {
        return EEXIST;
    }
    return errno == ENOENT ? outcome(rename(from, to)) : errno;
}

}  // namespace

int linkThenUnlink(const char* from, const char* to) {
    if (linkat(AT_FDCWD, from, AT_FDCWD, to, 0) != 0) {
        return errno;
    }
    if (unlink(from) == 0) {
        return 0;
    }
    const int failed = errno;
    unlink(to);
    return failed;
}

int reserveThenRename(const char* from, const char* to) {
    const int file = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        return errno;
    }
    close(file);
    if (rename(from, to) == 0) {
        return 0;
    }
    const int failed = errno;
    unlink(to);
    return failed;
}

int moveIfFree(const char* from, const char* to) {
    const int renamed = renameIfFree(from, to);
    if (!isUnknownMeans(renamed)) {
        return renamed;
    }
    struct stat attributes = {};
    if (lstat(from, &attributes) != 0) {
        return errno;
    }
    if (S_ISDIR(attributes.st_mode)) {
        return renameFolderIfFree(from, to);
    }
    const int linked = linkThenUnlink(from, to);
    return isUnknownMeans(linked) ? reserveThenRename(from, to) : linked;
}

}  // namespace marquill
