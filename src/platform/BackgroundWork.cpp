#include "platform/BackgroundWork.h"

#include <QDeadlineTimer>

#include <mutex>
#include <utility>

namespace marquill {

namespace {

constexpr std::chrono::milliseconds patience{2000};

}  // namespace

// What the main thread and the work share.
struct BackgroundWork::Link {
    std::mutex mutex;
    QObject* receiver = nullptr;  ///< null once the results are not wanted; changed by the main thread alone
};

bool BackgroundWork::Post::isWanted() const {
    const std::scoped_lock lock(_link->mutex);
    return _link->receiver != nullptr;
}

void BackgroundWork::Post::operator()(std::function<void()> result) const {
    const std::scoped_lock lock(_link->mutex);
    if (!_link->receiver) {
        return;
    }
    const auto unlessCancelled = [link = _link, result = std::move(result)] {
        if (link->receiver) {
            result();
        }
    };
    QMetaObject::invokeMethod(_link->receiver, unlessCancelled, Qt::QueuedConnection);
}

BackgroundWork::BackgroundWork() = default;

BackgroundWork::~BackgroundWork() {
    cancel();
    const QDeadlineTimer deadline(patience);
    for (const QPointer<QThread>& thread : _threads) {
        if (thread && thread->wait(deadline)) {
            delete thread;
        }
    }
}

void BackgroundWork::start(std::function<void(const Post&)> work) {
    cancel();
    std::erase_if(_threads, [](const QPointer<QThread>& thread) { return thread.isNull(); });
    _link = std::make_shared<Link>();
    _link->receiver = &_receiver;
    QThread* thread = QThread::create([this, post = Post(_link), work = std::move(work)] {
        work(post);
        // Called only while this object lives.
        post([this] { _link.reset(); });
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    _threads.emplace_back(thread);
    thread->start();
}

void BackgroundWork::cancel() {
    if (const std::shared_ptr<Link> link = std::exchange(_link, nullptr)) {
        const std::scoped_lock lock(link->mutex);
        link->receiver = nullptr;
    }
}

}  // namespace marquill
