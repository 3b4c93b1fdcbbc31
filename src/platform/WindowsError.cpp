#include "platform/WindowsError.h"

#include "platform/SystemError.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace marquill {

namespace {

struct Meaning {
    DWORD windows = 0;
    int posix = 0;
};

constexpr std::array meanings{
    Meaning{ERROR_FILE_NOT_FOUND, ENOENT},
    Meaning{ERROR_PATH_NOT_FOUND, ENOENT},
    Meaning{ERROR_INVALID_NAME, ENOENT},
    Meaning{ERROR_BAD_NETPATH, ENOENT},
    Meaning{ERROR_BAD_NET_NAME, ENOENT},
    Meaning{ERROR_NOT_READY, ENOENT},
    Meaning{ERROR_ACCESS_DENIED, EACCES},
    Meaning{ERROR_PRIVILEGE_NOT_HELD, EPERM},
    Meaning{ERROR_WRITE_PROTECT, EROFS},
    Meaning{ERROR_DISK_FULL, ENOSPC},
    Meaning{ERROR_HANDLE_DISK_FULL, ENOSPC},
    Meaning{ERROR_FILE_EXISTS, EEXIST},
    Meaning{ERROR_ALREADY_EXISTS, EEXIST},
    Meaning{ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
    Meaning{ERROR_DIRECTORY, ENOTDIR},
    Meaning{ERROR_OPERATION_ABORTED, EINTR},
    Meaning{ERROR_CANCELLED, ECANCELED},
    Meaning{ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    Meaning{ERROR_FILE_TOO_LARGE, EFBIG},
    Meaning{ERROR_NOT_SAME_DEVICE, EXDEV},
    Meaning{ERROR_NOT_SUPPORTED, EOPNOTSUPP},
    Meaning{ERROR_INVALID_FUNCTION, ENOSYS},
    Meaning{ERROR_INVALID_PARAMETER, EINVAL},
    Meaning{ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    Meaning{ERROR_SHARING_VIOLATION, EBUSY},
    Meaning{ERROR_LOCK_VIOLATION, EBUSY},
    Meaning{ERROR_BUSY, EBUSY},
};

}  // namespace

Error windowsError(unsigned long number, const QString& path) {
    const auto* const meaning = std::ranges::find(meanings, number, &Meaning::windows);
    return systemError(meaning != meanings.end() ? meaning->posix : EIO, path);
}

}  // namespace marquill
