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

// What the main thread and the journal's thread share.
struct TakeJournal::Work {
    struct Item {
        Order order;
        QByteArray line;
    };

    std::mutex mutex;
    std::condition_variable given;  ///< there is something to do, or the end has come
    std::condition_variable done;   ///< nothing is left to do
    std::deque<Item> items;
    bool isBusy = false;
    bool isEnding = false;
    bool hasEnded = false;
    TakeJournal* receiver = nullptr;  ///< null once nobody listens
};

// The journal's thread.
class TakeJournal::Writer {
  public:
    Writer(QString folder, std::shared_ptr<Work> work) : _folder(std::move(folder)), _work(std::move(work)) {}

    void run() {
        while (const std::optional<std::deque<Work::Item>> items = takeItems()) {
            for (const Work::Item& item : *items) {
                carryOut(item);
            }
            flush();
        }
        _file.reset();
        const std::scoped_lock lock(_work->mutex);
        _work->hasEnded = true;
        _work->done.notify_all();
    }

  private:
    // All that is to be done by now, so that lines that came together cost one sync; nothing at the end.
    std::optional<std::deque<Work::Item>> takeItems() {
        std::unique_lock lock(_work->mutex);
        _work->isBusy = false;
        if (_work->items.empty()) {
            _work->done.notify_all();
        }
        _work->given.wait(lock, [this] { return !_work->items.empty() || _work->isEnding; });
        if (_work->items.empty()) {
            return std::nullopt;
        }
        _work->isBusy = true;
        return std::exchange(_work->items, {});
    }

    void carryOut(const Work::Item& item) {
        switch (item.order) {
            case Order::begin:
                _file.emplace(_folder);
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

    void flush() {
        if (_file) {
            tell(_file->flush());
        }
    }

    void removeFile() {
        if (_file) {
            if (const Result<void> removed = _file->remove(); !removed) {
                qCWarning(logRecording).noquote() << removed.error().description();
            }
            _file.reset();
            tell({});
        }
    }

    void keepFile() {
        const bool isThere = _file && _file->flush();
        _file.reset();
        tell({});
        if (!isThere) {
            return;
        }
        post([](TakeJournal& journal) { Q_EMIT journal.kept(); });
    }

    // Tells of a change only: a disk stays full for long.
    void tell(const Result<void>& result) {
        const QString problem = result ? QString() : result.error().message;
        if (problem == _problem) {
            return;
        }
        if (!result) {
            qCWarning(logRecording).noquote()
                << "The journal cannot be written:" << result.error().description();
        }
        _problem = problem;
        post([problem](TakeJournal& journal) { Q_EMIT journal.problemChanged(problem); });
    }

    template <class Message>
    void post(const Message& message) {
        const std::scoped_lock lock(_work->mutex);
        if (TakeJournal* const receiver = _work->receiver) {
            QMetaObject::invokeMethod(
                receiver, [receiver, message] { message(*receiver); }, Qt::QueuedConnection);
        }
    }

    QString _folder;
    std::shared_ptr<Work> _work;
    std::optional<TakeJournalFile> _file;  // of the take in progress
    QString _problem;
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
}

void TakeJournal::addMarker(const Dictionary& marker, double at) {
    give(Order::write, TakeJournalFormat::markerLine(marker, at));
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

bool TakeJournal::waitUntilWritten(std::chrono::milliseconds patience) {
    std::unique_lock lock(_work->mutex);
    return _work->done.wait_for(lock, patience, [this] { return _work->items.empty() && !_work->isBusy; });
}

}  // namespace marquill
