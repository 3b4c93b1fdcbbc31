#include "application/Application.h"

#include "application/ApplicationMenus.h"
#include "application/FirstArrangement.h"
#include "application/FocusedText.h"
#include "application/GlobalKeys.h"
#include "application/KeyboardShortcuts.h"
#include "application/ManualWindow.h"
#include "application/OpenedFiles.h"
#include "application/TakeRescue.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/ClipSearchField.h"
#include "clipstore/Notifications.h"
#include "folders/Preferences.h"
#include "markers/MarkerSets.h"
#include "platform/BeforeOtherPrograms.h"
#include "platform/Dialogs.h"
#include "platform/EventTime.h"
#include "platform/Images.h"
#include "platform/Log.h"
#include "platform/SingleInstance.h"
#include "platform/Translations.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"

#include <QFileOpenEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QThread>
#include <QWindow>

namespace marquill {

namespace {

// The recorder is there before the Clip Manager, so what it asks for goes to the one there is by then.
class ClipManagerDestination : public RecordingDestination {
  public:
    std::optional<FolderRecord> recordFolder() override {
        ClipManager* clipManager = ClipManager::getClipManager();
        return clipManager ? clipManager->recordFolder() : std::nullopt;
    }
    void addClip(const ClipInfo& info, const QString& folder) override {
        if (ClipManager* clipManager = ClipManager::getClipManager()) {
            clipManager->addClip(info, folder);
        }
    }
};

// The window system is told what a window stands above when the window is shown.
void keepAbove(QWidget& panel, const QWidget& main) {
    const bool isVisible = panel.isVisible();
    panel.hide();
    panel.winId();
    panel.windowHandle()->setTransientParent(main.windowHandle());
    panel.setVisible(isVisible);
}

}  // namespace

Application::Application(int& argc, char** argv, const Options& options)
    : QApplication(argc, argv),
      _controller(*this),
      _options(options),
      _signals([this] { terminateWithoutQuestions(); }) {
    Translations::install(_options.language);
    setApplicationName(u"marquill"_s);
    setApplicationDisplayName(u"Marquill"_s);
    setApplicationVersion(QStringLiteral(MARQUILL_VERSION));
    setDesktopFileName(u"example.marquill.Marquill"_s);
    setWindowIcon(applicationIcon());
    setQuitOnLastWindowClosed(false);
    connect(&_ending, &QTimer::timeout, this, &Application::endUnlessADialogIsOpen);
    if (!_options.settingsFile.isEmpty()) {
        UserDefaults::useFile(_options.settingsFile);
    }
}

Application::~Application() = default;

void Application::finishLaunching() {
    registerMainWindow();
    Preferences::init();
    if (_options.theme) {
        Theme::apply(*this, *_options.theme);
    }
    MarkerSets::init();
    static ClipManagerDestination destination;
    OfflineRecorder::init(destination, TakeRescue::journalFolder());
    ClipManager::init();
    buildMenus();
    connectPanels();
    rescueTakes();
    _launched = true;
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        makeKeyAndOrderFront(*clipManager->window());
    }
    _openedFiles = std::make_unique<OpenedFiles>();
    open(std::exchange(_options.paths, {}));
}

// What comes while the program is being launched waits until it is.
void Application::open(const QStringList& paths) {
    if (_openedFiles) {
        _openedFiles->open(paths);
    } else {
        _options.paths += paths;
    }
}

void Application::startedAgain(const ProgramStart& start) {
    if (!start.activationToken.isEmpty()) {
        // Where Qt looks for what entitles a window to come to the front.
        qputenv("XDG_ACTIVATION_TOKEN", start.activationToken.toUtf8());
    }
    const ClipManager* clipManager = ClipManager::getClipManager();
    QWidget* const modal = activeModalWidget();
    if (QWidget* const window = modal ? modal : clipManager ? clipManager->window() : nullptr) {
        bringBeforeOtherPrograms(*window);
    }
    open(start.paths);
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen) {
        open({static_cast<QFileOpenEvent*>(event)->file()});
        return true;
    }
    return QApplication::event(event);
}

void Application::registerMainWindow() {
    WindowDescription::registerWidget(u"MainWindow"_s, [this](QWidget* parent) {
        auto* window = new MainWindow(parent);
        window->setApplication(this);
        return window;
    });
}

