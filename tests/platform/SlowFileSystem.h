// A file system that lets every thread but the main one wait until it is let go, as a slow volume does: work
// is under way for as long as a test needs it to be. Installed while it lives.
#pragma once

#include "platform/ForwardingFileSystem.h"

#include <QCoreApplication>
#include <QThread>

#include <condition_variable>
#include <mutex>

namespace marquill {

class SlowFileSystem final : public ForwardingFileSystem {
  public:
    SlowFileSystem() { install(this); }
    ~SlowFileSystem() override {
        letGo();
        install(nullptr);
        std::unique_lock lock(_mutex);
        _left.wait(lock, [this] { return _waiting == 0; });
    }
    SlowFileSystem(const SlowFileSystem&) = delete;
    SlowFileSystem& operator=(const SlowFileSystem&) = delete;

    /// Whether a thread waits, or has waited.
    bool isAsked() const {
        const std::scoped_lock lock(_mutex);
        return _isAsked;
    }
    void letGo() {
        const std::scoped_lock lock(_mutex);
        _isOpen = true;
        _opened.notify_all();
    }

    Result<std::vector<FolderEntry>> entries(const QString& folder) override {
        wait();
        return system().entries(folder);
    }
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        wait();
        return system().attributes(path, links);
    }
    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        wait();
        return system().open(path, mode);
    }

  private:
    void wait() {
        if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
            return;
        }
        std::unique_lock lock(_mutex);
        _isAsked = true;
        ++_waiting;
        _opened.wait(lock, [this] { return _isOpen; });
        --_waiting;
        _left.notify_all();
    }

    mutable std::mutex _mutex;
    std::condition_variable _opened;
    std::condition_variable _left;
    int _waiting = 0;
    bool _isAsked = false;
    bool _isOpen = false;
};

}  // namespace marquill
