#include "platform/PropertyListText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace marquill {

namespace {

constexpr qint64 secondsOfDay = 86400;
constexpr qint64 daysOfEra = 146097;  // of 400 years, after which the calendar repeats
constexpr int mostYearDigits = 11;    // what 64-bit seconds can hold

bool isSpace(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

std::string_view withoutLeadingSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view trimmed(std::string_view text) {
    text = withoutLeadingSpace(text);
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Removes a sign from the front of `text`; true when it was a minus.
bool takeSign(std::string_view& text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return negative;
}

struct CivilDate {
    qint64 year = 0;
    qint64 month = 0;  ///< 1 to 12
    qint64 day = 0;
};

qint64 floorDivided(qint64 number, qint64 divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

/// Days from 1970-01-01 in the proleptic Gregorian calendar. Years are counted from March, so that the leap
/// day is the last one of its year. std::chrono's own calendar stops at the year 32767.
qint64 daysOfCivilDate(CivilDate date) {
    const qint64 monthFromMarch = date.month - 3;
    const qint64 year = date.year + floorDivided(monthFromMarch, 12);
    const qint64 month = monthFromMarch - 12 * floorDivided(monthFromMarch, 12);
    const qint64 era = floorDivided(year, 400);
    const qint64 yearOfEra = year - era * 400;
    const qint64 dayOfYear = (153 * month + 2) / 5 + date.day - 1;
    const qint64 dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * daysOfEra + dayOfEra - 719468;
}

CivilDate civilDateOfDays(qint64 days) {
    days += 719468;
    const qint64 era = floorDivided(days, daysOfEra);
    const qint64 dayOfEra = days - era * daysOfEra;
    const qint64 yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (daysOfEra - 1)) / 365;
    const qint64 dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const qint64 monthFromMarch = (5 * dayOfYear + 2) / 153;
    const qint64 month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month,
            dayOfYear - (153 * monthFromMarch + 2) / 5 + 1};
}

/// Takes 1 to `mostDigits` digits and the character behind them; -1 when they are not there.
qint64 takeField(std::string_view& text, int mostDigits, char end) {
    qint64 number = 0;
    size_t count = 0;
    while (count < text.size() && text[count] >= '0' && text[count] <= '9') {
        number = number * 10 + (text[count] - '0');
        if (++count > static_cast<size_t>(mostDigits)) {
            return -1;
        }
    }
    if (count == 0 || count == text.size() || text[count] != end) {
        return -1;
    }
    text.remove_prefix(count + 1);
    return number;
}

/// "SSZ" or "SS.fffZ", and nothing behind it; -1 when it is not there.
double takeSeconds(std::string_view text) {
    const bool shaped = text.size() >= 3 && text[0] >= '0' && text[0] <= '9' && text[1] >= '0' &&
                        text[1] <= '9' && (text[2] == 'Z' || text[2] == '.');
    if (!shaped || text.back() != 'Z' || (text[2] == 'Z' && text.size() != 3)) {
        return -1;
    }
    text.remove_suffix(1);
    double seconds = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed);
    return error == std::errc() && end == text.data() + text.size() ? seconds : -1;
}

/// What rounding makes of a number that is beyond double precision's range: an infinity, or zero.
double realOutOfRange(std::string_view text) {
    const double sign = takeSign(text) ? -1 : 1;
    const size_t exponent = text.find_first_of("eE");
    const bool isSmall = exponent == std::string_view::npos ? text.find_first_of("123456789") > text.find('.')
                                                            : text[exponent + 1] == '-';
    return sign * (isSmall ? 0 : std::numeric_limits<double>::infinity());
}

int valueOfBase64(char c) {
    static constexpr std::array<signed char, 256> values = [] {
        constexpr std::string_view alphabet =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        std::array<signed char, 256> table{};
        table.fill(-1);
        for (size_t index = 0; index < alphabet.size(); ++index) {
            table[static_cast<unsigned char>(alphabet[index])] = static_cast<signed char>(index);
        }
        return table;
    }();
    return values[static_cast<unsigned char>(c)];
}

/// Appends the lowest `width` digits of a number, with zeros in front.
void appendDigits(QByteArray& text, qint64 number, int width) {
    std::array<char, 20> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    const qsizetype count = end - digits.data();
    text.append(std::max<qsizetype>(0, width - count), '0').append(digits.data(), count);
}

bool isForbidden(char16_t unit) {
    return (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r') || unit >= 0xFFFE;
}

}  // namespace

bool isPropertyListText(QStringView text) {
    return text.isValidUtf16() &&
           std::ranges::none_of(text, [](QChar c) { return isForbidden(c.unicode()); });
}

QString propertyListText(const QString& text) {
    QString result = text;
    for (qsizetype at = 0; at < result.size(); ++at) {
        const QStringView rest = QStringView(result).sliced(at);
        if (rest.size() > 1 && rest[0].isHighSurrogate() && rest[1].isLowSurrogate()) {
            ++at;
        } else if (rest[0].isSurrogate() || isForbidden(rest[0].unicode())) {
            result[at] = QChar::ReplacementCharacter;
        }
    }
    return result;
}

std::optional<Value> integerFromText(std::string_view text) {
    text = trimmed(text);
    const bool negative = takeSign(text);
    text = withoutLeadingSpace(text);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);
    quint64 magnitude = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), magnitude, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    if (!negative) {
        return Value(magnitude);
    }
    constexpr quint64 largest = quint64{1} << 63U;
    return magnitude <= largest ? std::optional(Value(static_cast<qint64>(0 - magnitude))) : std::nullopt;
}

