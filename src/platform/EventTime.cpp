#include "platform/EventTime.h"

#include "platform/Clock.h"

#include <QInputEvent>

#include <chrono>

namespace marquill {

namespace {

// Window systems stamp events with the milliseconds of the monotonic clock, cut to 32 bits.
quint32 monotonicMilliseconds() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<quint32>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

// Longer than any event waits; shorter than two machines' clocks are likely to lie apart.
constexpr quint32 longestWait = 30'000;

}  // namespace

Date arrivalDate(const QInputEvent& event) {
    const Date now = Clock::current().now();
    const quint32 age = monotonicMilliseconds() - static_cast<quint32>(event.timestamp());
    const bool known = event.timestamp() != 0 && age <= longestWait;
    return known ? dateByAdding(now, -double(age) / 1000) : now;
}

}  // namespace marquill
