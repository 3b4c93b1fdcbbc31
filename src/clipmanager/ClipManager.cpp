// The window: its life, its folders, its settings.
#include "clipmanager/ClipManager.h"

#include "clipmanager/ClipAttributes.h"
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManagerSettings.h"
#include "clipmanager/ClipManagerToolbar.h"
#include "clipmanager/ClipMedia.h"
#include "clipmanager/CollapsibleWindow.h"
#include "clipmanager/CurrentClip.h"
#include "clipstore/Notifications.h"
#include "connect/ClipFileFacts.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "folders/RecordFolderController.h"
#include "markers/ClipMarkerController.h"
#include "platform/ElidingLabel.h"
#include "platform/EmptyHint.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QAction>
#include <QEvent>
#include <QMainWindow>
#include <QProgressBar>
#include <QSplitter>

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
        qCWarning(logClipManager) << loaded.error().description();
        return nullptr;
    }
    manager->setUpFolderList();
    manager->buildToolbar();
    manager->setUpClipTable();
    manager->setUpPreview();
    manager->setUpEditor();
    manager->setUpExports();
    manager->setUpSplitViews();
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

Result<void> ClipManager::loadWindow() {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    WindowDescription::registerWidget<ElidingLabel>(u"ElidingLabel"_s);
    WindowDescription::registerWidget<MoviePreview>(u"MoviePreview"_s);
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"ClipManager"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QMainWindow*>(loaded->get())) {
        return failure(ErrorCode::malformed, u"the window description holds no main window"_s);
    }
    _window.reset(qobject_cast<QMainWindow*>(loaded->release()));
    return connectOutlets();
}

Result<void> ClipManager::connectOutlets() {
    Outlets outlets(*_window);
    outlets.connect(_recordFolderTable, u"_recordFolderTable"_s);
    outlets.connect(_clipTable, u"_clipTable"_s);
    outlets.connect(_folderSplitView, u"_folderSplitView"_s);
    outlets.connect(_clipSplitView, u"_clipSplitView"_s);
    outlets.connect(_detailSplitView, u"_detailSplitView"_s);
    outlets.connect(_clipCount, u"_clipCount"_s);
    outlets.connect(_moviePreview, u"_moviePreview"_s);
    outlets.connect(_timeCode, u"_timeCode"_s);
    outlets.connect(_statusLine, u"_statusLine"_s);
    outlets.connect(_selectedFolderPath, u"_selectedFolderPath"_s);
    outlets.connect(_progressInd, u"_progressInd"_s);
    if (Result<void> checked = outlets.check(); !checked) {
        return checked;
    }
    Result<std::unique_ptr<ClipAttributes>> attributes = ClipAttributes::create(*_window);
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    _attributes = std::move(*attributes);
    return setUpMarkerList();
}

void ClipManager::setUpFolderList() {
    _folderList = std::make_unique<RecordFolderController>(*_recordFolderTable);
    new EmptyHint(*_recordFolderTable, u"Add a folder to record into"_s);
}

void ClipManager::buildToolbar() {
    auto* toolbar = new ClipManagerToolbar(
        {
            {u"AddFolder"_s, u"Add Folder"_s, u"Add recording folder"_s, [this] { addFolderButton(); }},
            {u"RemoveFolder"_s, u"Remove Folder"_s, u"Remove recording folder"_s,
             [this] { removeFolderButton(); }},
            {u"DeleteClips"_s, u"Delete Clips"_s, u"Delete clips"_s, [this] { deleteClipsButton(); }},
        },
        _window.get());
    _window->addToolBar(toolbar);
    _removeFolderItem = toolbar->item(u"RemoveFolder"_s);
    _removeFolderItem->setEnabled(false);
    _deleteClipButton = toolbar->item(u"DeleteClips"_s);
    _deleteClipButton->setEnabled(false);
}

void ClipManager::setUpClipTable() {
    _clips = std::make_unique<ClipTableController>(*_clipTable, *_clipCount, _undoManager);
    _noClipsHint = new EmptyHint(*_clipTable, {});
    connect(&_reader, &ClipFolderReader::clipsRead, this,
            [this](const std::vector<ClipInfo>& clips, const std::vector<ClipFileFacts>& facts, int done,
                   int total) {
                _clips->addClipsRead(clips, facts);
                _progressInd->setRange(0, total);
                _progressInd->setValue(done);
            });
    connect(&_reader, &ClipFolderReader::finished, this, &ClipManager::folderRead);
    showReading(false);
}

