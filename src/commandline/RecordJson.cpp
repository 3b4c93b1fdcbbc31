#include "commandline/RecordJson.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

namespace marquill {

namespace {

QJsonArray jsonOfArray(const Array& array) {
    QJsonArray json;
    for (const Value& value : array.values()) {
        json.append(jsonOfValue(value));
    }
    return json;
}

struct ToJson {
    QJsonValue operator()(std::monostate) const { return QJsonValue::Null; }
    QJsonValue operator()(bool value) const { return value; }
    QJsonValue operator()(qint64 value) const { return value; }
    // JSON's readers hold integers of this size as reals or texts; a text loses nothing.
    QJsonValue operator()(quint64 value) const { return QString::number(value); }
    QJsonValue operator()(double value) const {
        return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QString::number(value));
    }
    QJsonValue operator()(Date value) const { return isoDateText(value); }
    QJsonValue operator()(const QString& value) const { return value; }
    QJsonValue operator()(const QByteArray& value) const { return QString::fromLatin1(value.toBase64()); }
    QJsonValue operator()(const Array& value) const { return jsonOfArray(value); }
    QJsonValue operator()(const Dictionary& value) const { return jsonOfRecord(value); }
};

}  // namespace

QJsonValue jsonOfValue(const Value& value) {
    return std::visit(ToJson(), value.variant());
}

QJsonObject jsonOfRecord(const Dictionary& record) {
    QJsonObject json;
    for (const Dictionary::Entry& entry : record.entries()) {
        json.insert(entry.key, jsonOfValue(entry.value));
    }
    return json;
}

QString jsonText(const QJsonValue& value) {
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return QString::fromUtf8(document.toJson(QJsonDocument::Indented)).trimmed();
}

}  // namespace marquill
