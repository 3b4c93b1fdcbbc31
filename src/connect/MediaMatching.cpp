#include "connect/MediaMatching.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace marquill {

namespace {

/// No date is as far as this from another, in seconds.
constexpr double tooFar = 1e20;

double distance(Date first, Date second) {
    return std::abs(secondsBetween(first, second));
}

bool isComparable(Date date) {
    return std::isfinite(date.time_since_epoch().count());
}

/// Finds the smallest of the numbers in any range of a list at once.
class RangeMinimum {
  public:
    explicit RangeMinimum(std::vector<std::size_t> numbers) {
        const std::size_t count = numbers.size();
        _levels.push_back(std::move(numbers));
        for (std::size_t width = 2; width <= count; width *= 2) {
            const std::vector<std::size_t>& half = _levels.back();
            std::vector<std::size_t> level(count - width + 1);
            for (std::size_t i = 0; i < level.size(); ++i) {
                level[i] = std::min(half[i], half[i + width / 2]);
            }
            _levels.push_back(std::move(level));
        }
    }

    /// The smallest from index `begin` to before `end`; there is at least one.
    std::size_t of(std::size_t begin, std::size_t end) const {
        const auto level = static_cast<std::size_t>(std::bit_width(end - begin) - 1);
        const std::size_t width = std::size_t{1} << level;
        return std::min(_levels[level][begin], _levels[level][end - width]);
    }

  private:
    std::vector<std::vector<std::size_t>> _levels;  // element i of level n: the smallest of 2^n from i on
};

/// The candidates in the order of their dates.
class Candidates {
  public:
    explicit Candidates(std::span<const Date> dates) : _order(order(dates)), _first(_order) {
        _dates.reserve(_order.size());
        for (const std::size_t index : _order) {
            _dates.push_back(dates[index]);
        }
    }

    /// The candidate nearest to `date`, of equally near ones the first; its number as `placeholder` is 0.
    std::optional<MediaMatch> nearest(Date date) const {
        const auto next = std::ranges::lower_bound(_dates, date);
        double least = tooFar;
        if (next != _dates.end()) {
            least = std::min(least, distance(*next, date));
        }
        if (next != _dates.begin()) {
            least = std::min(least, distance(*std::prev(next), date));
        }
        if (least >= tooFar) {
            return std::nullopt;
        }
        // Distances grow away from `date` on either side, rounding included, so the equally near are
        // together.
        const auto begin = std::partition_point(
            _dates.begin(), next, [&](Date earlier) { return distance(earlier, date) > least; });
        const auto end = std::partition_point(next, _dates.end(),
                                              [&](Date later) { return distance(later, date) <= least; });
        return MediaMatch{.placeholder = 0, .candidate = firstIn(begin, end), .seconds = least};
    }

  private:
    using Place = std::vector<Date>::const_iterator;

    static std::vector<std::size_t> order(std::span<const Date> dates) {
        std::vector<std::size_t> order;
        order.reserve(dates.size());
        for (std::size_t index = 0; index < dates.size(); ++index) {
            if (isComparable(dates[index])) {
                order.push_back(index);
            }
        }
        std::ranges::stable_sort(order, {}, [&](std::size_t index) { return dates[index]; });
        return order;
    }

    std::size_t firstIn(Place begin, Place end) const {
        return _first.of(static_cast<std::size_t>(begin - _dates.begin()),
                         static_cast<std::size_t>(end - _dates.begin()));
    }

    std::vector<std::size_t> _order;
    std::vector<Date> _dates;
    RangeMinimum _first;
};

/// Who holds which candidate while claims are made.
class Claims {
  public:
    explicit Claims(std::size_t candidateCount) : _holders(candidateCount) {}

    Claim make(const MediaMatch& match, std::vector<Claim>& earlier) {
        std::optional<MediaMatch>& holder = _holders[match.candidate];
        if (holder && holder->seconds <= match.seconds) {
            return holder->seconds == match.seconds ? Claim::tied : Claim::beaten;
        }
        if (holder) {
            earlier[holder->placeholder] = Claim::displaced;
        }
        holder = match;
        return Claim::granted;
    }

    std::vector<MediaMatch> pairs() const {
        std::vector<MediaMatch> pairs;
        for (const std::optional<MediaMatch>& holder : _holders) {
            if (holder) {
                pairs.push_back(*holder);
            }
        }
        return pairs;
    }

  private:
    std::vector<std::optional<MediaMatch>> _holders;  // one for each candidate
};

}  // namespace

MediaMatching matchMedia(std::span<const std::optional<Date>> placeholders,
                         std::span<const Date> candidates) {
    MediaMatching result;
    const Candidates sorted(candidates);
    Claims claims(candidates.size());
    result.claims.resize(placeholders.size(), Claim::none);
    for (std::size_t placeholder = 0; placeholder < placeholders.size(); ++placeholder) {
        const std::optional<Date>& date = placeholders[placeholder];
        std::optional<MediaMatch> match = date ? sorted.nearest(*date) : std::nullopt;
        if (match) {
            match->placeholder = placeholder;
            result.claims[placeholder] = claims.make(*match, result.claims);
        }
    }
    result.pairs = claims.pairs();
    if (!placeholders.empty() && !candidates.empty()) {
        result.startDate = candidates.size() - 1;
    }
    return result;
}

std::vector<std::size_t> orderByDate(std::span<const std::optional<Date>> dates) {
    std::vector<std::size_t> order(dates.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t index) {
        const std::optional<Date>& date = dates[index];
        return date && isComparable(*date) ? date : std::nullopt;
    });
    return order;
}

}  // namespace marquill
