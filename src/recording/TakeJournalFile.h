// The file of one take's journal as it is written. What a full or missing volume refuses is kept and written
// with what comes next. Owned by the journal: one thread writes, while another may wait in sync().
#pragma once

#include "platform/FileLock.h"
#include "platform/FileSystem.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <mutex>

namespace marquill {

class TakeJournalFile {
  public:
    /// What a journal's name begins with.
    static constexpr auto prefix = "take-"_L1;
    /// What a journal's name ends with once its first line is on the device. Whoever has the lock on such a
    /// file owns the take.
    static constexpr auto suffix = ".journal"_L1;
    /// What it ends with until then.
    static constexpr auto newSuffix = ".new"_L1;

    /// A journal in `folder`, which is made when it is missing. Nothing is written yet.
    explicit TakeJournalFile(QString folder);

    // The writing thread's.

    /// Takes whole lines to be written; beyond the size of a journal they are dropped.
    void append(QByteArrayView lines);
    /// Hands what was taken to the system: from then on it outlives this process. After a failure all of it
    /// is still to be written.
    Result<void> write();
    /// write() and sync().
    Result<void> flush();
    /// Removes the file: the take is safe elsewhere.
    Result<void> remove();
    /// Leaves the file to whoever recovers the take.
    void release();

    // Any thread's.

    /// Returns when what was written is on the device and the file has its name: from then on it outlives the
    /// power. After a failure the next write() writes it again.
    Result<void> sync();

    /// Where it stands; "" before the first write.
    QString path() const;

  private:
    Result<void> create();
    Result<void> giveName();

    QString _folder;
    // The lock goes after the file, and both when the take is done with.
    std::unique_ptr<FileLock> _lock;
    std::shared_ptr<OpenFile> _file;

    mutable std::mutex _mutex;  // of all below; held for no longer than a rename takes
    QString _path;
    bool _isNamed = false;
    bool _isDoneWith = false;  // removed, or somebody else's
    QByteArray _pending;       // what is not known to be on the device
    qint64 _synced = 0;        // bytes of the file before `_pending`
    qint64 _written = 0;       // bytes that the system has
    int _failedSyncs = 0;
};

}  // namespace marquill