void ClipManager::setUpSplitViews() {
    constexpr int folderListWidth = 200;
    constexpr int detailHeight = 288;
    _folderSplitView->setStretchFactor(0, 0);
    _folderSplitView->setStretchFactor(1, 1);
    _folderSplitView->setSizes({folderListWidth, _window->width() - folderListWidth});
    _clipSplitView->setStretchFactor(0, 1);
    _clipSplitView->setStretchFactor(1, 0);
    _clipSplitView->setSizes({_window->height() - detailHeight, detailHeight});
    // The picture first, then the texts.
    constexpr int previewShare = 4;
    constexpr int textShare = 3;
    _detailSplitView->setStretchFactor(0, previewShare);
    _detailSplitView->setStretchFactor(1, textShare);
    _detailSplitView->setStretchFactor(2, textShare);
    _detailSplitView->setSizes(
        {previewShare * detailHeight, textShare * detailHeight, textShare * detailHeight});
    connect(_clipSplitView, &QSplitter::splitterMoved, this, &ClipManager::constrainClipSplit);
}

void ClipManager::constrainClipSplit(int position) {
    const int height = _clipSplitView->height();
    const int above = qRound(constrainedSplitPosition(position, height));
    if (above != position) {
        _clipSplitView->setSizes({above, height - above - _clipSplitView->handleWidth()});
    }
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
    _frameTimer.setSingleShot(true);
    _frameTimer.setInterval(frameInterval);
    connect(&_frameTimer, &QTimer::timeout, this, &ClipManager::saveSettings);
    folderSelectionChanged();
    _window->setVisible(ClipManagerSettings::isVisible(settings));
    _window->installEventFilter(this);
}

void ClipManager::restoreFrame(const Dictionary& settings) {
    _collapsible = std::make_unique<CollapsibleWindow>(*_window, *_folderSplitView, *_statusLine,
                                                       int(ClipManagerWindowState::collapsedHeight));
    const WindowFrame present = windowFrame(*_window);
    const WindowFrame frame = ClipManagerSettings::frame(settings, present);
    if (frame != present) {
        setWindowFrame(*_window, frame);
    }
}

bool ClipManager::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) {
        _current->write();
    } else if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        _frameTimer.start();
    }
    return QObject::eventFilter(watched, event);
}

Dictionary ClipManager::settings() const {
    const ClipManagerWindowState state{.frame = windowFrame(*_window),
                                       .visible = _window->isVisible(),
                                       .expanded = _collapsible->isExpanded(),
                                       .expandedHeight = double(_collapsible->expandedHeight())};
    Dictionary settings = state.settings();
    _folderList->writeSettings(settings);
    return settings;
}

void ClipManager::saveSettings() const {
    ClipManagerSettings::save(settings());
}

void ClipManager::collapseWindow() {
    _collapsible->toggle();
}

void ClipManager::goTo(QWidget& part) {
    if (!_collapsible->isExpanded()) {
        _collapsible->toggle();
    }
    _window->activateWindow();
    part.setFocus(Qt::ShortcutFocusReason);
}

void ClipManager::goToFolders() {
    goTo(*_recordFolderTable);
}

void ClipManager::goToClips() {
    goTo(*_clipTable);
}

void ClipManager::goToMovie() {
    goTo(*_moviePreview);
}

void ClipManager::goToAttributes() {
    goTo(_attributes->firstField());
}

void ClipManager::goToMarkers() {
    goTo(*_markerTable);
}

const std::optional<QString>& ClipManager::shownFolder() const {
    return _clips->clipFolder();
}

void ClipManager::addClip(const ClipInfo& info, const QString& folder) {
    if (shownFolder() == folder) {
        _clips->addItem(info);
    }
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
    _current->endEditing();
    _current->write();
    _reader.cancel();
    _clips->setClipArray({}, path);
    showReading(path.has_value());
    if (path) {
        _selectedFolderPath->clear();
        _reader.read(*path);
    }
}

void ClipManager::folderRead() {
    _clips->sortClips();
    showReading(false);
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
    }
    timerAction();
}

void ClipManager::timerAction() {
    _selectedFolderPath->setText(statusText());
    _noClipsHint->setText(hintText());
    enableMarkerButtons();
}

QString ClipManager::hintText() const {
    if (!shownFolder()) {
        return _folderList->folderArray().empty() ? u"Add a folder to see its clips"_s
                                                  : u"Select a folder to see its clips"_s;
    }
    if (_isReading) {
        return u"Reading clips…"_s;
    }
    return folderExists(*shownFolder())
               ? u"No clips in this folder.\nPress Control-Space to start a take, or import movies."_s
               : u"This folder does not exist or is offline"_s;
}

QString ClipManager::statusText() const {
    const std::vector<FolderRecord> selected = _folderList->selectedFolderArray();
    if (selected.empty()) {
        return u"Current Folder: Nothing selected"_s;
    }
    if (selected.size() > 1) {
        return u"Current Folder: %1 items selected"_s.arg(selected.size());
    }
    if (!selected.front().exists()) {
        return u"Current Folder: does not exist or is offline"_s;
    }
    return u"Current Folder: "_s + selected.front().folderPath().value_or(QString());
}

}  // namespace marquill
