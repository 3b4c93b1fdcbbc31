#include "connect/ClipTableController.h"

#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "connect/ClipCells.h"
#include "connect/ClipConnecting.h"
#include "connect/ClipPictures.h"
#include "connect/ClipSelectionChange.h"
#include "connect/WritingSheet.h"
#include "folders/Preferences.h"
#include "platform/DelayedCalls.h"
#include "platform/TableView.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>

#include <algorithm>

namespace marquill {

namespace {

// How often the files of the rows on screen are looked at anew.
constexpr std::chrono::milliseconds fileInterval{5000};

}  // namespace

ClipTableController::ClipTableController(TableView& table, QLabel& countText, UndoManager& undoManager,
                                         QObject* parent)
    : QObject(parent),
      _table(table),
      _countText(countText),
      _undoManager(undoManager),
      _writing(std::make_unique<WritingSheet>(table, _writer)),
      _connecting(std::make_unique<ClipConnecting>(*this)),
      _labelMenu(tr("Labels")) {
    openClipWithFile = [this](const QString& path) { openInDefaultPlayer(path); };
    wireTable();
    buildContextMenu();
    updateLabelMenu();
    updateClipCount();
    connect(&Notifications::centre(), &Notifications::labelListHasChanged, this,
            &ClipTableController::labelsChanged);
    // What others wrote is found before something is written here, too.
    connect(&_writer.shared(), &SharedClips::merged, &_model, &ClipTableModel::attributesChanged);
    connect(&_fileTimer, &QTimer::timeout, this, &ClipTableController::askShownFiles);
    _fileTimer.start(fileInterval);
    setUpSearch();
}

ClipTableController::~ClipTableController() {
    _writer.finishWriting();
    _table.deleteItem = nullptr;
    _table.keyDown = nullptr;
    _table.menuForEvent = nullptr;
}

void ClipTableController::wireTable() {
    _table.setModel(&_rows);
    _table.setItemDelegate(new TextCell(&_table));
    _pictures = std::make_unique<ClipPictures>(_table, _rows, _model);
    _table.setItemDelegateForColumn(ClipTableModel::icon, new StatusCell(*_pictures, &_table));
    _table.setItemDelegateForColumn(ClipTableModel::picture, new PictureCell(*_pictures, &_table));
    _table.setItemDelegateForColumn(ClipTableModel::rating, new RatingCell(&_table));
    _table.setItemDelegateForColumn(ClipTableModel::label, new LabelCell(_model, &_table));
    _table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    _table.setEditTriggers(QAbstractItemView::EditKeyPressed);
    _table.setEnabled(false);
    _table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _columns = std::make_unique<ClipTableColumns>(_table);
    _table.deleteItem = [this] { deleteItem(); };
    _table.keyDown = [this](QKeyEvent& event) { keyDown(event); };
    _table.menuForEvent = [this](const QContextMenuEvent&) { return menuForEvent(); };
    connect(&_table, &QAbstractItemView::doubleClicked, this, &ClipTableController::doubleClicked);
    connect(&_model, &ClipTableModel::valueEntered, this, &ClipTableController::setObjectValue);
    connect(_columns.get(), &ClipTableColumns::sortDescriptorsDidChange, this,
            &ClipTableController::sortClips);
    connect(_table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ClipTableController::tableViewSelectionDidChange);
}

void ClipTableController::setClipArray(std::vector<ClipInfo> clips, const std::optional<QString>& folder) {
    endEditing();
    deselectAll();
    _arrivedNames.clear();
    _fileWork.cancel();
    // What is about to be read must not be older than what is known.
    if (_writer.isWritingIn(folder.value_or(QString()))) {
        _writer.finishWriting();
    }
    for (const std::optional<QString>& left : {clipFolder(), folder}) {
        _writer.leaveFolder(left.value_or(QString()));
    }
    _pictures->cancel();
    _model.setClips(std::move(clips), folder);
    sortClips();
    _table.scrollToTop();
    updateClipCount();
    _table.setEnabled(folder.has_value());
}

void ClipTableController::addClipsRead(const std::vector<ClipInfo>& clips,
                                       const std::vector<ClipFileFacts>& facts, ClipArrival arrival) {
    if (_arrivedNames.isEmpty() && !_writer.hasUnwritten()) {
        _model.append(clips, facts, arrival);
    } else {
        std::vector<ClipInfo> newClips;
        for (const ClipInfo& clip : clips) {
            const QString name = clip.clipName().value_or(QString());
            if (!_arrivedNames.contains(name)) {
                newClips.push_back(_writer.unwritten(clipFolder().value_or(QString()), name).value_or(clip));
            }
        }
        _model.append(newClips, {}, arrival);
    }
    updateClipCount();
}

// Adds clips to the table that did not come by reading the folder; one that reading was faster with gives
// way.
void ClipTableController::show(const std::vector<ClipInfo>& clips) {
    for (const ClipInfo& clip : clips) {
        const QString name = clip.clipName().value_or(QString());
        const int row = _model.rowOfName(name);
        if (row >= 0) {
            _model.removeRowsAt({row});
        }
        _arrivedNames.insert(name);
        _writer.clipReplaced(clip, clipFolder().value_or(QString()));
    }
    _model.append(clips);
}

void ClipTableController::folderMoved(const QString& from, const QString& to) {
    _movedFolders.emplace_back(from, to);
    _writer.folderMoved(from, to);
    if (isShown(from)) {
        _model.setFolder(to);
    }
}

// What undo remembers of a folder that was moved since is where it was.
QString ClipTableController::presentFolder(const QString& folder) const {
    QString present = folder;
    for (const auto& [from, to] : _movedFolders) {
        if (present == from) {
            present = to;
        }
    }
    return present;
}

void ClipTableController::reloadData() {
    _model.reload();
    updateClipCount();
}

void ClipTableController::sortClips() {
    if (_columns->sortColumn() < 0 || clipArray().size() < 2) {
        return;
    }
    const SelectionChange change(*this, SelectionChange::Kind::quiet);
    const std::vector<ClipInfo> selected = selectedClipArray();
    _table.clearSelection();
    _model.sort(_columns->sortColumn(), _columns->sortOrder());
    std::vector<int> rows;
    rows.reserve(selected.size());
    for (const ClipInfo& clip : selected) {
        rows.push_back(_model.rowOfClip(clip));
    }
    std::ranges::sort(rows);
    selectRows(rows);
}

std::vector<int> ClipTableController::selectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : _table.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(_rows.modelRow(row));
        }
    }
    std::ranges::sort(rows);
    const auto repeated = std::ranges::unique(rows);
    rows.erase(repeated.begin(), repeated.end());
    return rows;
}