void Application::buildMenus() {
    _actions = std::make_unique<ActionTable>(actionDescriptions(*this),
                                             [this](QAction& action) { validateMenuItem(action); });
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        _actions->buildMenus(*clipManager->window()->menuBar());
    }
    _actions->addActions(u"&Window"_s, _contextMenu);
    showKeysInToolTips();
    _actions->validate();
    connectValidation();
    _keyboardShortcuts = std::make_unique<KeyboardShortcuts>(*_actions);
    _keyboardShortcuts->setApplication(this);
}

// A tool bar button tells the key of the command that does the same.
void Application::showKeysInToolTips() {
    const ClipManager* clipManager = ClipManager::getClipManager();
    for (const auto& [button, command] :
         {std::pair(u"AddFolder"_s, u"addFolder"_s), std::pair(u"RemoveFolder"_s, u"removeFolder"_s),
          std::pair(u"DeleteClips"_s, u"deleteItem"_s)}) {
        auto* action = clipManager ? clipManager->window()->findChild<QAction*>(button) : nullptr;
        const QKeySequence key = _actions->action(command)->shortcut();
        if (action && !key.isEmpty()) {
            action->setToolTip(action->toolTip() + u" (%1)"_s.arg(key.toString(QKeySequence::NativeText)));
        }
    }
    if (auto* field = clipManager ? clipManager->window()->findChild<ClipSearchField*>() : nullptr) {
        field->setKey(_actions->action(u"find"_s)->shortcut());
    }
}

// A shortcut runs only what is enabled, whether or not its menu has been opened.
void Application::connectValidation() {
    const auto validate = [this] { _actions->validate(); };
    connect(&Notifications::centre(), &Notifications::clipSelectionHasChanged, _actions.get(), validate);
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        connect(&clipManager->undoManager(), &UndoManager::changed, _actions.get(), validate);
    }
}

// Panels stay above the main window, and where nothing is saved yet, beside it.
void Application::connectPanels() {
    ClipManager* clipManager = ClipManager::getClipManager();
    if (!clipManager) {
        return;
    }
    QWidget& main = *clipManager->window();
    main.installEventFilter(this);
    std::vector<QWidget*> panels{OfflineRecorder::window(), MarkerSets::window()};
    arrangeAtFirstStart(main, panels);
    panels.push_back(_keyboardShortcuts.get());
    main.winId();
    for (QWidget* panel : panels) {
        if (panel) {
            keepAbove(*panel, main);
        }
    }
}

void Application::rescueTakes() {
    _takeRescue = std::make_unique<TakeRescue>(TakeRescue::journalFolder());
    connect(_takeRescue.get(), &TakeRescue::keptTakesChanged, _actions.get(), &ActionTable::validate);
    _takeRescue->recoverAtLaunch();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // The window gets a key first and passes it on to the widget with the focus, so this is before
    // everything; the override event asks whether a menu's shortcut may have the key.
    if (_launched && receiver->isWindowType()) {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (takesGlobalKey(key) || isUndoOfNoTyping(key)) {
                event->setAccepted(takesGlobalKey(key));
                return true;
            }
        }
        if (event->type() == QEvent::KeyPress && routeKeyDown(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
    }
    if (_openedFiles && event->type() == QEvent::WindowUnblocked) {
        // Later: the modal window counts as one until the windows behind it have been told.
        QMetaObject::invokeMethod(_openedFiles.get(), &OpenedFiles::resume, Qt::QueuedConnection);
    }
    return QApplication::notify(receiver, event);
}

// A text field keeps the undo keys for itself even when it has no typing to take back; the window has.
bool Application::isUndoOfNoTyping(const QKeyEvent& event) const {
    using FocusedText::Command;
    return (event.matches(QKeySequence::Undo) && !FocusedText::can(Command::undo)) ||
           (event.matches(QKeySequence::Redo) && !FocusedText::can(Command::redo));
}

bool Application::takesGlobalKey(const QKeyEvent& event) const {
    const bool starts = GlobalKeys::startsRecording(event) && !OfflineRecorder::isRecording();
    // Without a take to stop, Escape closes an open menu or takes a search back; windows never see it.
    const bool isForAWidget = QApplication::activePopupWidget() ||
                              qobject_cast<const ClipSearchField*>(QApplication::focusWidget());
    const bool escapes = GlobalKeys::isEscape(event) && (OfflineRecorder::isRecording() || !isForAWidget);
    return starts || escapes || GlobalKeys::markerDigit(event);
}

// Carries out a global key; false when the key is none.
bool Application::routeKeyDown(const QKeyEvent& event) {
    if (!takesGlobalKey(event)) {
        return false;
    }
    if (GlobalKeys::isEscape(event)) {
        // An Escape that stops no take is taken too: no window of the program closes by it.
        if (OfflineRecorder::isRecording()) {
            OfflineRecorder::stopRecording(arrivalDate(event));
        }
    } else if (GlobalKeys::startsRecording(event) && !OfflineRecorder::isRecording()) {
        OfflineRecorder::startRecording(arrivalDate(event));
    } else if (const std::optional<int> digit = GlobalKeys::markerDigit(event)) {
        MarkerSets::processNumKey(*digit, arrivalDate(event));
    }
    return true;
}

bool Application::keyDown(QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return true;
    }
    FloatingPanel* recorder = OfflineRecorder::window();
    if (!recorder || QApplication::activeWindow() != recorder) {
        return false;
    }
    OfflineRecorder::processKeyDown(static_cast<QKeyEvent&>(event));
    return true;
}

