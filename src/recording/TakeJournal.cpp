#include "recording/TakeJournal.h"

#include "platform/Log.h"
#include "recording/TakeJournalFile.h"
#include "recording/TakeJournalFormat.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds patienceAtEnd{2000};

}  // namespace

// What the main thread and the journal's threads share.
struct TakeJournal::Work {
    struct Item {
        Order order;
        QByteArray line;
    };

    std::mutex mutex;
    std::condition_variable given;  ///< there is something to do, or the end has come
    std::condition_variable done;   ///< something has been done
    std::deque<Item> items;
    bool isWriting = false;
    bool isRefused = false;  ///< the last write failed
    bool isSyncing = false;
    bool isEnding = false;
    bool hasEnded = false;
    TakeJournal* receiver = nullptr;  ///< null once nobody listens
    QString problem;                  ///< what was told last

    bool isWritten() const { return items.empty() && !isWriting; }
    bool isOnDisk() const { return isWritten() && !isSyncing; }

    template <class Message>
    void post(const Message& message) {
        if (TakeJournal* const to = receiver) {
            QMetaObject::invokeMethod(to, [to, message] { message(*to); }, Qt::QueuedConnection);
        }
    }

    // Tells of a change only: a disk stays full for long.
    void tell(const Result<void>& result) {
        const QString now = result ? QString() : result.error().message;
        {
            const std::scoped_lock lock(mutex);
            if (now == std::exchange(problem, now)) {
                return;
            }
            post([now](TakeJournal& journal) { Q_EMIT journal.problemChanged(now); });
        }
        // Not under the lock: the log may stand on the same disk.
        if (!result) {
            qCWarning(logRecording).noquote()
                << "The journal cannot be written:" << result.error().description();
        }
    }
};

// A thread that waits for the disk, so that the one that writes need not: what is written while it waits goes
// with its next round.
class TakeJournal::Syncer {
  public:
    explicit Syncer(std::shared_ptr<Work> work) : _work(std::move(work)) {
        _thread = std::thread([this] { run(); });
    }
    ~Syncer() {
        {
            const std::scoped_lock lock(_work->mutex);
            _isEnding = true;
        }
        _wanted.notify_one();
        _thread.join();
    }
    Syncer(const Syncer&) = delete;
    Syncer& operator=(const Syncer&) = delete;

    void sync(const std::shared_ptr<TakeJournalFile>& file) {
        const std::scoped_lock lock(_work->mutex);
        _file = file;
        _work->isSyncing = true;
        _wanted.notify_one();
    }

  private:
    void run() {
        std::unique_lock lock(_work->mutex);
        for (;;) {
            _wanted.wait(lock, [this] { return _file || _isEnding; });
            const std::shared_ptr<TakeJournalFile> file = std::exchange(_file, nullptr);
            if (!file) {
                return;
            }
            lock.unlock();
            const Result<void> synced = file->sync();
            // What is on the disk is no end of the trouble while more than that waits.
            if (lock.lock(); !synced || !_work->isRefused) {
                lock.unlock();
                _work->tell(synced);
                lock.lock();
            }
            _work->isSyncing = _file != nullptr;
            _work->done.notify_all();
        }
    }

    std::shared_ptr<Work> _work;
    std::condition_variable _wanted;
    std::shared_ptr<TakeJournalFile> _file;  // the one with something to be synced
    bool _isEnding = false;
    std::thread _thread;
};

// The thread that writes.
class TakeJournal::Writer {
  public:
    Writer(QString folder, const std::shared_ptr<Work>& work)
        : _folder(std::move(folder)), _work(work), _syncer(std::make_unique<Syncer>(work)) {}

    void run() {
        while (const std::optional<std::deque<Work::Item>> items = takeItems()) {
            for (const Work::Item& item : *items) {
                carryOut(item);
            }
            write();
        }
        _syncer.reset();
        _file.reset();
        const std::scoped_lock lock(_work->mutex);
        _work->hasEnded = true;
        _work->done.notify_all();
    }

  private:
    // All that is to be done by now; nothing at the end.
    std::optional<std::deque<Work::Item>> takeItems() {
        std::unique_lock lock(_work->mutex);
        _work->isWriting = false;
        _work->done.notify_all();
        _work->given.wait(lock, [this] { return !_work->items.empty() || _work->isEnding; });
        if (_work->items.empty()) {
            return std::nullopt;
        }
        _work->isWriting = true;
        return std::exchange(_work->items, {});
    }