bool ClipTableController::isSelected(int row) const {
    const int shown = _rows.rowOf(row);
    return shown >= 0 && _table.selectionModel()->isRowSelected(shown);
}

std::vector<ClipInfo> ClipTableController::selectedClipArray() const {
    std::vector<ClipInfo> clips;
    for (const int row : selectedRows()) {
        clips.push_back(_model.clipAt(row));
    }
    return clips;
}

// `rows` ascend; those that a search hides stay unselected.
void ClipTableController::selectRows(const std::vector<int>& rows) {
    std::vector<int> shown;
    for (const int row : rows) {
        if (!_model.isHidden(row)) {
            shown.push_back(_rows.rowOf(row));
        }
    }
    QItemSelection selection;
    for (auto first = shown.begin(); first != shown.end();) {
        auto last = first;
        while (std::next(last) != shown.end() && *std::next(last) == *last + 1) {
            ++last;
        }
        selection.select(_rows.index(*first, 0), _rows.index(*last, ClipTableModel::columnCountOfTable - 1));
        first = std::next(last);
    }
    QItemSelectionModel& selectionModel = *_table.selectionModel();
    if (!shown.empty() && !std::ranges::binary_search(shown, _table.currentIndex().row())) {
        const int column = std::max(_table.currentIndex().column(), int(ClipTableModel::clip));
        selectionModel.setCurrentIndex(_rows.index(shown.front(), column), QItemSelectionModel::NoUpdate);
    }
    selectionModel.select(selection, QItemSelectionModel::ClearAndSelect);
}

