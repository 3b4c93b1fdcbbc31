// The Clip Manager's life, its folders and its settings.
#include "clipmanager/ClipManager.h"

#include "clipmanager/ClipAttributes.h"
#include "clipmanager/ClipConflicts.h"
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerSettings.h"
#include "clipmanager/ClipMedia.h"
#include "clipmanager/ClipSearch.h"
#include "clipmanager/CollapsibleWindow.h"
#include "clipmanager/CurrentClip.h"
#include "clipmanager/DayStrip.h"
#include "clipmanager/UnwrittenClips.h"
#include "clipstore/Notifications.h"
#include "connect/ClipFileFacts.h"
#include "connect/ClipFolderWatch.h"
#include "connect/ClipPictures.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "folders/RecordFolderController.h"
#include "markers/ClipMarkerController.h"
#include "platform/EmptyHint.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TableView.h"
#include "recording/OfflineRecorder.h"

#include <QAction>
#include <QMainWindow>
#include <QProgressBar>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds statusInterval{1000};
constexpr std::chrono::milliseconds frameInterval{500};

std::unique_ptr<ClipManager>& shared() {
    static std::unique_ptr<ClipManager> manager;
    return manager;
}

}  // namespace

void ClipManager::init() {
    shared() = initWithSettings(ClipManagerSettings::saved());
    // What was posted while it was made found none yet.
    if (shared()) {
        shared()->recordingFolderChanged();
        if (const std::optional<FolderRecord> folder = shared()->recordFolder()) {
            shared()->folderList().selectFolder(folder->folderPath());
        }
    }
}

void ClipManager::finish() {
    if (shared()) {
        shared()->_timer.stop();
        // Leaving the clip writes it, and gives it the name that was typed.
        shared()->_clips->endEditing();
        shared()->_clips->deselectAll();
        shared()->saveSettings();
        shared().reset();
    }
}

ClipManager* ClipManager::getClipManager() {
    return shared().get();
}

std::unique_ptr<ClipManager> ClipManager::initWithSettings(const Dictionary& settings) {
    std::unique_ptr<ClipManager> manager(new ClipManager);
    if (const Result<void> loaded = manager->loadWindow(); !loaded) {
        qCWarning(logClipManager, "Couldn't instantiate Clip Manager nib");
        qCWarning(logClipManager).noquote() << loaded.error().description();
        return nullptr;
    }
    manager->setUpFolderList();
    manager->buildToolbar();
    manager->setUpClipTable();
    manager->setUpPreview();
    manager->setUpEditor();
    manager->setUpExports();
    manager->setUpSplitViews();
    // The search is first in the order of Tab, but is not what a start is for.
    manager->_recordFolderTable->setFocus();
    manager->observe();
    manager->restore(settings);
    return manager;
}

ClipManager::ClipManager() = default;

ClipManager::~ClipManager() {
    if (_current) {
        unselectClip();
        _window->removeEventFilter(this);
    }
}

void ClipManager::setUpFolderList() {
    _folderList = std::make_unique<RecordFolderController>(*_recordFolderTable);
    new EmptyHint(*_recordFolderTable, tr("Add a folder to record into"));
}

void ClipManager::setUpClipTable() {
    _clips = std::make_unique<ClipTableController>(*_clipTable, *_clipCount, _undoManager);
    _unwritten = std::make_unique<UnwrittenClips>(*_window, _clips->writer());
    _dayStrip->setClipTable(*_clips);
    _search = std::make_unique<ClipSearch>(*_searchField, *_searchSummary, *_clips);
    _noClipsHint = new EmptyHint(*_clipTable, {});
    connect(_noClipsHint, &EmptyHint::buttonPressed, _search.get(), &ClipSearch::clear);
    connect(_search.get(), &ClipSearch::findsNothingChanged, this, &ClipManager::showHint);
    connect(&_reader, &ClipFolderReader::clipsRead, this,
            [this](const std::vector<ClipInfo>& clips, const std::vector<ClipFileFacts>& facts, int done,
                   int total) {
                _clips->addClipsRead(clips, facts, ClipArrival::read);
                _progressInd->setRange(0, total);
                _progressInd->setValue(done);
            });
    connect(&_reader, &ClipFolderReader::finished, this, &ClipManager::folderRead);
    setUpSharing();
    showReading(false);
}

void ClipManager::observe() {
    Notifications& centre = Notifications::centre();
    connect(&centre, &Notifications::folderSelectionHasChanged, this, &ClipManager::folderSelectionChanged);
    connect(&centre, &Notifications::recordFolderHasChanged, this, &ClipManager::recordingFolderChanged);
    connect(&centre, &Notifications::clipSelectionHasChanged, this, &ClipManager::clipSelectionChanged);
    connect(&centre, &Notifications::refreshCurrentClip, this, &ClipManager::refreshCurrentClip);
    connect(&centre, &Notifications::labelListHasChanged, this, &ClipManager::labelsChanged);
    connect(_folderList.get(), &RecordFolderController::folderMoved, this, &ClipManager::folderMoved);
    connect(&_timer, &QTimer::timeout, this, &ClipManager::timerAction);
    _timer.start(statusInterval);
}