std::optional<double> realFromText(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double real = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), real);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    return error == std::errc() ? real : realOutOfRange(text);
}

std::optional<Date> dateFromText(std::string_view text) {
    text = trimmed(text);
    const bool beforeYearZero = takeSign(text);
    const qint64 year = takeField(text, mostYearDigits, '-');
    const qint64 month = takeField(text, 2, '-');
    const qint64 day = takeField(text, 2, 'T');
    const qint64 hour = takeField(text, 2, ':');
    const qint64 minute = takeField(text, 2, ':');
    const double seconds = takeSeconds(text);
    if (year < 0 || month < 0 || day < 0 || hour < 0 || minute < 0 || seconds < 0) {
        return std::nullopt;
    }
    const qint64 days = daysOfCivilDate({beforeYearZero ? -year : year, std::max<qint64>(month, 1), day});
    const qint64 minutes = days * secondsOfDay + hour * 3600 + minute * 60;
    // Whole seconds are added as integers: far from 1970 double precision would round twice.
    const auto whole = static_cast<qint64>(seconds);
    const double moment = static_cast<double>(minutes + whole) + (seconds - static_cast<double>(whole));
    return Date(std::chrono::duration<double>(moment));
}

std::optional<QByteArray> dataFromText(std::string_view text) {
    QByteArray data;
    data.reserve(static_cast<qsizetype>(text.size()) / 4 * 3);
    unsigned group = 0;
    int digits = 0;
    int padding = 0;
    for (const char c : text) {
        if (isSpace(c)) {
            continue;
        }
        const int value = c == '=' ? 0 : valueOfBase64(c);
        padding += c == '=' ? 1 : 0;
        if (value < 0 || padding > 2 || (padding > 0 && c != '=') || (c == '=' && digits < 2)) {
            return std::nullopt;
        }
        group = group << 6U | static_cast<unsigned>(value);
        if (++digits < 4) {
            continue;
        }
        for (int index = 0; index < 3 - padding; ++index) {
            data.append(static_cast<char>(group >> (16U - 8U * static_cast<unsigned>(index)) & 0xFFU));
        }
        group = 0;
        digits = padding = 0;
    }
    return digits == 0 ? std::optional(std::move(data)) : std::nullopt;
}

void appendReal(QByteArray& text, double real) {
    if (std::isnan(real)) {
        text += "nan";
    } else if (std::isinf(real)) {
        text += real > 0 ? "+infinity" : "-infinity";
    } else if (real == 0) {
        text += std::signbit(real) ? "-0.0" : "0.0";
    } else {
        // Written out in full where C's "%.17g" does so.
        const bool full = std::abs(real) >= 1e-4 && std::abs(real) < 1e17;
        std::array<char, 32> digits{};
        const auto [end, error] =
            std::to_chars(digits.data(), digits.data() + digits.size(), real,
                          full ? std::chars_format::fixed : std::chars_format::scientific);
        text.append(digits.data(), end - digits.data());
    }
}

bool appendDate(QByteArray& text, Date date) {
    const double seconds = std::floor(date.time_since_epoch().count());
    if (!(std::abs(seconds) < 3.1e18)) {
        return false;
    }
    const auto whole = static_cast<qint64>(seconds);
    const qint64 days = floorDivided(whole, secondsOfDay);
    const qint64 rest = whole - days * secondsOfDay;
    const CivilDate civil = civilDateOfDays(days);
    // A minus sign takes one of the four places, as other writers do it.
    text.append(civil.year < 0 ? "-" : "");
    appendDigits(text, std::abs(civil.year), civil.year < 0 ? 3 : 4);
    const std::array<std::pair<char, qint64>, 5> fields = {
        {{'-', civil.month}, {'-', civil.day}, {'T', rest / 3600}, {':', rest / 60 % 60}, {':', rest % 60}}};
    for (const auto& [separator, number] : fields) {
        text.append(separator);
        appendDigits(text, number, 2);
    }
    text.append('Z');
    return true;
}

}  // namespace marquill
