// Writes the records of edited clips, and keeps those that could not be written: they are written again every
// few seconds until they are on the disk. What others wrote into a clip's file since it was read is merged
// first; a clip that both have changed in the same place is kept until resolve() says how it shall be. Two
// programs that write one clip within the same few microseconds are not told apart, see replaceFile: what was
// written first is lost then. Owned by ClipTableController. Main thread.
#pragma once

#include "connect/ClipBacklog.h"
#include "connect/SharedClips.h"
#include "platform/Error.h"

#include <QObject>
#include <QTimer>

#include <vector>

namespace marquill {

class ClipWriter : public QObject {
    Q_OBJECT

  public:
    /// How long it rests before it tries again, in milliseconds.
    static constexpr int retryInterval = 5000;
    /// More clips than this are not written at once, but while the event loop runs.
    static constexpr std::size_t mostAtOnce = 64;

    explicit ClipWriter(int milliseconds = retryInterval);
    /// Writes those that are still to be written.
    ~ClipWriter() override;

    /// Writes the record into its clip in `folder`, or keeps it. One whose file is missing in a folder that
    /// is there is told of, and not kept: its clip was deleted, and what has its name later is another one.
    void write(const ClipInfo& clip, const QString& folder) { write(std::vector{clip}, folder); }
    /// The same for many clips, several at a time; of more than mostAtOnce this returns before they are
    /// written (see isWriting), each then as it is by its turn.
    void write(const std::vector<ClipInfo>& clips, const QString& folder);
    /// Writes all that are kept, as they are now.
    void retry();

    /// Whether clips wait for their turn to be written.
    bool isWriting() const { return !_backlog.isEmpty(); }
    /// Whether that one does.
    bool isWriting(const QString& folder, const QString& clipName) const {
        return _backlog.find(folder, clipName).has_value();
    }
    bool isWritingIn(const QString& folder) const { return !_backlog.namesIn(folder).isEmpty(); }
    /// Writes them now. Before files are moved, too.
    void finishWriting() { _backlog.finish(); }

    bool hasUnwritten() const { return isWriting() || !_unwritten.empty() || !_conflicts.empty(); }
    /// Whether some of them were refused by the disk.
    bool hasFailing() const { return !_unwritten.empty(); }
    /// The record that is kept, or waits, for the clip of that name: it is newer than the file.
    std::optional<ClipInfo> unwritten(const QString& folder, const QString& clipName) const;
    /// "“A#01.xml” could not be saved: The volume is full. …", of several clips with their number.
    QString unwrittenText() const;

    /// The clip's file was moved into another folder, replacing what had its name there.
    void clipMoved(const ClipInfo& clip, const QString& from, const QString& to);
    /// Another clip has that name now: what is kept for the one before is not for it.
    void clipReplaced(const ClipInfo& clip, const QString& folder);
    /// The clip's file was given the name that the clip has now.
    void clipRenamed(const ClipInfo& clip, const QString& folder, const QString& oldName);
    /// A record folder was given another path.
    void folderMoved(const QString& from, const QString& to);
    /// The folder is not shown any more: what is known of its clips but the kept ones is forgotten.
    void leaveFolder(const QString& folder);

    // Clips that others write too

    SharedClips& shared() { return _shared; }
    /// Those that wait for an answer, the oldest first.
    const std::vector<ClipInConflict>& conflicts() const { return _conflicts; }
    /// Writes the clip with what one side has. Where others have changed it again since it was shown so, it
    /// is in conflict anew.
    void resolve(ClipInConflict conflict, ClipPreference preference);

  Q_SIGNALS:
    /// So many of the clips that are written while the event loop runs are done; both are the same when all
    /// are.
    void progressed(qsizetype done, qsizetype total);
    /// There are others in conflict than before, or none.
    void conflictsChanged();
    /// Clips came to those that are not written.
    void failed();
    /// The file of a clip is gone and its last edit with it; for the user.
    void lost(const QString& text);
    /// There are none any more.
    void allWritten();

  private:
    struct Unwritten {
        ClipInfo clip;
        QString folder;
        Error error;
    };

    void writeInTurn(const std::vector<ClipInfo>& clips, const QString& folder);
    void takeWritten(const std::vector<ClipBacklog::Written>& slice);
    void keep(const ClipInfo& clip, const QString& folder, const SharedClips::Outcome& outcome);
    void forget(const QString& folder, const QString& clipName);
    void forgetKept(const QString& folder, const QString& clipName);
    bool isDone(Unwritten& unwritten);
    bool isDone(Unwritten& unwritten, const SharedClips::Outcome& outcome);
    static QString textFor(const Unwritten& unwritten);
    static QString textForSeveral(const Unwritten& first, std::size_t others);
    void retryInTurn();
    void tellWhenAllWritten();

    SharedClips _shared;
    std::vector<ClipInConflict> _conflicts;
    std::vector<Unwritten> _unwritten;  // the one to be tried next is the first
    QTimer _timer;
    bool _wasFailing = false;  // before the backlog began
    ClipBacklog _backlog;
};

}  // namespace marquill
