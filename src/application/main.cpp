#include "application/Application.h"
#include "application/DemoShoot.h"
#include "application/Options.h"
#include "clipmanager/ClipManager.h"
#include "folders/RecordFolderController.h"
#include "platform/Log.h"
#include "platform/LogFile.h"
#include "platform/StateFolder.h"
#include "platform/UserDefaults.h"

namespace {

/// The demo, open while it lives; nothing, with a line in the log, when it cannot be made.
std::optional<marquill::Demo> openDemo(const marquill::Options& options) {
    marquill::Result<marquill::Demo> demo = marquill::prepareDemo();
    if (!demo) {
        qCCritical(marquill::logApplication).noquote()
            << "The demo cannot be opened:" << demo.error().description();
        return std::nullopt;
    }
    if (options.settingsFile.isEmpty()) {
        marquill::UserDefaults::useFile(demo->settingsFile);
    }
    return *std::move(demo);
}

}  // namespace

int main(int argc, char** argv) {
    const marquill::OptionsResult options = marquill::parseOptions(argc, argv);
    if (options.exitStatus) {
        return *options.exitStatus;
    }
    marquill::LogFile log;
    marquill::Application application(argc, argv, options.options);
    std::optional<marquill::Demo> demo;
    if (options.options.demo && !(demo = openDemo(options.options))) {
        return EXIT_FAILURE;
    }
    log.start(marquill::stateFolder(), QGuiApplication::platformName(), marquill::LogFile::Manner::plain);
    application.finishLaunching();
    if (marquill::ClipManager* clipManager = marquill::ClipManager::getClipManager(); demo && clipManager) {
        clipManager->folderList().selectFolder(demo->folder);
    }
    return marquill::Application::exec();
}
