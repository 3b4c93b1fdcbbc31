#include "platform/FileBrowser.h"

#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/RevealFile.h"

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

class DesktopFileBrowser : public FileBrowser {
  public:
    void reveal(const QString& path) override {
        revealFile(path, [path] { openFolder(path); });
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
