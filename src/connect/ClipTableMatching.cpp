// Which rows of the clip table a search shows. The texts of a clip are folded when a search first asks for
// them, and again when its record has changed.
#include "connect/ClipTableModel.h"

#include <algorithm>

namespace marquill {

namespace {

// More rows than this are hidden all at once.
constexpr std::size_t mostRowsHiddenSingly = 64;

}  // namespace

void ClipTableModel::setFilter(ClipFilter filter) {
    _filter = std::move(filter);
    for (int row = 0; row < rowCount(); ++row) {
        _rows[static_cast<std::size_t>(row)].match = matches(row) ? Match::found : Match::hidden;
    }
    Q_EMIT filterChanged();
}

bool ClipTableModel::matches(int row) const {
    if (_filter.isEmpty()) {
        return true;
    }
    const ClipSearchText& text = searchText(row);
    const bool mediaExist = !_filter.asksForMedia() || !text.isConnected() || facts(row).mediaExist;
    return _filter.matches(text, mediaExist);
}

const ClipSearchText& ClipTableModel::searchText(int row) const {
    std::unique_ptr<ClipSearchText>& text = _rows[static_cast<std::size_t>(row)].searchText;
    if (!text) {
        text = std::make_unique<ClipSearchText>(clipAt(row));
    }
    return *text;
}

int ClipTableModel::prepareSearch(int first, int count) const {
    const int end = std::min(rowCount(), first + count);
    for (int row = first; row < end; ++row) {
        searchText(row);
    }
    return end;
}

// Of rows that were just added.
void ClipTableModel::matchNew(int first, ClipArrival arrival) {
    const Match otherwise = arrival == ClipArrival::read      ? Match::hidden
                            : arrival == ClipArrival::changed ? Match::kept
                                                              : Match::shown;
    for (int row = first; row < static_cast<int>(_rows.size()); ++row) {
        _rows[static_cast<std::size_t>(row)].match = matches(row) ? Match::found : otherwise;
    }
}

void ClipTableModel::recordChanged(int row) {
    Row& changed = _rows[static_cast<std::size_t>(row)];
    changed.searchText.reset();
    matchAgain(row);
}

// A row must not vanish under the hand that edits it.
void ClipTableModel::matchAgain(int row) {
    Match& match = _rows[static_cast<std::size_t>(row)].match;
    if (matches(row)) {
        match = Match::found;
    } else if (match == Match::found) {
        match = Match::kept;
    }
}

void ClipTableModel::showRow(int row) {
    if (isHidden(row)) {
        _rows[static_cast<std::size_t>(row)].match = Match::shown;
        rowsChanged(row, row);
    }
}

bool ClipTableModel::hideKeptRows(const std::vector<int>& except) {
    std::vector<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        Match& match = _rows[static_cast<std::size_t>(row)].match;
        if (match == Match::kept && !std::ranges::binary_search(except, row)) {
            match = Match::hidden;
            rows.push_back(row);
        }
    }
    if (rows.size() > mostRowsHiddenSingly) {
        Q_EMIT filterChanged();
    } else {
        std::ranges::for_each(rows, [this](int row) { rowsChanged(row, row); });
    }
    return !rows.empty();
}

int ClipTableModel::countNotFound() const {
    return static_cast<int>(std::ranges::count_if(
        _rows, [](const Row& row) { return row.match == Match::kept || row.match == Match::shown; }));
}

}  // namespace marquill
