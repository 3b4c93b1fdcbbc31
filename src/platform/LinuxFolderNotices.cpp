// Notices of a folder by Linux's inotify. One watch on the folder tells of writing into its files too.
#include "platform/FolderNotices.h"
#include "platform/NativeName.h"

#include <QSocketNotifier>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace marquill {

namespace {

constexpr quint32 changes = IN_CREATE | IN_CLOSE_WRITE | IN_MODIFY | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr quint32 endings = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

class LinuxFolderNotices final : public FolderNotices {
  public:
    explicit LinuxFolderNotices(int descriptor)
        : _descriptor(descriptor), _notifier(descriptor, QSocketNotifier::Read) {
        connect(&_notifier, &QSocketNotifier::activated, this, &LinuxFolderNotices::read);
    }
    LinuxFolderNotices(const LinuxFolderNotices&) = delete;
    LinuxFolderNotices& operator=(const LinuxFolderNotices&) = delete;
    ~LinuxFolderNotices() override {
        _notifier.setEnabled(false);
        close(_descriptor);
    }

  private:
    void read() {
        const quint32 told = readAll();
        if ((told & endings) != 0) {
            _notifier.setEnabled(false);
            Q_EMIT ended();
        } else if (told != 0) {
            Q_EMIT changed();
        }
    }

    // What has happened since the last time, all in one. Where too much did, that it did.
    quint32 readAll() const {
        quint32 told = 0;
        alignas(inotify_event) std::array<char, 16'384> buffer = {};
        for (;;) {
            const ssize_t count = ::read(_descriptor, buffer.data(), buffer.size());
            if (count <= 0) {
                return told;
            }
            inotify_event event = {};
            for (std::size_t at = 0; at + sizeof event <= static_cast<std::size_t>(count);
                 at += sizeof event + event.len) {
                std::memcpy(&event, buffer.data() + at, sizeof event);
                told |= event.mask;
            }
        }
    }

    int _descriptor;
    QSocketNotifier _notifier;
};

}  // namespace

std::unique_ptr<FolderNotices> FolderNotices::watch(const QString& path) {
    const std::optional<QByteArray> name = nativeName(path);
    const int descriptor = name ? inotify_init1(IN_NONBLOCK | IN_CLOEXEC) : -1;
    if (descriptor < 0) {
        return nullptr;
    }
    if (inotify_add_watch(descriptor, name->constData(),
                          changes | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR) < 0) {
        close(descriptor);
        return nullptr;
    }
    return std::make_unique<LinuxFolderNotices>(descriptor);
}

}  // namespace marquill
