// Sorting the clip table: what each column is sorted by is worked out once per row, then compared.
#include "clipstore/ClipStore.h"
#include "connect/ClipTableModel.h"
#include "platform/NaturalCollator.h"

#include <algorithm>
#include <limits>

namespace marquill {

namespace {

template <class Key>
struct KeyedRow {
    Key key;
    int row;
};

// Equal rows stay in the order they were in, in both directions.
template <class Key>
std::vector<int> ordered(std::vector<KeyedRow<Key>> rows, Qt::SortOrder order) {
    if (order == Qt::AscendingOrder) {
        std::ranges::stable_sort(rows, [](const auto& a, const auto& b) { return a.key < b.key; });
    } else {
        std::ranges::stable_sort(rows, [](const auto& a, const auto& b) { return b.key < a.key; });
    }
    std::vector<int> result;
    result.reserve(rows.size());
    for (const KeyedRow<Key>& row : rows) {
        result.push_back(row.row);
    }
    return result;
}

template <class KeyOfRow>
auto keyed(int count, KeyOfRow keyOfRow) {
    using Key = decltype(keyOfRow(0));
    std::vector<KeyedRow<Key>> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) {
        rows.push_back({keyOfRow(row), row});
    }
    return rows;
}

// What is absent comes before what is not.
constexpr double absent = -std::numeric_limits<double>::infinity();

double numberOf(const std::optional<qint64>& value) {
    return value ? static_cast<double>(*value) : absent;
}

}  // namespace

std::vector<int> ClipTableModel::sortedRows(int column, Qt::SortOrder order) const {
    const auto byNumber = [&](auto keyOfRow) { return ordered(keyed(rowCount(), keyOfRow), order); };
    switch (column) {
        case number:
            return byNumber([this](int row) { return _rows[static_cast<std::size_t>(row)].arrival; });
        case icon:
            return byNumber([this](int row) { return static_cast<int>(status(row)); });
        case duration:
            return byNumber([this](int row) { return numberOf(clipAt(row).clipDuration()); });
        case creationdate:
            return byNumber([this](int row) {
                const std::optional<Date> known = clipAt(row).clipCreationDate();
                const std::optional<Date> date = known ? known : facts(row).creationDate;
                return date ? date->time_since_epoch().count() : absent;
            });
        case filesize:
            return byNumber([this](int row) { return numberOf(facts(row).mediaSize); });
        case rating:
            return byNumber([this](int row) { return clipAt(row).clipRating().value_or(0); });
        default: {
            const QCollator collator = naturalCollator();
            return byNumber([&](int row) { return collator.sortKey(text(row, column)); });
        }
    }
}

}  // namespace marquill
