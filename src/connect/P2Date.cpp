#include "connect/P2Date.h"

#include "platform/Literals.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>

#include <unicode/smpdtfmt.h>

#include <memory>

namespace marquill {

namespace {

constexpr qsizetype betweenDayAndHour = 10;
constexpr qsizetype length = 19;
const QString plainForm = u"yyyy-MM-dd HH:mm:ss"_s;

Date dateOf(const QDateTime& moment) {
    return Date(std::chrono::duration<double>(static_cast<double>(moment.toSecsSinceEpoch())));
}

std::optional<Date> dateWithString(const QString& text) {
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        u"([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}) ([+-])([0-9]{2})([0-9]{2})"_s));
    const QRegularExpressionMatch match = form.match(text);
    QDateTime moment = QDateTime::fromString(match.captured(1), plainForm);
    moment.setTimeSpec(Qt::UTC);
    if (!match.hasMatch() || !moment.isValid()) {
        return std::nullopt;
    }
    const int minutes = match.capturedView(3).toInt() * 60 + match.capturedView(4).toInt();
    const int eastOfUtc = match.capturedView(2) == u'-' ? -minutes : minutes;
    return dateByAdding(dateOf(moment), -60.0 * eastOfUtc);
}

icu::UnicodeString icuText(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

// Fields that the pattern has not, as the month, are those of 1970-01-01.
std::optional<Date> dateByPattern(const QString& text) {
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(u"yyyy-mm-ddhh:mm:ss", icu::Locale("en_US_POSIX"), status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    format.setLenient(false);
    format.adoptTimeZone(
        icu::TimeZone::createTimeZone(icuText(QString::fromLatin1(QTimeZone::systemTimeZoneId()))));
    icu::ParsePosition end(0);
    const UDate milliseconds = format.parse(icuText(text), end);
    if (end.getIndex() != text.size()) {
        return std::nullopt;
    }
    return Date(std::chrono::duration<double>(milliseconds / 1000));
}

std::optional<Date> dateWithNaturalLanguageString(const QString& text) {
    const QDateTime moment = QDateTime::fromString(text, plainForm);
    return moment.isValid() ? std::optional(dateOf(moment)) : std::nullopt;
}

}  // namespace

QString p2DateText(const QString& text) {
    QString plain = text.left(length);
    if (plain.size() > betweenDayAndHour) {
        plain[betweenDayAndHour] = u' ';
    }
    return plain;
}

std::optional<Date> p2Date(const QString& text) {
    if (text.size() < length) {
        return std::nullopt;
    }
    if (const std::optional<Date> date = dateWithString(text)) {
        return date;
    }
    QString joined = text.left(length);
    joined.remove(betweenDayAndHour, 1);
    if (const std::optional<Date> date = dateByPattern(joined)) {
        return date;
    }
    return dateWithNaturalLanguageString(p2DateText(text));
}

}  // namespace marquill
