#include "clipstore/MarkerMerge.h"

#include <algorithm>

namespace marquill {

namespace {

// What one side has made of the list that both began with.
struct Changes {
    std::vector<qsizetype> removed;             // indexes into the old list
    std::vector<qsizetype> added;               // indexes into the new list
    std::vector<std::optional<qsizetype>> now;  // by index of the old list: which added marker it has become
};

// The same moment of the clip, or, where that was moved, the same name.
bool isChangeOf(const Value& before, const Value& after) {
    const std::optional<Dictionary> old = before.dictionary();
    const std::optional<Dictionary> changed = after.dictionary();
    const QString in = u"clipMarkerIn"_s;
    const QString title = u"clipMarkerTitle"_s;
    return old && changed &&
           (old->real(in) == changed->real(in) ||
            (old->string(title) && old->string(title) == changed->string(title)));
}

Changes changesOf(const Array& base, const Array& list) {
    Changes changes;
    std::vector<bool> isOld(static_cast<std::size_t>(list.size()));
    for (qsizetype i = 0; i < base.size(); ++i) {
        qsizetype found = 0;
        while (found < list.size() &&
               (isOld[static_cast<std::size_t>(found)] || list.at(found) != base.at(i))) {
            ++found;
        }
        if (found < list.size()) {
            isOld[static_cast<std::size_t>(found)] = true;
        } else {
            changes.removed.push_back(i);
        }
    }
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (!isOld[static_cast<std::size_t>(i)]) {
            changes.added.push_back(i);
        }
    }
    changes.now.resize(static_cast<std::size_t>(base.size()));
    std::vector<qsizetype> free = changes.added;
    for (const qsizetype removed : changes.removed) {
        const auto changed = std::ranges::find_if(
            free, [&](qsizetype added) { return isChangeOf(base.at(removed), list.at(added)); });
        if (changed != free.end()) {
            changes.now[static_cast<std::size_t>(removed)] = *changed;
            free.erase(changed);
        }
    }
    return changes;
}

template <class Item>
bool has(const std::vector<Item>& items, const Item& item) {
    return std::ranges::find(items, item) != items.end();
}

// Whether a marker that both sides have changed, or one changed and one removed, is another one on either.
bool areInConflict(const Changes& ours, const Array& mine, const Changes& others, const Array& theirs) {
    return std::ranges::any_of(ours.removed, [&](qsizetype index) {
        if (!has(others.removed, index)) {
            return false;
        }
        const std::optional<qsizetype> here = ours.now[static_cast<std::size_t>(index)];
        const std::optional<qsizetype> there = others.now[static_cast<std::size_t>(index)];
        return here.has_value() != there.has_value() || (here && mine.at(*here) != theirs.at(*there));
    });
}

bool contains(const Array& list, const std::vector<qsizetype>& indexes, const Value& value) {
    return std::ranges::any_of(indexes, [&](qsizetype index) { return list.at(index) == value; });
}

}  // namespace

std::optional<Array> mergeMarkers(const Array& base, const Array& mine, const Array& theirs) {
    const Changes ours = changesOf(base, mine);
    const Changes others = changesOf(base, theirs);
    if (areInConflict(ours, mine, others, theirs)) {
        return std::nullopt;
    }
    Array merged = mine.copy();
    for (const qsizetype index : others.removed) {
        const qsizetype here = merged.indexOf(base.at(index));
        const std::optional<qsizetype> there = others.now[static_cast<std::size_t>(index)];
        if (here >= 0 && there) {
            merged.replace(here, theirs.at(*there).deepCopy());
        } else if (here >= 0) {
            merged.removeAt(here);
        }
    }
    for (const qsizetype index : others.added) {
        const bool isChange = has(others.now, std::optional(index));
        if (!isChange && !contains(mine, ours.added, theirs.at(index))) {
            merged.append(theirs.at(index).deepCopy());
        }
    }
    return merged;
}

}  // namespace marquill
