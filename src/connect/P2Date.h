// The date in the description of a P2 clip. No state, any thread.
#pragma once

#include "platform/Date.h"

#include <QString>

#include <optional>

namespace marquill {

/// The moment that `text` tells, by the first of three readers that takes it:
/// - "2009-03-18 15:30:45 +0900", a moment in any time zone;
/// - a text such as "2009-03-18T03:30:45+09:00", without its zone, by the Unicode date pattern
///   "yyyy-mm-ddhh:mm:ss". In it "mm" is the minute, also where the month stands, and "hh" an hour of 0 to
///   12: the example is 2009-01-18 03:30:45, local time;
/// - such a text by its plain meaning, which is how hours from 13 on are read: "2009-03-18T15:30:45+09:00" is
///   2009-03-18 15:30:45, local time.
/// None when no reader takes it, as one of fewer than 19 characters.
std::optional<Date> p2Date(const QString& text);

/// What the last reader looks at: the first 19 characters, with a blank between day and hour.
QString p2DateText(const QString& text);

}  // namespace marquill
