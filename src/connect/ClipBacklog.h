// Clips that are to be written, very many at once: slice by slice on a thread of its own, so that the window
// stays alive and a take never waits. Each file is written whole or not at all, and only if it still has the
// stamp expected of it. Owned by ClipWriter, which says what becomes of those that were refused. Main thread.
#pragma once

#include "clipstore/ClipPrint.h"
#include "platform/BackgroundWork.h"
#include "platform/Error.h"
#include "platform/FileStamp.h"

#include <QHash>

#include <deque>
#include <functional>

namespace marquill {

class ClipBacklog : public QObject {
    Q_OBJECT

  public:
    /// What became of one clip.
    struct Written {
        ClipInfo clip;    ///< that waited
        QString folder;   ///< of its file
        bool isExpected;  ///< whether its file had to have a certain stamp
        Result<FileStamp> stamp;
        std::shared_ptr<const ClipPrint> held;  ///< what was written; null where nothing was
    };

    /// The stamp that a clip's file is expected to have; none: it is written whatever it has.
    using Expected = std::function<std::optional<FileStamp>(const ClipInfo& clip, const QString& folder)>;
    using Done = std::function<void(const std::vector<Written>& slice)>;

    /// `expected` is asked, and the records are copied, when it is their turn; `done` hears of each slice.
    ClipBacklog(Expected expected, Done done);
    /// Writes the rest.
    ~ClipBacklog() override;

    /// Of clips with the same name the last one counts.
    void add(const std::vector<ClipInfo>& clips, const QString& folder);
    /// The clip is not to wait any more: it is about to be written, or its file to be moved. What is at that
    /// moment being written of it is finished first.
    void release(const QString& folder, const QString& clipName);
    /// Writes the rest, and returns when all is written.
    void finish();
    /// Returns when what is being written at this moment is; the rest waits on.
    void finishSlice();

    bool isEmpty() const { return _waiting.isEmpty() && !_slice; }
    /// The clip of that name that waits or is being written.
    std::optional<ClipInfo> find(const QString& folder, const QString& clipName) const;
    /// The names of those that wait, or are being written, in that folder.
    QStringList namesIn(const QString& folder) const;
    /// A record folder was given another path.
    void folderMoved(const QString& from, const QString& to);

  Q_SIGNALS:
    /// So many of the clips that were added since all was written last are; both are the same at the end.
    void progressed(qsizetype done, qsizetype total);

  private:
    struct Slice;
    using Key = std::pair<QString, QString>;  // folder and name

    std::shared_ptr<Slice> nextSlice();
    void startSlice();
    void takeSlice();
    void goOnLater();
    void tellProgress();

    Expected _expected;
    Done _done;
    QHash<Key, ClipInfo> _waiting;
    std::deque<Key> _order;  // some may not wait any more
    std::shared_ptr<Slice> _slice;
    qsizetype _total = 0;
    BackgroundWork _work;
};

}  // namespace marquill
