#include "clipstore/MarkerMerge.h"

#include <algorithm>

namespace marquill {

namespace {

using Prints = std::span<const MarkerPrint>;

// What one side has made of the list that both began with.
struct Changes {
    std::vector<MarkerPrint> list;                // as it is now
    std::vector<std::size_t> removed;             // indexes into the old list
    std::vector<std::size_t> added;               // indexes into the new list
    std::vector<std::optional<std::size_t>> now;  // by index of the old list: which added one it has become
};

// The same moment of the clip, or, where that was moved, the same name.
bool isChangeOf(const MarkerPrint& before, const MarkerPrint& after) {
    return before.in == after.in || (before.title != 0 && before.title == after.title);
}

template <class Item>
bool has(const std::vector<Item>& items, const Item& item) {
    return std::ranges::find(items, item) != items.end();
}

// Which of the list's markers are none of the old ones, and which of those are no more.
void findAddedAndRemoved(Prints base, Changes& changes) {
    std::vector<bool> isOld(changes.list.size());
    for (std::size_t i = 0; i < base.size(); ++i) {
        std::size_t found = 0;
        while (found < changes.list.size() && (isOld[found] || changes.list[found] != base[i])) {
            ++found;
        }
        if (found < changes.list.size()) {
            isOld[found] = true;
        } else {
            changes.removed.push_back(i);
        }
    }
    for (std::size_t i = 0; i < changes.list.size(); ++i) {
        if (!isOld[i]) {
            changes.added.push_back(i);
        }
    }
}

Changes changesOf(Prints base, const Array& list) {
    Changes changes;
    std::ranges::transform(list.values(), std::back_inserter(changes.list), &MarkerPrint::of);
    findAddedAndRemoved(base, changes);
    changes.now.resize(base.size());
    std::vector<std::size_t> free = changes.added;
    for (const std::size_t removed : changes.removed) {
        const auto changed = std::ranges::find_if(
            free, [&](std::size_t added) { return isChangeOf(base[removed], changes.list[added]); });
        if (changed != free.end()) {
            changes.now[removed] = *changed;
            free.erase(changed);
        }
    }
    return changes;
}

// Whether a marker that both sides have changed, or one changed and one removed, is another one on either.
bool areInConflict(const Changes& ours, const Changes& others) {
    return std::ranges::any_of(ours.removed, [&](std::size_t index) {
        if (!has(others.removed, index)) {
            return false;
        }
        const std::optional<std::size_t> here = ours.now[index];
        const std::optional<std::size_t> there = others.now[index];
        return here.has_value() != there.has_value() || (here && ours.list[*here] != others.list[*there]);
    });
}

bool isAdded(const Changes& changes, const MarkerPrint& marker) {
    return std::ranges::any_of(changes.added,
                               [&](std::size_t index) { return changes.list[index] == marker; });
}

}  // namespace

std::optional<Array> mergeMarkers(Prints base, const Array& mine, const Array& theirs) {
    Changes ours = changesOf(base, mine);
    const Changes others = changesOf(base, theirs);
    if (areInConflict(ours, others)) {
        return std::nullopt;
    }
    Array merged = mine.copy();
    const auto theirMarker = [&](std::size_t index) {
        return theirs.at(static_cast<qsizetype>(index)).deepCopy();
    };
    for (const std::size_t index : others.removed) {
        const auto here = std::ranges::find(ours.list, base[index]);
        if (here == ours.list.end()) {
            continue;  // removed here as well
        }
        const auto place = static_cast<qsizetype>(here - ours.list.begin());
        if (const std::optional<std::size_t> there = others.now[index]) {
            merged.replace(place, theirMarker(*there));
            *here = others.list[*there];
        } else {
            merged.removeAt(place);
            ours.list.erase(here);
        }
    }
    const Changes before = changesOf(base, mine);
    for (const std::size_t index : others.added) {
        if (!has(others.now, std::optional(index)) && !isAdded(before, others.list[index])) {
            merged.append(theirMarker(index));
        }
    }
    return merged;
}

}  // namespace marquill
