// Work on many like things at once, for what waits for a volume or a processor. Any thread.
#pragma once

#include "platform/Progress.h"

namespace marquill {

/// Calls `work` with each number from 0 to `count` - 1, once, from this thread and others, and returns when
/// all have ended: false when `progress`, called on this thread, ended it, and some were left out.
bool forEachInParallel(qsizetype count, const std::function<void(qsizetype)>& work,
                       const Progress& progress = {});

}  // namespace marquill
