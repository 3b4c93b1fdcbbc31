// What is done with whole files, built on FileSystem. Any thread.
#pragma once

#include "platform/FileSystem.h"

namespace marquill {

/// All bytes of a regular file. Files above 1 GiB are refused as unsupported.
Result<QByteArray> readFile(const QString& path);

/// Writes a whole file, atomically: a temporary file beside it is written, synced and renamed over it. On
/// failure the temporary one is removed and the old file stands as it was. Another process, or the next start
/// after a crash, sees the old file or the new one, whole.
Result<void> writeFile(const QString& path, QByteArrayView bytes);

/// The same for a file that must be new: alreadyExists, and nothing changed, when something has the name,
/// also when another program takes it at the same moment.
Result<void> writeNewFile(const QString& path, QByteArrayView bytes);

/// Whether something stands at `path`, links followed.
bool fileExists(const QString& path);

/// Whether a folder stands at `path`, links followed.
bool folderExists(const QString& path);

/// Makes a folder and those above it that are missing.
Result<void> makeFolders(const QString& path);

/// Removes a file, or a folder with all it holds; links are removed, never followed.
Result<void> removeAll(const QString& path);

/// `folder` and `name` joined with one "/".
QString joinPath(const QString& folder, const QString& name);

/// The last component of a path, with its extension: "c#01.xml" of "/a/b/c#01.xml".
QString lastPathComponent(const QString& path);

/// What follows the last "." of the last path component, or "": "xml" of "c.d#01.xml"; "" of ".xml", "a." and
/// "a".
QString pathExtension(const QString& path);

/// The path without its extension and the "." before it, if it has one.
QString withoutPathExtension(const QString& path);

/// The folder that holds `path`.
QString parentFolder(const QString& path);

}  // namespace marquill
