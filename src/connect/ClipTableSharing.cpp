// What others change in the shown folder, taken into the rows that are there: their records stay the same,
// and so do the selection, the cell that is edited, what is on screen, and undo.
#include "connect/ClipSelectionChange.h"
#include "connect/ClipTableController.h"
#include "connect/FolderChanges.h"
#include "platform/TableView.h"

#include <QScrollBar>

#include <algorithm>

namespace marquill {

namespace {

bool hasRecord(const ClipFile& file) {
    return file.clip && !file.clip->record().isEmpty();
}

bool areSame(const std::vector<ClipInfo>& clips, const std::vector<ClipInfo>& others) {
    return std::ranges::equal(clips, others,
                              [](const ClipInfo& a, const ClipInfo& b) { return a.isSame(b); });
}

}  // namespace

/// Taking over changes: what has to be done once, when all are taken.
struct ClipTableController::Taking {
    std::vector<ClipInfo> newClips = {};
    std::vector<ClipFileFacts> newFacts = {};
    std::vector<ClipInfo> goneClips = {};
    std::vector<ClipInfo> toWrite = {};
    std::optional<QHash<QString, int>> rowsOfNames = {};  // of the rows that were there before
    bool isComplete = true;
};

bool ClipTableController::takeFolderChanges(const FolderChanges& changes) {
    if (!isShown(changes.folder)) {
        return true;
    }
    const std::vector<ClipInfo> selected = selectedClipArray();
    Taking taking;
    {
        const SelectionChange change(*this, SelectionChange::Kind::quiet);
        const RowOnTop top(*this);
        for (const RenamedClip& renamed : changes.renamed) {
            takeRenamed(renamed, taking);
        }
        for (const ReadClip& clip : changes.changed) {
            takeChanged(clip, taking);
        }
        for (const ReadClip& clip : changes.appeared) {
            takeChanged(clip, taking);
        }
        takeGone(changes.gone, taking);
        showTaken(taking, selected);
    }
    _writer.write(taking.toWrite, changes.folder);
    if (!areSame(selected, selectedClipArray())) {
        tableViewSelectionDidChange();
    }
    return taking.isComplete;
}

// The record that stands for the file.
std::optional<ClipInfo> ClipTableController::clipOfFile(const QString& name) {
    const KnownClip* known = _writer.shared().known().find(*clipFolder(), name);
    return known ? known->clip : std::nullopt;
}

// Whether this program has just written the file, or is about to, or an editor is open in its row, which
// would hand its text in over what was taken.
bool ClipTableController::hasToWait(const QString& name, Taking& taking) {
    const std::optional<ClipInfo> clip = clipOfFile(name);
    const bool waits = _writer.shared().known().isTouched(*clipFolder(), name) ||
                       _writer.isWriting(*clipFolder(), name) || (clip && isEditedInCell(*clip));
    taking.isComplete = taking.isComplete && !waits;
    return waits;
}

bool ClipTableController::isEditedInCell(const ClipInfo& clip) const {
    return _table.isEditing() && _model.clipAt(_rows.modelRow(_table.currentIndex().row())).isSame(clip);
}

void ClipTableController::takeChanged(const ReadClip& clip, Taking& taking) {
    if (hasToWait(clip.file.name, taking)) {
        return;
    }
    const std::optional<ClipInfo> present = clipOfFile(clip.file.name);
    if (present && _model.rowOfClip(*present) >= 0) {
        takeInto(*present, clip, taking);
    } else {
        showNew(clip, taking);
    }
}

void ClipTableController::takeInto(const ClipInfo& present, const ReadClip& clip, Taking& taking) {
    ClipInfo taken = present;
    const SharedClips::Taken result = _writer.shared().take(*clipFolder(), clip.file);
    completeRecord(taken, clip.facts);
    _model.setFacts(taken, clip.facts);
    _model.attributesChanged(taken);
    // Where there are conflicts, trying to write it lets them be asked about; where there were some, they may
    // be gone.
    const bool isKept = _writer.unwritten(*clipFolder(), clip.file.name).has_value();
    if (isKept || result == SharedClips::Taken::withConflicts) {
        taking.toWrite.push_back(taken);
    }
}

// Of many names at once, each is looked up in no time.
int ClipTableController::rowOfName(const QString& name, Taking& taking) const {
    if (!taking.rowsOfNames) {
        taking.rowsOfNames.emplace();
        for (int row = _model.rowCount() - 1; row >= 0; --row) {
            taking.rowsOfNames->insert(_model.clipAt(row).clipName().value_or(QString()), row);
        }
    }
    return taking.rowsOfNames->value(name, -1);
}

// A file that was no clip, or nothing was known of.
void ClipTableController::showNew(const ReadClip& clip, Taking& taking) {
    const ClipFile& file = clip.file;
    KnownClip known{.stamp = file.stamp, .held = {}, .clip = {}};
    if (hasRecord(file)) {
        const int row = rowOfName(file.name, taking);
        known.held = file.held;
        known.clip = row >= 0 ? _model.clipAt(row) : *file.clip;
        if (row < 0) {
            taking.newClips.push_back(*file.clip);
            taking.newFacts.push_back(clip.facts);
        }
    }
    _writer.shared().known().set(*clipFolder(), file.name, known);
}

void ClipTableController::takeRenamed(const RenamedClip& renamed, Taking& taking) {
    const QString& name = renamed.clip.file.name;
    if (hasToWait(renamed.from, taking) || hasToWait(name, taking)) {
        return;
    }
    const std::optional<ClipInfo> present = clipOfFile(renamed.from);
    KnownClips& known = _writer.shared().known();
    if (!present || _model.rowOfClip(*present) < 0) {
        known.remove(*clipFolder(), renamed.from);
        showNew(renamed.clip, taking);
        return;
    }
    const bool hadItsName = present->clipName() == renamed.from;
    known.move(*clipFolder(), renamed.from, *clipFolder(), name);
    if (hadItsName) {
        ClipInfo(*present).setClipName(name);
    }
    takeInto(*present, renamed.clip, taking);
    // Whoever reads the folder anew shall find it under its name.
    const bool isStale =
        hasRecord(renamed.clip.file) && !renamed.clip.file.held->held(ClipKey::clipName, Value(name));
    if (hadItsName && isStale) {
        taking.toWrite.push_back(*present);
    }
}

void ClipTableController::takeGone(const QStringList& names, Taking& taking) {
    for (const QString& name : names) {
        if (hasToWait(name, taking)) {
            continue;
        }
        const std::optional<ClipInfo> present = clipOfFile(name);
        if (present && _model.rowOfClip(*present) >= 0) {
            Q_EMIT aboutToBeGone(*present);
            // What is kept for it is tried again, which tells its loss; then it goes at the next look.
            if (_writer.unwritten(*clipFolder(), name)) {
                taking.toWrite.push_back(*present);
                continue;
            }
            taking.goneClips.push_back(*present);
        }
        _writer.shared().known().remove(*clipFolder(), name);
    }
}

void ClipTableController::showTaken(const Taking& taking, const std::vector<ClipInfo>& selected) {
    if (!taking.goneClips.empty()) {
        removeFromTable(taking.goneClips);
    }
    // Whoever searches sees them all the same: no take is to come unseen.
    _model.append(taking.newClips, taking.newFacts, ClipArrival::made);
    if (_columns->sortColumn() >= 0) {
        _model.sort(_columns->sortColumn(), _columns->sortOrder());
    }
    // Of many rows that go at once, the table forgets the selection.
    std::vector<int> rows;
    for (const ClipInfo& clip : selected) {
        if (const int row = _model.rowOfClip(clip); row >= 0) {
            rows.push_back(row);
        }
    }
    std::ranges::sort(rows);
    if (rows != selectedRows()) {
        selectRows(rows);
    }
    updateClipCount();
}

ClipTableController::RowOnTop::RowOnTop(ClipTableController& controller) : _controller(controller) {
    const QScrollBar& bar = *controller._table.verticalScrollBar();
    const int row = controller._table.rowAt(0);
    if (row >= 0 && bar.value() > bar.minimum()) {
        _clip = controller._model.clipAt(controller._rows.modelRow(row));
        _offset = controller._table.rowViewportPosition(row);
    }
}

ClipTableController::RowOnTop::~RowOnTop() {
    const int row = _clip ? _controller._model.rowOfClip(*_clip) : -1;
    if (row < 0 || _controller._model.isHidden(row)) {
        return;
    }
    TableView& table = _controller._table;
    table.scrollTo(_controller._rows.index(_controller._rows.rowOf(row), std::max(table.columnAt(0), 0)),
                   QAbstractItemView::PositionAtTop);
    if (table.verticalScrollMode() == QAbstractItemView::ScrollPerPixel) {
        table.verticalScrollBar()->setValue(table.verticalScrollBar()->value() - _offset);
    }
}

}  // namespace marquill
