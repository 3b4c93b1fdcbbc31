#include "recording/OfflineRecorder.h"

#include "clipstore/Notifications.h"
#include "markers/Marker.h"
#include "markers/MarkerSets.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/Log.h"
#include "platform/RestingWindow.h"
#include "recording/RecordingDestination.h"
#include "recording/TakeJournal.h"
#include "recording/TakeWriter.h"

#include <QLineEdit>

namespace marquill {

namespace {

std::unique_ptr<OfflineRecorder>& instance() {
    static std::unique_ptr<OfflineRecorder> recorder;
    return recorder;
}

constexpr std::chrono::seconds heartbeatInterval{2};

void alertFolderNotSelected(QWidget* window) {
    Dialogs::current().alert(
        window, {.title = OfflineRecorder::tr("Recording destination folder not selected"),
                 .text = OfflineRecorder::tr(
                     "Please specify a folder to record to by clicking in the column on the left of your "
                     "destination folder's name in the Clip Manager. When properly selected a red bulls-eye "
                     "icon will appear to the left of the currently selected Project Folder.")});
}

void alertClipNotCreated(QWidget* window) {
    Dialogs::current().alert(
        window, {.title = OfflineRecorder::tr("Couldn't create Place Holder Clip"),
                 .text = OfflineRecorder::tr(
                     "The place holder file couldn't be created. Please check your user permissions.")});
}

}  // namespace

void OfflineRecorder::init(RecordingDestination& destination, const QString& journalFolder) {
    std::unique_ptr<OfflineRecorder> recorder(new OfflineRecorder(destination, journalFolder));
    if (recorder->loadPanel()) {
        recorder->restore();
        instance() = std::move(recorder);
    }
}

void OfflineRecorder::finish() {
    if (OfflineRecorder* recorder = shared()) {
        recorder->_displayTimer.stop();
        recorder->save();
        instance().reset();
    }
}

OfflineRecorder* OfflineRecorder::shared() {
    return instance().get();
}

bool OfflineRecorder::isRecording() {
    return shared() && shared()->_isRecording;
}

std::optional<TakeRecord> OfflineRecorder::takeInProgress() {
    if (!isRecording()) {
        return std::nullopt;
    }
    return shared()->take(secondsBetween(shared()->_recordStartDate, Clock::current().now()));
}

void OfflineRecorder::startRecording(std::optional<Date> moment) {
    if (OfflineRecorder* recorder = shared()) {
        recorder->start(moment);
    }
}

void OfflineRecorder::stopRecording(std::optional<Date> moment) {
    if (OfflineRecorder* recorder = shared()) {
        recorder->stop(moment);
    }
}

FloatingPanel* OfflineRecorder::window() {
    return shared() ? shared()->_panel.get() : nullptr;
}

void OfflineRecorder::processKeyDown(QKeyEvent& event) {
    if (OfflineRecorder* recorder = shared()) {
        recorder->keyDown(event);
    }
}

OfflineRecorder::OfflineRecorder(RecordingDestination& destination, const QString& journalFolder)
    : _destination(destination), _volumeWatch([this] { return recordFolderPath(); }) {
    if (journalFolder.isEmpty()) {
        return;
    }
    _journal = std::make_unique<TakeJournal>(journalFolder);
    connect(_journal.get(), &TakeJournal::problemChanged, this, &OfflineRecorder::journalProblemChanged);
    connect(&_heartbeat, &QTimer::timeout, this, &OfflineRecorder::heartbeat);
}

OfflineRecorder::~OfflineRecorder() {
    // A field that loses the keyboard with its panel has nobody left to tell.
    for (QLineEdit* field : {_defaultClipName, _defaultSceneName}) {
        if (field) {
            field->disconnect(this);
        }
    }
}

void OfflineRecorder::start(std::optional<Date> moment) {
    if (_isRecording) {
        return;
    }
    if (!existingFolderPath()) {
        alertFolderNotSelected(_panel.get());
        return;
    }
    endEditing();
    _recordStartDate = moment.value_or(Clock::current().now());
    _recordingFolder = _destination.recordFolder();
    _recordingMarkers = Array();
    _markerConnection = connect(&Notifications::centre(), &Notifications::newMarkerIssued, this,
                                &OfflineRecorder::newMarkerIssued);
    _isRecording = true;
    if (_journal) {
        _journal->begin(take(0));
        _heartbeat.start(heartbeatInterval);
    }
    MarkerSets::setMarkersEnabled(true);
    updateTakeNoUI();
    showElapsed(0);
    showRecordingState(true);
}

void OfflineRecorder::stop(std::optional<Date> moment) {
    if (!_isRecording) {
        return;
    }
    const double elapsed = secondsBetween(_recordStartDate, moment.value_or(Clock::current().now()));
    MarkerSets::firePendingClicks();
    disconnect(_markerConnection);
    _heartbeat.stop();
    MarkerSets::setMarkersEnabled(false);
    const TakeRecord stopped = take(elapsed);
    const Result<ClipInfo> clip = writeTake(stopped);
    _recordingFolder.reset();
    _isRecording = false;
    showRecordingState(false);
    if (clip) {
        _destination.addClip(*clip, stopped.folder);
    } else {
        qCWarning(logRecording).noquote() << clip.error().description();
        alertClipNotCreated(_panel.get());
    }
    updateTakeNoUI();
}

// Until the clip is on the disk, the journal stands for the take; when it cannot be written, for longer.
Result<ClipInfo> OfflineRecorder::writeTake(const TakeRecord& take) {
    if (_journal) {
        _journal->stop(take);
    }
    Result<ClipInfo> clip = TakeWriter::write(take);
    if (_journal) {
        clip ? _journal->remove() : _journal->keep();
    }
    return clip;
}

void OfflineRecorder::heartbeat() {
    if (_isRecording && _journal) {
        _journal->beat(take(secondsBetween(_recordStartDate, Clock::current().now())));
    }
}

// The take as it stands after `elapsed` seconds; the fields count as they are now.
TakeRecord OfflineRecorder::take(double elapsed) const {
    return {.name = _defaultClipName->text(),
            .scene = _defaultSceneName->text(),
            .folder = _recordingFolder->folderPath().value_or(QString()),
            .start = _recordStartDate,
            .elapsed = elapsed,
            .markers = _recordingMarkers,
            .comment = {}};
}

// The recording folder's path, if it is there on disk.
std::optional<QString> OfflineRecorder::existingFolderPath() const {
    const std::optional<FolderRecord> folder = _destination.recordFolder();
    const std::optional<QString> path = folder ? folder->folderPath() : std::nullopt;
    return path && folderExists(*path) ? path : std::nullopt;
}

void OfflineRecorder::newMarkerIssued(const Dictionary& marker, Date markerCreationTime) {
    const double in = secondsBetween(_recordStartDate, markerCreationTime);
    Marker(marker).setIn(in);
    _recordingMarkers.append(marker);
    if (_journal) {
        _journal->addMarker(marker, in);
    }
}

}  // namespace marquill
