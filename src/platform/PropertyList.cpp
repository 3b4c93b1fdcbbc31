#include "platform/PropertyList.h"

#include <QSharedData>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace marquill {

struct ArrayStorage : QSharedData {
    std::vector<Value> values;
    bool frozen = false;
};

// Records are small (a dozen keys), so a sorted vector beats a hash or a tree in both time and room.
struct DictionaryStorage : QSharedData {
    std::vector<Dictionary::Entry> entries;
    bool frozen = false;

    std::vector<Dictionary::Entry>::iterator position(QStringView key) {
        return std::lower_bound(entries.begin(), entries.end(), key,
                                [](const Dictionary::Entry& entry, QStringView k) { return entry.key < k; });
    }
};

namespace {

template <class T>
std::optional<T> held(const Value::Variant& variant) {
    const T* value = std::get_if<T>(&variant);
    return value ? std::optional<T>(*value) : std::nullopt;
}

// Both bounds are exact in double precision; the upper one is the first value that does not fit.
bool fitsSigned(double number) {
    return number >= -0x1p63 && number < 0x1p63;
}

bool integerEqualsReal(qint64 integer, double real) {
    return fitsSigned(real) && std::trunc(real) == real && static_cast<qint64>(real) == integer;
}

bool integerEqualsReal(quint64 integer, double real) {
    return real >= 0 && real < 0x1p64 && std::trunc(real) == real && static_cast<quint64>(real) == integer;
}

/// Of equal keys the first one is kept.
std::vector<Dictionary::Entry> sortedWithoutRepeats(std::vector<Dictionary::Entry> entries) {
    std::vector<size_t> order(entries.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, [&entries](size_t left, size_t right) {
        const int difference = entries[left].key.compare(entries[right].key);
        return difference != 0 ? difference < 0 : left < right;
    });
    std::vector<Dictionary::Entry> sorted;
    sorted.reserve(entries.size());
    for (const size_t index : order) {
        if (sorted.empty() || sorted.back().key != entries[index].key) {
            sorted.push_back(std::move(entries[index]));
        }
    }
    return sorted;
}

}  // namespace

// Array

Array::Array() : _storage(new ArrayStorage) {}
Array::Array(std::initializer_list<Value> values) : Array() {
    _storage->values.assign(values);
}
Array::Array(const Array&) = default;
Array::Array(Array&&) noexcept = default;
Array& Array::operator=(const Array&) = default;
Array& Array::operator=(Array&&) noexcept = default;
Array::~Array() = default;

Array Array::fromValues(std::vector<Value> values) {
    Array array;
    array._storage->values = std::move(values);
    return array;
}

qsizetype Array::size() const {
    return static_cast<qsizetype>(_storage->values.size());
}

const Value& Array::at(qsizetype index) const {
    return _storage->values[static_cast<size_t>(index)];
}

std::span<const Value> Array::values() const {
    return _storage->values;
}

qsizetype Array::indexOf(const Value& value) const {
    const auto& values = _storage->values;
    const auto found = std::find(values.begin(), values.end(), value);
    return found == values.end() ? -1 : found - values.begin();
}

bool Array::reserve(qsizetype size) {
    if (_storage->frozen) {
        return false;
    }
    _storage->values.reserve(static_cast<size_t>(size));
    return true;
}

bool Array::append(Value value) {
    if (_storage->frozen) {
        return false;
    }
    _storage->values.push_back(std::move(value));
    return true;
}

bool Array::insert(qsizetype index, Value value) {
    if (_storage->frozen) {
        return false;
    }
    _storage->values.insert(_storage->values.begin() + index, std::move(value));
    return true;
}

bool Array::replace(qsizetype index, Value value) {
    if (_storage->frozen) {
        return false;
    }
    _storage->values[static_cast<size_t>(index)] = std::move(value);
    return true;
}

bool Array::removeAt(qsizetype index) {
    if (_storage->frozen) {
        return false;
    }
    _storage->values.erase(_storage->values.begin() + index);
    return true;
}

Array Array::copy() const {
    Array result;
    result._storage->values = _storage->values;
    return result;
}