void ClipManager::restore(const Dictionary& settings) {
    restoreFrame(settings);
    _folderList->restoreFromSettings(settings);
    // From here on a crash costs no folder. Not before, or what is being restored would be saved half done.
    connect(_folderList.get(), &RecordFolderController::foldersChanged, this, &ClipManager::saveSettings);
    _dayStrip->setWanted(ClipManagerSettings::isDayStripVisible(settings));
    _clips->pictures().setVisible(ClipManagerSettings::arePicturesVisible(settings));
    _frameTimer.setSingleShot(true);
    _frameTimer.setInterval(frameInterval);
    connect(&_frameTimer, &QTimer::timeout, this, &ClipManager::saveSettings);
    folderSelectionChanged();
    _window->setVisible(ClipManagerSettings::isVisible(settings));
    _window->installEventFilter(this);
}

Dictionary ClipManager::settings() const {
    const ClipManagerWindowState state{.frame = windowFrame(*_window),
                                       .visible = _window->isVisible(),
                                       .expanded = _collapsible->isExpanded(),
                                       .expandedHeight = double(_collapsible->expandedHeight())};
    Dictionary settings = state.settings();
    ClipManagerSettings::setDayStripVisible(settings, _dayStrip->isWanted());
    ClipManagerSettings::setPicturesVisible(settings, _clips->pictures().isVisible());
    _folderList->writeSettings(settings);
    return settings;
}

void ClipManager::saveSettings() const {
    ClipManagerSettings::save(settings());
}

const std::optional<QString>& ClipManager::shownFolder() const {
    return _clips->clipFolder();
}

void ClipManager::addClip(const ClipInfo& info, const QString& folder) {
    _clips->writer().clipReplaced(info, folder);
    if (shownFolder() == folder) {
        _clips->addItem(info);
    } else {
        // A day of takes would be remembered for nobody: the folder is read when it is shown.
        _clips->writer().leaveFolder(folder);
    }
    showTakeInProgress();
    // A take that ends puts the marker buttons out, which may still serve the clip shown.
    enableMarkerButtons();
}

void ClipManager::useRecordFolder(const std::optional<FolderRecord>& folder) {
    _recordFolder = folder;
}

void ClipManager::addFolderButton() {
    _folderList->addItem();
}

void ClipManager::removeFolderButton() {
    _folderList->deleteItem();
}

void ClipManager::deleteClipsButton() {
    _clips->deleteItem();
}

void ClipManager::folderSelectionChanged() {
    const std::vector<FolderRecord> selected = _folderList->selectedFolderArray();
    _removeFolderItem->setEnabled(!selected.empty());
    showFolderContent(selected.size() == 1 ? selected.front().folderPath() : std::nullopt);
    timerAction();
}

void ClipManager::showFolderContent(const std::optional<QString>& path) {
    _clips->endEditing();
    _current->endEditing();
    _current->write();
    _reader.cancel();
    _watch->stop();
    _clips->setClipArray({}, path);
    showReading(path.has_value());
    if (path) {
        _selectedFolderPath->clear();
        _reader.read(*path);
    }
}

void ClipManager::folderRead() {
    _clips->sortClips();
    _clips->prepareSearch();
    showReading(false);
    _watch->watch(*shownFolder());
    Q_EMIT folderHasBeenRead();
}

void ClipManager::showReading(bool isReading) {
    _isReading = isReading;
    // How many clips there are is known once the folder is listed.
    _progressInd->setRange(0, 0);
    _progressInd->setVisible(isReading);
    timerAction();
}

void ClipManager::recordingFolderChanged() {
    useRecordFolder(_folderList->recordingFolder());
    Q_EMIT Notifications::centre().recordingFolderChanged();
}

void ClipManager::folderMoved(const QString& from, const QString& to) {
    _clips->folderMoved(from, to);
    if (_isReading && shownFolder() == to) {
        // What was still to be read is not there any more.
        showFolderContent(to);
    } else if (shownFolder() == to) {
        _watch->watch(to);
    }
    timerAction();
}

void ClipManager::timerAction() {
    _selectedFolderPath->setText(statusText());
    showHint();
    showTakeInProgress();
    enableMarkerButtons();
}

void ClipManager::showHint() {
    _noClipsHint->setText(hintText());
    _noClipsHint->setButton(_search->findsNothing() && !_isReading ? tr("Clear Search") : QString());
}

void ClipManager::showTakeInProgress() {
    const std::optional<TakeRecord> take = OfflineRecorder::takeInProgress();
    const bool isShown = take && shownFolder() == take->folder;
    _dayStrip->setTakeInProgress(isShown ? std::optional(timelineTake(*take)) : std::nullopt);
}

QString ClipManager::hintText() const {
    if (!shownFolder()) {
        return _folderList->folderArray().empty() ? tr("Add a folder to see its clips")
                                                  : tr("Select a folder to see its clips");
    }
    if (_isReading) {
        return tr("Reading clips…");
    }
    if (_search->findsNothing()) {
        return tr("No clip matches");
    }
    return folderExists(*shownFolder())
               ? tr("No clips in this folder.\nPress Control-Space to start a take, or import movies.")
               : tr("This folder does not exist or is offline");
}

QString ClipManager::statusText() const {
    const std::vector<FolderRecord> selected = _folderList->selectedFolderArray();
    if (selected.empty()) {
        return tr("Current Folder: Nothing selected");
    }
    if (selected.size() > 1) {
        return tr("Current Folder: %1 items selected").arg(selected.size());
    }
    if (!selected.front().exists()) {
        return tr("Current Folder: does not exist or is offline");
    }
    return tr("Current Folder: %1").arg(selected.front().folderPath().value_or(QString()));
}

}  // namespace marquill
