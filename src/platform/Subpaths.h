// Everything below a folder. Any thread.
#pragma once

#include "platform/Error.h"
#include "platform/Progress.h"

#include <QStringList>

namespace marquill {

/// The paths of all files and folders below `folder`, relative to it, each folder right before what it holds,
/// in the order the file system lists them; hidden ones too. Links are listed, never entered. A folder below
/// that cannot be listed is logged and taken for empty. Errors: of listing `folder` itself; interrupted when
/// `progress`, told the number of paths found, ends it.
Result<QStringList> subpathsAtPath(const QString& folder, const Progress& progress = {});

}  // namespace marquill
