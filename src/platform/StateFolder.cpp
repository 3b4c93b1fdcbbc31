#include "platform/StateFolder.h"

#include "platform/Files.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QStandardPaths>

namespace marquill {

namespace {

QString folderOfAllPrograms() {
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#else
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(chosen) ? chosen : joinPath(QDir::homePath(), u".local/state"_s);
#endif
}

}  // namespace

QString usersStateFolder() {
    return joinPath(folderOfAllPrograms(), u"marquill"_s);
}

QString stateFolder() {
    const QString settings = UserDefaults::standard().path();
    return settings == UserDefaults::standardPath()
               ? usersStateFolder()
               : QDir::current().absoluteFilePath(settings + u".state"_s);
}

}  // namespace marquill
