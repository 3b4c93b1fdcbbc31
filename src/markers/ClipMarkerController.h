// The marker list of the clip that is shown: its selection, its commands, and the operations on its markers,
// which can all be undone. Owned by ClipManager, over widgets that are owned by its window. Main thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "markers/ClipMarkerModel.h"
#include "platform/TableColumns.h"

#include <QMenu>

#include <functional>

class QAbstractButton;
class QKeyEvent;
class QLabel;

namespace marquill {

class MoviePreview;
class TableView;
class UndoManager;

/// What the list is shown in and acts on.
struct ClipMarkerOutlets {
    TableView& tableView;
    QAbstractButton& addMarkerButton;
    QAbstractButton& deleteMarkerButton;
    QAbstractButton& setStartButton;
    QAbstractButton& setStopButton;
    QLabel& markerCount;
    MoviePreview& moviePreview;
};

/// A value to be given to a marker. Nothing takes the key away.
struct MarkerChange {
    Marker item;
    QString key;     ///< of the marker's record
    Value value;     ///< the new one
    QString action;  ///< the name of the undo step
};

class ClipMarkerController : public QObject {
    Q_OBJECT

  public:
    /// `undoManager` is the window's.
    ClipMarkerController(const ClipMarkerOutlets& outlets, UndoManager& undoManager,
                         QObject* parent = nullptr);
    ~ClipMarkerController() override;

    // Content

    /// Shows the clip's markers, nothing selected. The records stay the clip's; its array does not change.
    void setMarkerArrayFromClip(const ClipInfo& clip);
    /// The clip shown has other markers, which somebody else has made: shows them; the selection stays with
    /// the markers that are still there, and undo with its entries.
    void refreshMarkerArrayFromClip(const ClipInfo& clip);
    /// Shows none.
    void removeMarkerArray();
    /// What the clip's array is to be, with what the clip's array held that is no marker. Every change of the
    /// list makes a new one, so one that was given away stays as it is; its records do not.
    const Array& markerArray() const { return _model.markerArray(); }
    /// Those that carry the tag, whatever its value, in the order of the list.
    std::vector<Marker> markersWithTag(const QString& tag) const;
    /// Sorts the rows by the column that the user chose; the selection stays with its markers.
    void sortMarkers();
    /// Drops the list's undo entries: with another clip they would change what nobody sees.
    void clearActions();

    ClipMarkerModel& model() { return _model; }

    // Selection

    /// The selected markers in the order of the rows.
    std::vector<Marker> selectedMarkerArray() const;
    /// Selects just these, leaving out markers that are not in the list; with `scrollTo` the first of them is
    /// scrolled into view.
    void selectMarkers(const std::vector<Marker>& markers, bool scrollTo);
    void scrollToMarker(const Marker& marker);
    void updateMarkerCount();

    // Operations that can be undone. Each posts clipMarkerChanged.

    /// Appends the markers, sorts, and selects them.
    void addMarkersWithUndo(const std::vector<Marker>& markers);
    void undoAddMarkersWithUndo(const std::vector<Marker>& markers);
    /// Removes for each the first marker that is equal to it.
    void deleteMarkersWithUndo(const std::vector<Marker>& markers);
    /// Brings them back at the end of the list, sorts, and selects them.
    void undoDeleteMarkersWithUndo(const std::vector<Marker>& markers);
    /// A value that the marker has already is no change, but is posted as well.
    void changeMarkerPropertyWithUndo(const MarkerChange& change);
    /// Takes over what stands in a cell's open editor, and closes it.
    void endEditing();
    /// A value was entered into a cell; see ClipMarkerModel::valueEntered.
    void setObjectValue(const QVariant& value, int column, int row);

    // Commands. The current time is that of the frame on show in the preview, in seconds; 0.0 without a
    // movie.

    void addButtonClicked();
    /// Moves the start of the first selected marker to the current time; its duration stays.
    void startButtonClicked();
    /// Ends the first selected marker at the current time; before its start its duration is negative.
    void stopButtonClicked();
    /// Deletes the selected markers.
    void deleteItem();
    /// Starts editing the name of the first selected marker.
    void renameSelected();
    /// Tab edits the next editable column of the first selected row, after the last one the first; takes the
    /// key when it did.
    void keyDown(QKeyEvent& event);
    /// The table's context menu, its commands enabled as the buttons are.
    QMenu* menuForEvent();

    // What the window's controller hands on while it has a clip.

    /// Puts a marker that was just fired into the list, at the current time.
    void newMarkerIssued(const Dictionary& marker);
    /// Makes the current time the clip's in point, or its out point: a new marker takes the place of all that
    /// are one. One undo step.
    void clipIn();
    void clipOut();
    /// Moves the preview to the marker's start, in whole units of the movie's time scale, truncated toward
    /// zero; once it is loaded, when the movie still loads.
    void selectMarkerTime(const Dictionary& marker);

  private:
    using MarkerOperation = void (ClipMarkerController::*)(const std::vector<Marker>&);

    void wireTable();
    void wireButtons();
    void wirePreview();
    void buildContextMenu();
    void tableViewSelectionDidChange();
    std::vector<int> selectedRows() const;
    void edit(int row, int column);
    /// The column shown at `place` and after it that can be edited, or -1.
    int editableColumnFrom(int place) const;
    double currentTime() const;
    void updateMarkerTimes();
    std::vector<int> rowsOfMarkerTimes() const;
    void markerTimeClicked(int index);
    void insertMarkers(const std::vector<Marker>& markers, MarkerOperation inverse, const QString& action);
    void takeMarkers(const std::vector<Marker>& markers, MarkerOperation inverse, const QString& action);
    void registerUndo(std::function<void()> inverse, const QString& action);
    void addAtCurrentTime(Marker marker);
    void setClipPoint(const QString& title, const QString& tag);

    ClipMarkerOutlets _outlets;
    UndoManager& _undoManager;
    ClipMarkerModel _model;
    std::unique_ptr<TableColumns> _columns;
    QMenu _contextMenu;
    bool _isRefreshing = false;             // a selection that is given back is no news
    int _lastEditedColumn = 0;              // place of the column last given a value by the user
    std::optional<Dictionary> _nextMarker;  // selected while the movie still loads
};

}  // namespace marquill
