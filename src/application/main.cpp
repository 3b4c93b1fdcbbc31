#include "application/Application.h"
#include "application/DemoShoot.h"
#include "application/Options.h"
#include "clipmanager/ClipManager.h"
#include "folders/RecordFolderController.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/LogFile.h"
#include "platform/SingleInstance.h"
#include "platform/StateFolder.h"
#include "platform/UserDefaults.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace {

using namespace marquill;

/// The demo, open while it lives; nothing, with a line in the log, when it cannot be made.
std::optional<Demo> openDemo(const Options& options) {
    Result<Demo> demo = prepareDemo();
    if (!demo) {
        qCCritical(logApplication).noquote() << "The demo cannot be opened:" << demo.error().description();
        return std::nullopt;
    }
    if (options.settingsFile.isEmpty()) {
        UserDefaults::useFile(demo->settingsFile);
    }
    return *std::move(demo);
}

/// The path with its links followed, as far as it stands on disk.
QString followed(const QString& path) {
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    const QString folder = file.absolutePath();
    return !canonical.isEmpty() || folder == path ? canonical : joinPath(followed(folder), file.fileName());
}

/// What tells programs apart that may run beside each other: those with settings of their own, and the demo.
QString instanceName(const Options& options) {
    if (options.demo) {
        return u"demo"_s;
    }
    const QString settings = followed(UserDefaults::standard().path());
    const QByteArray digest = QCryptographicHash::hash(settings.toUtf8(), QCryptographicHash::Sha1);
    return QString::fromLatin1(digest.toHex().first(16));
}

}  // namespace

int main(int argc, char** argv) {
    const OptionsResult options = parseOptions(argc, argv);
    if (options.exitStatus) {
        return *options.exitStatus;
    }
    LogFile log;
    const ProgramStart start{.paths = options.options.paths,
                             .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
    Application application(argc, argv, options.options);
    SingleInstance instance(runtimeFolder(), instanceName(options.options));
    QObject::connect(&instance, &SingleInstance::startedAgain, &application, &Application::startedAgain);
    // A start that is measured is one of its own.
    if (!options.options.exitAfterFirstPaint && instance.begin(start) == SingleInstance::Outcome::handedOn) {
        return EXIT_SUCCESS;
    }
    std::optional<Demo> demo;
    if (options.options.demo && !(demo = openDemo(options.options))) {
        return EXIT_FAILURE;
    }
    log.start(stateFolder(), QGuiApplication::platformName(), LogFile::Manner::plain);
    application.finishLaunching();
    ClipManager* const clipManager = ClipManager::getClipManager();
    if (demo && clipManager && start.paths.isEmpty()) {
        clipManager->folderList().selectFolder(demo->folder);
    }
    return Application::exec();
}
