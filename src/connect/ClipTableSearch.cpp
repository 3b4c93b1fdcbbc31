// Searching for clips in the clip table: what the query hides, and what becomes of the selection.
#include "connect/ClipSelectionChange.h"
#include "platform/TableView.h"

#include <QApplication>

#include <algorithm>

namespace marquill {

namespace {

// How many clips are made ready in one turn of the event loop: a few milliseconds' worth.
constexpr int clipsPreparedAtOnce = 2048;

}  // namespace

void ClipTableController::setUpSearch() {
    _keptTimer.setSingleShot(true);
    // Not before a second click can come: it is meant for the row that the first one hit.
    _keptTimer.setInterval(QApplication::doubleClickInterval());
    connect(&_keptTimer, &QTimer::timeout, this, &ClipTableController::hideKeptClips);
    connect(&_prepareTimer, &QTimer::timeout, this, [this] {
        _preparedRows = _model.prepareSearch(_preparedRows, clipsPreparedAtOnce);
        if (_preparedRows >= _model.rowCount()) {
            _prepareTimer.stop();
        }
    });
}

void ClipTableController::prepareSearch() {
    _preparedRows = 0;
    _prepareTimer.start();
}

void ClipTableController::setQuery(const QString& query) {
    _query = query;
    ClipFilter filter = ClipFilter::parse(query);
    _queryProblem = filter.problem();
    if (filter.asksSameAs(_model.filter())) {
        return;
    }
    endEditing();
    const std::vector<int> rows = selectedRows();
    {
        const SelectionChange change(*this, SelectionChange::Kind::quiet);
        _table.clearSelection();
        _model.setFilter(std::move(filter));
        selectRows(rows);
    }
    if (selectedRows().empty()) {
        _table.scrollToTop();
    } else {
        scrollToClip(_model.clipAt(selectedRows().front()));
    }
    if (selectedRows() == rows) {
        updateClipCount();
    } else {
        tableViewSelectionDidChange();
    }
}

// A row that a button is held down on must not be another one when it is let go.
void ClipTableController::hideKeptClips() {
    if (QApplication::mouseButtons() != Qt::NoButton) {
        _keptTimer.start();
        return;
    }
    if (_model.hideKeptRows(selectedRows())) {
        updateClipCount();
    }
}

QString ClipTableController::searchSummary() const {
    if (!isSearching()) {
        return {};
    }
    const int notFound = _model.countNotFound();
    return notFound == 0 ? tr("%1 shown").arg(shownClipCount())
                         : tr("%1 shown, %2 outside the search").arg(shownClipCount()).arg(notFound);
}

}  // namespace marquill
