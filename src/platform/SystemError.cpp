#include "platform/SystemError.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace marquill {

namespace {

struct Wording {
    int number = 0;
    ErrorCode code = ErrorCode::inputOutput;
    const char* message = nullptr;
};

constexpr std::array wordings{
    Wording{ENOENT, ErrorCode::notFound,
            QT_TRANSLATE_NOOP("SystemError",
                              "There is no file or folder of that name. Was it moved or deleted?")},
    Wording{ENOTDIR, ErrorCode::notFound,
            QT_TRANSLATE_NOOP("SystemError", "There is no such folder; a part of the path is a file.")},
    Wording{
        ELOOP, ErrorCode::notFound,
        QT_TRANSLATE_NOOP("SystemError", "The links on the way to it lead in a circle. Remove one of them.")},
    Wording{EACCES, ErrorCode::permissionDenied,
            QT_TRANSLATE_NOOP(
                "SystemError",
                "You are not allowed to do this. Change the permissions of the file or of its folder.")},
    Wording{EPERM, ErrorCode::permissionDenied,
            QT_TRANSLATE_NOOP(
                "SystemError",
                "The system does not permit this. The file may be locked, or belong to somebody else.")},
    Wording{EROFS, ErrorCode::readOnly,
            QT_TRANSLATE_NOOP("SystemError", "The volume is read-only. Unlock it or choose another folder.")},
    Wording{ENOSPC, ErrorCode::noSpace,
            QT_TRANSLATE_NOOP("SystemError", "The volume is full. Free some space and try again.")},
#ifdef EDQUOT
    Wording{EDQUOT, ErrorCode::noSpace,
            QT_TRANSLATE_NOOP("SystemError",
                              "Your share of the volume is used up. Free some space and try again.")},
#endif
    Wording{
        EEXIST, ErrorCode::alreadyExists,
        QT_TRANSLATE_NOOP("SystemError", "Something of that name is there already. Choose another name.")},
    Wording{ENOTEMPTY, ErrorCode::alreadyExists,
            QT_TRANSLATE_NOOP("SystemError", "The folder is not empty.")},
    Wording{EISDIR, ErrorCode::notAFile,
            QT_TRANSLATE_NOOP("SystemError", "A folder stands where a file is wanted.")},
    Wording{ENXIO, ErrorCode::notAFile,
            QT_TRANSLATE_NOOP("SystemError", "A pipe, socket or device stands where a file is wanted.")},
    Wording{ENODEV, ErrorCode::notAFile,
            QT_TRANSLATE_NOOP("SystemError", "A device stands where a file is wanted.")},
    Wording{EINTR, ErrorCode::interrupted,
            QT_TRANSLATE_NOOP("SystemError", "The operation was interrupted. Try again.")},
    Wording{ECANCELED, ErrorCode::interrupted,
            QT_TRANSLATE_NOOP("SystemError", "The operation was cancelled.")},
    Wording{ENAMETOOLONG, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The name is too long for this volume. Shorten it.")},
    Wording{EFBIG, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The file would be larger than this volume allows.")},
    Wording{EXDEV, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The two places are on different volumes.")},
    Wording{EINVAL, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The volume does not support this.")},
    Wording{ENOSYS, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The system does not support this.")},
    Wording{EOPNOTSUPP, ErrorCode::unsupported,
            QT_TRANSLATE_NOOP("SystemError", "The volume does not support this.")},
    Wording{EMFILE, ErrorCode::inputOutput,
            QT_TRANSLATE_NOOP("SystemError", "Too many files are open. Close some windows and try again.")},
    Wording{ENFILE, ErrorCode::inputOutput,
            QT_TRANSLATE_NOOP("SystemError", "Too many files are open. Close other programs and try again.")},
    Wording{EBUSY, ErrorCode::inputOutput,
            QT_TRANSLATE_NOOP("SystemError", "It is in use by the system. Try again later.")},
    Wording{
        EIO, ErrorCode::inputOutput,
        QT_TRANSLATE_NOOP("SystemError", "The device failed. Check its connection, and copy what you can.")},
#ifdef ESTALE
    Wording{ESTALE, ErrorCode::inputOutput,
            QT_TRANSLATE_NOOP("SystemError", "The server lost the file. Connect to it again.")},
#endif
};

}  // namespace

Error systemError(int number, const QString& path) {
    const auto* const wording = std::ranges::find(wordings, number, &Wording::number);
    if (wording != wordings.end()) {
        return Error{wording->code, QCoreApplication::translate("SystemError", wording->message), path};
    }
    const std::string text = std::generic_category().message(number);
    return Error{ErrorCode::inputOutput,
                 QCoreApplication::translate("SystemError", "The system failed: %1.")
                     .arg(QString::fromStdString(text)),
                 path};
}

}  // namespace marquill
