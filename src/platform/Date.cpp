#include "platform/Date.h"

#include "platform/Literals.h"

#include <QDateTime>
#include <QTimeZone>

#include <cmath>

namespace marquill {

namespace {

QDateTime wholeSeconds(Date date, Qt::TimeSpec zone) {
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(date.time_since_epoch().count())),
                                         zone);
}

}  // namespace

QString localDateText(Date date) {
    return wholeSeconds(date, Qt::LocalTime).toString(u"MM/dd/yyyy HH:mm:ss"_s);
}

QString isoDateText(Date date) {
    return wholeSeconds(date, Qt::UTC).toString(Qt::ISODate);
}

}  // namespace marquill
