#include "platform/SystemError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace marquill {

namespace {

struct Wording {
    int number = 0;
    ErrorCode code = ErrorCode::inputOutput;
    QLatin1StringView message;
};

constexpr std::array wordings{
    Wording{ENOENT, ErrorCode::notFound,
            "There is no file or folder of that name. Was it moved or deleted?"_L1},
    Wording{ENOTDIR, ErrorCode::notFound, "There is no such folder; a part of the path is a file."_L1},
    Wording{ELOOP, ErrorCode::notFound,
            "The links on the way to it lead in a circle. Remove one of them."_L1},
    Wording{EACCES, ErrorCode::permissionDenied,
            "You are not allowed to do this. Change the permissions of the file or of its folder."_L1},
    Wording{EPERM, ErrorCode::permissionDenied,
            "The system does not permit this. The file may be locked, or belong to somebody else."_L1},
    Wording{EROFS, ErrorCode::readOnly, "The volume is read-only. Unlock it or choose another folder."_L1},
    Wording{ENOSPC, ErrorCode::noSpace, "The volume is full. Free some space and try again."_L1},
    Wording{EDQUOT, ErrorCode::noSpace,
            "Your share of the volume is used up. Free some space and try again."_L1},
    Wording{EEXIST, ErrorCode::alreadyExists,
            "Something of that name is there already. Choose another name."_L1},
    Wording{ENOTEMPTY, ErrorCode::alreadyExists, "The folder is not empty."_L1},
    Wording{EISDIR, ErrorCode::notAFile, "A folder stands where a file is wanted."_L1},
    Wording{ENXIO, ErrorCode::notAFile, "A pipe, socket or device stands where a file is wanted."_L1},
    Wording{ENODEV, ErrorCode::notAFile, "A device stands where a file is wanted."_L1},
    Wording{EINTR, ErrorCode::interrupted, "The operation was interrupted. Try again."_L1},
    Wording{ECANCELED, ErrorCode::interrupted, "The operation was cancelled."_L1},
    Wording{ENAMETOOLONG, ErrorCode::unsupported, "The name is too long for this volume. Shorten it."_L1},
    Wording{EFBIG, ErrorCode::unsupported, "The file would be larger than this volume allows."_L1},
    Wording{EXDEV, ErrorCode::unsupported, "The two places are on different volumes."_L1},
    Wording{EINVAL, ErrorCode::unsupported, "The volume does not support this."_L1},
    Wording{ENOSYS, ErrorCode::unsupported, "The system does not support this."_L1},
    Wording{EOPNOTSUPP, ErrorCode::unsupported, "The volume does not support this."_L1},
    Wording{EMFILE, ErrorCode::inputOutput, "Too many files are open. Close some windows and try again."_L1},
    Wording{ENFILE, ErrorCode::inputOutput,
            "Too many files are open. Close other programs and try again."_L1},
    Wording{EBUSY, ErrorCode::inputOutput, "It is in use by the system. Try again later."_L1},
    Wording{EIO, ErrorCode::inputOutput,
            "The device failed. Check its connection, and copy what you can."_L1},
    Wording{ESTALE, ErrorCode::inputOutput, "The server lost the file. Connect to it again."_L1},
};

}  // namespace

Error systemError(int number, const QString& path) {
    const auto* const wording = std::ranges::find(wordings, number, &Wording::number);
    if (wording != wordings.end()) {
        return Error{wording->code, QString(wording->message), path};
    }
    const std::string text = std::generic_category().message(number);
    return Error{ErrorCode::inputOutput, u"The system failed: %1."_s.arg(QString::fromStdString(text)), path};
}

}  // namespace marquill
