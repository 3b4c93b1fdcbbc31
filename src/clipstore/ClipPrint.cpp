#include "clipstore/ClipPrint.h"

#include "clipstore/ClipStore.h"

#include <algorithm>

namespace marquill {

namespace {

enum Kind : int { nothing = 1, boolean, number, largeNumber, date, text, data, list, record, name };

// The same in every run of the program; values of two kinds have different ones.
template <class Content>
quint64 printOfKind(Kind kind, const Content& content) {
    return qHashMulti(0, int(kind), content);
}

quint64 printOf(const Value& value);

quint64 printOf(qint64 integer) {
    const auto real = static_cast<double>(integer);
    constexpr double mostThatFits = 0x1p62;
    const bool isExact = std::abs(real) < mostThatFits && static_cast<qint64>(real) == integer;
    return isExact ? printOfKind(number, real) : printOfKind(largeNumber, integer);
}

quint64 printOf(const Array& array) {
    std::size_t print = printOfKind(list, array.size());
    for (const Value& value : array.values()) {
        print = qHashMulti(print, printOf(value));
    }
    return print;
}

quint64 printOf(const Dictionary& dictionary) {
    std::size_t print = printOfKind(record, dictionary.size());
    for (const Dictionary::Entry& entry : dictionary.entries()) {
        print = qHashMulti(print, entry.key, printOf(entry.value));
    }
    return print;
}

struct Printer {
    quint64 operator()(std::monostate) const { return nothing; }
    quint64 operator()(bool value) const { return printOfKind(boolean, value); }
    quint64 operator()(qint64 value) const { return printOf(value); }
    quint64 operator()(quint64 value) const { return printOfKind(largeNumber, value); }
    quint64 operator()(double value) const { return printOfKind(number, value); }
    quint64 operator()(Date value) const { return printOfKind(date, value.time_since_epoch().count()); }
    quint64 operator()(const QString& value) const { return printOfKind(text, value); }
    quint64 operator()(const QByteArray& value) const { return printOfKind(data, value); }
    quint64 operator()(const Array& value) const { return printOf(value); }
    quint64 operator()(const Dictionary& value) const { return printOf(value); }
};

quint64 printOf(const Value& value) {
    return std::visit(Printer(), value.variant());
}

quint64 printOfName(const QString& key) {
    return printOfKind(name, key);
}

}  // namespace

MarkerPrint MarkerPrint::of(const Value& marker) {
    MarkerPrint print{.whole = printOf(marker), .in = 0, .title = 0};
    if (const std::optional<Dictionary> dictionary = marker.dictionary()) {
        const Value* in = dictionary->find(u"clipMarkerIn"_s);
        const Value* title = dictionary->find(u"clipMarkerTitle"_s);
        print.in = in ? printOf(*in) : 0;
        print.title = title ? printOf(*title) : 0;
    }
    return print;
}

Value ClipPrint::valueOf(const ClipInfo& clip, const QString& key) {
    if (key == ClipKey::clipTake) {
        const QString take = ClipStore::takeFromClip(clip);
        return take.isEmpty() ? Value() : Value(take);
    }
    const Value* value = clip.record().find(key);
    return value ? *value : Value();
}

ClipPrint::ClipPrint(const ClipInfo& clip) {
    const std::span<const Dictionary::Entry> entries = clip.record().entries();
    _keys.reserve(entries.size() + 1);
    for (const Dictionary::Entry& entry : entries) {
        if (entry.key != ClipKey::clipTake) {
            _keys.push_back({printOfName(entry.key), printOf(entry.value)});
        }
    }
    if (const Value take = valueOf(clip, ClipKey::clipTake); !take.isNothing()) {
        _keys.push_back({printOfName(ClipKey::clipTake), printOf(take)});
    }
    std::ranges::sort(_keys, {}, &Key::key);
    if (const std::optional<Array> markers = clip.clipMarkerArray()) {
        _markers.reserve(static_cast<std::size_t>(markers->size()));
        std::ranges::transform(markers->values(), std::back_inserter(_markers), &MarkerPrint::of);
    }
}

bool ClipPrint::held(const QString& key, const Value& value) const {
    const auto found = std::ranges::lower_bound(_keys, printOfName(key), {}, &Key::key);
    const bool isThere = found != _keys.end() && found->key == printOfName(key);
    return isThere ? found->value == printOf(value) : value.isNothing();
}

bool ClipPrint::isSame(const ClipPrint& other, const QStringList& butFor) const {
    std::vector<quint64> left;
    std::ranges::transform(butFor, std::back_inserter(left), &printOfName);
    const auto compared = [&left](std::vector<Key> keys) {
        std::erase_if(keys,
                      [&left](const Key& key) { return std::ranges::find(left, key.key) != left.end(); });
        return keys;
    };
    return compared(_keys) == compared(other._keys);
}

}  // namespace marquill
