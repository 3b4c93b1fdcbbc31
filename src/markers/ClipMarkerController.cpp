#include "markers/ClipMarkerController.h"

#include "clipstore/Notifications.h"
#include "connect/MoviePreview.h"
#include "platform/CellDelegate.h"
#include "platform/RecordTextValidator.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

// A text; what could not be written into the record cannot be typed.
class TextCell : public CellDelegate {
  public:
    using CellDelegate::CellDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override {
        auto* field = new QLineEdit(parent);
        field->setFrame(false);
        field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
        field->setValidator(new RecordTextValidator(field));
        return field;
    }

    // Line breaks of a text are shown as spaces.
    QString displayText(const QVariant& value, const QLocale& /*locale*/) const override {
        return value.toString().replace(u'\n', u' ').replace(u'\r', u' ');
    }
};

std::vector<TableColumn> tableColumns() {
    const auto column = [](int index, const QString& sample, bool grows = false) {
        return TableColumn{index, ClipMarkerModel::identifier(index), sample, grows};
    };
    // Together no wider than the list is on a small screen; names and comments share the rest of a larger
    // one.
    return {column(ClipMarkerModel::markerIndex, u"888"_s),
            column(ClipMarkerModel::markerName, u"Focus soft"_s, true),
            column(ClipMarkerModel::markerStart, u"88:88:88"_s),
            column(ClipMarkerModel::markerDuration, u"88:88:88"_s),
            column(ClipMarkerModel::markerComment, u"8"_s)};
}

// Truncated toward zero. The start of a frame, which a marker mostly is, has been divided by the time scale
// and may come out a trifle less when it is multiplied: 29 / 100 * 100 is no 29. It is meant to be that
// frame.
std::optional<qint64> wholeUnits(double seconds, qint32 timeScale) {
    const double units = seconds * timeScale;
    const double nearest = std::round(units);
    return Value(nearest / timeScale == seconds ? nearest : units).integer();
}

}  // namespace

ClipMarkerController::ClipMarkerController(const ClipMarkerOutlets& outlets, UndoManager& undoManager,
                                           QObject* parent)
    : QObject(parent), _outlets(outlets), _undoManager(undoManager) {
    wireTable();
    wireButtons();
    wirePreview();
    buildContextMenu();
    removeMarkerArray();
}

ClipMarkerController::~ClipMarkerController() {
    _outlets.tableView.deleteItem = nullptr;
    _outlets.tableView.keyDown = nullptr;
    _outlets.tableView.menuForEvent = nullptr;
}

void ClipMarkerController::wireTable() {
    TableView& table = _outlets.tableView;
    table.setAccessibleName(tr("Markers of the clip"));
    table.setModel(&_model);
    table.setItemDelegate(new TextCell(&table));
    table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
    table.verticalHeader()->setVisible(false);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _columns = std::make_unique<TableColumns>(table, u"kMarkerTable"_s, tableColumns());
    table.deleteItem = [this] { deleteItem(); };
    table.keyDown = [this](QKeyEvent& event) { keyDown(event); };
    table.menuForEvent = [this](const QContextMenuEvent&) { return menuForEvent(); };
    connect(&_model, &ClipMarkerModel::valueEntered, this, &ClipMarkerController::setObjectValue);
    connect(_columns.get(), &TableColumns::sortDescriptorsDidChange, this,
            &ClipMarkerController::sortMarkers);
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ClipMarkerController::tableViewSelectionDidChange);
}

void ClipMarkerController::wireButtons() {
    const auto wire = [this](QAbstractButton& button, const QString& name, const QString& tip,
                             void (ClipMarkerController::*command)()) {
        button.setAccessibleName(name);
        button.setToolTip(tip);
        connect(&button, &QAbstractButton::clicked, this, command);
    };
    wire(_outlets.addMarkerButton, tr("Add Marker"), tr("Add a marker at the current time"),
         &ClipMarkerController::addButtonClicked);
    wire(_outlets.deleteMarkerButton, tr("Delete Marker(s)"), tr("Delete the selected markers"),
         &ClipMarkerController::deleteItem);
    wire(_outlets.setStartButton, tr("Set Start"), tr("Start the selected marker at the current time"),
         &ClipMarkerController::startButtonClicked);
    wire(_outlets.setStopButton, tr("Set Stop"), tr("End the selected marker at the current time"),
         &ClipMarkerController::stopButtonClicked);
}

void ClipMarkerController::wirePreview() {
    connect(&_outlets.moviePreview, &MovieView::markerClicked, this,
            &ClipMarkerController::markerTimeClicked);
    // A movie comes without ticks.
    connect(&_outlets.moviePreview, &MovieView::movieLoaded, this, [this] {
        updateMarkerTimes();
        if (const std::optional<Dictionary> marker = std::exchange(_nextMarker, std::nullopt)) {
            selectMarkerTime(*marker);
        }
    });
}

