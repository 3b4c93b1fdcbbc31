// The clip table's operations that move files and replace records, each with its inverse.
#include "clipstore/ClipStore.h"
#include "clipstore/ClipTrash.h"
#include "connect/ClipSelectionChange.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <algorithm>

namespace marquill {

namespace {

QString addTitle() {
    return ClipTableController::tr("add Clip(s)");
}

QString deleteTitle() {
    return ClipTableController::tr("move Clip(s) to Trash");
}

QString trashOf(const QString& folder) {
    return ClipTrash::trashFolder(folder);
}

Result<QString> placeOf(const QString& clipName, const QString& folder) {
    if (const std::optional<QString> path = ClipStore::clipPath(folder, clipName)) {
        return *path;
    }
    return failure(ErrorCode::malformed,
                   ClipTableController::tr("No clip can have the name “%1”.").arg(clipName), folder);
}

// One step, so that the item of that name which is in the trash goes only when the clip takes its place.
Result<void> moveIntoTrash(const QString& clipName, const QString& folder) {
    const Result<QString> from = placeOf(clipName, folder);
    if (!from) {
        return std::unexpected(from.error());
    }
    if (!ClipTrash::hasTrash(folder)) {
        return failure(ErrorCode::notAFile,
                       ClipTableController::tr("What has this name is no trash folder. Rename or remove it."),
                       trashOf(folder));
    }
    const QString to = joinPath(trashOf(folder), clipName);
    if (folderExists(to) && fileExists(*from)) {
        if (Result<void> removed = removeAll(to); !removed) {
            return removed;
        }
    }
    return FileSystem::current().replace(*from, to);
}

// "Shot#01*.xml" of "Shot#01.xml".
QString starred(const QString& clipName) {
    const QString extension = pathExtension(clipName);
    const QString base = withoutPathExtension(clipName) + u'*';
    return extension.isEmpty() ? base : base + u'.' + extension;
}

// The name that the clip has in its folder again.
Result<QString> moveOutOfTrash(const QString& clipName, const QString& folder) {
    const Result<QString> from = placeOf(clipName, trashOf(folder));
    if (!from) {
        return from;
    }
    QString name = clipName;
    while (FileSystem::current().attributes(joinPath(folder, name), Links::keep)) {
        name = starred(name);
    }
    if (const Result<void> moved = FileSystem::current().move(*from, joinPath(folder, name)); !moved) {
        return std::unexpected(moved.error());
    }
    return name;
}

// What showing a clip adds to its record is nobody's change.
bool isEntered(const QString& key, const ClipInfo& before, const ClipInfo& now) {
    if (key == ClipKey::clipTake) {
        return ClipStore::takeFromClip(before) != ClipStore::takeFromClip(now);
    }
    return key != ClipKey::clipFileSize && key != ClipKey::clipDuration && key != ClipKey::clipCreationDate;
}

// Gives `clip` what has changed from `before` to `now`.
void takeChangesSince(const ClipInfo& before, const ClipInfo& now, const ClipInfo& clip) {
    Dictionary record = clip.record();
    for (const QString& key : before.record().keys() + now.record().keys()) {
        const Value* old = before.record().find(key);
        const Value* present = now.record().find(key);
        const bool isSame = old && present && *old == *present;
        if (isSame || !isEntered(key, before, now)) {
            continue;
        }
        if (present) {
            record.set(key, *present);
        } else {
            record.remove(key);
        }
    }
}

void logError(const Error& error) {
    qCWarning(logConnect).noquote() << error.description();
}

}  // namespace

void ClipTableController::registerUndo(ClipSetOperation inverse, const ClipSet& set,
                                       const QString& actionName) {
    if (!set.clipArray.empty()) {
        _undoManager.registerUndo(this, [this, inverse, set] { (this->*inverse)(set); });
        _undoManager.setActionName(actionName);
    }
}

void ClipTableController::addItem(const ClipInfo& clip) {
    show({clip});
    sortClips();
    deferredSelectRows({clip});
    updateClipCount();
}

void ClipTableController::deleteItem() {
    endEditing();
    const std::vector<ClipInfo> selected = selectedClipArray();
    if (!selected.empty() && clipFolder()) {
        deleteClipsWithUndo({.clipFolder = *clipFolder(), .clipArray = selected});
    }
}

void ClipTableController::addClipsWithUndo(const ClipSet& set) {
    if (isShown(presentFolder(set.clipFolder))) {
        const SelectionChange change(*this);
        show(set.clipArray);
        sortClips();
        selectClips(set.clipArray);
        updateClipCount();
    }
    registerUndo(&ClipTableController::undoAddClipsWithUndo, set, addTitle());
}

void ClipTableController::undoAddClipsWithUndo(const ClipSet& set) {
    moveToTrash(set, &ClipTableController::redoAddClipsWithUndo, addTitle());
}

void ClipTableController::redoAddClipsWithUndo(const ClipSet& set) {
    moveFromTrash(set, &ClipTableController::undoAddClipsWithUndo, addTitle());
}

void ClipTableController::deleteClipsWithUndo(const ClipSet& set) {
    moveToTrash(set, &ClipTableController::undoDeleteClipsWithUndo, deleteTitle());
}

void ClipTableController::undoDeleteClipsWithUndo(const ClipSet& set) {
    moveFromTrash(set, &ClipTableController::deleteClipsWithUndo, deleteTitle());
}

// The inverse is told of the clips that were moved and no others: an older item of the same name in the trash
// must not come back in place of a clip that never went there.
void ClipTableController::moveToTrash(const ClipSet& set, ClipSetOperation inverse,
                                      const QString& actionName) {
    const QString folder = presentFolder(set.clipFolder);
    _writer.finishWriting();
    if (!ClipTrash::hasTrash(folder) && !FileSystem::current().makeFolder(trashOf(folder))) {
        qCWarning(logConnect, "Couldn't create trash folder");
    }
    ClipSet moved{.clipFolder = folder, .clipArray = {}};
    for (const ClipInfo& clip : set.clipArray) {
        if (const auto done = moveIntoTrash(clip.clipName().value_or(QString()), folder)) {
            moved.clipArray.push_back(clip);
            _writer.clipMoved(clip, folder, trashOf(folder));
        } else {
            logError(done.error());
        }
    }
    if (isShown(folder)) {
        const SelectionChange change(*this);
        removeFromTable(moved.clipArray);
        sortClips();
        deselectAll();
        updateClipCount();
    }
    registerUndo(inverse, moved, actionName);
}

void ClipTableController::moveFromTrash(const ClipSet& set, ClipSetOperation inverse,
                                        const QString& actionName) {
    const QString folder = presentFolder(set.clipFolder);
    if (!ClipTrash::hasTrash(folder)) {
        qCWarning(logConnect, "No trash folder found");
        return;
    }
    _writer.finishWriting();
    ClipSet moved{.clipFolder = folder, .clipArray = {}};
    for (ClipInfo clip : set.clipArray) {
        const QString oldName = clip.clipName().value_or(QString());
        const Result<QString> name = moveOutOfTrash(oldName, folder);
        if (!name) {
            logError(name.error());
            continue;
        }
        _writer.clipMoved(clip, trashOf(folder), folder);
        if (*name != oldName) {
            clip.setClipName(*name);
            _writer.clipRenamed(clip, folder, oldName);
            _writer.write(clip, folder);
        }
        moved.clipArray.push_back(clip);
    }
    if (isShown(folder)) {
        const SelectionChange change(*this);
        show(moved.clipArray);
        sortClips();
        selectClips(moved.clipArray);
        updateClipCount();
    }
    registerUndo(inverse, moved, actionName);
}

// The row of the record; of one that the folder was read anew since, the row that has its file now.
int ClipTableController::rowFor(const ClipInfo& clip) const {
    const int row = _model.rowOfClip(clip);
    return row >= 0 ? row : _model.rowOfName(clip.clipName().value_or(QString()));
}

void ClipTableController::removeFromTable(const std::vector<ClipInfo>& clips) {
    std::vector<int> rows;
    for (const ClipInfo& clip : clips) {
        if (const int row = rowFor(clip); row >= 0) {
            rows.push_back(row);
        }
    }
    std::ranges::sort(rows);
    const auto repeated = std::ranges::unique(rows);
    rows.erase(repeated.begin(), repeated.end());
    // Many rows go at once, which takes their selection with them untold.
    _selectionChanged = _selectionChanged || _table.selectionModel()->hasSelection();
    _model.removeRowsAt(rows);
}

void ClipTableController::changeClipsWithUndo(const ClipChangeSet& set) {
    exchangeClips(set, set.oldClips, set.newClips, &ClipTableController::undoChangeClipsWithUndo,
                  "not found in 'changeClipsWithUndo'");
}

void ClipTableController::undoChangeClipsWithUndo(const ClipChangeSet& set) {
    exchangeClips(set, set.newClips, set.oldClips, &ClipTableController::changeClipsWithUndo,
                  "not found in 'undoChangeClipsWithUndo'");
}

// Markers are changed in steps of their own, which are forgotten with the clip they were shown of, and others
// change what they like: what was done since is not to go with what is taken back now.
void ClipTableController::keepLaterChanges(const ClipChangeSet& set, const std::vector<ClipInfo>& from,
                                           const std::vector<ClipInfo>& to) const {
    for (std::size_t i = 0; i < set.asLeft.size(); ++i) {
        takeChangesSince(set.asLeft[i], presentRecord(from[i], *set.clipFolder), to[i]);
    }
}

// The records stay those of the folder they were changed in: undo in another one would write them over clips
// that have their names there.
void ClipTableController::exchangeClips(const ClipChangeSet& set, const std::vector<ClipInfo>& from,
                                        const std::vector<ClipInfo>& to, ChangeSetOperation inverse,
                                        const char* notFound) {
    if (from.empty() || from.size() != to.size()) {
        return;
    }
    ClipChangeSet done = set;
    done.clipFolder = presentFolder(set.clipFolder.value_or(clipFolder().value_or(QString())));
    keepLaterChanges(done, from, to);
    done.asLeft.clear();
    std::vector<ClipInfo> selected;
    std::vector<ClipInfo> hidden;
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (isShown(*done.clipFolder) && _model.rowOfClip(from[i]) < 0) {
            qCWarning(logConnect, "%s", notFound);
        }
        const int row = rowFor(from[i]);
        if (row >= 0 && isSelected(row)) {
            selected.push_back(to[i]);
        }
        if (row >= 0 && _model.isHidden(row)) {
            hidden.push_back(to[i]);
        }
        if (row < 0) {
            _arrivedNames.insert(to[i].clipName().value_or(QString()));
        }
    }
    _writer.write(to, *done.clipFolder);
    std::ranges::transform(to, std::back_inserter(done.asLeft), &ClipInfo::deepCopy);
    if (isShown(*done.clipFolder)) {
        const SelectionChange change(*this);
        removeFromTable(from);
        _model.append(to, {}, ClipArrival::changed);
        for (const ClipInfo& clip : hidden) {
            _model.showRow(_model.rowOfClip(clip));
        }
        sortClips();
        selectClips(selected);
    }
    _undoManager.registerUndo(this, [this, inverse, done] { (this->*inverse)(done); });
    _undoManager.setActionName(done.actionName);
}

}  // namespace marquill
