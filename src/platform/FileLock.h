// A lock on a file that tells other processes that its owner lives: the system drops it when the process
// ends, in whatever way. Any thread; a file system that knows no locks refuses with unsupported.
#pragma once

#include "platform/Error.h"

#include <memory>

namespace marquill {

/// A lock that is held until this is destroyed.
class FileLock {
  public:
    FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    virtual ~FileLock() = default;

    /// Locks the existing regular file at `path`, without waiting. It stays locked when it is renamed.
    /// Errors: alreadyExists when another owner has the lock, in this process or another; notFound when the
    /// file is gone, also when its last owner removed it just now; those of opening it.
    static Result<std::unique_ptr<FileLock>> take(const QString& path);
};

}  // namespace marquill