void ClipMarkerController::buildContextMenu() {
    const auto add = [this](const QString& id, const QString& text, void (ClipMarkerController::*command)()) {
        _contextMenu.addAction(text, this, command)->setObjectName(id);
    };
    add(u"addButtonClicked"_s, tr("Add Marker"), &ClipMarkerController::addButtonClicked);
    add(u"deleteItem"_s, tr("Delete Marker(s)"), &ClipMarkerController::deleteItem);
    _contextMenu.addSeparator();
    add(u"startButtonClicked"_s, tr("Set Start"), &ClipMarkerController::startButtonClicked);
    add(u"stopButtonClicked"_s, tr("Set Stop"), &ClipMarkerController::stopButtonClicked);
    _contextMenu.addSeparator();
    add(u"renameSelected"_s, tr("Rename"), &ClipMarkerController::renameSelected);
}

QMenu* ClipMarkerController::menuForEvent() {
    const auto enable = [this](const QString& id, const QAbstractButton& button) {
        _contextMenu.findChild<QAction*>(id)->setEnabled(button.isEnabled());
    };
    enable(u"addButtonClicked"_s, _outlets.addMarkerButton);
    enable(u"deleteItem"_s, _outlets.deleteMarkerButton);
    enable(u"startButtonClicked"_s, _outlets.setStartButton);
    enable(u"stopButtonClicked"_s, _outlets.setStopButton);
    enable(u"renameSelected"_s, _outlets.setStartButton);
    return &_contextMenu;
}

void ClipMarkerController::setMarkerArrayFromClip(const ClipInfo& clip) {
    _outlets.tableView.clearSelection();
    _nextMarker.reset();
    _model.setMarkerArray(clip.clipMarkerArray().value_or(Array()));
    sortMarkers();
    _outlets.tableView.scrollToTop();
    _outlets.addMarkerButton.setEnabled(clip.clipPath().has_value());
    updateMarkerCount();
}

void ClipMarkerController::refreshMarkerArrayFromClip(const ClipInfo& clip) {
    if (clip.clipMarkerArray().value_or(Array()) == markerArray()) {
        return;
    }
    const QScopedValueRollback refreshing(_isRefreshing, true);
    const std::vector<Marker> selected = selectedMarkerArray();
    const int scrolled = _outlets.tableView.verticalScrollBar()->value();
    const bool canAdd = _outlets.addMarkerButton.isEnabled();
    setMarkerArrayFromClip(clip);
    selectMarkers(selected, false);
    _outlets.tableView.verticalScrollBar()->setValue(scrolled);
    _outlets.addMarkerButton.setEnabled(canAdd || _outlets.addMarkerButton.isEnabled());
}

void ClipMarkerController::removeMarkerArray() {
    setMarkerArrayFromClip(ClipInfo());
    _outlets.deleteMarkerButton.setEnabled(false);
    _outlets.setStartButton.setEnabled(false);
    _outlets.setStopButton.setEnabled(false);
}

std::vector<Marker> ClipMarkerController::markersWithTag(const QString& tag) const {
    std::vector<Marker> markers;
    std::ranges::copy_if(_model.markers(), std::back_inserter(markers),
                         [&tag](const Marker& marker) { return marker.tag(tag).has_value(); });
    return markers;
}

void ClipMarkerController::sortMarkers() {
    if (_columns->sortColumn() >= 0) {
        _model.sort(_columns->sortColumn(), _columns->sortOrder());
    }
    updateMarkerTimes();
}

void ClipMarkerController::clearActions() {
    _undoManager.removeAllActions(this);
}

std::vector<int> ClipMarkerController::selectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : _outlets.tableView.selectionModel()->selectedRows()) {
        rows.push_back(index.row());
    }
    std::ranges::sort(rows);
    return rows;
}

std::vector<Marker> ClipMarkerController::selectedMarkerArray() const {
    std::vector<Marker> markers;
    for (const int row : selectedRows()) {
        markers.push_back(_model.markerAt(row));
    }
    return markers;
}

void ClipMarkerController::selectMarkers(const std::vector<Marker>& markers, bool scrollTo) {
    QItemSelection selection;
    for (const Marker& marker : markers) {
        if (const int row = _model.rowOfMarker(marker); row >= 0) {
            selection.select(_model.index(row, 0),
                             _model.index(row, ClipMarkerModel::columnCountOfTable - 1));
        }
    }
    QItemSelectionModel& selectionModel = *_outlets.tableView.selectionModel();
    if (!selection.isEmpty()) {
        // Where the arrow keys go on from; the table would scroll there.
        const int column = std::max(_outlets.tableView.currentIndex().column(), 0);
        _outlets.tableView.setAutoScroll(false);
        selectionModel.setCurrentIndex(_model.index(selection.first().top(), column),
                                       QItemSelectionModel::NoUpdate);
        _outlets.tableView.setAutoScroll(true);
    }
    selectionModel.select(selection, QItemSelectionModel::ClearAndSelect);
    if (scrollTo && !markers.empty()) {
        scrollToMarker(markers.front());
    }
}

