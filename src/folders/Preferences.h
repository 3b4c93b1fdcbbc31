// The program-wide settings and their window: the label list, the theme and the audio volume. One instance,
// made at launch and saved at quit; other parts reach it through the class operations, which answer without
// one too. Main thread.
#pragma once

#include "folders/LabelTableController.h"
#include "platform/Error.h"
#include "platform/Theme.h"
#include "platform/UndoManager.h"

#include <QDialog>

#include <memory>

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSlider;
class QTabWidget;

namespace marquill {

class Preferences : public QObject {
    Q_OBJECT

  public:
    /// Makes the shared instance: loads its window, takes the labels from the user defaults and applies the
    /// theme chosen there. When the window cannot be loaded it is logged and there is no instance: the label
    /// list is empty then and the volume 0.
    static void init();
    /// Saves and destroys the shared instance.
    static void finish();
    /// The shared instance, or null.
    static Preferences* shared();

    ~Preferences() override;

    /// The label list.
    static QStringList labels();

    /// The volume of all movies, from 0 to 1. It is 0 at every start: on a set nothing makes a sound unasked.
    static float audioVolume();
    static void setAudioVolume(float volume);
    /// Whether movies are heard: the volume is above 0.
    static bool audioPlayThrough();

    /// How the program looks. A choice is saved at once.
    static Theme::Choice themeChoice();
    static void setThemeChoice(Theme::Choice choice);

    /// Selects the tab "shotLabels" or "General" and runs the window.
    static void showDialogWithTab(const QString& identifier);
    /// Runs the window modally until it is closed.
    static void runDialog();
    /// Selects the tab; an unknown identifier is ignored.
    static void switchToTab(const QString& identifier);

    LabelTableController& labelTableController() { return *_labelTableController; }
    UndoManager& undoManager() { return _undoManager; }
    QDialog& window() { return *_window; }

  Q_SIGNALS:
    void audioVolumeChanged(float volume);

  private:
    explicit Preferences(std::unique_ptr<QDialog> window);
    static Result<std::unique_ptr<Preferences>> create();
    Result<void> connectOutlets();
    void wireGeneralTab();
    void loadLabels();
    void save() const;
    void labelsChanged();
    void showAudioVolume();
    void showThemeChoice();

    std::unique_ptr<QDialog> _window;
    UndoManager _undoManager;
    std::unique_ptr<LabelTableController> _labelTableController;
    float _audioVolume = 0.0F;

    // In the window.
    QTabWidget* _tabView = nullptr;
    QComboBox* _themePopup = nullptr;
    QSlider* _volumeSlider = nullptr;
    QLabel* _volumeText = nullptr;
    QPlainTextEdit* _settingsFileField = nullptr;
    QPushButton* _copyPathButton = nullptr;
    QPushButton* _closeButton = nullptr;
};

}  // namespace marquill