Application::TerminateReply Application::shouldTerminate() {
    if (OfflineRecorder::isRecording()) {
        Dialogs::current().alert(
            nullptr, {.title = tr("Quit Marquill?"),
                      .text = tr("Marquill is currently busy with recording a clip. To quit Vistacue "
                                 "please stop recording and try again to quit.")});
        return TerminateReply::cancel;
    }
    // A take may have been started while the clips in the trash were deleted.
    if (!ClipManager::cleanUp() || OfflineRecorder::isRecording()) {
        return TerminateReply::cancel;
    }
    cleanUp();
    return TerminateReply::now;
}

void Application::cleanUp() {
    _openedFiles.reset();
    _takeRescue.reset();
    _manual.reset();
    ClipManager::finish();
    MarkerSets::finish();
    OfflineRecorder::finish();
    Preferences::finish();
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logApplication).noquote() << saved.error().description();
    }
}

void Application::terminate() {
    if (_controller.applicationShouldTerminate()) {
        exit(0);
    }
}

void Application::terminateWithoutQuestions() {
    if (_ending.isActive()) {
        return;
    }
    constexpr std::chrono::milliseconds betweenLooks{20};
    _ending.start(betweenLooks);
    // Where the clip cannot be written, an alert tells it until the next look; the take's journal stays.
    OfflineRecorder::stopRecording();
}

// What a dialog's opener still does after it needs the parts that are torn down at the end.
void Application::endUnlessADialogIsOpen() {
    for (QWidget* open : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (open) {
            open->close();
        }
    }
    if (thread()->loopLevel() > 1) {
        return;
    }
    _ending.stop();
    OfflineRecorder::stopRecording();  // one that was started since
    ClipManager::saveEdits();
    cleanUp();
    exit(0);
}

void Application::terminateLater() {
    QMetaObject::invokeMethod(this, &Application::terminate, Qt::QueuedConnection);
}

bool Application::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Close:
            // Closing the main window is the user's way of quitting; hiding it is a command of its own.
            event->ignore();
            terminateLater();
            return true;
        case QEvent::WindowStateChange:
            clipManagerStateChanged();
            break;
        case QEvent::Paint:
            if (_options.exitAfterFirstPaint) {
                terminateLater();
            }
            break;
        default:
            break;
    }
    return QApplication::eventFilter(watched, event);
}

// Panels cannot be minimised: they go with the main window and come back with it. A panel that records stays.
void Application::clipManagerStateChanged() {
    const ClipManager* clipManager = ClipManager::getClipManager();
    const bool isMinimised = clipManager && clipManager->window()->isMinimized();
    for (FloatingPanel* panel : {OfflineRecorder::window(), MarkerSets::window()}) {
        if (panel && !(isMinimised && OfflineRecorder::isRecording())) {
            panel->setHiddenWithMainWindow(isMinimised);
        }
    }
}

}  // namespace marquill
