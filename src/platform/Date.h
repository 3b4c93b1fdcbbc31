// Moments and their texts. Values, any thread.
#pragma once

#include <QString>

#include <chrono>

namespace marquill {

/// A moment: seconds since 1970-01-01 00:00:00 UTC, in double precision, leap seconds not counted.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

/// Seconds from `from` to `to`; negative when `to` is the earlier one.
inline double secondsBetween(Date from, Date to) {
    return (to - from).count();
}

/// `date` moved by `seconds`.
inline Date dateByAdding(Date date, double seconds) {
    return date + std::chrono::duration<double>(seconds);
}

/// "%m/%d/%Y %H:%M:%S" in the local time zone, e.g. "11/21/2026 09:05:00".
QString localDateText(Date date);

/// ISO 8601 UTC with whole seconds, e.g. "2026-11-21T08:05:00Z"; the fraction is cut off toward the past.
QString isoDateText(Date date);

}  // namespace marquill
