// The application object: it makes the long-lived parts at launch in a fixed order, routes the keys that work
// in every window, keeps the show/hide items in step with the windows, and tears the parts down at quit. One
// per process; main thread.
#pragma once

#include "application/ActionTable.h"
#include "application/ApplicationController.h"
#include "application/Options.h"
#include "platform/TerminationSignals.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <memory>

class QKeyEvent;

namespace marquill {

class KeyboardShortcuts;
class ManualWindow;
class OpenedFiles;
class TakeRescue;
struct ProgramStart;

class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv, const Options& options = {});
    ~Application() override;

    /// Makes the parts and shows their windows; called once, before exec().
    void finishLaunching();

    /// Every event of the program passes here: the global keys are taken before any window sees them.
    bool notify(QObject* receiver, QEvent* event) override;

    /// The program was started again: comes to the front and opens what that start was given.
    void startedAgain(const ProgramStart& start);

    /// Offers a panel's event to the application: true when it was handled. Keys go to the recorder while its
    /// panel has the keyboard.
    bool keyDown(QEvent& event);

    /// Sets the title of a command and whether it is enabled.
    void validateMenuItem(QAction& action);

    enum class TerminateReply { now, cancel };
    /// Whether the program may quit; when it may, the parts have been torn down.
    TerminateReply shouldTerminate();

    // Commands.
    void terminate();
    /// Quits when the event in hand is through: its menu or window goes with the program.
    void terminateLater();
    /// Quits without a question, as a system that shuts down wants it: a take is stopped and written, edits
    /// are saved, clips in the trash stay there, and dialogs that are open are cancelled.
    void terminateWithoutQuestions();
    void hide();
    void showPreferences();
    void recoverTakes();
    void showHideOfflineRecorderWindow();
    void showHideMarkerWindow();
    void showHideClipManagerWindow();
    void showKeyboardShortCuts();
    // Each gives the keyboard to a panel, from whose first control on Tab goes.
    void goToRecorder();
    void goToMarkerButtons();
    void orderFrontStandardAboutPanel();
    void sendSupportEmail();
    void visitWebsite();
    void troubleShooting();
    /// Shows the manual that came with the program; says where it was looked for when there is none.
    void showManual();
    /// Opens the log's file; says so when there is none to be seen.
    void showLog();

    /// The commands that show windows, for panels that have no menu bar.
    QMenu& contextMenu() { return _contextMenu; }
    ActionTable& actions() { return *_actions; }
    /// What recovers takes; null before launch and after quitting.
    TakeRescue* takeRescue() const { return _takeRescue.get(); }

  protected:
    /// The desktop's way of asking for a file to be opened, where it does not start the program for it.
    bool event(QEvent* event) override;

  private:
    bool takesGlobalKey(const QKeyEvent& event) const;
    bool isUndoOfNoTyping(const QKeyEvent& event) const;
    bool routeKeyDown(const QKeyEvent& event);
    void registerMainWindow();
    void buildMenus();
    void showKeysInToolTips();
    void connectValidation();
    void connectPanels();
    void rescueTakes();
    void open(const QStringList& paths);
    void endUnlessADialogIsOpen();
    void cleanUp();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void clipManagerStateChanged();

    ApplicationController _controller;
    std::unique_ptr<ActionTable> _actions;
    std::unique_ptr<KeyboardShortcuts> _keyboardShortcuts;
    std::unique_ptr<ManualWindow> _manual;
    std::unique_ptr<TakeRescue> _takeRescue;
    std::unique_ptr<OpenedFiles> _openedFiles;
    QMenu _contextMenu;
    Options _options;
    TerminationSignals _signals;
    QTimer _ending;  // runs from the signal to the end
    bool _launched = false;
};

}  // namespace marquill
