// Writes takes as placeholder clips: those that were stopped, and those that are recovered. No state; any
// thread, as long as nobody changes the take's markers meanwhile.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Error.h"
#include "recording/TakeRecord.h"

namespace marquill::TakeWriter {

/// The display name of a take without a name, or whose name no file can have.
inline const QString untitled = u"Untitled"_s;

/// Writes the take into its folder under the next free take of its name, and returns the clip. A name that
/// another program takes at the same moment is left to it; one that the volume does not take, being too long
/// or holding a character that it forbids, gives way to "Untitled": it does not cost the take. Text that no
/// file can hold costs its characters alone. `clipDuration` is in whole seconds, truncated toward zero.
/// Errors: what the file system refused; notFound when there is no folder.
Result<ClipInfo> write(const TakeRecord& take);

}  // namespace marquill::TakeWriter
