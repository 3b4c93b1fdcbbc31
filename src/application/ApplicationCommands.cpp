// The application's commands, and the titles and states of their menu items.
#include "application/Application.h"
#include "application/FocusedText.h"
#include "application/KeyboardShortcuts.h"
#include "application/ManualWindow.h"
#include "application/TakeRescue.h"
#include "clipmanager/ClipManager.h"
#include "folders/Preferences.h"
#include "markers/MarkerSets.h"
#include "platform/Dialogs.h"
#include "platform/FileBrowser.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/LogFile.h"
#include "recording/OfflineRecorder.h"

#include <QAction>
#include <QDesktopServices>
#include <QMainWindow>
#include <QMessageBox>
#include <QUrl>

namespace marquill {

namespace {

constexpr auto supportAddress = "support@marquill.example"_L1;
constexpr auto homePage = "https://marquill.example/"_L1;

bool isVisible(const QWidget* window) {
    return window && window->isVisible() && !window->isMinimized();
}

QWidget* clipManagerWindow() {
    const ClipManager* clipManager = ClipManager::getClipManager();
    return clipManager ? clipManager->window() : nullptr;
}

// Hides a window, or shows it in front. When none would be left to be seen, the main window is minimised, or
// nothing would be there to bring the program back with: panels have no place in a task bar.
void showHide(QWidget* window) {
    if (!window) {
        return;
    }
    if (!isVisible(window)) {
        makeKeyAndOrderFront(*window);
        return;
    }
    window->hide();
    QWidget* const main = clipManagerWindow();
    if (main && std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible)) {
        main->showMinimized();
    }
}

// The Edit menu's command of that id, as far as it is one on the control with the keyboard.
std::optional<FocusedText::Command> editCommand(const QString& id) {
    using FocusedText::Command;
    static const QHash<QString, Command> commands{
        {u"undo"_s, Command::undo}, {u"redo"_s, Command::redo},   {u"cut"_s, Command::cut},
        {u"copy"_s, Command::copy}, {u"paste"_s, Command::paste}, {u"selectAll"_s, Command::selectAll}};
    const auto found = commands.constFind(id);
    return found == commands.cend() ? std::nullopt : std::optional(*found);
}

// Sets title and state of an Edit command; false when what it does is the window's and not a field's.
bool validateEditCommand(QAction& action) {
    const std::optional<FocusedText::Command> command = editCommand(action.objectName());
    if (!command) {
        return false;
    }
    const bool can = FocusedText::can(*command);
    if (*command == FocusedText::Command::undo || *command == FocusedText::Command::redo) {
        if (can) {
            action.setText(*command == FocusedText::Command::undo ? Application::tr("Undo Typing")
                                                                  : Application::tr("Redo Typing"));
            action.setEnabled(true);
        }
        return can;
    }
    action.setEnabled(can);
    return true;
}

void giveKeyboard(FloatingPanel* panel) {
    if (panel) {
        panel->makeKeyAndOrderFront();
        panel->setFocus(Qt::ShortcutFocusReason);
    }
}

void openAddress(const QUrl& address, const char* invalidText) {
    if (!address.isValid() || !QDesktopServices::openUrl(address)) {
        qCWarning(logApplication) << invalidText;
    }
}

}  // namespace

void Application::showPreferences() {
    Preferences::runDialog();
}

void Application::recoverTakes() {
    if (_takeRescue) {
        _takeRescue->recoverTakes();
    }
}

void Application::showHideClipManagerWindow() {
    showHide(clipManagerWindow());
}

void Application::showHideMarkerWindow() {
    showHide(MarkerSets::window());
}

void Application::showKeyboardShortCuts() {
    showHide(_keyboardShortcuts.get());
}

void Application::goToRecorder() {
    giveKeyboard(OfflineRecorder::window());
}

void Application::goToMarkerButtons() {
    giveKeyboard(MarkerSets::window());
}

void Application::showHideOfflineRecorderWindow() {
    FloatingPanel* recorder = OfflineRecorder::window();
    if (recorder && OfflineRecorder::isRecording()) {
        makeKeyAndOrderFront(*recorder);
    } else {
        showHide(recorder);
    }
}

// Minimises the main window; the panels, which cannot be minimised, go with it and come back with it.
void Application::hide() {
    if (QWidget* window = clipManagerWindow()) {
        window->showMinimized();
    }
}

void Application::orderFrontStandardAboutPanel() {
    QMessageBox about(QApplication::activeWindow());
    about.setWindowTitle(tr("About Marquill"));
    about.setIconPixmap(windowIcon().pixmap(64, 64));
    about.setText(u"<b>Marquill %1</b>"_s.arg(applicationVersion()));
    about.setInformativeText(tr("Logs video shots while they are filmed."));
    about.exec();
}

void Application::sendSupportEmail() {
    openAddress(QUrl(u"mailto:"_s + supportAddress + u"?subject="_s +
                     QString::fromLatin1(QUrl::toPercentEncoding(tr("Feedback:")))),
                "Invalid support URL");
}

void Application::visitWebsite() {
    openAddress(QUrl(homePage), "Invalid URL");
}

void Application::troubleShooting() {
    openAddress(QUrl(homePage + "Support.html"_L1), "Invalid support URL");
}

void Application::showManual() {
    if (!_manual) {
        const Result<std::vector<ManualPage>> pages = installedManual(applicationDirPath());
        if (!pages) {
            Dialogs::current().alert(clipManagerWindow(), {.title = tr("There is no manual"),
                                                           .text = pages.error().description()});
            return;
        }
        _manual = std::make_unique<ManualWindow>(*pages);
    }
    _manual->show();
    _manual->raise();
    _manual->activateWindow();
}

void Application::showLog() {
    const QString path = LogFile::path();
    const Result<FileAttributes> log = FileSystem::current().attributes(path, Links::follow);
    if (!log || log->size == 0) {
        Dialogs::current().alert(
            clipManagerWindow(),
            {.title = tr("There is no log"),
             .text = tr("Nothing has been written into the log yet, or its disk could not take it.\n%1")
                         .arg(path)});
    } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        FileBrowser::current().reveal(path);
    }
}

void Application::validateMenuItem(QAction& action) {
    const auto title = [&action](bool visible, const QString& window) {
        action.setText((visible ? tr("Hide %1") : tr("Show %1")).arg(window));
    };
    const QString id = action.objectName();
    const bool recording = OfflineRecorder::isRecording();
    if (id == "showHideClipManagerWindow"_L1) {
        title(isVisible(clipManagerWindow()), tr("Clip Manager"));
    } else if (id == "showHideMarkerWindow"_L1) {
        title(isVisible(MarkerSets::window()), tr("Real Time Markers Window"));
    } else if (id == "showHideOfflineRecorderWindow"_L1) {
        const bool visible = isVisible(OfflineRecorder::window());
        title(visible, tr("Place Holder Clip Recorder Window"));
        action.setEnabled(!visible || !recording);
    } else if (id == "showKeyboardShortCuts"_L1) {
        title(isVisible(_keyboardShortcuts.get()), tr("Keyboard Shortcuts"));
    } else if (id == "startRecording"_L1) {
        action.setEnabled(!recording);
    } else if (id == "stopRecording"_L1) {
        action.setEnabled(recording);
    } else if (id == "recoverTakes"_L1) {
        action.setEnabled(_takeRescue && _takeRescue->hasKeptTakes());
    } else if (validateEditCommand(action)) {
        return;
    } else if (ClipManager* clipManager = ClipManager::getClipManager()) {
        clipManager->validateMenuItem(action);
    }
}

}  // namespace marquill
