// What is entered into the clip table: names, ratings, labels and texts, each with its inverse.
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "connect/ClipSelectionChange.h"
#include "platform/DelayedCalls.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/RecordTextValidator.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

namespace marquill {

namespace {

// Rounds up from .2 on, in single precision, as a rating control's fractions are meant.
qint64 ratingOf(const QVariant& value) {
    constexpr float roundedUp = 0.8F;
    return static_cast<qint64>(value.toFloat() + roundedUp);
}

Value valueOf(const ClipInfo& clip, const QString& key) {
    const Value* value = clip.record().find(key);
    return value ? *value : Value();
}

void setValueOf(const ClipInfo& clip, const QString& key, const Value& value) {
    Dictionary record = clip.record();
    if (value.isNothing()) {
        record.remove(key);
    } else {
        record.set(key, value);
    }
}

// The clip's file name with another display name; the take and the kind stay.
QString renamed(const QString& clipName, const QString& displayName) {
    QString name = displayName;
    if (const qsizetype separator = clipName.lastIndexOf(u'#'); separator >= 0) {
        // Of "Clip#.xml" there is no take, and all that follows the "#" is extension.
        const QString last = clipName.sliced(separator + 1);
        name += u'#' + (last.startsWith(u'.') ? QString() : withoutPathExtension(last));
    }
    for (const QString& kind : {u".mov"_s, u".xml"_s}) {
        if (clipName.endsWith(kind)) {
            // A kind alone would be a hidden file of no kind.
            return name.endsWith(kind) && name != kind ? name : name + kind;
        }
    }
    return name;
}

// An extension holds no space: "Mr. Smith" is a whole name.
QString withoutExtension(const QString& name) {
    return pathExtension(name).contains(u' ') ? name : withoutPathExtension(name);
}

bool isClipName(QString name) {
    int position = 0;
    return !name.isEmpty() && ClipNameValidator().validate(name, position) == QValidator::Acceptable;
}

}  // namespace

void ClipTableController::setObjectValue(const QVariant& value, int column, int row) {
    const ClipInfo clip = _model.clipAt(row);
    switch (column) {
        case ClipTableModel::clip:
            deselectAll();
            setClipName(clip, value.toString());
            selectClip(clip);
            break;
        case ClipTableModel::rating:
            enterAttribute(clip, ClipKey::clipRating, ratingOf(value));
            break;
        case ClipTableModel::label:
            if (const int item = value.toInt(); item >= 0 && item < _model.labels().size()) {
                enterAttribute(clip, ClipKey::clipLabel, _model.labels()[item]);
            }
            break;
        case ClipTableModel::comment:
            enterAttribute(clip, ClipKey::clipComment, value.toString());
            break;
        case ClipTableModel::scene:
            enterAttribute(clip, ClipKey::clipScene, value.toString());
            break;
        case ClipTableModel::take:
            enterAttribute(clip, ClipKey::clipTake, value.toString());
            break;
        default:
            break;
    }
}

// An editor that is left with what it began with has changed nothing.
void ClipTableController::enterAttribute(const ClipInfo& clip, const QString& key, const Value& value,
                                         Selection selection) {
    const Value present = valueOf(clip, key);
    const bool isEmptyAsBefore = present.isNothing() && value.string() == QString();
    if (present != value && !isEmptyAsBefore && clipFolder()) {
        setAttribute(clip, *clipFolder(), key, value, selection);
    }
}

void ClipTableController::endEditing() {
    _table.endEditing();
}

void ClipTableController::setAttribute(const ClipInfo& clip, const QString& folder, const QString& key,
                                       const Value& value, Selection selection) {
    const QString place = presentFolder(folder);
    const ClipInfo present = presentRecord(clip, place);
    const bool isInTable = isShown(place) && _model.rowOfClip(present) >= 0;
    const std::optional<ClipInfo> selected = onlySelected();
    const bool staysSelected = selected && selected->isSame(present);
    const bool isSelected = isInTable && (staysSelected || selection == Selection::ofClip);
    const SelectionChange change(*this,
                                 staysSelected ? SelectionChange::Kind::quiet : SelectionChange::Kind::told);
    if (isSelected) {
        deselectAll();
    }
    const Value before = valueOf(present, key);
    setValueOf(present, key, value);
    // On disk at once, so that a crash costs nothing of it.
    _writer.write(present, place);
    _undoManager.registerUndo(
        this, [this, present, place, key, before] { setAttribute(present, place, key, before); });
    _undoManager.setActionName(tr("change Clip"));
    if (isInTable) {
        _model.clipChanged(present);
        sortClips();
        if (isSelected) {
            selectClip(present);
        }
        Q_EMIT Notifications::centre().refreshCurrentClip(this);
    }
}

// The record that stands for the clip now: undo may remember one from before its folder was read anew.
ClipInfo ClipTableController::presentRecord(const ClipInfo& clip, const QString& folder) const {
    if (isShown(folder)) {
        const int row = rowFor(clip);
        return row >= 0 ? _model.clipAt(row) : clip;
    }
    const QString name = clip.clipName().value_or(QString());
    if (const std::optional<ClipInfo> unwritten = _writer.unwritten(folder, name)) {
        return *unwritten;
    }
    const std::optional<QString> path = ClipStore::clipPath(folder, name);
    return path && fileExists(*path) ? ClipStore::infoForClip(*path).value_or(clip) : clip;
}

void ClipTableController::setClipName(const ClipInfo& clip, const QString& name) {
    const QString base = withoutExtension(name);
    const QString displayName = ClipStore::clipDisplayNameFromClip(clip);
    if (!clipFolder() || base == displayName || name == displayName) {
        return;
    }
    const QString oldName = clip.clipName().value_or(QString());
    renameFile(clip, *clipFolder(),
               isClipName(name) && isClipName(base) ? renamed(oldName, base) : QString());
}

void ClipTableController::renameFile(const ClipInfo& clip, const QString& folder, const QString& clipName) {
    const QString place = presentFolder(folder);
    ClipInfo present = presentRecord(clip, place);
    const QString oldName = present.clipName().value_or(QString());
    if (clipName == oldName) {
        return;
    }
    _writer.finishWriting();
    const std::optional<QString> from = ClipStore::clipPath(place, oldName);
    const std::optional<QString> to = ClipStore::clipPath(place, clipName);
    const Result<void> moved = from && to
                                   ? FileSystem::current().move(*from, *to)
                                   : failure(ErrorCode::unsupported, tr("No clip can have that name."));
    if (!moved) {
        qCWarning(logConnect).noquote() << moved.error().description();
        // Once the cell's editor is closed: an alert would take its focus and make it hand its text in again.
        DelayedCalls::performAfterDelay(this, 0, [this] {
            showAlert(tr("Couldn't change name"), tr("The clip name could not be changed."));
        });
        return;
    }
    const bool isInTable = isShown(place) && _model.rowOfClip(present) >= 0;
    if (isInTable) {
        deselectAll();
    }
    present.setClipName(clipName);
    ClipInfo(clip).setClipName(clipName);
    _writer.clipRenamed(present, place, oldName);
    _writer.write(present, place);
    _undoManager.registerUndo(this, [this, present, place, oldName] { renameFile(present, place, oldName); });
    _undoManager.setActionName(tr("rename Clip"));
    if (isInTable) {
        // Selected anew, so that what shows the clip's movie looks for it under its new name.
        _model.clipChanged(present);
        sortClips();
        selectClip(present);
    }
}

}  // namespace marquill
