#include "folders/RecordFolderController.h"

#include "clipstore/Notifications.h"
#include "folders/RecordIconCell.h"
#include "platform/DelayedCalls.h"
#include "platform/Dialogs.h"
#include "platform/FileBrowser.h"
#include "platform/FileNames.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TableView.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>

#include <algorithm>

namespace marquill {

namespace {

namespace key {
const QString kRecordFolderArray = u"kRecordFolderArray"_s;
const QString kRecordFolderPath = u"kRecordFolderPath"_s;
}  // namespace key

// How often the list looks whether its folders still stand on disk.
constexpr std::chrono::milliseconds presenceInterval{1000};

}  // namespace

// Tells a change of the selection once, however many steps of the table it is made of, and only when the list
// is as it shall be.
class RecordFolderController::SelectionChange {
  public:
    explicit SelectionChange(RecordFolderController& controller) : _controller(controller) {
        ++_controller._selectionChanges;
    }
    SelectionChange(const SelectionChange&) = delete;
    SelectionChange& operator=(const SelectionChange&) = delete;
    ~SelectionChange() {
        --_controller._selectionChanges;
        if (_controller._selectionChanges == 0 && std::exchange(_controller._selectionChanged, false)) {
            _controller.selectionDidChange();
        }
    }

  private:
    RecordFolderController& _controller;
};

RecordFolderController::RecordFolderController(TableView& table, QObject* parent)
    : QObject(parent), _table(table) {
    wireTable();
    buildContextMenu();
    connect(&_model, &RecordFolderModel::recordingClicked, this, &RecordFolderController::recordingClicked);
    connect(&_model, &RecordFolderModel::nameEntered, this, &RecordFolderController::nameEntered);
    connect(&_presenceTimer, &QTimer::timeout, &_model, &RecordFolderModel::refreshPresence);
    _presenceTimer.start(presenceInterval);
}

RecordFolderController::~RecordFolderController() {
    _table.deleteItem = nullptr;
    _table.keyDown = nullptr;
    _table.menuForEvent = nullptr;
}

void RecordFolderController::wireTable() {
    _table.setModel(&_model);
    _table.setItemDelegateForColumn(RecordFolderModel::recording, new RecordIconCell(&_table));
    _table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    _table.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    QHeaderView* header = _table.horizontalHeader();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(RecordFolderModel::recording, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(RecordFolderModel::folderName, QHeaderView::Stretch);
    _table.deleteItem = [this] { deleteItem(); };
    _table.keyDown = [this](QKeyEvent& event) {
        if (event.key() == Qt::Key_Space && event.modifiers() == Qt::NoModifier) {
            recordIntoSelected();
        }
    };
    _table.menuForEvent = [this](const QContextMenuEvent&) { return menuForEvent(); };
    connect(_table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RecordFolderController::selectionDidChange);
}

void RecordFolderController::buildContextMenu() {
    _contextMenu.addAction(tr("Record into This Folder"), this, &RecordFolderController::recordIntoSelected);
    _contextMenu.addAction(tr("Rename"), this, [this] {
        const QModelIndex row = _table.selectionModel()->selectedRows(RecordFolderModel::folderName).first();
        _table.setCurrentIndex(row);
        _table.edit(row);
    });
    _contextMenu.addAction(tr("Show in File Browser"), this, &RecordFolderController::showFolderInFinder);
    _contextMenu.addSeparator();
    _contextMenu.addAction(tr("Add Folder…"), this, &RecordFolderController::addItem);
    _contextMenu.addAction(tr("Remove Folder"), this, &RecordFolderController::deleteItem);
}

QMenu* RecordFolderController::menuForEvent() {
    const qsizetype selected = _table.selectionModel()->selectedRows().size();
    const QList<QAction*> actions = _contextMenu.actions();
    actions[0]->setEnabled(selected == 1);
    actions[1]->setEnabled(selected == 1);
    actions[2]->setEnabled(selected > 0);
    actions[5]->setEnabled(selected > 0);
    return &_contextMenu;
}

void RecordFolderController::restoreFromSettings(const Dictionary& settings) {
    const std::optional<Array> saved = settings.array(key::kRecordFolderArray);
    if (!saved) {
        return;
    }
    std::vector<FolderRecord> folders;
    for (const Value& value : saved->values()) {
        if (const std::optional<Dictionary> record = value.dictionary()) {
            folders.emplace_back(record->deepCopy());
        }
    }
    setFolderArray(std::move(folders));
    const std::optional<QString> path = settings.string(key::kRecordFolderPath);
    const int row = path ? _model.rowOfPath(*path) : -1;
    if (row >= 0) {
        recordingClicked(row);
    }
}

void RecordFolderController::writeSettings(Dictionary& settings) const {
    Array records;
    for (const FolderRecord& folder : folderArray()) {
        records.append(folder.record());
    }
    settings.set(key::kRecordFolderArray, records);
    const std::optional<FolderRecord>& recording = recordingFolder();
    if (const std::optional<QString> path = recording ? recording->folderPath() : std::nullopt) {
        settings.set(key::kRecordFolderPath, *path);
    }
}

void RecordFolderController::setFolderArray(std::vector<FolderRecord> folders) {
    {
        const SelectionChange change(*this);
        _table.clearSelection();
        _model.setFolders(std::move(folders));
    }
    Q_EMIT foldersChanged();
}

void RecordFolderController::setRecordingFolder(const std::optional<FolderRecord>& folder) {
    const std::optional<FolderRecord>& present = recordingFolder();
    if (folder.has_value() == present.has_value() && (!folder || folder->isSame(*present))) {
        return;
    }
    if (folder && !folder->exists()) {
        showAlert(
            tr("No Valid Recording Folder"),
            tr("The selected folder does not exist or is offline and cannot be used for recording. Please "
               "select another folder."));
        return;
    }
    if (present && present->isBusy()) {
        showAlert(
            tr("Recording Folder Busy"),
            tr("The current recording folder is busy and cannot be changed now. Please stop recording and "
               "try again."));
        return;
    }
    _model.setRecordingFolder(folder);
    Q_EMIT Notifications::centre().recordFolderHasChanged(this);
    Q_EMIT foldersChanged();
}

std::vector<FolderRecord> RecordFolderController::selectedFolderArray() const {
    std::vector<FolderRecord> selected;
    for (int row = 0; row < _model.rowCount(); ++row) {
        if (_table.selectionModel()->isRowSelected(row)) {
            selected.push_back(folderArray()[static_cast<std::size_t>(row)]);
        }
    }
    return selected;
}

void RecordFolderController::selectFolder(const std::optional<QString>& path) {
    if (path) {
        selectFolders({*path});
    }
}

void RecordFolderController::selectFolders(const QStringList& paths) {
    QList<int> rows;
    for (int row = 0; row < _model.rowCount(); ++row) {
        const std::optional<QString> path = folderArray()[static_cast<std::size_t>(row)].folderPath();
        if (path && paths.contains(*path)) {
            rows.append(row);
        }
    }
    selectRows(rows);
}

void RecordFolderController::selectRows(const QList<int>& rows) {
    const SelectionChange change(*this);
    QItemSelection selection;
    for (const int row : rows) {
        selection.select(_model.index(row, 0), _model.index(row, RecordFolderModel::columnCountOfList - 1));
    }
    if (!rows.isEmpty()) {
        _table.selectionModel()->setCurrentIndex(_model.index(rows.first(), RecordFolderModel::folderName),
                                                 QItemSelectionModel::NoUpdate);
    }
    _table.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void RecordFolderController::addFolder(const QString& path) {
    if (_model.rowOfPath(path) >= 0) {
        return;
    }
    const FolderRecord folder = FolderRecord::forPath(path);
    _model.append(folder);
    if (!recordingFolder()) {
        setRecordingFolder(folder);
    }
    Q_EMIT foldersChanged();
}

void RecordFolderController::addItem() {
    const std::vector<FolderRecord> selected = selectedFolderArray();
    const QString start = selected.empty() ? QString() : selected.front().folderPath().value_or(QString());
    const QStringList paths = Dialogs::current().chooseFolders(
        _table.window(), {.title = tr("Add Folder"), .startFolder = start, .suffixes = {}});
    if (paths.isEmpty()) {
        return;
    }
    const int oldCount = _model.rowCount();
    const int duplicates = appendFolders(paths);
    // As many rows as were chosen, duplicates included: those past the end are not there to be selected.
    QList<int> rows;
    for (int row = oldCount; row < _model.rowCount(); ++row) {
        rows.append(row);
    }
    selectRows(rows);
    Q_EMIT foldersChanged();
    if (duplicates > 0) {
        showAlert(tr("Duplicate Folders"),
                  tr("One or more folders were already in the folder list and have not been added."));
    }
}

int RecordFolderController::appendFolders(const QStringList& paths) {
    int duplicates = 0;
    for (const QString& path : paths) {
        if (_model.rowOfPath(path) >= 0) {
            ++duplicates;
            continue;
        }
        const FolderRecord folder = FolderRecord::forPath(path);
        _model.append(folder);
        setRecordingFolder(folder);
    }
    return duplicates;
}

void RecordFolderController::deleteItem() {
    const std::vector<FolderRecord> selected = selectedFolderArray();
    if (selected.empty()) {
        return;
    }
    bool anyBusy = false;
    {
        const SelectionChange change(*this);
        anyBusy = removeFolders(selected);
        _table.clearSelection();
        _model.reload();
    }
    Q_EMIT foldersChanged();
    if (anyBusy) {
        showAlert(tr("Couldn't remove/delete Folder!"),
                  tr("One or more folders could not be deleted because the folder is busy. Please try again "
                     "later"));
    }
}

bool RecordFolderController::removeFolders(const std::vector<FolderRecord>& folders) {
    bool anyBusy = false;
    for (const FolderRecord& folder : folders) {
        if (folder.busyCount().value_or(0) != 0) {
            anyBusy = true;
            continue;
        }
        if (recordingFolder() && recordingFolder()->isSame(folder)) {
            setRecordingFolder(std::nullopt);
        }
        _model.remove(folder);
    }
    return anyBusy;
}

void RecordFolderController::deleteFolderPanelDidEnd(QWidget* sheet, int returnCode) {
    sheet->hide();
    if (returnCode != 0) {
        deleteItem();
    }
}

void RecordFolderController::setItemName(const FolderRecord& folder, const QString& name) {
    if (recordingFolder() && recordingFolder()->isSame(folder) && folder.isBusy()) {
        showAlert(tr("Folder Busy"),
                  tr("This folder is busy and cannot be renamed now. Please stop recording and try again."));
        return;
    }
    FolderRecord renamed = folder;
    const QString from = folder.folderPath().value_or(QString());
    const QString to = joinPath(parentFolder(from), name);
    const Result<void> moved = isFileName(name)
                                   ? FileSystem::current().move(from, to)
                                   : failure(ErrorCode::unsupported, tr("no folder can have that name"), to);
    if (moved) {
        renamed.setFolderPath(to);
        renamed.setFolderName(name);
        Q_EMIT folderMoved(from, to);
        Q_EMIT foldersChanged();
    } else {
        qCWarning(logFolders).noquote() << moved.error().description();
        showAlert(tr("Error"), tr("The selected folder could not be renamed."));
    }
    _model.reload();
}

void RecordFolderController::showFolderInFinder() {
    const std::vector<FolderRecord> selected = selectedFolderArray();
    if (const auto path = selected.empty() ? std::nullopt : selected.front().folderPath()) {
        FileBrowser::current().reveal(*path);
    }
}

void RecordFolderController::recordIntoSelected() {
    const std::vector<FolderRecord> selected = selectedFolderArray();
    if (selected.size() == 1) {
        setRecordingFolder(selected.front());
    }
}

void RecordFolderController::recordingClicked(int row) {
    setRecordingFolder(folderArray()[static_cast<std::size_t>(row)]);
}

void RecordFolderController::nameEntered(int row, const QString& name) {
    const FolderRecord folder = folderArray()[static_cast<std::size_t>(row)];
    if (name == folder.folderName()) {
        return;
    }
    // Once the editor is closed: an alert would take its focus and make it hand its text in again.
    DelayedCalls::performAfterDelay(this, 0, [this, folder, name] { setItemName(folder, name); });
}

void RecordFolderController::selectionDidChange() {
    if (_selectionChanges > 0) {
        _selectionChanged = true;
        return;
    }
    Q_EMIT Notifications::centre().folderSelectionHasChanged(this);
}

void RecordFolderController::showAlert(const QString& title, const QString& text) {
    Dialogs::current().alert(_table.window(), {.title = title, .text = text});
}

}  // namespace marquill
