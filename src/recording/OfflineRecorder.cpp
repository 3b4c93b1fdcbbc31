#include "recording/OfflineRecorder.h"

#include "clipstore/ClipInfo.h"
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "clipstore/Utils.h"
#include "markers/Marker.h"
#include "markers/MarkerSets.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/Log.h"
#include "recording/RecordingDestination.h"

#include <QLineEdit>

#include <cmath>

namespace marquill {

namespace {

std::unique_ptr<OfflineRecorder>& instance() {
    static std::unique_ptr<OfflineRecorder> recorder;
    return recorder;
}

// A name that other programs keep taking would be tried for ever.
constexpr int mostNamesTried = 1000;

const QString untitled = u"Untitled"_s;

// Creates the clip's file. Text that no file can hold costs its characters, not the take.
Result<void> createClip(ClipInfo& clip, const QString& folder) {
    Result<void> created = ClipStore::createProxyClip(clip, folder);
    if (created || created.error().code != ErrorCode::malformed) {
        return created;
    }
    clip = ClipInfo(Utils::writableCopy(clip.record()).dictionary().value_or(Dictionary()));
    return ClipStore::createProxyClip(clip, folder);
}

void alertFolderNotSelected(QWidget* window) {
    Dialogs::current().alert(
        window,
        {.title = u"Recording destination folder not selected"_s,
         .text = u"Please specify a folder to record to by clicking in the column on the left of your "
                 "destination folder's name in the Clip Manager. When properly selected a red bulls-eye "
                 "icon will appear to the left of the currently selected Project Folder."_s});
}

void alertClipNotCreated(QWidget* window) {
    Dialogs::current().alert(
        window,
        {.title = u"Couldn't create Place Holder Clip"_s,
         .text = u"The place holder file couldn't be created. Please check your user permissions."_s});
}

}  // namespace

void OfflineRecorder::init(RecordingDestination& destination) {
    std::unique_ptr<OfflineRecorder> recorder(new OfflineRecorder(destination));
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

OfflineRecorder::OfflineRecorder(RecordingDestination& destination) : _destination(destination) {}

OfflineRecorder::~OfflineRecorder() = default;

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
    disconnect(_markerConnection);
    MarkerSets::setMarkersEnabled(false);
    const QString folder = _recordingFolder->folderPath().value_or(QString());
    const std::optional<ClipInfo> clip = writeTake(folder, elapsed);
    _recordingFolder.reset();
    _isRecording = false;
    showRecordingState(false);
    if (clip) {
        _destination.addClip(*clip, folder);
    } else {
        alertClipNotCreated(_panel.get());
    }
    updateTakeNoUI();
}

// Writes the take under the name that was typed. One that the volume does not take, being too long for it or
// holding a character that it forbids, does not cost the take.
std::optional<ClipInfo> OfflineRecorder::writeTake(const QString& folder, double elapsed) const {
    const QString typedName = _defaultClipName->text();
    std::optional<ClipInfo> clip;
    if (!typedName.isEmpty()) {
        clip = writeClip(folder, typedName, elapsed);
    }
    return clip ? clip : writeClip(folder, untitled, elapsed);
}

// Writes the take under the next free name of `name`. A name that another program takes at the same moment is
// left to it, and the next free one is taken.
std::optional<ClipInfo> OfflineRecorder::writeClip(const QString& folder, const QString& name,
                                                   double elapsed) const {
    for (int tries = 0; tries < mostNamesTried; ++tries) {
        const std::optional<NewClipName> base = ClipStore::getNewClipNameForFolder(folder, name);
        if (!base) {
            return std::nullopt;
        }
        ClipInfo clip = newClip(base->name + u".xml"_s, folder, elapsed);
        const Result<void> written = createClip(clip, folder);
        if (written) {
            return clip;
        }
        if (written.error().code != ErrorCode::alreadyExists) {
            qCWarning(logRecording).noquote() << written.error().description();
            return std::nullopt;
        }
    }
    return std::nullopt;
}

ClipInfo OfflineRecorder::newClip(const QString& clipName, const QString& folder, double elapsed) const {
    ClipInfo clip = ClipStore::newInfoForProxyClip(clipName, folder);
    const auto duration = static_cast<qint64>(std::trunc(elapsed));
    clip.setClipCreationDate(_recordStartDate);
    clip.setClipRecordingStartTime(_recordStartDate);
    clip.setClipOldRecordingStartTime(_recordStartDate);
    clip.setClipScene(_defaultSceneName->text());
    clip.setClipDuration(duration);
    clip.setClipOldDuration(duration);
    clip.setClipMarkerArray(_recordingMarkers.copy());
    return clip;
}

// The recording folder's path, if it is there on disk.
std::optional<QString> OfflineRecorder::existingFolderPath() const {
    const std::optional<FolderRecord> folder = _destination.recordFolder();
    const std::optional<QString> path = folder ? folder->folderPath() : std::nullopt;
    return path && folderExists(*path) ? path : std::nullopt;
}

void OfflineRecorder::newMarkerIssued(const Dictionary& marker, Date markerCreationTime) {
    Marker(marker).setIn(secondsBetween(_recordStartDate, markerCreationTime));
    _recordingMarkers.append(marker);
}

}  // namespace marquill
