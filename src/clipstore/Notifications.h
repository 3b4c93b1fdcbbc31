// The process-wide notification centre: one signal per named notification, for parts that do not know each
// other. Parts that do call each other. Main thread.
#pragma once

#include "platform/Date.h"
#include "platform/PropertyList.h"

#include <QObject>

namespace marquill {

class Notifications : public QObject {
    Q_OBJECT

  public:
    static Notifications& centre();

  Q_SIGNALS:
    /// "newMarkerIssued": posted by the marker sets for every fired marker, with its record, which receivers
    /// put into their lists as it is, and the moment of firing. The recorder takes it while a take records,
    /// the Clip Manager while it shows a playable clip and no take records.
    void newMarkerIssued(const marquill::Dictionary& marker, marquill::Date markerCreationTime);
    /// "NOT_ClipMarkerChanged": posted by the marker list of the selected clip after each change. The Clip
    /// Manager stores the list into the clip.
    void clipMarkerChanged();
    /// "NOT_ClipMarkerSelected": posted by the marker list when exactly one marker is selected, with its
    /// record. The Clip Manager moves the preview to its in point.
    void clipMarkerSelected(const marquill::Dictionary& marker);
    /// "ClipSelectionHasChanged": posted by the clip table, with its controller. The Clip Manager shows the
    /// clip.
    void clipSelectionHasChanged(QObject* controller);
    /// "RefreshCurrentClip": posted by the clip table after a cell edit or a rating key, with its controller.
    /// The Clip Manager reads the shown clip again.
    void refreshCurrentClip(QObject* controller);
    /// "FolderSelectionHasChanged": posted by the record folder list, with its controller. The Clip Manager
    /// shows the folder's clips.
    void folderSelectionHasChanged(QObject* controller);
    /// "RecordFolderHasChanged": posted by the record folder list when the recording folder was replaced,
    /// with its controller. The Clip Manager takes the new one.
    void recordFolderHasChanged(QObject* controller);
    /// "RecordingFolderChanged": posted by the Clip Manager once it has taken the new recording folder. The
    /// recorder computes the next take.
    void recordingFolderChanged();
    /// "LabelListHasChanged": posted by the label list with its controller, and again by the preferences with
    /// null. Clip Manager and clip table build their label menus anew.
    void labelListHasChanged(QObject* controller);

  private:
    Notifications() = default;
};

}  // namespace marquill
