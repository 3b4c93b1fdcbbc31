// Work on a thread of its own, whose results are wanted only until it is cancelled: for what may wait for a
// slow volume. Owned and used by the main thread.
#pragma once

#include <QObject>
#include <QPointer>
#include <QThread>

#include <functional>
#include <memory>
#include <vector>

namespace marquill {

class BackgroundWork {
    struct Link;

  public:
    /// How the work hands over its results. Any thread.
    class Post {
      public:
        /// False once the work was cancelled: it should end soon.
        bool isWanted() const;
        /// Calls `result` on the main thread, in the order of the posts, unless the work is cancelled before.
        void operator()(std::function<void()> result) const;

      private:
        friend class BackgroundWork;
        explicit Post(std::shared_ptr<Link> link) : _link(std::move(link)) {}
        std::shared_ptr<Link> _link;
    };

    BackgroundWork();
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;
    /// Cancels. Work that hangs, on a volume that went away, is left behind after two seconds.
    ~BackgroundWork();

    /// Cancels what is under way, and starts `work`.
    void start(std::function<void(const Post&)> work);
    /// Nothing that was posted, or will be, is called any more. Returns at once.
    void cancel();
    /// Whether results may still come.
    bool isRunning() const { return _link != nullptr; }

  private:
    QObject _receiver;
    std::shared_ptr<Link> _link;  // to the work whose results are wanted
    std::vector<QPointer<QThread>> _threads;
};

}  // namespace marquill
