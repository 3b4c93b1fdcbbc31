// The calls that Linux and macOS know under different names; each has its own source but the first. Used by
// the operating system's FileSystem only. Any thread. Each returns 0 or an errno value.
#pragma once

#include "platform/FileSystem.h"

namespace marquill {

/// What a file's mode says it is.
FileType fileTypeOf(quint32 mode);

/// What stands at the native path `name`.
int readAttributes(const char* name, Links links, FileAttributes& attributes);

/// What an open file is.
int readAttributes(int descriptor, FileAttributes& attributes);

/// Returns when what was written is on the device itself, its own cache included where that can be had.
int syncToDevice(int descriptor);

/// Gives the file at `path` an extended attribute, replacing one of that name.
int setExtendedAttributeOf(const char* path, const char* name, QByteArrayView value);

}  // namespace marquill