void ClipTableController::selectClips(const std::vector<ClipInfo>& clips) {
    std::vector<int> rows;
    for (const ClipInfo& clip : clips) {
        if (const int row = _model.rowOfClip(clip); row >= 0) {
            _model.showRow(row);
            rows.push_back(row);
        }
    }
    std::ranges::sort(rows);
    selectRows(rows);
    if (!clips.empty()) {
        scrollToClip(clips.front());
    }
}

void ClipTableController::deferredSelectRows(const std::vector<ClipInfo>& clips) {
    DelayedCalls::performAfterDelay(this, 0, [this, clips] { selectClips(clips); });
}

void ClipTableController::selectOnly(int row) {
    selectRows({row});
    scrollToClip(_model.clipAt(row));
}

void ClipTableController::selectFirstClip() {
    if (_rows.rowCount() > 0) {
        selectOnly(_rows.modelRow(0));
    }
}

void ClipTableController::selectNextClip() {
    const std::vector<int> selected = selectedRows();
    const int next = selected.empty() ? 0 : _rows.rowOf(selected.back()) + 1;
    const int count = _rows.rowCount();
    if (count > 0) {
        selectOnly(_rows.modelRow(next < count ? next : 0));
    }
}

void ClipTableController::selectPrevClip() {
    const std::vector<int> selected = selectedRows();
    const int previous = selected.empty() ? _rows.rowCount() - 1 : _rows.rowOf(selected.front()) - 1;
    if (previous >= 0) {
        selectOnly(_rows.modelRow(previous));
    }
}

void ClipTableController::scrollToClip(const ClipInfo& clip) {
    const int row = _model.rowOfClip(clip);
    if (row >= 0 && !_model.isHidden(row)) {
        // Along the row the user has scrolled where he wants to be.
        _table.scrollTo(_rows.index(_rows.rowOf(row), std::max(_table.columnAt(0), 0)));
    }
}

void ClipTableController::deselectAll() {
    _table.clearSelection();
}

void ClipTableController::updateClipCount() {
    const std::size_t total = clipArray().size();
    const QString text = total == 1 ? tr("%1 of %2 Clip Selected") : tr("%1 of %2 Clips Selected");
    _countText.setText(text.arg(selectedRows().size()).arg(total));
    Q_EMIT countChanged();
}

void ClipTableController::updateLabelMenu() {
    _labelMenu.clear();
    const QStringList labels = Preferences::labels();
    for (const QString& label : labels) {
        _labelMenu.addAction(label);
    }
    _model.setLabels(labels);
}

void ClipTableController::labelsChanged() {
    updateLabelMenu();
    reloadData();
}

void ClipTableController::tableViewSelectionDidChange() {
    if (_selectionChanges > 0) {
        _selectionChanged = true;
        return;
    }
    updateClipCount();
    _keptTimer.start();
    Q_EMIT Notifications::centre().clipSelectionHasChanged(this);
}

// The disk is asked by a thread, since the volume may have gone away meanwhile.
void ClipTableController::askShownFiles() {
    _pictures->lookAgain();
    const int first = _table.rowAt(0);
    if (!_table.isVisible() || first < 0 || _fileWork.isRunning()) {
        return;
    }
    const int below = _table.rowAt(_table.viewport()->height() - 1);
    const int last = below < 0 ? _rows.rowCount() - 1 : below;
    std::vector<std::pair<ClipInfo, ClipFiles>> asked;
    for (int row = first; row <= last; ++row) {
        const ClipInfo& clip = _model.clipAt(_rows.modelRow(row));
        asked.emplace_back(clip, filesOfClip(clip, clipFolder().value_or(QString())));
    }
    _fileWork.start([this, asked = std::move(asked)](const BackgroundWork::Post& post) {
        for (const auto& [clip, files] : asked) {
            post([this, clip = clip, facts = askFiles(files)] { _model.setFacts(clip, facts); });
        }
    });
}

}  // namespace marquill
