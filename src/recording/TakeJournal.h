// The journal of the take in progress: what a crash must not cost is in a file within a moment. A thread of
// its own writes and syncs, so that a slow disk delays no key. Owned by the recorder; main thread.
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
    /// Journals stand in `folder`, which is made when a take needs it.
    explicit TakeJournal(QString folder);
    /// Writes what is still to be written. A disk that does not answer within two seconds is left behind.
    ~TakeJournal() override;

    // The life of a take. Every call returns at once; lines are written in the order of the calls.

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

    /// Waits until the thread has done all that it was given; false when that takes longer.
    bool waitUntilWritten(std::chrono::milliseconds patience);

  Q_SIGNALS:
    /// The journal can not be written, and why; or with "", it can again. What could not be written is tried
    /// again with every line that follows.
    void problemChanged(const QString& problem);
    /// The journal of a take that could not be written stands in its folder, and can be recovered from.
    void kept();

  private:
    struct Work;
    class Writer;
    enum class Order { begin, write, remove, keep };

    void give(Order order, QByteArray line = {});
    void noteChanges(const TakeRecord& take);

    QString _folder;
    TakeRecord _noted;  // what the journal says by now
    std::shared_ptr<Work> _work;
    std::thread _thread;
};

}  // namespace marquill
