#include "clipmanager/ClipManager.h"

#include "clipstore/Notifications.h"
#include "connect/ClipFileFacts.h"
#include "connect/ClipTableController.h"
#include "connect/ClipViewer.h"
#include "connect/MoviePreview.h"
#include "folders/RecordFolderController.h"
#include "markers/Marker.h"
#include "platform/ElidingLabel.h"
#include "platform/EmptyHint.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "platform/Log.h"
#include "platform/TableView.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "platform/WindowFrame.h"

#include <QAction>
#include <QMainWindow>
#include <QProgressBar>
#include <QSplitter>
#include <QToolBar>

#include <array>

namespace marquill {

namespace {

namespace key {
const QString clipManagerSettings = u"ClipManagerSettings"_s;
const QString kWindVisible = u"kWindVisible"_s;
const QString kWindPosX = u"kWindPosX"_s;
const QString kWindPosY = u"kWindPosY"_s;
const QString kWindWidth = u"kWindWidth"_s;
const QString kWindHeight = u"kWindHeight"_s;
const QString kWindExpanded = u"kWindExpanded"_s;
}  // namespace key

constexpr std::chrono::milliseconds statusInterval{1000};
constexpr int folderListWidth = 240;
constexpr int previewHeight = 240;
constexpr double timeCodePointSize = 12;

// One item of the tool bar; its drawing bears its identifier.
struct ToolbarItem {
    const char16_t* identifier;
    const char16_t* label;
    const char16_t* toolTip;
    void (ClipManager::*action)();
};

constexpr std::array toolbarItems = {
    ToolbarItem{u"AddFolder", u"Add Folder", u"Add recording folder", &ClipManager::addFolderButton},
    ToolbarItem{u"RemoveFolder", u"Remove Folder", u"Remove recording folder",
                &ClipManager::removeFolderButton},
    ToolbarItem{u"DeleteClips", u"Delete Clips", u"Delete clips", &ClipManager::deleteClipsButton},
};

std::unique_ptr<ClipManager>& shared() {
    static std::unique_ptr<ClipManager> manager;
    return manager;
}

// A number of the settings that can be a place on a screen.
double coordinate(const Dictionary& settings, const QString& key, double otherwise) {
    const double number = settings.real(key).value_or(otherwise);
    return isScreenCoordinate(number) ? number : otherwise;
}

// Where the clip's markers are, in seconds from its start.
QList<double> markerTimes(const ClipInfo& clip) {
    QList<double> times;
    for (const Value& value : clip.clipMarkerArray().value_or(Array()).values()) {
        const std::optional<Dictionary> record = value.dictionary();
        if (const std::optional<double> in = record ? Marker(*record).in() : std::nullopt) {
            times.append(*in);
        }
    }
    return times;
}

}  // namespace

void ClipManager::init() {
    const std::optional<Value> saved = UserDefaults::standard().value(key::clipManagerSettings);
    const std::optional<Dictionary> settings = saved ? saved->dictionary() : std::nullopt;
    shared() = initWithSettings(settings.value_or(Dictionary()));
    // What was posted while it was made found none yet.
    if (shared()) {
        shared()->recordingFolderChanged();
    }
}

void ClipManager::finish() {
    if (shared()) {
        shared()->_timer.stop();
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
    manager->observe();
    manager->restore(settings);
    return manager;
}

ClipManager::ClipManager() = default;

ClipManager::~ClipManager() = default;

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
    Outlets outlets(*_window);
    outlets.connect(_recordFolderTable, u"_recordFolderTable"_s);
    outlets.connect(_clipTable, u"_clipTable"_s);
    outlets.connect(_folderSplitView, u"_folderSplitView"_s);
    outlets.connect(_clipSplitView, u"_clipSplitView"_s);
    outlets.connect(_clipCount, u"_clipCount"_s);
    outlets.connect(_moviePreview, u"_moviePreview"_s);
    outlets.connect(_timeCode, u"_timeCode"_s);
    outlets.connect(_selectedFolderPath, u"_selectedFolderPath"_s);
    outlets.connect(_progressInd, u"_progressInd"_s);
    return outlets.check();
}

void ClipManager::setUpFolderList() {
    _folderList = std::make_unique<RecordFolderController>(*_recordFolderTable);
    new EmptyHint(*_recordFolderTable, u"Add a folder to record into"_s);
}

void ClipManager::buildToolbar() {
    QToolBar* toolbar = _window->addToolBar(u"Tool Bar"_s);
    toolbar->setObjectName(u"ClipManagerToolbar"_s);
    toolbar->setMovable(false);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // Its context menu would let it be hidden with nothing there to bring it back.
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ToolbarItem& item : toolbarItems) {
        const QString identifier = QString::fromUtf16(item.identifier);
        QAction* action =
            toolbar->addAction(symbol(identifier), QString::fromUtf16(item.label), this, item.action);
        action->setObjectName(identifier);
        action->setToolTip(QString::fromUtf16(item.toolTip));
    }
    _removeFolderItem = toolbar->actions().at(1);
    _removeFolderItem->setEnabled(false);
    _deleteClipButton = toolbar->actions().at(2);
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
    _folderSplitView->setStretchFactor(0, 0);
    _folderSplitView->setStretchFactor(1, 1);
    _folderSplitView->setSizes({folderListWidth, _window->width() - folderListWidth});
}

