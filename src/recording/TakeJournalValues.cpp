#include "recording/TakeJournalValues.h"

#include <QJsonArray>

#include <cmath>

namespace marquill::TakeJournalValues {

namespace {

constexpr int deepest = 32;
constexpr auto dateKey = "$date"_L1;
constexpr auto dataKey = "$data"_L1;
constexpr QChar escape = u'$';

QJsonValue jsonOfValue(const Value& value, int depth);

QJsonArray jsonOfArray(const Array& array, int depth) {
    QJsonArray json;
    for (const Value& value : array.values()) {
        const QJsonValue element = jsonOfValue(value, depth);
        if (!element.isUndefined()) {
            json.append(element);
        }
    }
    return json;
}

QJsonObject jsonOfDictionary(const Dictionary& record, int depth) {
    QJsonObject json;
    for (const auto& [key, value] : record.entries()) {
        const QJsonValue member = jsonOfValue(value, depth);
        if (!member.isUndefined()) {
            json.insert(key.startsWith(escape) ? escape + key : key, member);
        }
    }
    return json;
}

// Undefined stands for what is left out.
struct ToJson {
    int depth;

    QJsonValue operator()(std::monostate) const { return QJsonValue::Undefined; }
    QJsonValue operator()(bool value) const { return value; }
    QJsonValue operator()(qint64 value) const { return value; }
    QJsonValue operator()(quint64 value) const { return static_cast<double>(value); }
    QJsonValue operator()(double value) const {
        return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QJsonValue::Undefined);
    }
    QJsonValue operator()(Date value) const {
        const double seconds = value.time_since_epoch().count();
        return std::isfinite(seconds) ? QJsonValue(QJsonObject{{dateKey, seconds}})
                                      : QJsonValue(QJsonValue::Undefined);
    }
    QJsonValue operator()(const QString& value) const { return value; }
    QJsonValue operator()(const QByteArray& value) const {
        return QJsonObject{{dataKey, QString::fromLatin1(value.toBase64())}};
    }
    QJsonValue operator()(const Array& value) const { return jsonOfArray(value, depth); }
    QJsonValue operator()(const Dictionary& value) const { return jsonOfDictionary(value, depth); }
};

QJsonValue jsonOfValue(const Value& value, int depth) {
    return depth < deepest ? std::visit(ToJson{depth + 1}, value.variant())
                           : QJsonValue(QJsonValue::Undefined);
}

// Nothing stands for what is left out.
Value valueOfJson(const QJsonValue& json, int depth);

Array arrayOfJson(const QJsonArray& json, int depth) {
    Array array;
    for (const QJsonValue& element : json) {
        if (Value value = valueOfJson(element, depth); !value.isNothing()) {
            array.append(std::move(value));
        }
    }
    return array;
}

Dictionary dictionaryOfJson(const QJsonObject& json, int depth) {
    Dictionary record;
    for (auto member = json.begin(); member != json.end(); ++member) {
        const QString key = member.key();
        if (Value value = valueOfJson(member.value(), depth); !value.isNothing()) {
            record.set(key.startsWith(escape) ? key.sliced(1) : key, std::move(value));
        }
    }
    return record;
}

Value valueOfObject(const QJsonObject& json, int depth) {
    if (json.size() == 1 && json.value(dateKey).isDouble()) {
        return Date(std::chrono::duration<double>(json.value(dateKey).toDouble()));
    }
    if (json.size() == 1 && json.value(dataKey).isString()) {
        return QByteArray::fromBase64(json.value(dataKey).toString().toLatin1());
    }
    return dictionaryOfJson(json, depth);
}

// JSON has one kind of number.
Value valueOfNumber(const QJsonValue& json) {
    const double real = json.toDouble();
    constexpr double exactIntegers = 9'007'199'254'740'992;  // 2^53
    const bool isWhole = std::trunc(real) == real && std::abs(real) <= exactIntegers;
    return isWhole ? Value(json.toInteger(static_cast<qint64>(real))) : Value(real);
}

Value valueOfJson(const QJsonValue& json, int depth) {
    if (depth >= deepest) {
        return {};
    }
    switch (json.type()) {
        case QJsonValue::Bool:
            return json.toBool();
        case QJsonValue::Double:
            return valueOfNumber(json);
        case QJsonValue::String:
            return json.toString();
        case QJsonValue::Array:
            return arrayOfJson(json.toArray(), depth + 1);
        case QJsonValue::Object:
            return valueOfObject(json.toObject(), depth + 1);
        default:
            return {};
    }
}

}  // namespace

QJsonObject jsonOfRecord(const Dictionary& record) {
    return jsonOfDictionary(record, 0);
}

Dictionary recordOfJson(const QJsonObject& json) {
    return dictionaryOfJson(json, 0);
}

}  // namespace marquill::TakeJournalValues
