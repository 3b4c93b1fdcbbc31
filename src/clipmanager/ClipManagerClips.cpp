// The current clip: its selection, what is entered into its fields, its movie and its markers.
#include "clipmanager/ClipAttributes.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/ClipMedia.h"
#include "clipmanager/CollapsibleWindow.h"
#include "clipmanager/CurrentClip.h"
#include "clipmanager/DayStrip.h"
#include "clipstore/Notifications.h"
#include "connect/ClipFileFacts.h"
#include "connect/ClipPictures.h"
#include "connect/ClipTableController.h"
#include "connect/ClipViewer.h"
#include "connect/MoviePreview.h"
#include "folders/Preferences.h"
#include "markers/ClipMarkerController.h"
#include "markers/MarkerSets.h"
#include "platform/Theme.h"
#include "recording/OfflineRecorder.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScopedValueRollback>

namespace marquill {

namespace {

constexpr double timeCodePointSize = 12;

}  // namespace

void ClipManager::setUpPreview() {
    _timeCode->setFont(Theme::timeFont(timeCodePointSize));
    _moviePreview->setTimeCodeField(_timeCode);
    _clips->openClipWithFile = [](const QString& path) { ClipViewer::openClipWithFile(path); };
    _mediaReader = std::make_unique<ClipMediaReader>();
    connect(_mediaReader.get(), &ClipMediaReader::read, this, &ClipManager::mediaRead);
    _mediaTimer.setSingleShot(true);
    connect(&_mediaTimer, &QTimer::timeout, this, &ClipManager::showMedia);
}

void ClipManager::setUpEditor() {
    _current = std::make_unique<CurrentClip>(*_clips);
    const ClipAttributes* editor = _attributes.get();
    connect(editor, &ClipAttributes::textDidChange, this, &ClipManager::textDidChange);
    connect(editor, &ClipAttributes::clipNameChanged, this, &ClipManager::clipNameChanged);
    connect(editor, &ClipAttributes::sceneChanged, this, &ClipManager::sceneChanged);
    connect(editor, &ClipAttributes::takeChanged, this, &ClipManager::takeChanged);
    connect(editor, &ClipAttributes::commentChanged, this, &ClipManager::commentChanged);
    connect(editor, &ClipAttributes::ratingChanged, this, &ClipManager::ratingChanged);
    connect(editor, &ClipAttributes::shotChanged, this, &ClipManager::shotChanged);
    connect(editor, &ClipAttributes::clipIn, this, &ClipManager::clipIn);
    connect(editor, &ClipAttributes::clipOut, this, &ClipManager::clipOut);
    connect(editor, &ClipAttributes::showLabelList, this, &ClipManager::showLabelList);
    updateLabelMenu();
    showNoMedia(noMediaText());
}

const std::optional<ClipInfo>& ClipManager::currentClip() const {
    return _current->clip();
}

void ClipManager::clipSelectionChanged() {
    _deleteClipButton->setEnabled(_clips->validateMenuItem(u"deleteItem"_s));
    if (_isApplyingName) {
        return;
    }
    const std::optional<ClipInfo> leaving = currentClip();
    const QString name = _attributes->clipName();
    // A field that is disabled meanwhile would hand the keyboard on to its neighbour.
    const QPointer<QWidget> focus = _window->focusWidget();
    unselectClip();
    const bool wasDisabled = focus && !focus->isEnabled();
    if (leaving) {
        applyName(*leaving, name);
    }
    if (const std::vector<ClipInfo> selected = _clips->selectedClipArray(); selected.size() == 1) {
        selectClip(selected.front());
    }
    if (wasDisabled && focus && focus->isEnabled()) {
        focus->setFocus();
    }
}

// Renaming selects the clip; whoever leaves it has selected another one.
void ClipManager::applyName(const ClipInfo& clip, const QString& name) {
    if (_clips->model().rowOfClip(clip) < 0 || name == ClipStore::clipDisplayNameFromClip(clip)) {
        return;
    }
    const QScopedValueRollback applying(_isApplyingName, true);
    const std::vector<ClipInfo> selected = _clips->selectedClipArray();
    _clips->setClipName(clip, name);
    _clips->selectClips(selected);
}

void ClipManager::selectClip(const ClipInfo& clip) {
    _current->take(clip);
    _attributes->show(clip);
    _markers->setMarkerArrayFromClip(clip);
    _mediaTimer.start();
}

void ClipManager::unselectClip() {
    if (_markersAreLive && !OfflineRecorder::isRecording()) {
        MarkerSets::firePendingClicks();
    }
    setMarkersLive(false);
    if (currentClip()) {
        _markers->endEditing();
        storeMarkers();
        _current->release();
    }
    _markers->removeMarkerArray();
    _markers->clearActions();
    _attributes->clear();
    // An edit takes the selection away and gives it back; the movie is not to start anew for that.
    _mediaReader->cancel();
    _mediaTimer.start();
}

void ClipManager::refreshCurrentClip() {
    if (currentClip()) {
        _attributes->refresh(*currentClip());
    }
}

void ClipManager::updateLabelMenu() {
    _attributes->setLabels(Preferences::labels());
}

void ClipManager::labelsChanged() {
    updateLabelMenu();
    refreshCurrentClip();
}

void ClipManager::showLabelList() {
    Preferences::showDialogWithTab(u"shotLabels"_s);
}

void ClipManager::textDidChange(const QString& key, const QString& text) {
    _current->type(key, text);
}

// A field that is left as it was shown has changed nothing: the take of a clip whose record has none is shown
// too.
void ClipManager::endTyping(const QString& key, const QString& text, const QString& shown) {
    if (!currentClip()) {
        return;
    }
    if (text != shown) {
        _current->type(key, text);
    }
    _current->endEditing();
    refreshCurrentClip();
}

void ClipManager::takeChanged() {
    if (currentClip()) {
        endTyping(ClipKey::clipTake, _attributes->take(), ClipStore::takeFromClip(*currentClip()));
    }
}

void ClipManager::sceneChanged() {
    if (currentClip()) {
        endTyping(ClipKey::clipScene, _attributes->scene(), currentClip()->clipScene().value_or(QString()));
    }
}

void ClipManager::commentChanged() {
    if (currentClip()) {
        _current->endEditing();
    }
}

void ClipManager::ratingChanged() {
    _current->change(ClipKey::clipRating, qint64(_attributes->rating()));
}

void ClipManager::shotChanged() {
    _current->change(ClipKey::clipLabel, _attributes->label());
}

void ClipManager::clipNameChanged() {
    if (!currentClip() || _attributes->clipName() == ClipStore::clipDisplayNameFromClip(*currentClip())) {
        return;
    }
    // Leaving the clip disables its fields, one of which may be where the user is going.
    const QPointer<QWidget> focus = _window->focusWidget();
    const ClipInfo clip = *currentClip();
    _clips->deselectAll();
    _clips->selectClip(clip);
    if (focus) {
        focus->setFocus();
    }
}

void ClipManager::showMedia() {
    if (!currentClip()) {
        showNoMedia(noMediaText());
        return;
    }
    const QString folder = shownFolder().value_or(QString());
    const QString path = mediaPathOfClip(*currentClip(), folder);
    if (_moviePreview->path() && *_moviePreview->path() != path) {
        _moviePreview->setMovieByPath(std::nullopt);
    }
    _mediaReader->start(*currentClip(), folder);
}

void ClipManager::mediaRead(const ClipMedia& media) {
    if (!currentClip()) {
        return;
    }
    _attributes->setFileTexts(media.attributes, media.pathAttribute);
    if (media.movie) {
        mediaOpened(media);
    } else {
        showNoMedia(media.message);
    }
}

void ClipManager::mediaOpened(const ClipMedia& media) {
    ClipInfo clip = *currentClip();
    if (clip.clipDuration() != media.duration) {
        clip.setClipDuration(media.duration);
        _clips->model().attributesChanged(clip);
    }
    if (_moviePreview->path() != media.path) {
        _moviePreview->setOpenMovie(*media.movie);
    }
    _moviePreview->setString(std::nullopt);
    setMarkersLive(true);
}

void ClipManager::showNoMedia(const QString& message) {
    if (_moviePreview->path()) {
        _moviePreview->setMovieByPath(std::nullopt);
    }
    _moviePreview->setString(message);
}

QString ClipManager::noMediaText() const {
    const std::size_t selected = _clips->selectedClipArray().size();
    return selected > 1 ? tr("%1 clips selected").arg(selected) : tr("Select a clip to see its movie");
}

void ClipManager::undo() {
    // What is being typed is the step that comes first.
    _current->endEditing();
    _undoManager.undo();
}

void ClipManager::redo() {
    _current->endEditing();
    _undoManager.redo();
}

// Of the commands that are the window's own; nothing for the others.
std::optional<bool> ClipManager::isEnabled(const QString& command) const {
    static const QStringList ofFolder = {u"exportClipListAsXML"_s, u"exportClipListAsText"_s,
                                         u"importQTclips"_s, u"showLeftOutMovies"_s};
    if (ofFolder.contains(command)) {
        return shownFolder().has_value();
    }
    if (command == "removeFolder"_L1) {
        return _removeFolderItem->isEnabled();
    }
    if (command == "clipIn"_L1 || command == "clipOut"_L1) {
        return currentClip() && isProxyClip(*currentClip());
    }
    if (command == "addMarker"_L1) {
        return currentClip() && _addMarkerButton->isEnabled();
    }
    return std::nullopt;
}

void ClipManager::validateMenuItem(QAction& action) {
    const QString command = action.objectName();
    if (command == "undo"_L1) {
        const QString step = _current->isEditing() ? tr("change Clip") : _undoManager.undoActionName();
        action.setText(UndoManager::undoTitle(step));
        action.setEnabled(_undoManager.canUndo() || _current->isEditing());
    } else if (command == "redo"_L1) {
        action.setText(UndoManager::redoTitle(_undoManager.redoActionName()));
        action.setEnabled(_undoManager.canRedo());
    } else if (command == "collapseWindow"_L1) {
        action.setText(_collapsible->isExpanded() ? tr("Collapse Window") : tr("Expand Window"));
    } else if (command == "showHideDayStrip"_L1) {
        action.setText(_dayStrip->isWanted() ? tr("Hide Day Timeline") : tr("Show Day Timeline"));
    } else if (command == "showHidePictures"_L1) {
        action.setText(_clips->pictures().isVisible() ? tr("Hide Pictures") : tr("Show Pictures"));
    } else {
        action.setEnabled(isEnabled(command).value_or(_clips->validateMenuItem(command)));
    }
}

}  // namespace marquill
