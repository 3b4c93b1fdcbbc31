// Small operations on property-list values that several parts need. No state, any thread.
#pragma once

#include "platform/PropertyList.h"

namespace marquill::Utils {

/// A copy of `plist` that shares nothing with it and is mutable all the way down. Nothing when `plist` is or
/// holds nothing, which no property list can; that is logged.
Value deepCopy(const Value& plist);

/// A deep copy in which every text and every key can be written to a file: what a property list cannot hold
/// is replaced by U+FFFD.
Value writableCopy(const Value& plist);

}  // namespace marquill::Utils
