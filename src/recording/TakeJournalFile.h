// The file of one take's journal as it is written. What a full or missing volume refuses is kept and written
// with what comes next. Owned and used by the journal's thread.
#pragma once

#include "platform/FileLock.h"
#include "platform/FileSystem.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace marquill {

class TakeJournalFile {
  public:
    /// What a journal's name ends with once it holds its first line. Whoever has the lock on such a file owns
    /// the take.
    static constexpr auto suffix = ".journal"_L1;

    /// A journal in `folder`, which is made when it is missing. Nothing is written yet.
    explicit TakeJournalFile(QString folder);

    /// Takes whole lines to be written; beyond the size of a journal they are dropped.
    void append(QByteArrayView lines);
    /// Writes what was taken, and returns when it is on the device. After a failure all of it is still to be
    /// written.
    Result<void> flush();
    /// Removes the file: the take is safe elsewhere.
    Result<void> remove();

    /// Where it stands; "" before the first flush.
    const QString& path() const { return _path; }

  private:
    Result<void> create();
    Result<void> writePending();
    Result<void> giveName();

    QString _folder;
    QString _path;
    // The lock goes after the file, and both when the take is done with.
    std::unique_ptr<FileLock> _lock;
    std::unique_ptr<OpenFile> _file;
    QByteArray _pending;
    qint64 _written = 0;  // bytes that are on the device
    bool _isNamed = false;
};

}  // namespace marquill
