// What can go wrong, told so that a person can act on it. Values, copied freely, any thread.
#pragma once

#include "platform/Literals.h"

#include <QString>

#include <expected>
#include <optional>

namespace marquill {

/// Why an operation failed. The numbers are negative and stable: they are what the clip store's status codes
/// pass through for failures of the system or of a movie file, and never collide with its own -1 to -5.
enum class ErrorCode : int {
    notFound = -1001,          ///< no file or folder of that name
    permissionDenied = -1002,  ///< the user may not read or write it
    readOnly = -1003,          ///< the volume or the file is read-only
    noSpace = -1004,           ///< the volume is full
    alreadyExists = -1005,     ///< something of that name is there, and nothing was overwritten
    notAFile = -1006,          ///< a folder, pipe, socket or device stands where a file is wanted
    interrupted = -1007,       ///< the call was cancelled
    inputOutput = -1008,  ///< the device failed, or an error of the system without a name of its own here
    endsEarly = -1009,    ///< the data end before they are complete
    malformed = -1010,    ///< the data are wrong
    unsupported = -1011,  ///< the data are right, and beyond what this version handles
    changedMeanwhile = -1012,  ///< the file is no longer what it was when it was opened
    frozen = -1013,            ///< the record is read-only
};

struct Error {
    ErrorCode code = ErrorCode::inputOutput;
    QString message;                        ///< what happened and what to do, without the path
    QString path = {};                      ///< the file or folder concerned, or empty
    std::optional<qint64> byteOffset = {};  ///< for parsers: where in the file or data, in bytes

    /// "PATH: message (at byte N)", leaving out what is not known.
    QString description() const;
};

template <class T>
using Result = std::expected<T, Error>;

/// The failed result of an operation: `return failure(ErrorCode::notFound, u"…"_s, path);`
inline std::unexpected<Error> failure(ErrorCode code, QString message, QString path = {},
                                      std::optional<qint64> byteOffset = {}) {
    return std::unexpected(Error{code, std::move(message), std::move(path), byteOffset});
}

}  // namespace marquill
