// The Clip Manager's window: its parts, its frame, and the ways to get about in it.
#include "clipmanager/ClipAttributes.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/ClipManagerSettings.h"
#include "clipmanager/ClipManagerToolbar.h"
#include "clipmanager/ClipSearchField.h"
#include "clipmanager/CollapsibleWindow.h"
#include "clipmanager/CurrentClip.h"
#include "clipmanager/DayStrip.h"
#include "connect/ClipPictures.h"
#include "connect/ClipTableController.h"
#include "connect/MoviePreview.h"
#include "platform/ElidingLabel.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QAction>
#include <QEvent>
#include <QMainWindow>
#include <QProgressBar>
#include <QSplitter>

namespace marquill {

Result<void> ClipManager::loadWindow() {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    WindowDescription::registerWidget<ElidingLabel>(u"ElidingLabel"_s);
    WindowDescription::registerWidget<MoviePreview>(u"MoviePreview"_s);
    WindowDescription::registerWidget<DayStrip>(u"DayStrip"_s);
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"ClipManager"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QMainWindow*>(loaded->get())) {
        return failure(ErrorCode::malformed, tr("the window description holds no main window"));
    }
    _window.reset(qobject_cast<QMainWindow*>(loaded->release()));
    return connectOutlets();
}

Result<void> ClipManager::connectOutlets() {
    Outlets outlets(*_window);
    outlets.connect(_recordFolderTable, u"_recordFolderTable"_s);
    outlets.connect(_dayStrip, u"_dayStrip"_s);
    outlets.connect(_clipTable, u"_clipTable"_s);
    outlets.connect(_folderSplitView, u"_folderSplitView"_s);
    outlets.connect(_clipSplitView, u"_clipSplitView"_s);
    outlets.connect(_detailSplitView, u"_detailSplitView"_s);
    outlets.connect(_clipCount, u"_clipCount"_s);
    outlets.connect(_searchSummary, u"_searchSummary"_s);
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

void ClipManager::buildToolbar() {
    auto* toolbar = new ClipManagerToolbar(
        {
            {u"AddFolder"_s, tr("Add Folder"), tr("Add recording folder"), [this] { addFolderButton(); }},
            {u"RemoveFolder"_s, tr("Remove Folder"), tr("Remove recording folder"),
             [this] { removeFolderButton(); }},
            {u"DeleteClips"_s, tr("Delete Clips"), tr("Delete clips"), [this] { deleteClipsButton(); }},
        },
        _window.get());
    _window->addToolBar(toolbar);
    buildSearchBar();
    _removeFolderItem = toolbar->item(u"RemoveFolder"_s);
    _removeFolderItem->setEnabled(false);
    _deleteClipButton = toolbar->item(u"DeleteClips"_s);
    _deleteClipButton->setEnabled(false);
}

// A bar of its own at the right of the tool bar, whose items are the commands.
void ClipManager::buildSearchBar() {
    auto* bar = new QToolBar(ClipSearchField::tr("Search clips"), _window.get());
    bar->setObjectName(u"SearchBar"_s);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->toggleViewAction()->setVisible(false);
    auto* space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    _searchField = new ClipSearchField(bar);
    bar->addWidget(_searchField);
    _window->addToolBar(bar);
    // What comes into the window last is the last that Tab leads to; the field is read first.
    _window->setCentralWidget(_window->takeCentralWidget());
}

void ClipManager::setUpSplitViews() {
    constexpr int folderListWidth = 152;
    constexpr int detailHeight = 288;
    _folderSplitView->setStretchFactor(0, 0);
    _folderSplitView->setStretchFactor(1, 1);
    _folderSplitView->setSizes({folderListWidth, _window->width() - folderListWidth});
    _clipSplitView->setStretchFactor(0, 1);
    _clipSplitView->setStretchFactor(1, 0);
    _clipSplitView->setSizes({_window->height() - detailHeight, detailHeight});
    // The five columns of the markers need most, the fields of the clip least.
    constexpr int previewShare = 6;
    constexpr int fieldShare = 4;
    constexpr int markerShare = 9;
    _detailSplitView->setStretchFactor(0, previewShare);
    _detailSplitView->setStretchFactor(1, fieldShare);
    _detailSplitView->setStretchFactor(2, markerShare);
    _detailSplitView->setSizes(
        {previewShare * detailHeight, fieldShare * detailHeight, markerShare * detailHeight});
    connect(_clipSplitView, &QSplitter::splitterMoved, this, &ClipManager::constrainClipSplit);
}

void ClipManager::constrainClipSplit(int position) {
    const int height = _clipSplitView->height();
    const int above = qRound(constrainedSplitPosition(position, height));
    if (above != position) {
        _clipSplitView->setSizes({above, height - above - _clipSplitView->handleWidth()});
    }
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

void ClipManager::collapseWindow() {
    _collapsible->toggle();
}

void ClipManager::showHideDayStrip() {
    _dayStrip->setWanted(!_dayStrip->isWanted());
    saveSettings();
}

void ClipManager::showHidePictures() {
    _clips->pictures().setVisible(!_clips->pictures().isVisible());
    saveSettings();
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
    if (_clips->selectedClipArray().empty()) {
        _clips->selectNextClip();
    }
}

void ClipManager::find() {
    goTo(*_searchField);
    _searchField->selectAll();
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

}  // namespace marquill
