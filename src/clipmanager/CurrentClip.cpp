#include "clipmanager/CurrentClip.h"

#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "platform/Files.h"

#include <utility>

namespace marquill {

namespace {

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

// Whether the file that holds `written` has all of `clip`. What the clip table adds to a record while it
// shows it is no edit.
bool isWritten(const ClipInfo& clip, const ClipInfo& written) {
    Dictionary present = clip.record().copy();
    Dictionary known = written.record().copy();
    present.remove(ClipKey::clipFileSize);
    known.remove(ClipKey::clipFileSize);
    if (!written.clipCreationDate()) {
        present.remove(ClipKey::clipCreationDate);
    }
    if (!written.clipTake() && clip.clipTake() == ClipStore::takeFromClip(written)) {
        present.remove(ClipKey::clipTake);
    }
    return present == known;
}

}  // namespace

CurrentClip::CurrentClip(ClipTableController& table) : _table(table) {
    _rest.setSingleShot(true);
    _rest.setInterval(restInterval);
    connect(&_rest, &QTimer::timeout, this, &CurrentClip::write);
}

void CurrentClip::take(const ClipInfo& clip) {
    _clip = clip;
    _written = clip.deepCopy();
    _cameWithMarkers = clip.clipMarkerArray().has_value();
}

void CurrentClip::release() {
    if (_clip) {
        endEditing();
        write();
        _clip.reset();
        _written = ClipInfo();
    }
}

bool CurrentClip::isInTable() const {
    return _clip && _table.model().rowOfClip(*_clip) >= 0;
}

void CurrentClip::type(const QString& key, const QString& text) {
    if (!_clip) {
        return;
    }
    if (_editedKey != key) {
        endEditing();
        _editedKey = key;
        _valueBefore = valueOf(*_clip, key);
    }
    // A text that is deleted again leaves no key where there was none.
    const bool isEmptyAsBefore = text.isEmpty() && _valueBefore.isNothing();
    setValueOf(*_clip, key, isEmptyAsBefore ? Value() : Value(text));
    _table.model().attributesChanged(*_clip);
    _rest.start();
}

void CurrentClip::endEditing() {
    const QString key = std::exchange(_editedKey, QString());
    if (key.isEmpty() || !isInTable()) {
        return;
    }
    // As if it were entered now: the table's operation knows the value before by finding it.
    const Value value = valueOf(*_clip, key);
    setValueOf(*_clip, key, _valueBefore);
    change(key, value);
}

void CurrentClip::setMarkers(const Array& markers) {
    if (!_clip) {
        return;
    }
    if (_clip->clipMarkerArray().value_or(Array()) != markers) {
        const bool keepsKey = _cameWithMarkers || markers.size() > 0;
        _clip->setClipMarkerArray(keepsKey ? std::optional(markers) : std::nullopt);
    }
    _rest.start();  // a marker's own record may have changed
}

// The table writes what it changes. The clip may be left for another one right now, which stays selected.
void CurrentClip::change(const QString& key, const Value& value) {
    if (!isInTable()) {
        return;
    }
    const ClipInfo clip = *_clip;
    const Value before = valueOf(clip, key);
    _table.enterAttribute(clip, key, value, ClipTableController::Selection::stays);
    if (valueOf(clip, key) == before) {
        write();
    } else {
        _written = clip.deepCopy();
    }
}

// A record that is not in the table stands for no clip any more: its clip has another one, which must not be
// written over, or is in the trash, where its last edits follow it.
void CurrentClip::write() {
    _rest.stop();
    const std::optional<QString>& folder = _table.clipFolder();
    if (!_clip || !folder || isWritten(*_clip, _written)) {
        return;
    }
    if (isInTable()) {
        writeInto(*folder);
    } else if (_table.model().rowOfName(_clip->clipName().value_or(QString())) < 0) {
        writeInto(joinPath(*folder, u"Trash"_s));
    }
}

void CurrentClip::fileChanged(const ClipInfo& theirs) {
    if (_clip) {
        _written = theirs.deepCopy();
        _written.setClipName(_clip->clipName());
        _rest.start();  // what was merged into it may be more than the file holds
    }
}

void CurrentClip::writeInto(const QString& folder) {
    // What it could not write, it writes later.
    _table.writer().write(*_clip, folder);
    _written = _clip->deepCopy();
}

}  // namespace marquill
