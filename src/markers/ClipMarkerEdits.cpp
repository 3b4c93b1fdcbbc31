// What is done to a clip's markers, each with its inverse.
#include "clipstore/Notifications.h"
#include "markers/ClipMarkerController.h"
#include "markers/MarkerSetStore.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QHeaderView>

namespace marquill {

namespace {

QString addMarkers() {
    return ClipMarkerController::tr("add Marker(s)");
}

QString deleteMarkers() {
    return ClipMarkerController::tr("delete Marker(s)");
}

Value valueOf(const Marker& marker, const QString& key) {
    const Value* value = marker.record().find(key);
    return value ? *value : Value();
}

bool setValueOf(const Marker& marker, const QString& key, const Value& value) {
    Dictionary record = marker.record();
    return value.isNothing() ? record.remove(key) : record.set(key, value);
}

}  // namespace

void ClipMarkerController::addMarkersWithUndo(const std::vector<Marker>& markers) {
    insertMarkers(markers, &ClipMarkerController::undoAddMarkersWithUndo, addMarkers());
}

void ClipMarkerController::undoAddMarkersWithUndo(const std::vector<Marker>& markers) {
    takeMarkers(markers, &ClipMarkerController::addMarkersWithUndo, addMarkers());
}

void ClipMarkerController::deleteMarkersWithUndo(const std::vector<Marker>& markers) {
    takeMarkers(markers, &ClipMarkerController::undoDeleteMarkersWithUndo, deleteMarkers());
}

void ClipMarkerController::undoDeleteMarkersWithUndo(const std::vector<Marker>& markers) {
    insertMarkers(markers, &ClipMarkerController::deleteMarkersWithUndo, deleteMarkers());
}

void ClipMarkerController::insertMarkers(const std::vector<Marker>& markers, MarkerOperation inverse,
                                         const QString& action) {
    _model.append(markers);
    sortMarkers();
    selectMarkers(markers, true);
    updateMarkerCount();
    if (!markers.empty()) {
        registerUndo([this, inverse, markers] { (this->*inverse)(markers); }, action);
    }
    Q_EMIT Notifications::centre().clipMarkerChanged();
}

void ClipMarkerController::takeMarkers(const std::vector<Marker>& markers, MarkerOperation inverse,
                                       const QString& action) {
    // First, or what is left of the selection would be told as a new one.
    _outlets.tableView.clearSelection();
    const std::vector<Marker> taken = _model.remove(markers);
    sortMarkers();
    updateMarkerCount();
    if (!taken.empty()) {
        registerUndo([this, inverse, taken] { (this->*inverse)(taken); }, action);
    }
    Q_EMIT Notifications::centre().clipMarkerChanged();
}

// A step that undo or redo makes keeps its name, which of a step of several operations is that of the last.
void ClipMarkerController::registerUndo(std::function<void()> inverse, const QString& action) {
    _undoManager.registerUndo(this, std::move(inverse));
    if (!_undoManager.isUndoing() && !_undoManager.isRedoing()) {
        _undoManager.setActionName(action);
    }
}

void ClipMarkerController::changeMarkerPropertyWithUndo(const MarkerChange& change) {
    MarkerChange inverse = change;
    inverse.value = valueOf(change.item, change.key);
    if (inverse.value != change.value && setValueOf(change.item, change.key, change.value)) {
        _model.markerChanged(change.item);
        sortMarkers();
        updateMarkerCount();
        registerUndo([this, inverse] { changeMarkerPropertyWithUndo(inverse); }, change.action);
    }
    Q_EMIT Notifications::centre().clipMarkerChanged();
}

void ClipMarkerController::endEditing() {
    _outlets.tableView.endEditing();
}

void ClipMarkerController::setObjectValue(const QVariant& value, int column, int row) {
    _lastEditedColumn = _outlets.tableView.horizontalHeader()->visualIndex(column);
    if (!ClipMarkerModel::isEditable(column)) {
        return;
    }
    const bool isName = column == ClipMarkerModel::markerName;
    const Marker marker = _model.markerAt(row);
    const QString key = isName ? clipMarkerTitle : clipMarkerComment;
    // An editor that is left with what it began with has changed nothing, be there no text in the record.
    const bool isAsBefore = value.toString() == _model.text(row, column);
    changeMarkerPropertyWithUndo({.item = marker,
                                  .key = key,
                                  .value = isAsBefore ? valueOf(marker, key) : Value(value.toString()),
                                  .action = isName ? tr("change Marker Name") : tr("change Marker Comment")});
}

void ClipMarkerController::deleteItem() {
    deleteMarkersWithUndo(selectedMarkerArray());
}

void ClipMarkerController::addAtCurrentTime(Marker marker) {
    const double time = currentTime();
    marker.setIn(time);
    marker.setOldIn(time);
    addMarkersWithUndo({marker});
}

void ClipMarkerController::addButtonClicked() {
    addAtCurrentTime(MarkerSetStore::getMarkerWithTitle(u"Untitled"_s, std::nullopt));
}

void ClipMarkerController::startButtonClicked() {
    const std::vector<Marker> selected = selectedMarkerArray();
    if (!selected.empty()) {
        changeMarkerPropertyWithUndo({.item = selected.front(),
                                      .key = clipMarkerIn,
                                      .value = currentTime(),
                                      .action = tr("change Marker Start")});
    }
}

void ClipMarkerController::stopButtonClicked() {
    const std::vector<Marker> selected = selectedMarkerArray();
    if (!selected.empty()) {
        changeMarkerPropertyWithUndo({.item = selected.front(),
                                      .key = clipMarkerDur,
                                      .value = currentTime() - selected.front().in().value_or(0.0),
                                      .action = tr("change Marker Stop")});
    }
}

void ClipMarkerController::newMarkerIssued(const Dictionary& marker) {
    addAtCurrentTime(Marker(marker.isFrozen() ? marker.deepCopy() : marker));
}

void ClipMarkerController::clipIn() {
    setClipPoint(u"In"_s, markerTagIn);
}

void ClipMarkerController::clipOut() {
    setClipPoint(u"Out"_s, markerTagOut);
}

void ClipMarkerController::setClipPoint(const QString& title, const QString& tag) {
    Marker marker = MarkerSetStore::getMarkerWithTitle(title, std::nullopt);
    marker.setTag(tag, true);
    deleteMarkersWithUndo(markersWithTag(tag));
    addAtCurrentTime(marker);
}

}  // namespace marquill
