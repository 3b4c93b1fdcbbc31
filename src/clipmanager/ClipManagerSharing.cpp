// The folder that others write too: what they change comes into the clip table, and into what shows the
// current clip.
#include "clipmanager/ClipAttributes.h"
#include "clipmanager/ClipConflicts.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/CurrentClip.h"
#include "connect/ClipFolderWatch.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "markers/ClipMarkerController.h"

#include <QMainWindow>

namespace marquill {

void ClipManager::setUpSharing() {
    SharedClips& shared = _clips->writer().shared();
    _conflicts = std::make_unique<ClipConflicts>(*_window, _clips->writer());
    _watch = std::make_unique<ClipFolderWatch>(shared.known());
    connect(&_reader, &ClipFolderReader::filesRead, &shared, &SharedClips::noteRead);
    connect(_watch.get(), &ClipFolderWatch::changed, this, [this](const FolderChanges& changes) {
        if (!_clips->takeFolderChanges(changes)) {
            _watch->lookSoon();
        }
        timerAction();
    });
    connect(&shared, &SharedClips::aboutToMerge, this, &ClipManager::aboutToMerge);
    connect(&shared, &SharedClips::merged, this, &ClipManager::merged);
    connect(_clips.get(), &ClipTableController::aboutToBeGone, this, &ClipManager::aboutToBeGone);
}

// What stands in the marker list alone would be missing in the record.
void ClipManager::aboutToMerge(const ClipInfo& clip) {
    if (currentClip() && currentClip()->isSame(clip)) {
        _markers->endEditing();
        storeMarkers();
    }
}

void ClipManager::merged(const ClipInfo& clip, const ClipInfo& theirs) {
    if (!currentClip() || !currentClip()->isSame(clip)) {
        return;
    }
    _current->fileChanged(theirs);
    _attributes->refresh(clip);
    _markers->refreshMarkerArrayFromClip(clip);
    const QString media = mediaPathOfClip(clip, shownFolder().value_or(QString()));
    if (_moviePreview->path().value_or(QString()) != media) {
        _mediaTimer.start();
    }
}

// Its last edits cannot be saved any more, which is told as of any clip.
void ClipManager::aboutToBeGone(const ClipInfo& clip) {
    if (currentClip() && currentClip()->isSame(clip)) {
        _current->endEditing();
        _current->write();
    }
}

}  // namespace marquill
