#include "clipmanager/ClipManager.h"

#include "clipstore/Notifications.h"
#include "folders/RecordFolderController.h"
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
#include <QHeaderView>
#include <QMainWindow>
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
};

std::unique_ptr<ClipManager>& shared() {
    static std::unique_ptr<ClipManager> manager;
    return manager;
}

// Room for the title or a usual text, and for the padding and the arrow of the header.
int columnWidth(const QHeaderView& header, int column) {
    constexpr int padding = 5 * Theme::grid;
    const bool isWide = column == PlainClipModel::scene || column == PlainClipModel::duration;
    const QString title = header.model()->headerData(column, Qt::Horizontal).toString();
    return header.fontMetrics().horizontalAdvance(isWide ? u"00:00:00"_s : title) + padding;
}

// A number of the settings that can be a place on a screen.
double coordinate(const Dictionary& settings, const QString& key, double otherwise) {
    const double number = settings.real(key).value_or(otherwise);
    return isScreenCoordinate(number) ? number : otherwise;
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
    manager->observe();
    manager->restore(settings);
    return manager;
}

ClipManager::ClipManager() = default;

ClipManager::~ClipManager() = default;

Result<void> ClipManager::loadWindow() {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    WindowDescription::registerWidget<ElidingLabel>(u"ElidingLabel"_s);
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
    outlets.connect(_selectedFolderPath, u"_selectedFolderPath"_s);
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
}

void ClipManager::setUpClipTable() {
    _clipTable->setModel(&_clips);
    QHeaderView* header = _clipTable->horizontalHeader();
    header->setHighlightSections(false);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(PlainClipModel::name, QHeaderView::Stretch);
    for (int column = PlainClipModel::take; column < PlainClipModel::columnCountOfList; ++column) {
        header->resizeSection(column, columnWidth(*header, column));
    }
    _noClipsHint = new EmptyHint(*_clipTable, {});
    _folderSplitView->setStretchFactor(0, 0);
    _folderSplitView->setStretchFactor(1, 1);
    _folderSplitView->setSizes({folderListWidth, _window->width() - folderListWidth});
}

void ClipManager::observe() {
    Notifications& centre = Notifications::centre();
    connect(&centre, &Notifications::folderSelectionHasChanged, this, &ClipManager::folderSelectionChanged);
    connect(&centre, &Notifications::recordFolderHasChanged, this, &ClipManager::recordingFolderChanged);
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

void ClipManager::addClip(const ClipInfo& info, const QString& folder) {
    if (_shownFolder == folder) {
        _clips.append(info);
        _clipTable->scrollToBottom();
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

void ClipManager::folderSelectionChanged() {
    const std::vector<FolderRecord> selected = _folderList->selectedFolderArray();
    _removeFolderItem->setEnabled(!selected.empty());
    showFolderContent(selected.size() == 1 ? selected.front().folderPath() : std::nullopt);
    timerAction();
}

void ClipManager::showFolderContent(const std::optional<QString>& path) {
    _shownFolder = path;
    _clips.setClips(path ? readClipInfoForFolder(*path) : std::vector<ClipInfo>());
}

void ClipManager::recordingFolderChanged() {
    useRecordFolder(_folderList->recordingFolder());
    Q_EMIT Notifications::centre().recordingFolderChanged();
}

void ClipManager::folderMoved(const QString& from, const QString& to) {
    if (_shownFolder == from) {
        _shownFolder = to;
    }
    timerAction();
}

void ClipManager::timerAction() {
    _selectedFolderPath->setText(statusText());
    _noClipsHint->setText(hintText());
}

QString ClipManager::hintText() const {
    if (!_shownFolder) {
        return u"Select a folder to see its clips"_s;
    }
    return folderExists(*_shownFolder) ? u"No clips in this folder"_s
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
