// Property-list values: what clip files, movies' clip records and the user defaults hold. Array and
// Dictionary are handles with identity: copying a handle shares the record, deepCopy() parts it, == compares
// content and isSame() identity. A record may be read from several threads as long as none changes it.
#pragma once

#include "platform/Date.h"
#include "platform/Literals.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QString>
#include <QStringList>

#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace marquill {

class Value;
struct ArrayStorage;
struct DictionaryStorage;

/// An ordered list of values. A new one is empty and mutable. Indexes count from 0.
class Array {
  public:
    Array();
    Array(std::initializer_list<Value> values);
    Array(const Array&);
    Array(Array&&) noexcept;
    Array& operator=(const Array&);
    Array& operator=(Array&&) noexcept;
    ~Array();
    static Array fromValues(std::vector<Value> values);

    qsizetype size() const;
    bool isEmpty() const { return size() == 0; }
    /// The value at `index`, which must be below size(); valid until the array changes.
    const Value& at(qsizetype index) const;
    /// All values in order; valid until the array changes.
    std::span<const Value> values() const;
    /// The position of the first value equal to `value`, or -1.
    qsizetype indexOf(const Value& value) const;

    // Changes. Each returns false, and changes nothing, when the array is frozen.
    bool reserve(qsizetype size);
    bool append(Value value);
    bool insert(qsizetype index, Value value);   ///< index 0 to size()
    bool replace(qsizetype index, Value value);  ///< index below size()
    bool removeAt(qsizetype index);              ///< index below size()

    Array copy() const;      ///< a mutable copy that shares the values within
    Array deepCopy() const;  ///< a copy that shares nothing and is mutable all the way down
    void freeze();           ///< makes it read-only, all the way down and for good
    bool isFrozen() const;
    bool isSame(const Array& other) const;
    bool operator==(const Array& other) const;

  private:
    QExplicitlySharedDataPointer<ArrayStorage> _storage;
};

/// Values by string keys. A new one is empty and mutable. Keys are kept in the order of their UTF-16 code
/// units, which is the order they are written in.
class Dictionary {
  public:
    struct Entry;

    Dictionary();
    Dictionary(std::initializer_list<std::pair<QString, Value>> entries);
    Dictionary(const Dictionary&);
    Dictionary(Dictionary&&) noexcept;
    Dictionary& operator=(const Dictionary&);
    Dictionary& operator=(Dictionary&&) noexcept;
    ~Dictionary();
    /// All at once, in any order; of equal keys the first one is kept.
    static Dictionary fromEntries(std::vector<Entry> entries);

    qsizetype size() const;
    bool isEmpty() const { return size() == 0; }
    bool contains(QStringView key) const { return find(key) != nullptr; }
    /// The value of `key`, or null when there is none; valid until the dictionary changes.
    const Value* find(QStringView key) const;
    QStringList keys() const;
    /// All entries, sorted by key; valid until the dictionary changes.
    std::span<const Entry> entries() const;

    // The value of a key when it is there and of that type, else nothing.
    std::optional<QString> string(QStringView key) const;
    std::optional<qint64> integer(QStringView key) const;  ///< of a real: truncated toward zero, if it fits
    std::optional<double> real(QStringView key) const;     ///< of an integer too
    std::optional<bool> boolean(QStringView key) const;    ///< of a number too: false when it is 0
    std::optional<Date> date(QStringView key) const;
    std::optional<QByteArray> data(QStringView key) const;
    std::optional<Array> array(QStringView key) const;
    std::optional<Dictionary> dictionary(QStringView key) const;

    // Changes. Each returns false, and changes nothing, when the dictionary is frozen.
    bool set(const QString& key, Value value);
    bool remove(QStringView key);  ///< true also when there was no such key

    Dictionary copy() const;      ///< a mutable copy that shares the values within
    Dictionary deepCopy() const;  ///< a copy that shares nothing and is mutable all the way down
    void freeze();                ///< makes it read-only, all the way down and for good
    bool isFrozen() const;
    bool isSame(const Dictionary& other) const;
    /// Equal for handles over the same record and for no others while any of them lives: what large lists
    /// find a record by.
    const void* identity() const;
    bool operator==(const Dictionary& other) const;

  private:
    QExplicitlySharedDataPointer<DictionaryStorage> _storage;
};

/// One property-list value; an absent one (nothing) holds none. Integers outside the signed range are kept as
/// unsigned ones, all others as signed ones.
class Value {
  public:
    using Variant = std::variant<std::monostate, bool, qint64, quint64, double, Date, QString, QByteArray,
                                 Array, Dictionary>;

    Value() = default;
    Value(bool value) : _variant(value) {}
    Value(int value) : _variant(qint64{value}) {}
    Value(qint64 value) : _variant(value) {}
    Value(quint64 value);
    Value(double value) : _variant(value) {}
    Value(Date value) : _variant(value) {}
    Value(QString value) : _variant(std::move(value)) {}
    Value(QByteArray value) : _variant(std::move(value)) {}
    Value(Array value) : _variant(std::move(value)) {}
    Value(Dictionary value) : _variant(std::move(value)) {}
    Value(const char*) = delete;

    bool isNothing() const { return std::holds_alternative<std::monostate>(_variant); }
    const Variant& variant() const { return _variant; }

    // The value when it is of that type, else nothing; numbers convert as Dictionary says.
    std::optional<QString> string() const;
    std::optional<qint64> integer() const;
    std::optional<double> real() const;
    std::optional<bool> boolean() const;
    std::optional<Date> date() const;
    std::optional<QByteArray> data() const;
    std::optional<Array> array() const;
    std::optional<Dictionary> dictionary() const;

    Value deepCopy() const;
    void freeze();
    /// Content. An integer equals a real of the same number; a boolean equals a boolean only.
    bool operator==(const Value& other) const;

  private:
    Variant _variant;
};

struct Dictionary::Entry {
    QString key;
    Value value;
};

/// The array of these texts.
Array arrayOfStrings(const QStringList& texts);

/// The texts of an array in order; values that are no texts are left out.
QStringList stringsOfArray(const Array& array);

}  // namespace marquill