Array Array::deepCopy() const {
    Array result;
    result._storage->values.reserve(_storage->values.size());
    for (const Value& value : _storage->values) {
        result._storage->values.push_back(value.deepCopy());
    }
    return result;
}

void Array::freeze() {
    if (_storage->frozen) {
        return;
    }
    _storage->frozen = true;
    for (Value& value : _storage->values) {
        value.freeze();
    }
}

bool Array::isFrozen() const {
    return _storage->frozen;
}

bool Array::isSame(const Array& other) const {
    return _storage == other._storage;
}

bool Array::operator==(const Array& other) const {
    return isSame(other) || _storage->values == other._storage->values;
}

// Dictionary

Dictionary::Dictionary() : _storage(new DictionaryStorage) {}
Dictionary::Dictionary(std::initializer_list<std::pair<QString, Value>> entries) : Dictionary() {
    for (const auto& [key, value] : entries) {
        set(key, value);
    }
}
Dictionary::Dictionary(const Dictionary&) = default;
Dictionary::Dictionary(Dictionary&&) noexcept = default;
Dictionary& Dictionary::operator=(const Dictionary&) = default;
Dictionary& Dictionary::operator=(Dictionary&&) noexcept = default;
Dictionary::~Dictionary() = default;

Dictionary Dictionary::fromEntries(std::vector<Entry> entries) {
    // Most come from a file that was written in order.
    const auto isOutOfOrder = [](const Entry& left, const Entry& right) { return left.key >= right.key; };
    if (std::ranges::adjacent_find(entries, isOutOfOrder) != entries.end()) {
        entries = sortedWithoutRepeats(std::move(entries));
    }
    Dictionary dictionary;
    dictionary._storage->entries = std::move(entries);
    return dictionary;
}

qsizetype Dictionary::size() const {
    return static_cast<qsizetype>(_storage->entries.size());
}

const Value* Dictionary::find(QStringView key) const {
    const auto found = _storage->position(key);
    return found != _storage->entries.end() && found->key == key ? &found->value : nullptr;
}

QStringList Dictionary::keys() const {
    QStringList keys;
    keys.reserve(size());
    for (const Entry& entry : _storage->entries) {
        keys.append(entry.key);
    }
    return keys;
}

std::span<const Dictionary::Entry> Dictionary::entries() const {
    return _storage->entries;
}

std::optional<QString> Dictionary::string(QStringView key) const {
    const Value* value = find(key);
    return value ? value->string() : std::nullopt;
}

std::optional<qint64> Dictionary::integer(QStringView key) const {
    const Value* value = find(key);
    return value ? value->integer() : std::nullopt;
}

std::optional<double> Dictionary::real(QStringView key) const {
    const Value* value = find(key);
    return value ? value->real() : std::nullopt;
}

std::optional<bool> Dictionary::boolean(QStringView key) const {
    const Value* value = find(key);
    return value ? value->boolean() : std::nullopt;
}

std::optional<Date> Dictionary::date(QStringView key) const {
    const Value* value = find(key);
    return value ? value->date() : std::nullopt;
}

std::optional<QByteArray> Dictionary::data(QStringView key) const {
    const Value* value = find(key);
    return value ? value->data() : std::nullopt;
}

std::optional<Array> Dictionary::array(QStringView key) const {
    const Value* value = find(key);
    return value ? value->array() : std::nullopt;
}

std::optional<Dictionary> Dictionary::dictionary(QStringView key) const {
    const Value* value = find(key);
    return value ? value->dictionary() : std::nullopt;
}

bool Dictionary::set(const QString& key, Value value) {
    if (_storage->frozen) {
        return false;
    }
    const auto position = _storage->position(key);
    if (position != _storage->entries.end() && position->key == key) {
        position->value = std::move(value);
    } else {
        _storage->entries.insert(position, Entry{key, std::move(value)});
    }
    return true;
}

bool Dictionary::remove(QStringView key) {
    if (_storage->frozen) {
        return false;
    }
    const auto position = _storage->position(key);
    if (position != _storage->entries.end() && position->key == key) {
        _storage->entries.erase(position);
    }
    return true;
}

