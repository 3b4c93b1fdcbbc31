// The journal of the take in progress: what a crash must not cost is in a file within a moment. Threads of
// its own write and sync, so that a slow disk delays no key. Owned by the recorder; main thread.
#pragma once

#include "platform/Error.h"
#include "recording/TakeRecord.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <thread>

namespace marquill {

class TakeJournal : public QObject {
    Q_OBJECT

  public:
    /// How long a key may wait for a line to be written.
    static constexpr std::chrono::milliseconds patience{50};

    /// Journals stand in `folder`, which is made when a take needs it.
    explicit TakeJournal(QString folder);
    /// Writes what is still to be written. A disk that does not answer within two seconds is left behind.
    ~TakeJournal() override;

    // The life of a take. Lines are written in the order of the calls, each while those before it may still
    // be on their way to the disk. begin() and addMarker() return when the system has their line, so that it
    // outlives the program; from a disk that does not take it within `patience` they go on at once until it
    // does.

    /// A take begins: its name, scene, folder and start are noted.
    void begin(const TakeRecord& take);
    /// A marker was fired `at` seconds after the start; its record is noted as it is now.
    void addMarker(const Dictionary& marker, double at);
    /// The take goes on: its elapsed time is noted, and what has changed of its name, scene and folder.
    void beat(const TakeRecord& take);
    /// The take was stopped: as beat(), and no more.
    void stop(const TakeRecord& take);
    /// The take's clip is written: the journal is removed.
    void remove();
    /// The take's clip could not be written: the journal stays, for the user to recover the take from.
    void keep();

    /// Waits until all is done and on the disk; false when that takes longer.
    bool waitUntilWritten(std::chrono::milliseconds limit);

  Q_SIGNALS:
    /// The journal can not be written, and why; or with "", it can again. What could not be written is tried
    /// again with every line that follows.
    void problemChanged(const QString& problem);
    /// The journal of a take that could not be written stands in its folder, and can be recovered from.
    void kept();

  private:
    struct Work;
    class Writer;
    class Syncer;
    enum class Order { begin, write, remove, keep };

    void give(Order order, QByteArray line = {});
    void noteChanges(const TakeRecord& take);
    void waitForWriter();

    QString _folder;
    TakeRecord _noted;  // what the journal says by now
    std::shared_ptr<Work> _work;
    std::thread _thread;
    bool _isBehind = false;  // the writer was waited for in vain
};

}  // namespace marquill
