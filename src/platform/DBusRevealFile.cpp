// The freedesktop.org file manager interface, which the large desktops' file browsers answer to.
#include "platform/Literals.h"
#include "platform/RevealFile.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

namespace marquill {

void revealFile(const QString& path, const std::function<void()>& otherwise) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
    // Without a session bus the call fails at once, which the watcher tells like any other failure.
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, otherwise] {
        if (watcher->isError()) {
            otherwise();
        }
        watcher->deleteLater();
    });
}

}  // namespace marquill
