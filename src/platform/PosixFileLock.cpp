// File locks by flock: unlike a file with the owner's process number in it, one cannot outlive its owner, nor
// be taken for dead by a process that sees other numbers.
#include "platform/FileLock.h"
#include "platform/NativeName.h"
#include "platform/SystemError.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace marquill {

namespace {

class PosixFileLock final : public FileLock {
  public:
    explicit PosixFileLock(int descriptor) : _descriptor(descriptor) {}
    ~PosixFileLock() override { close(_descriptor); }

    int descriptor() const { return _descriptor; }

  private:
    int _descriptor;
};

std::unexpected<Error> lockFailure(int number, const QString& path) {
    switch (number) {
        case EWOULDBLOCK:
            return failure(ErrorCode::alreadyExists,
                           QCoreApplication::translate("FileLock", "Another running program uses the file."),
                           path);
        case ENOLCK:
        case EOPNOTSUPP:
            return failure(ErrorCode::unsupported,
                           QCoreApplication::translate("FileLock", "The volume knows no file locks."), path);
        default:
            return std::unexpected(systemError(number, path));
    }
}

}  // namespace

Result<std::unique_ptr<FileLock>> FileLock::take(const QString& path) {
    const std::optional<QByteArray> name = nativeName(path);
    // Some network volumes lock only what is open for writing.
    const int descriptor =
        name ? ::open(name->constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY) : -1;
    if (descriptor < 0) {
        return std::unexpected(systemError(name ? errno : ENOENT, path));
    }
    auto lock = std::make_unique<PosixFileLock>(descriptor);
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) {
        return std::unexpected(systemError(errno, path));
    }
    if (!S_ISREG(status.st_mode)) {
        return std::unexpected(systemError(ENXIO, path));
    }
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        return lockFailure(errno, path);
    }
    if (fstat(descriptor, &status) != 0 || status.st_nlink == 0) {
        return std::unexpected(systemError(ENOENT, path));
    }
    return lock;
}

}  // namespace marquill
