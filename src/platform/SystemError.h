// The operating system's error numbers as Errors: the one place that words them. Any thread.
#pragma once

#include "platform/Error.h"

namespace marquill {

/// The Error of an `errno` value that a call about `path` left.
Error systemError(int number, const QString& path);

}  // namespace marquill
