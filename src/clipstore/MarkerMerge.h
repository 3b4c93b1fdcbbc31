// Merging two lists of markers that were one. Pure, any thread.
#pragma once

#include "clipstore/ClipPrint.h"

namespace marquill {

/// `mine` with what was added, changed and removed in `theirs` since `base`; nothing when one marker was
/// changed on both sides, or changed on one and removed on the other. What is taken from `theirs` is copied,
/// the other markers are those of `mine`.
std::optional<Array> mergeMarkers(std::span<const MarkerPrint> base, const Array& mine, const Array& theirs);

}  // namespace marquill
