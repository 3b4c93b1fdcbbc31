// Every window of the program, opened by name, as the tests that look at all of them need it.
#pragma once

#include "application/Application.h"
#include "application/ManualWindow.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/LeftOutMoviesDialog.h"
#include "connect/ClipViewer.h"
#include "folders/Preferences.h"
#include "markers/MarkerSets.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecoverTakesDialog.h"

#include <QAbstractButton>
#include <QMainWindow>
#include <QTabWidget>
#include <QTemporaryDir>

#include <array>
#include <memory>

namespace marquill {

/// For the program after finishLaunching(); `folder` is the record folder that is shown and holds
/// "Shot#01.xml". The windows that were made go with this, before the program quits.
class EveryWindow {
  public:
    explicit EveryWindow(QString folder) : _folder(std::move(folder)) {}

    static constexpr auto names = std::to_array(
        {"Clip", "File and Log", "Recorder", "Markers", "Set Editor", "Labels", "General", "Left-Out Movies",
         "Recover Takes", "TextExportOptions", "ProgressSheet", "Keyboard Shortcuts", "Viewer", "Manual"});

    /// The window of that name, on show; null when it cannot be made.
    QWidget* open(const QString& name) {
        QWidget* window = made(name);
        if (window) {
            window->show();
            QCoreApplication::processEvents();
        }
        return window;
    }

  private:
    QWidget* made(const QString& name) {
        if (name == "Clip"_L1 || name == "File and Log"_L1) {
            QMainWindow* window = ClipManager::getClipManager()->window();
            window->findChild<QTabWidget*>(u"_attributePane"_s)->setCurrentIndex(name == "Clip"_L1 ? 0 : 1);
            return window;
        }
        if (name == "Recorder"_L1) {
            return OfflineRecorder::window();
        }
        if (name == "Markers"_L1) {
            return MarkerSets::window();
        }
        if (name == "Labels"_L1 || name == "General"_L1) {
            Preferences::switchToTab(name == "Labels"_L1 ? u"shotLabels"_s : name);
            return &Preferences::shared()->window();
        }
        return madeNow(name);
    }

    QWidget* madeNow(const QString& name) {
        if (name == "Set Editor"_L1) {
            MarkerSets::window()->findChild<QAbstractButton*>(u"_editSetButton"_s)->click();
            return topLevel("QDialog", u"_markerSetEditor"_s);
        }
        if (name == "Keyboard Shortcuts"_L1) {
            static_cast<Application*>(QCoreApplication::instance())->showKeyboardShortCuts();
            return topLevel("marquill::KeyboardShortcuts", {});
        }
        if (name == "Viewer"_L1) {
            ClipViewer* viewer = ClipViewer::openClipWithFile(joinPath(_folder, u"Shot#01.xml"_s));
            return viewer ? &viewer->window() : nullptr;
        }
        if (name == "Manual"_L1) {
            return newManual();
        }
        if (name == "Left-Out Movies"_L1) {
            _leftOut = LeftOutMoviesDialog::create(_folder, nullptr).value_or(nullptr);
            return _leftOut ? _leftOut->window() : nullptr;
        }
        if (name == "Recover Takes"_L1) {
            _recover = RecoverTakesDialog::create(_folder, nullptr).value_or(nullptr);
            return _recover ? _recover->window() : nullptr;
        }
        _loaded = WindowDescription::load(name).value_or(nullptr);
        return _loaded.get();
    }

    // Pages of its own: the manual's own text may change without a change of looks.
    QWidget* newManual() {
        const bool isWritten =
            writeFile(
                joinPath(_pages.path(), u"README.md"_s),
                "# Logging a day\n\nOne **clip** a take, in a *plain* file: `Name#01.xml`.\n\n"
                "| page | holds |\n|---|---|\n| [Keys](keys.md) | all keys |\n\n"
                "1. Add a folder.\n2. Press **Ctrl+Space**.\n\n## At the end\n\n    marquill list FOLDER\n")
                .has_value() &&
            writeFile(joinPath(_pages.path(), u"keys.md"_s), "# Keys\n").has_value();
        _manual = isWritten ? std::make_unique<ManualWindow>(
                                  manualPages(_pages.path()).value_or(std::vector<ManualPage>()))
                            : nullptr;
        return _manual.get();
    }

    static QWidget* topLevel(const char* className, const QString& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->inherits(className) && window->isVisible() &&
                (name.isEmpty() || window->objectName() == name)) {
                return window;
            }
        }
        return nullptr;
    }

    QString _folder;
    std::unique_ptr<LeftOutMoviesDialog> _leftOut;
    std::unique_ptr<RecoverTakesDialog> _recover;
    std::unique_ptr<QWidget> _loaded;
    QTemporaryDir _pages;
    std::unique_ptr<ManualWindow> _manual;
};

}  // namespace marquill
