// The current clip's marker list: what is handed on to it, and when markers fired now are its.
#include "clipmanager/ClipManager.h"
#include "clipmanager/CurrentClip.h"
#include "clipstore/Notifications.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "markers/ClipMarkerController.h"
#include "markers/MarkerSets.h"
#include "platform/EmptyHint.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"

#include <QAbstractButton>
#include <QMainWindow>

namespace marquill {

Result<void> ClipManager::setUpMarkerList() {
    QAbstractButton* remove = nullptr;
    QAbstractButton* setStart = nullptr;
    QAbstractButton* setStop = nullptr;
    QLabel* count = nullptr;
    Outlets outlets(*_window);
    outlets.connect(_markerTable, u"_markerTable"_s);
    outlets.connect(_addMarkerButton, u"_addMarkerButton"_s);
    outlets.connect(remove, u"_deleteMarkerButton"_s);
    outlets.connect(setStart, u"_setStartButton"_s);
    outlets.connect(setStop, u"_setStopButton"_s);
    outlets.connect(count, u"_markerCount"_s);
    if (Result<void> checked = outlets.check(); !checked) {
        return checked;
    }
    _markers =
        std::make_unique<ClipMarkerController>(ClipMarkerOutlets{*_markerTable, *_addMarkerButton, *remove,
                                                                 *setStart, *setStop, *count, *_moviePreview},
                                               _undoManager);
    new EmptyHint(*_markerTable, tr("No markers"));
    Notifications& centre = Notifications::centre();
    connect(&centre, &Notifications::newMarkerIssued, this, &ClipManager::newMarkerIssued);
    connect(&centre, &Notifications::clipMarkerSelected, this, &ClipManager::markerSelected);
    connect(&centre, &Notifications::clipMarkerChanged, this, &ClipManager::clipMarkerChanged);
    return {};
}

void ClipManager::newMarkerIssued(const Dictionary& marker) {
    if (_markersAreLive && !OfflineRecorder::isRecording() && currentClip()) {
        _markers->newMarkerIssued(marker);
    }
}

void ClipManager::clipIn() {
    if (currentClip()) {
        _markers->clipIn();
    }
}

void ClipManager::clipOut() {
    if (currentClip()) {
        _markers->clipOut();
    }
}

void ClipManager::addMarker() {
    if (currentClip()) {
        _markers->addButtonClicked();
    }
}

void ClipManager::markerSelected(const Dictionary& marker) {
    if (_moviePreview->movie()) {
        _markers->selectMarkerTime(marker);
    }
}

void ClipManager::clipMarkerChanged() {
    if (currentClip()) {
        storeMarkers();
        _clips->model().attributesChanged(*currentClip());
    }
}

void ClipManager::storeMarkers() {
    _current->setMarkers(_markers->markerArray());
}

void ClipManager::setMarkersLive(bool live) {
    _markersAreLive = live;
    enableMarkerButtons();
}

// During a take the buttons are the recorder's.
void ClipManager::enableMarkerButtons() {
    const MarkerSets* markers = MarkerSets::controller();
    if (markers && !OfflineRecorder::isRecording() &&
        markers->buttons().front()->isEnabled() != _markersAreLive) {
        MarkerSets::setMarkersEnabled(_markersAreLive);
    }
}

}  // namespace marquill
