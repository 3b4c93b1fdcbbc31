// What mediainfo and exiftool report of a movie, as flat lists of names and values. Header only.
#pragma once

#include "movie/MovieTools.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

namespace marquill {

/// Names like `Video/1/Duration` (mediainfo) or `Track1:MediaDuration` (exiftool).
using MovieReport = QMap<QString, QString>;

/// A value with all below it; a list's members are numbered from 0.
inline void addToReport(const QString& name, const QJsonValue& value, MovieReport* report) {
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member) {
            addToReport(name.isEmpty() ? member.key() : name + u'/' + member.key(), member.value(), report);
        }
    } else if (value.isArray()) {
        const QJsonArray list = value.toArray();
        for (qsizetype index = 0; index < list.size(); ++index) {
            addToReport(name + u'/' + QString::number(index), list[index], report);
        }
    } else {
        report->insert(name, value.toVariant().toString());
    }
}

/// Empty when mediainfo fails.
inline MovieReport mediainfoReport(const QString& path) {
    const auto text = outputOf(u"mediainfo"_s, {u"--Output=JSON"_s, path});
    const QJsonValue media = QJsonDocument::fromJson(text.value_or(QByteArray()))[u"media"];
    MovieReport report;
    QMap<QString, int> counts;
    for (const QJsonValue track : media[u"track"].toArray()) {
        const QString type = track[u"@type"].toString();
        addToReport(u"%1/%2"_s.arg(type).arg(++counts[type]), track, &report);
    }
    return report;
}

/// Empty when exiftool fails.
inline MovieReport exiftoolReport(const QString& path) {
    const auto text = outputOf(u"exiftool"_s, {u"-j"_s, u"-G1"_s, u"-api"_s, u"LargeFileSupport=1"_s, path});
    MovieReport report;
    addToReport(QString(), QJsonDocument::fromJson(text.value_or(QByteArray()))[0], &report);
    return report;
}

}  // namespace marquill
