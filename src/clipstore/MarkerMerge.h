// Merging two lists of markers that were one. Pure, any thread.
#pragma once

#include "platform/PropertyList.h"

namespace marquill {

/// `mine` with what was added, changed and removed in `theirs` since `base`; nothing when one marker was
/// changed on both sides, or changed on one and removed on the other. What is taken from `theirs` is copied,
/// the other markers are those of `mine`.
std::optional<Array> mergeMarkers(const Array& base, const Array& mine, const Array& theirs);

}  // namespace marquill
