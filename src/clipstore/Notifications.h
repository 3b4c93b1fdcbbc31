// The process-wide notification centre: one signal per named notification, for parts that do not know each
// other. Parts that do call each other. Main thread.
#pragma once

#include <QObject>

namespace marquill {

class Notifications : public QObject {
    Q_OBJECT

  public:
    static Notifications& centre();

  Q_SIGNALS:
    /// "FolderSelectionHasChanged": posted by the record folder list, with its controller.
    void folderSelectionHasChanged(QObject* controller);
    /// "RecordFolderHasChanged": posted by the record folder list when the recording folder was replaced,
    /// with its controller.
    void recordFolderHasChanged(QObject* controller);
    /// "RecordingFolderChanged": posted by the Clip Manager once it has taken the new recording folder.
    void recordingFolderChanged();

  private:
    Notifications() = default;
};

}  // namespace marquill
