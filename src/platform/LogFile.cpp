#include "platform/LogFile.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/LogLine.h"
#include "platform/RotatingFile.h"
#include "platform/StateFolder.h"

#include <QCoreApplication>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <optional>
#include <utility>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds patienceAtEnd{2000};
constexpr qsizetype mostBytesWaiting = 250'000;  // so that no single write fills a file
constexpr auto fileName = "marquill.log"_L1;

}  // namespace

// What those who tell something and the log's thread share.
struct LogFile::Work {
    struct Batch {
        QByteArray lines;
        int leftOut = 0;  ///< messages that came after them, when no more could wait
    };

    std::mutex mutex;
    std::condition_variable given;  ///< there is something to write, or the end has come
    std::condition_variable done;   ///< nothing is left to write
    QByteArray firstLine;           ///< goes before the first message
    Batch batch;
    bool isBusy = false;
    bool isEnding = false;
    bool hasEnded = false;

    void add(const QByteArray& line) {
        const std::scoped_lock lock(mutex);
        if (batch.lines.size() + line.size() > mostBytesWaiting) {
            ++batch.leftOut;
            return;
        }
        batch.lines += std::exchange(firstLine, {}) + line;
        given.notify_one();
    }

    bool waitUntilWritten(std::chrono::milliseconds patience) {
        std::unique_lock lock(mutex);
        return done.wait_for(lock, patience, [this] { return batch.lines.isEmpty() && !isBusy; });
    }
};

// Where messages go. One may be on its way, on any thread, when the log ends.
struct LogFile::Destination {
    std::mutex mutex;
    std::shared_ptr<Work> work;
    QtMessageHandler before = nullptr;

    static Destination& current() {
        static Destination destination;
        return destination;
    }
};

// The log's thread.
class LogFile::Writer {
  public:
    Writer(const QString& folder, Manner manner, std::shared_ptr<Work> work)
        : _file(folder, fileName, mostBytes, olderFiles),
          _work(std::move(work)),
          _isTold(manner == Manner::quiet) {}

    void run() {
        while (const std::optional<Work::Batch> batch = takeBatch()) {
            write(*batch);
        }
        const std::scoped_lock lock(_work->mutex);
        _work->hasEnded = true;
        _work->done.notify_all();
    }

  private:
    // All that came by now; nothing at the end.
    std::optional<Work::Batch> takeBatch() {
        std::unique_lock lock(_work->mutex);
        _work->isBusy = false;
        if (_work->batch.lines.isEmpty()) {
            _work->done.notify_all();
        }
        _work->given.wait(lock, [this] { return !_work->batch.lines.isEmpty() || _work->isEnding; });
        if (_work->batch.lines.isEmpty()) {
            return std::nullopt;
        }
        _work->isBusy = true;
        return std::exchange(_work->batch, {});
    }

    // What the disk refuses is gone; the file tells how much that was once it can be written again.
    void write(const Work::Batch& batch) {
        const Result<void> written =
            _file.append(lineOfMissing(_refused) + batch.lines + lineOfMissing(batch.leftOut));
        if (written) {
            _refused = 0;
        } else {
            _refused += static_cast<int>(batch.lines.count('\n')) + batch.leftOut;
            tell(written.error());
        }
    }

    static QByteArray lineOfMissing(int count) {
        return count == 0 ? QByteArray()
                          : LogLine::of(Clock::current().now(), QtWarningMsg, "marquill.platform",
                                        u"%1 messages are missing here."_s.arg(count));
    }

    // Once, as a disk stays full for long; and not through the log, which would only fail again.
    void tell(const Error& error) {
        if (!std::exchange(_isTold, true)) {
            const QString told = QCoreApplication::translate("LogFile", "The log cannot be written: %1");
            const QByteArray text = told.arg(error.description()).toUtf8() + '\n';
            std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stderr);
        }
    }

    RotatingFile _file;
    std::shared_ptr<Work> _work;
    bool _isTold;
    int _refused = 0;  // messages
};

LogFile::LogFile() : _begin(Clock::current().now()), _work(std::make_shared<Work>()) {
    Destination& destination = Destination::current();
    const std::scoped_lock lock(destination.mutex);
    destination.work = _work;
    destination.before = qInstallMessageHandler(take);
}

LogFile::~LogFile() {
    Destination& destination = Destination::current();
    {
        const std::scoped_lock lock(destination.mutex);
        qInstallMessageHandler(destination.before);
        destination.work.reset();
    }
    if (!_thread.joinable()) {
        return;
    }
    std::unique_lock lock(_work->mutex);
    _work->isEnding = true;
    _work->given.notify_one();
    const bool hasEnded = _work->done.wait_for(lock, patienceAtEnd, [this] { return _work->hasEnded; });
    lock.unlock();
    hasEnded ? _thread.join() : _thread.detach();
}

void LogFile::start(const QString& folder, const QString& place, Manner manner) {
    const QByteArray line =
        LogLine::of(Clock::current().now(), QtInfoMsg, "marquill.application", LogLine::aboutProgram(place));
    {
        const std::scoped_lock lock(_work->mutex);
        if (manner == Manner::plain || !_work->batch.lines.isEmpty()) {
            _work->batch.lines.prepend(line);
        } else {
            _work->firstLine = line;
        }
    }
    _thread = std::thread([folder, manner, work = _work] { Writer(folder, manner, work).run(); });
}

bool LogFile::waitUntilWritten(std::chrono::milliseconds patience) {
    return _work->waitUntilWritten(patience);
}

QString LogFile::path() {
    return joinPath(stateFolder(), fileName);
}

void LogFile::take(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    Destination& destination = Destination::current();
    std::unique_lock lock(destination.mutex);
    const std::shared_ptr<Work> work = destination.work;
    const QtMessageHandler before = destination.before;
    lock.unlock();
    // Debug messages of the program come only when somebody asked for them, those of its libraries unasked.
    const QByteArrayView category(context.category);
    if (work && (type != QtDebugMsg || category.startsWith("marquill."))) {
        work->add(LogLine::of(Clock::current().now(), type, category, message));
        if (type == QtFatalMsg) {
            work->waitUntilWritten(patienceAtEnd);
        }
    }
    if (before) {
        before(type, context, message);
    }
}

}  // namespace marquill