    void carryOut(const Work::Item& item) {
        switch (item.order) {
            case Order::begin:
                _file = std::make_shared<TakeJournalFile>(_folder);
                _file->append(item.line);
                break;
            case Order::write:
                if (_file) {
                    _file->append(item.line);
                }
                break;
            case Order::remove:
                removeFile();
                break;
            case Order::keep:
                keepFile();
                break;
        }
    }

    void write() {
        if (!_file) {
            return;
        }
        const Result<void> written = _file->write();
        {
            const std::scoped_lock lock(_work->mutex);
            _work->isRefused = !written;
        }
        if (written) {
            _syncer->sync(_file);
        } else {
            _work->tell(written);
        }
    }

    void removeFile() {
        if (_file) {
            if (const Result<void> removed = _file->remove(); !removed) {
                qCWarning(logRecording).noquote() << removed.error().description();
            }
            _file.reset();
            _work->tell({});
        }
    }

    void keepFile() {
        if (!_file) {
            return;
        }
        const Result<void> flushed = _file->flush();
        _file->release();
        _file.reset();
        _work->tell({});
        if (flushed) {
            const std::scoped_lock lock(_work->mutex);
            _work->post([](TakeJournal& journal) { Q_EMIT journal.kept(); });
        }
    }

    QString _folder;
    std::shared_ptr<Work> _work;
    std::unique_ptr<Syncer> _syncer;
    std::shared_ptr<TakeJournalFile> _file;  // of the take in progress
};

TakeJournal::TakeJournal(QString folder) : _folder(std::move(folder)), _work(std::make_shared<Work>()) {
    _work->receiver = this;
}

TakeJournal::~TakeJournal() {
    if (!_thread.joinable()) {
        return;
    }
    std::unique_lock lock(_work->mutex);
    _work->receiver = nullptr;
    _work->isEnding = true;
    _work->given.notify_one();
    const bool hasEnded = _work->done.wait_for(lock, patienceAtEnd, [this] { return _work->hasEnded; });
    lock.unlock();
    if (hasEnded) {
        _thread.join();
    } else {
        qCWarning(logRecording) << "The disk with the journal does not answer; it is left behind.";
        _thread.detach();
    }
}

void TakeJournal::begin(const TakeRecord& take) {
    _noted = take;
    give(Order::begin, TakeJournalFormat::startLine(take));
    waitForWriter();
}

void TakeJournal::addMarker(const Dictionary& marker, double at) {
    give(Order::write, TakeJournalFormat::markerLine(marker, at));
    waitForWriter();
}

void TakeJournal::beat(const TakeRecord& take) {
    noteChanges(take);
    give(Order::write, TakeJournalFormat::aliveLine(take.elapsed));
}

void TakeJournal::stop(const TakeRecord& take) {
    noteChanges(take);
    give(Order::write, TakeJournalFormat::stopLine(take.elapsed));
}

void TakeJournal::remove() {
    give(Order::remove);
}

void TakeJournal::keep() {
    give(Order::keep);
}

void TakeJournal::noteChanges(const TakeRecord& take) {
    const QByteArray line = TakeJournalFormat::changeLine(_noted, take);
    if (!line.isEmpty()) {
        give(Order::write, line);
    }
    _noted = take;
}

void TakeJournal::give(Order order, QByteArray line) {
    if (line.size() > TakeJournalFormat::longestLine) {
        qCWarning(logRecording) << "A line of" << line.size() << "bytes is too long for the journal.";
        return;
    }
    if (!_thread.joinable()) {
        _thread = std::thread([folder = _folder, work = _work] { Writer(folder, work).run(); });
    }
    const std::scoped_lock lock(_work->mutex);
    _work->items.push_back({order, std::move(line)});
    _work->given.notify_one();
}

// A disk that is slow is waited for once, until it is quick again.
void TakeJournal::waitForWriter() {
    std::unique_lock lock(_work->mutex);
    const auto isWritten = [this] { return _work->isWritten(); };
    _isBehind = !_work->done.wait_for(lock, _isBehind ? std::chrono::milliseconds(0) : patience, isWritten);
}

bool TakeJournal::waitUntilWritten(std::chrono::milliseconds limit) {
    std::unique_lock lock(_work->mutex);
    return _work->done.wait_for(lock, limit, [this] { return _work->isOnDisk(); });
}

}  // namespace marquill
