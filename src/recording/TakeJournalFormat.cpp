#include "recording/TakeJournalFormat.h"

#include "clipstore/Utils.h"
#include "markers/Marker.h"
#include "platform/PropertyListText.h"
#include "recording/TakeJournalValues.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace marquill::TakeJournalFormat {

namespace {

namespace key {
const QString marquillTake = u"marquillTake"_s;
const QString name = u"name"_s;
const QString scene = u"scene"_s;
const QString folder = u"folder"_s;
const QString start = u"start"_s;
const QString marker = u"marker"_s;
const QString at = u"at"_s;
const QString alive = u"alive"_s;
const QString stop = u"stop"_s;
}  // namespace key

constexpr double firstStart = -62'135'596'800;  // the year 1
constexpr double lastStart = 253'402'300'799;   // the end of the year 9999

QByteArray line(const QJsonObject& json) {
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QJsonObject> objectOfLine(QByteArrayView line) {
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromRawData(line.data(), line.size()));
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

/// The next line of `rest`, without its LF, which is taken off `rest`; nothing when it is torn or too long.
std::optional<QByteArrayView> takeLine(QByteArrayView& rest) {
    const qsizetype end = rest.indexOf('\n');
    if (end < 0 || end >= longestLine) {
        return std::nullopt;
    }
    const QByteArrayView line = rest.first(end);
    rest = rest.sliced(end + 1);
    return line;
}

/// The seconds of a key, where they are those of a take.
std::optional<double> seconds(const QJsonObject& json, const QString& key) {
    const QJsonValue value = json.value(key);
    const double seconds = value.toDouble();
    return value.isDouble() && std::abs(seconds) <= longestTake ? std::optional(seconds) : std::nullopt;
}

void readText(const QJsonObject& json, const QString& key, QString& text) {
    if (json.value(key).isString()) {
        text = json.value(key).toString();
    }
}

// Where the take is to go must be a place that does not depend on where the program runs.
void readFolder(const QJsonObject& json, QString& folder) {
    if (const QString path = json.value(key::folder).toString(); QDir::isAbsolutePath(path)) {
        folder = path;
    }
}

Result<Journal> readStart(QByteArrayView line) {
    const std::optional<QJsonObject> json = objectOfLine(line);
    const QJsonValue version = json ? json->value(key::marquillTake) : QJsonValue();
    if (!version.isDouble()) {
        return failure(ErrorCode::malformed,
                       QCoreApplication::translate("TakeJournalFormat", "This is no journal of a take."), {},
                       0);
    }
    if (version.toDouble() != TakeJournalFormat::version) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("TakeJournalFormat",
                                                   "A later version of Marquill wrote this journal."),
                       {}, 0);
    }
    const double start = json->value(key::start).toDouble(std::nan(""));
    if (!(start >= firstStart && start <= lastStart)) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate("TakeJournalFormat", "The journal does not say when its take began."),
            {}, 0);
    }
    Journal journal;
    journal.take.start = Date(std::chrono::duration<double>(start));
    readText(*json, key::name, journal.take.name);
    readText(*json, key::scene, journal.take.scene);
    readFolder(*json, journal.take.folder);
    return journal;
}

// The marker's record; a whole number of seconds is a real there, as the recorder writes it.
Dictionary markerOfJson(const QJsonObject& json) {
    Dictionary marker = TakeJournalValues::recordOfJson(json);
    for (const QString& time : {clipMarkerIn, clipMarkerDur, clipMarkerOldIn}) {
        if (const std::optional<double> seconds = marker.real(time)) {
            marker.set(time, *seconds);
        }
    }
    return marker;
}

void readFurther(const QJsonObject& json, Journal& journal) {
    TakeRecord& take = journal.take;
    readText(json, key::name, take.name);
    readText(json, key::scene, take.scene);
    readFolder(json, take.folder);
    if (json.value(key::marker).isObject()) {
        take.markers.append(markerOfJson(json.value(key::marker).toObject()));
    }
    if (journal.isStopped) {
        return;
    }
    for (const QString& key : {key::at, key::alive}) {
        take.elapsed = std::max(take.elapsed, seconds(json, key).value_or(0));
    }
    if (const std::optional<double> stop = seconds(json, key::stop)) {
        take.elapsed = std::max(*stop, 0.0);
        journal.isStopped = true;
    }
}

}  // namespace

QByteArray startLine(const TakeRecord& take) {
    const QByteArray rest = line({{key::name, propertyListText(take.name)},
                                  {key::scene, propertyListText(take.scene)},
                                  {key::folder, take.folder},
                                  {key::start, take.start.time_since_epoch().count()}});
    // The first bytes of the file tell what it is.
    return "{\"marquillTake\":" + QByteArray::number(version) + ',' + rest.sliced(1);
}

QByteArray markerLine(const Dictionary& marker, double at) {
    const Dictionary writable = Utils::writableCopy(marker).dictionary().value_or(Dictionary());
    return line({{key::marker, TakeJournalValues::jsonOfRecord(writable)}, {key::at, at}});
}

QByteArray aliveLine(double elapsed) {
    return line({{key::alive, elapsed}});
}

QByteArray changeLine(const TakeRecord& before, const TakeRecord& now) {
    QJsonObject json;
    if (now.name != before.name) {
        json.insert(key::name, propertyListText(now.name));
    }
    if (now.scene != before.scene) {
        json.insert(key::scene, propertyListText(now.scene));
    }
    if (now.folder != before.folder) {
        json.insert(key::folder, now.folder);
    }
    return json.isEmpty() ? QByteArray() : line(json);
}

QByteArray stopLine(double elapsed) {
    return line({{key::stop, elapsed}});
}

Result<Journal> read(QByteArrayView bytes) {
    QByteArrayView rest = bytes.first(std::min<qsizetype>(bytes.size(), mostBytes));
    const std::optional<QByteArrayView> first = takeLine(rest);
    if (!first) {
        return failure(
            ErrorCode::endsEarly,
            QCoreApplication::translate("TakeJournalFormat", "The journal ends before it tells of a take."),
            {}, bytes.size());
    }
    Result<Journal> journal = readStart(*first);
    while (journal) {
        const std::optional<QByteArrayView> line = takeLine(rest);
        const std::optional<QJsonObject> json = line ? objectOfLine(*line) : std::nullopt;
        if (!json) {
            break;
        }
        readFurther(*json, *journal);
    }
    return journal;
}

}  // namespace marquill::TakeJournalFormat
