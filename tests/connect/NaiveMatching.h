// The matching as it is described: every place holder walks every candidate. For tests and benchmarks.
#pragma once

#include "connect/MediaMatching.h"

#include <cmath>

namespace marquill {

inline MediaMatching naiveMatching(std::span<const std::optional<Date>> placeholders,
                                   std::span<const Date> candidates) {
    struct Candidate {
        std::optional<std::size_t> bestMatchProxy;
        double bestMatchDiff = 0;
    };
    std::vector<Candidate> list(candidates.size());
    MediaMatching result;
    for (std::size_t p = 0; p < placeholders.size() && !list.empty(); ++p) {
        result.claims.push_back(Claim::none);
        std::optional<std::size_t> best;
        double bestDiff = 1e20;
        for (std::size_t c = 0; c < list.size(); ++c) {
            const double difference =
                placeholders[p] ? std::abs(secondsBetween(*placeholders[p], candidates[c])) : NAN;
            if (bestDiff > difference) {
                best = c;
                bestDiff = difference;
            }
            result.startDate = c;
        }
        if (!best) {
            continue;
        }
        Candidate& candidate = list[*best];
        if (candidate.bestMatchProxy && !(candidate.bestMatchDiff > bestDiff)) {
            result.claims[p] = candidate.bestMatchDiff == bestDiff ? Claim::tied : Claim::beaten;
            continue;
        }
        if (candidate.bestMatchProxy) {
            result.claims[*candidate.bestMatchProxy] = Claim::displaced;
        }
        candidate = {.bestMatchProxy = p, .bestMatchDiff = bestDiff};
        result.claims[p] = Claim::granted;
    }
    result.claims.resize(placeholders.size(), Claim::none);
    for (std::size_t c = 0; c < list.size(); ++c) {
        if (list[c].bestMatchProxy) {
            result.pairs.push_back({*list[c].bestMatchProxy, c, list[c].bestMatchDiff});
        }
    }
    return result;
}

}  // namespace marquill
