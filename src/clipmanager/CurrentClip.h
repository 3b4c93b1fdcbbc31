// The clip that the attribute editor shows, and what becomes of its edits: they stand in its record, and in
// its row, as they are typed; one editing of one field is one undo step; and the file has them when the field
// is left, at the latest two seconds after the last key. Owned by ClipManager. Main thread.
#pragma once

#include "clipstore/ClipInfo.h"

#include <QObject>
#include <QTimer>

namespace marquill {

class ClipTableController;

class CurrentClip : public QObject {
    Q_OBJECT

  public:
    /// How long edits rest before they are written, in milliseconds.
    static constexpr int restInterval = 2000;

    /// `table` shows the clips and knows their folder.
    explicit CurrentClip(ClipTableController& table);

    /// The record shown, or nothing.
    const std::optional<ClipInfo>& clip() const { return _clip; }
    /// Shows this one; the one before must have been released.
    void take(const ClipInfo& clip);
    /// Ends the editing, writes the record if it has changed, and forgets it.
    void release();

    /// The text of `key` as it is being typed.
    void type(const QString& key, const QString& text);
    /// Whether a text is being typed that is no undo step yet.
    bool isEditing() const { return !_editedKey.isEmpty(); }
    /// What was typed becomes one undo step, and is written.
    void endEditing();
    /// A value that was chosen: one undo step, written at once.
    void change(const QString& key, const Value& value);
    /// Gives the record these markers, to be written once they rest. A clip that came without the key has
    /// none again when the last marker goes, so that what is undone leaves nothing behind.
    void setMarkers(const Array& markers);
    /// Writes the record if it is not what was last written.
    void write();

    /// The clip's file holds this record now: somebody else has written it, and it was merged into the
    /// clip's.
    void fileChanged(const ClipInfo& theirs);

    /// Whether the record stands in the clip table: it does not after its clip was moved to the trash, or was
    /// given another record.
    bool isInTable() const;

  private:
    void writeInto(const QString& folder);

    ClipTableController& _table;
    std::optional<ClipInfo> _clip;
    ClipInfo _written;              // what the file holds, as far as is known here
    bool _cameWithMarkers = false;  // or with an empty list of them
    QString _editedKey;             // being typed; empty: nothing is
    Value _valueBefore;             // what the key had when its editing began
    QTimer _rest;
};

}  // namespace marquill
