// A file of lines that several programs append to at once. Before it grows beyond its size it becomes the
// first of a few older ones, the oldest of which goes. Used by one thread.
#pragma once

#include "platform/FileSystem.h"

#include <memory>

namespace marquill {

class RotatingFile {
  public:
    /// NAME.EXTENSION in `folder`; the older files are NAME.1.EXTENSION, NAME.2.EXTENSION and so on up to
    /// `olderFiles`. None has more than `mostBytes`, unless what is written at once has. Nothing is touched
    /// yet.
    RotatingFile(const QString& folder, const QString& name, qint64 mostBytes, int olderFiles);

    /// Writes whole lines at the file's end; makes the file, and its folder, when they are missing. What
    /// several programs write at once stands one behind the other. Nothing is synced.
    Result<void> append(QByteArrayView lines);

  private:
    Result<void> open();
    Result<void> create() const;
    bool isStillThere() const;
    Result<void> write(qint64 offset, QByteArrayView lines);
    Result<void> rotate() const;
    QString nameOf(int number) const;

    QString _path;
    qint64 _mostBytes;
    int _olderFiles;
    std::unique_ptr<OpenFile> _file;
    bool _isWithinLine = false;  // a write failed, and may have left half a line
};

}  // namespace marquill