Dictionary Dictionary::copy() const {
    Dictionary result;
    result._storage->entries = _storage->entries;
    return result;
}

Dictionary Dictionary::deepCopy() const {
    Dictionary result;
    result._storage->entries.reserve(_storage->entries.size());
    for (const Entry& entry : _storage->entries) {
        result._storage->entries.push_back(Entry{entry.key, entry.value.deepCopy()});
    }
    return result;
}

void Dictionary::freeze() {
    if (_storage->frozen) {
        return;
    }
    _storage->frozen = true;
    for (Entry& entry : _storage->entries) {
        entry.value.freeze();
    }
}

bool Dictionary::isFrozen() const {
    return _storage->frozen;
}

bool Dictionary::isSame(const Dictionary& other) const {
    return _storage == other._storage;
}

const void* Dictionary::identity() const {
    return _storage.data();
}

bool Dictionary::operator==(const Dictionary& other) const {
    return isSame(other) || std::ranges::equal(_storage->entries, other._storage->entries,
                                               [](const Entry& left, const Entry& right) {
                                                   return left.key == right.key && left.value == right.value;
                                               });
}

// Value

Value::Value(quint64 value) {
    if (value <= static_cast<quint64>(std::numeric_limits<qint64>::max())) {
        _variant = static_cast<qint64>(value);
    } else {
        _variant = value;
    }
}

std::optional<QString> Value::string() const {
    return held<QString>(_variant);
}

std::optional<qint64> Value::integer() const {
    if (const double* real = std::get_if<double>(&_variant)) {
        return fitsSigned(*real) ? std::optional(static_cast<qint64>(*real)) : std::nullopt;
    }
    return held<qint64>(_variant);
}

std::optional<double> Value::real() const {
    if (const qint64* integer = std::get_if<qint64>(&_variant)) {
        return static_cast<double>(*integer);
    }
    if (const quint64* integer = std::get_if<quint64>(&_variant)) {
        return static_cast<double>(*integer);
    }
    return held<double>(_variant);
}

std::optional<bool> Value::boolean() const {
    if (const bool* boolean = std::get_if<bool>(&_variant)) {
        return *boolean;
    }
    const std::optional<double> number = real();
    return number ? std::optional(*number != 0) : std::nullopt;
}

std::optional<Date> Value::date() const {
    return held<Date>(_variant);
}

std::optional<QByteArray> Value::data() const {
    return held<QByteArray>(_variant);
}

std::optional<Array> Value::array() const {
    return held<Array>(_variant);
}

std::optional<Dictionary> Value::dictionary() const {
    return held<Dictionary>(_variant);
}

Value Value::deepCopy() const {
    if (const Array* array = std::get_if<Array>(&_variant)) {
        return array->deepCopy();
    }
    if (const Dictionary* dictionary = std::get_if<Dictionary>(&_variant)) {
        return dictionary->deepCopy();
    }
    return *this;
}

void Value::freeze() {
    if (Array* array = std::get_if<Array>(&_variant)) {
        array->freeze();
    } else if (Dictionary* dictionary = std::get_if<Dictionary>(&_variant)) {
        dictionary->freeze();
    }
}

bool Value::operator==(const Value& other) const {
    if (_variant.index() == other._variant.index()) {
        return _variant == other._variant;
    }
    if (const double* real = std::get_if<double>(&other._variant)) {
        if (const qint64* integer = std::get_if<qint64>(&_variant)) {
            return integerEqualsReal(*integer, *real);
        }
        if (const quint64* integer = std::get_if<quint64>(&_variant)) {
            return integerEqualsReal(*integer, *real);
        }
    }
    return std::holds_alternative<double>(_variant) && !std::holds_alternative<double>(other._variant) &&
           other == *this;
}

Array arrayOfStrings(const QStringList& texts) {
    Array array;
    array.reserve(texts.size());
    for (const QString& text : texts) {
        array.append(text);
    }
    return array;
}

QStringList stringsOfArray(const Array& array) {
    QStringList texts;
    for (const Value& value : array.values()) {
        if (std::optional<QString> text = value.string()) {
            texts.append(*std::move(text));
        }
    }
    return texts;
}

}  // namespace marquill
