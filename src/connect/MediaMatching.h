// Which media belong to which place holder clip, by their dates alone. Values, any thread.
#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace marquill {

/// A place holder clip and the media that stand nearest to it.
struct MediaMatch {
    std::size_t placeholder = 0;
    std::size_t candidate = 0;
    double seconds = 0;  ///< between their dates, never negative

    bool operator==(const MediaMatch&) const = default;
};

/// What became of a place holder's claim on its nearest candidate.
enum class Claim {
    granted,
    displaced,  ///< granted, until a later place holder stood nearer
    tied,       ///< an earlier place holder stands as near, and keeps the candidate
    beaten,     ///< an earlier place holder stands nearer
    none,       ///< it has no date, or nothing has a date that can be compared with it
};

struct MediaMatching {
    std::vector<MediaMatch> pairs;         ///< in the order of the candidates
    std::vector<Claim> claims;             ///< one for each place holder
    std::optional<std::size_t> startDate;  ///< the candidate whose date all pairs take: the last one
};

/// Each place holder, in the given order, claims the candidate that is nearest in time, however far that is;
/// of equally near ones the first in the given order. A candidate goes to the nearest of its claimants, of
/// equally near ones to the first; the others are not offered another. Files are matched in the order of
/// their dates (orderByDate), P2 clips in the order of their listing. n place holders and m candidates take
/// O((n + m) log m).
///
/// Place holders at 100 s and 104 s, candidates at 103 s and 200 s: the second place holder gets the first
/// candidate, the first one nothing, and the start date is that of the candidate at 200 s.
MediaMatching matchMedia(std::span<const std::optional<Date>> placeholders, std::span<const Date> candidates);

/// The indexes of `dates` from the earliest to the latest, equal ones in their order; first those without
/// one.
std::vector<std::size_t> orderByDate(std::span<const std::optional<Date>> dates);

}  // namespace marquill
