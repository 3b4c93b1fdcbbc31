// Giving a file a new name without ever replacing what may have it, by the means that different file systems
// offer. Used by the operating system's FileSystem only. Any thread.
#pragma once

namespace marquill {

// Each takes native names and returns 0 or an errno value: EEXIST when something has the new name, and
// EINVAL, ENOSYS, EPERM or EOPNOTSUPP where the file system does not know the means.

/// In one step. Most local file systems can; the system's own call, in PosixCalls' sources.
int renameIfFree(const char* from, const char* to);

/// A second name, then the first one removed; a process killed between leaves both names of the one file. For
/// files only; network file systems can.
int linkThenUnlink(const char* from, const char* to);

/// The new name taken by an empty file, which the rename then replaces; a process killed between leaves the
/// empty file. For files only; memory cards can.
int reserveThenRename(const char* from, const char* to);

/// By the first of these that the file system knows. Folders, which cannot be linked, are looked for and then
/// renamed: a rename replaces no folder but an empty one.
int moveIfFree(const char* from, const char* to);

}  // namespace marquill