void ClipMarkerController::scrollToMarker(const Marker& marker) {
    const int row = _model.rowOfMarker(marker);
    if (row >= 0) {
        // Along the row the user has scrolled where he wants to be.
        _outlets.tableView.scrollTo(_model.index(row, std::max(_outlets.tableView.columnAt(0), 0)));
    }
}

void ClipMarkerController::updateMarkerCount() {
    const int total = _model.rowCount();
    const QString text = total == 1 ? tr("%1 of %2 Marker Selected") : tr("%1 of %2 Markers Selected");
    _outlets.markerCount.setText(text.arg(selectedRows().size()).arg(total));
}

// The add button too: where a clip that is not connected would have it disabled, a selection enables it.
void ClipMarkerController::tableViewSelectionDidChange() {
    const std::vector<Marker> selected = selectedMarkerArray();
    _outlets.addMarkerButton.setEnabled(true);
    _outlets.deleteMarkerButton.setEnabled(!selected.empty());
    _outlets.setStartButton.setEnabled(selected.size() == 1);
    _outlets.setStopButton.setEnabled(selected.size() == 1);
    updateMarkerCount();
    if (selected.size() == 1 && !_isRefreshing) {
        Q_EMIT Notifications::centre().clipMarkerSelected(selected.front().record());
    }
}

void ClipMarkerController::renameSelected() {
    if (const std::vector<int> rows = selectedRows(); !rows.empty()) {
        edit(rows.front(), ClipMarkerModel::markerName);
    }
}

void ClipMarkerController::edit(int row, int column) {
    const QModelIndex cell = _model.index(row, column);
    _outlets.tableView.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    _outlets.tableView.edit(cell);
}

void ClipMarkerController::keyDown(QKeyEvent& event) {
    const std::vector<int> rows = selectedRows();
    if (event.key() != Qt::Key_Tab || rows.empty()) {
        return;
    }
    const int next = editableColumnFrom(_lastEditedColumn + 1);
    const int column = next >= 0 ? next : editableColumnFrom(0);
    if (column >= 0) {
        event.accept();
        edit(rows.front(), column);
    }
}

int ClipMarkerController::editableColumnFrom(int place) const {
    const QHeaderView& header = *_outlets.tableView.horizontalHeader();
    for (; place < header.count(); ++place) {
        if (ClipMarkerModel::isEditable(header.logicalIndex(place))) {
            return header.logicalIndex(place);
        }
    }
    return -1;
}

double ClipMarkerController::currentTime() const {
    return _outlets.moviePreview.movie() ? _outlets.moviePreview.currentTime().seconds() : 0.0;
}

void ClipMarkerController::selectMarkerTime(const Dictionary& marker) {
    MoviePreview& preview = _outlets.moviePreview;
    const std::optional<double> in = Marker(marker).in();
    if (!preview.movie() || preview.timeScale() <= 0 || !in) {
        return;
    }
    if (!preview.isLoaded()) {
        _nextMarker = marker;
        return;
    }
    const std::optional<qint64> value = wholeUnits(*in, preview.timeScale());
    // A marker that is fired while the movie plays is where the movie is, and must not make it stumble.
    const bool isThere = preview.isPlaying() && preview.currentTimeValue() == value;
    if (value && !isThere) {
        preview.setCurrentSeconds(MovieTime{*value, preview.timeScale(), 0}.seconds());
    }
}

std::vector<int> ClipMarkerController::rowsOfMarkerTimes() const {
    std::vector<int> rows;
    for (int row = 0; row < _model.rowCount(); ++row) {
        if (_model.markerAt(row).in()) {
            rows.push_back(row);
        }
    }
    return rows;
}

void ClipMarkerController::updateMarkerTimes() {
    QList<double> times;
    if (_outlets.moviePreview.movie()) {
        for (const int row : rowsOfMarkerTimes()) {
            times.append(*_model.markerAt(row).in());
        }
    }
    _outlets.moviePreview.setMarkerTimes(times);
}

void ClipMarkerController::markerTimeClicked(int index) {
    const std::vector<int> rows = rowsOfMarkerTimes();
    if (index >= 0 && static_cast<std::size_t>(index) < rows.size()) {
        selectMarkers({_model.markerAt(rows[static_cast<std::size_t>(index)])}, true);
    }
}

}  // namespace marquill