void ClipManager::setUpPreview() {
    _timeCode->setFont(Theme::timeFont(timeCodePointSize));
    _moviePreview->setTimeCodeField(_timeCode);
    _clips->openClipWithFile = [](const QString& path) { ClipViewer::openClipWithFile(path); };
    _mediaTimer.setSingleShot(true);
    connect(&_mediaTimer, &QTimer::timeout, this, &ClipManager::showMedia);
    _clipSplitView->setStretchFactor(0, 1);
    _clipSplitView->setStretchFactor(1, 0);
    _clipSplitView->setSizes({_window->height() - previewHeight, previewHeight});
}

void ClipManager::observe() {
    Notifications& centre = Notifications::centre();
    connect(&centre, &Notifications::folderSelectionHasChanged, this, &ClipManager::folderSelectionChanged);
    connect(&centre, &Notifications::recordFolderHasChanged, this, &ClipManager::recordingFolderChanged);
    connect(&centre, &Notifications::clipSelectionHasChanged, this, &ClipManager::clipSelectionChanged);
    connect(_folderList.get(), &RecordFolderController::folderMoved, this, &ClipManager::folderMoved);
    connect(&_timer, &QTimer::timeout, this, &ClipManager::timerAction);
    _timer.start(statusInterval);
}

void ClipManager::restore(const Dictionary& settings) {
    restoreFrame(settings);
    _folderList->restoreFromSettings(settings);
    // From here on a crash costs no folder. Not before, or what is being restored would be saved half done.
    connect(_folderList.get(), &RecordFolderController::foldersChanged, this, &ClipManager::saveSettings);
    folderSelectionChanged();
    _window->setVisible(settings.boolean(key::kWindVisible).value_or(true));
}

void ClipManager::restoreFrame(const Dictionary& settings) {
    const WindowFrame present = windowFrame(*_window);
    const WindowFrame frame{.x = coordinate(settings, key::kWindPosX, present.x),
                            .y = coordinate(settings, key::kWindPosY, present.y),
                            .width = coordinate(settings, key::kWindWidth, present.width),
                            .height = coordinate(settings, key::kWindHeight, present.height)};
    if (frame != present && frame.width > 0 && frame.height > 0) {
        setWindowFrame(*_window, frame);
    }
}

Dictionary ClipManager::settings() const {
    const WindowFrame frame = windowFrame(*_window);
    Dictionary settings{{key::kWindVisible, _window->isVisible()},
                        {key::kWindPosX, frame.x},
                        {key::kWindPosY, frame.y},
                        {key::kWindWidth, frame.width},
                        {key::kWindHeight, frame.height},
                        {key::kWindExpanded, true}};
    _folderList->writeSettings(settings);
    return settings;
}

void ClipManager::saveSettings() const {
    UserDefaults::standard().setValue(key::clipManagerSettings, settings());
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logClipManager) << saved.error().description();
    }
}

const std::optional<QString>& ClipManager::shownFolder() const {
    return _clips->clipFolder();
}

void ClipManager::addClip(const ClipInfo& info, const QString& folder) {
    if (shownFolder() == folder) {
        _clips->addItem(info);
    }
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
    _reader.cancel();
    _clips->setClipArray({}, path);
    showReading(path.has_value());
    if (path) {
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

void ClipManager::clipSelectionChanged() {
    _deleteClipButton->setEnabled(_clips->validateMenuItem(u"deleteItem"_s));
    // An edit takes the selection away and gives it back; the movie is not to start anew for that.
    _mediaTimer.start();
}

// Shows the one selected clip's movie in the preview, or says why there is none.
void ClipManager::showMedia() {
    const std::vector<ClipInfo> selected = _clips->selectedClipArray();
    const std::optional<ClipInfo> clip =
        selected.size() == 1 ? std::optional(selected.front()) : std::nullopt;
    const QString path = clip ? mediaPathOfClip(*clip, shownFolder().value_or(QString())) : QString();
    const bool isThere = !path.isEmpty() && fileExists(path);
    const std::optional<QString> shown = isThere ? std::optional(path) : std::nullopt;
    if (shown != _moviePreview->path()) {
        _moviePreview->setMovieByPath(shown);
    }
    _moviePreview->setMarkerTimes(_moviePreview->movie() ? markerTimes(*clip) : QList<double>());
    std::optional<QString> message;
    if (clip && path.isEmpty()) {
        message = u"Clip not connected"_s;
    } else if (clip && !isThere) {
        message = u"Clip not found"_s;
    } else if (clip && !_moviePreview->movie()) {
        const Result<Movie> movie = Movie::open(path);
        message = movie ? u"Clip not found"_s : movie.error().message;
    }
    _moviePreview->setString(message);
}

void ClipManager::validateMenuItem(QAction& action) {
    const QString command = action.objectName();
    if (command == "undo"_L1) {
        action.setText(u"Undo %1"_s.arg(_undoManager.undoActionName()).trimmed());
        action.setEnabled(_undoManager.canUndo());
    } else if (command == "redo"_L1) {
        action.setText(u"Redo %1"_s.arg(_undoManager.redoActionName()).trimmed());
        action.setEnabled(_undoManager.canRedo());
    } else {
        action.setEnabled(_clips->validateMenuItem(command));
    }
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
}

QString ClipManager::hintText() const {
    if (!shownFolder()) {
        return u"Select a folder to see its clips"_s;
    }
    if (_isReading) {
        return u"Reading clips…"_s;
    }
    return folderExists(*shownFolder()) ? u"No clips in this folder"_s
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
