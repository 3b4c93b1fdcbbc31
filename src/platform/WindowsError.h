// What Windows says of a failure, in the words for the errno value that means the same. Any thread.
#pragma once

#include "platform/Error.h"

namespace marquill {

/// The Error of a GetLastError() value that a call about `path` left.
Error windowsError(unsigned long number, const QString& path);

}  // namespace marquill
