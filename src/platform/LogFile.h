// The log as a file in the state folder: while this lives, every message of the log is appended to it, one
// line each, and goes where it went before too. Owned by main(); messages may come from any thread.
#pragma once

#include "platform/Date.h"

#include <QLoggingCategory>
#include <QString>

#include <chrono>
#include <memory>
#include <thread>

namespace marquill {

/// A line holds the moment with its offset from UTC, the process, the level, the category and the message:
/// "2026-11-21T09:05:00.123+01:00 4711 warning connect: No trash folder found". A thread of its own writes,
/// so that a slow disk delays nothing; when the disk takes no more, lines are left out and counted.
class LogFile {
  public:
    static constexpr qint64 mostBytes = 1'000'000;  ///< of one file
    static constexpr int olderFiles = 4;            ///< marquill.1.log to marquill.4.log

    /// A quiet one writes its first line only when there is a message to stand below it, and tells nobody
    /// when it cannot be written.
    enum class Manner { plain, quiet };

    /// Takes the messages from now on and keeps them until start().
    LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    /// Messages go where they went before. A disk that does not answer within two seconds is left behind.
    ~LogFile();

    /// Writes what came so far, and from now on what comes, into marquill.log in `folder`, which is made when
    /// it is missing. The first line tells of the program and its surroundings, `place` among them: what it
    /// shows its windows on, or its command.
    void start(const QString& folder, const QString& place, Manner manner);

    /// Waits until all that came is written or left out; false when that takes longer.
    bool waitUntilWritten(std::chrono::milliseconds patience);

    /// Where the file of a program with the settings in use is. Main thread.
    static QString path();

  private:
    struct Work;
    struct Destination;
    class Writer;
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& message);

    Date _begin;
    std::shared_ptr<Work> _work;
    std::thread _thread;
};

}  // namespace marquill
