// What is known of the files of clips: the stamp each had when it was last read or written here, and what it
// held then. A file with another stamp was written by somebody else. Owned by ClipWriter. Main thread; a copy
// of ofFolder() may be read on another one.
#pragma once

#include "clipstore/ClipPrint.h"
#include "platform/FileStamp.h"

#include <QHash>
#include <QSet>

#include <memory>
#include <vector>

namespace marquill {

struct KnownClip {
    FileStamp stamp;
    std::shared_ptr<const ClipPrint> held;  ///< what the file held then; null where it has no record
    std::optional<ClipInfo> clip;           ///< the record that stands for the file in the program
};

/// What is known of the files of one folder, by their names.
using KnownFolder = QHash<QString, KnownClip>;

/// A clip file as it was read: first its stamp was asked for, then it was read, so that what is written into
/// it meanwhile is found by the next look.
struct ClipFile {
    QString name;
    FileStamp stamp;
    std::optional<ClipInfo> clip;  ///< none: the file has no record; empty: it cannot be read
    std::shared_ptr<const ClipPrint> held;
};

/// The clip files of these names in `folder`, in that order.
std::vector<ClipFile> readClipFiles(const QString& folder, const QStringList& names);

class KnownClips {
  public:
    /// Null where nothing is known; valid until something changes.
    const KnownClip* find(const QString& folder, const QString& name) const;
    KnownFolder ofFolder(const QString& folder) const { return _folders.value(folder); }

    /// `known` is how the file is now.
    void set(const QString& folder, const QString& name, const KnownClip& known);
    void remove(const QString& folder, const QString& name);
    /// The file has another place or another name now, and is what it was.
    void move(const QString& folder, const QString& name, const QString& toFolder, const QString& toName);
    void folderMoved(const QString& from, const QString& to);
    /// Forgets a folder but for the clips of these names.
    void forget(const QString& folder, const QStringList& butFor);
    QStringList folders() const { return _folders.keys(); }

    /// From here on it is noted what is set, removed and moved.
    void beginLook() { _touched.clear(); }
    /// Whether the file was, since then: what a look has found out about it is out of date.
    bool isTouched(const QString& folder, const QString& name) const;

  private:
    void touch(const QString& folder, const QString& name) { _touched.insert({folder, name}); }

    QHash<QString, KnownFolder> _folders;
    QSet<std::pair<QString, QString>> _touched;
};

}  // namespace marquill
