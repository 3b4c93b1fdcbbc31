// The "Place Holder Clip Recorder": the panel that starts and stops a take while a camera records elsewhere,
// and writes the take as a placeholder clip. One per process, between init and finish; main thread.
#pragma once

#include "folders/FolderRecord.h"
#include "platform/Date.h"
#include "platform/Error.h"
#include "platform/PropertyList.h"
#include "recording/TakeRecord.h"
#include "recording/VolumeWatch.h"

#include <QIcon>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QToolButton;
class QWidget;

namespace marquill {

class ClipInfo;
class FloatingPanel;
class RecordingDestination;
class RestingWindow;
class TakeJournal;

class OfflineRecorder : public QObject {
    Q_OBJECT

  public:
    /// Makes the recorder and restores its panel. Without a panel description there is none, and every class
    /// operation acts on nothing. `destination` must outlive it. The journal of the take in progress is kept
    /// in `journalFolder`; without one, a crash costs the take.
    static void init(RecordingDestination& destination, const QString& journalFolder = {});
    /// Saves the panel's state and destroys the recorder.
    static void finish();
    static bool isRecording();
    /// The take that is being recorded as it stands now, or nothing.
    static std::optional<TakeRecord> takeInProgress();
    /// Both happen at `moment`, when the key was struck, however late its turn came; without one, now.
    static void startRecording(std::optional<Date> moment = std::nullopt);
    static void stopRecording(std::optional<Date> moment = std::nullopt);
    static FloatingPanel* window();
    static void processKeyDown(QKeyEvent& event);
    /// The recorder, or null.
    static OfflineRecorder* shared();

    ~OfflineRecorder() override;

    void start(std::optional<Date> moment = std::nullopt);
    void stop(std::optional<Date> moment = std::nullopt);
    void startStopButtonPressed();
    void clipNameEntered();
    void sceneNameEntered();
    /// Makes the panel itself, instead of a field in it, what takes the keys.
    void deferredSwitchFirstResponder();
    /// Shows the take number that the next clip will get: 0 without a folder or a name.
    void updateTakeNoUI();
    void timerRecordAction();
    /// Notes in the journal that the take goes on.
    void heartbeat();
    void newMarkerIssued(const Dictionary& marker, Date markerCreationTime);
    /// Tab in the panel goes to the clip name; no other key is handled.
    bool keyDown(QKeyEvent& event);
    bool windowShouldClose();

    /// The journal of takes, or null where none is kept.
    TakeJournal* journal() const { return _journal.get(); }
    VolumeWatch& volumeWatch() { return _volumeWatch; }

  private:
    OfflineRecorder(RecordingDestination& destination, const QString& journalFolder);
    bool loadPanel();
    void wirePanel();
    void restore();
    void save() const;
    void saveNow() const;
    void showRecordingState(bool recording);
    void showElapsed(double seconds);
    void showWarnings();
    void journalProblemChanged(const QString& problem);
    void endEditing();
    QString recordFolderPath() const;
    std::optional<QString> existingFolderPath() const;
    TakeRecord take(double elapsed) const;
    Result<ClipInfo> writeTake(const TakeRecord& take);

    RecordingDestination& _destination;
    std::unique_ptr<FloatingPanel> _panel;
    QToolButton* _recordButton = nullptr;
    QLabel* _shotClock = nullptr;
    QLabel* _recordState = nullptr;
    QLineEdit* _defaultClipName = nullptr;
    QLineEdit* _defaultSceneName = nullptr;
    QLabel* _currentTakeNo = nullptr;
    QLabel* _recordWarning = nullptr;
    QIcon _recordNormalImage;
    QIcon _recordActiveImage;
    bool _isRecording = false;
    // Held while recording: choosing another folder does not move the take.
    std::optional<FolderRecord> _recordingFolder;
    Date _recordStartDate;
    Array _recordingMarkers;
    QMetaObject::Connection _markerConnection;
    QTimer _displayTimer;
    std::unique_ptr<TakeJournal> _journal;
    QString _journalProblem;
    QTimer _heartbeat;  // runs during a take
    VolumeWatch _volumeWatch;
    std::unique_ptr<RestingWindow> _resting;
};

}  // namespace marquill
