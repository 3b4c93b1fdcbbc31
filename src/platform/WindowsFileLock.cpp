// File locks by LockFileEx, which Windows drops with the process. One byte far behind the end is locked: a
// lock on what a file holds would keep others from reading it.
#include "platform/FileLock.h"
#include "platform/WindowsError.h"
#include "platform/WindowsHandle.h"

#include <QCoreApplication>

namespace marquill {

namespace {

constexpr DWORD lockedByteHigh = 0x7FFF'FFFF;  // the upper half of its offset

class HeldFileLock final : public FileLock {
  public:
    explicit HeldFileLock(WindowsHandle file) : _file(std::move(file)) {}

  private:
    WindowsHandle _file;  // closing it gives up the lock
};

}  // namespace

Result<std::unique_ptr<FileLock>> FileLock::take(const QString& path) {
    const std::optional<std::wstring> name = windowsPath(path);
    if (!name) {
        return std::unexpected(windowsError(ERROR_FILE_NOT_FOUND, path));
    }
    // Renaming and removing the file stay possible, as they are elsewhere.
    WindowsHandle file(CreateFileW(name->c_str(), GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file.isValid()) {
        return std::unexpected(windowsError(GetLastError(), path));
    }
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!GetFileInformationByHandle(file.get(), &information)) {
        return std::unexpected(windowsError(GetLastError(), path));
    }
    if (information.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) {
        return failure(
            ErrorCode::notAFile,
            QCoreApplication::translate("FileLock", "A folder or a link stands where a file is wanted."),
            path);
    }
    OVERLAPPED place = {};
    place.OffsetHigh = lockedByteHigh;
    if (!LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place)) {
        const DWORD number = GetLastError();
        if (number == ERROR_LOCK_VIOLATION || number == ERROR_IO_PENDING) {
            return failure(ErrorCode::alreadyExists,
                           QCoreApplication::translate("FileLock", "Another running program uses the file."),
                           path);
        }
        return std::unexpected(windowsError(number, path));
    }
    return std::make_unique<HeldFileLock>(std::move(file));
}

}  // namespace marquill
