#include "platform/FileBrowser.h"

#include "platform/Files.h"
#include "platform/Literals.h"
#include "platform/Log.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>

namespace marquill {

namespace {

void openFolder(const QString& path) {
    const QString folder = folderExists(path) ? path : parentFolder(path);
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) {
        qCWarning(logPlatform) << "no file browser opens" << folder;
    }
}

// The freedesktop.org file manager interface, which the large desktops' file browsers answer to.
class DesktopFileBrowser : public FileBrowser {
  public:
    void reveal(const QString& path) override {
        QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
                                                           u"/org/freedesktop/FileManager1"_s,
                                                           u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
        call << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
        // Without a session bus the call fails at once, which the watcher tells like any other failure.
        auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, path] {
            if (watcher->isError()) {
                openFolder(path);
            }
            watcher->deleteLater();
        });
    }
};

FileBrowser*& installed() {
    static FileBrowser* browser = nullptr;
    return browser;
}

}  // namespace

FileBrowser& FileBrowser::current() {
    static DesktopFileBrowser desktop;
    return installed() ? *installed() : desktop;
}

void FileBrowser::install(FileBrowser* browser) {
    installed() = browser;
}

}  // namespace marquill
