#include "platform/FrameTimes.h"

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

// A time in seconds has been through a multiplication or two, and must not slip past its own unit by that;
// in units.
constexpr double roundingTolerance = 0.0001;

}  // namespace

FrameTimes::FrameTimes(qint32 timeScale, std::shared_ptr<const std::vector<qint64>> starts)
    : _timeScale(timeScale), _starts(std::move(starts)) {}

qsizetype FrameTimes::count() const {
    return _starts && _timeScale > 0 ? static_cast<qsizetype>(_starts->size()) : 0;
}

qint64 FrameTimes::valueFrom(double seconds) const {
    const double units = std::ceil(seconds * _timeScale - roundingTolerance);
    return std::isfinite(units) && std::abs(units) < 9e18 ? static_cast<qint64>(units) : 0;
}

qint64 FrameTimes::valueOfFrame(double seconds) const {
    const auto index = indexOfFrame(seconds);
    return index ? (*_starts)[static_cast<size_t>(*index)] : valueFrom(seconds);
}

std::optional<qsizetype> FrameTimes::indexOfFrame(double seconds) const {
    const auto before = indexAt(seconds);
    if (!before || *before + 1 == count()) {
        return before;
    }
    const qint64 value = valueFrom(seconds);
    const auto start = _starts->begin() + *before;
    return value - start[0] <= start[1] - value ? *before : *before + 1;
}

std::optional<qsizetype> FrameTimes::indexAt(double seconds) const {
    if (!areKnown()) {
        return std::nullopt;
    }
    const auto next = std::upper_bound(_starts->begin(), _starts->end(), valueFrom(seconds));
    return std::max<qsizetype>(next - _starts->begin() - 1, 0);
}

double FrameTimes::seekPoint(qsizetype index) const {
    index = std::clamp<qsizetype>(index, 0, count() - 1);
    const auto start = _starts->begin() + index;
    if (index == 0) {
        return static_cast<double>(start[0]) / _timeScale;
    }
    // The frames themselves begin up to one unit before their values.
    const auto previous = static_cast<double>(start[-1]);
    const auto earliest = static_cast<double>(start[0] - 1);
    return std::max((previous + earliest) / 2, previous + roundingTolerance) / _timeScale;
}

}  // namespace marquill
