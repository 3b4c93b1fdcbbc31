// The texts that single values have in an XML property list, read and written. Functions, any thread.
#pragma once

#include "platform/PropertyList.h"

#include <optional>
#include <string_view>

namespace marquill {

/// Whether a property list can hold `text`: false for what XML has no way to write, not even as a character
/// reference (control characters but tab and line ends, unpaired surrogates, U+FFFE and U+FFFF).
bool isPropertyListText(QStringView text);

/// `text` with U+FFFD in place of each of those.
QString propertyListText(const QString& text);

/// A decimal or "0x" hexadecimal number with an optional sign, white space around it and behind the sign:
/// -2^63 to 2^64-1. None when it is anything else.
std::optional<Value> integerFromText(std::string_view text);

/// A decimal number with an optional sign and exponent, "nan", "inf" or "infinity" in any case. One too large
/// or too small for double precision becomes infinite or zero.
std::optional<double> realFromText(std::string_view text);

/// "YYYY-MM-DDTHH:MM:SSZ", always UTC. Years may have fewer digits or more (to eleven) and a minus sign, as
/// other writers give years before the year 0; seconds may have a fraction. A field beyond its range carries
/// over: second 60 is the next minute's second 0, and month 13 is January of the next year.
/// Month 0 is January, as other readers take it.
std::optional<Date> dateFromText(std::string_view text);

/// The bytes of base64 text. White space may stand anywhere, and padding ends a group of four, not the data.
std::optional<QByteArray> dataFromText(std::string_view text);

/// The shortest text that reads back equal: "0.5", "1", "1e+300"; zero is "0.0".
void appendReal(QByteArray& text, double real);

/// "YYYY-MM-DDTHH:MM:SSZ"; the fraction of a second is cut off toward the past. False, and nothing appended,
/// when `date` is not finite or its year has more than eleven digits.
bool appendDate(QByteArray& text, Date date);

}  // namespace marquill
