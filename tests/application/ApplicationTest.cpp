// The application object: launch and quitting, the keys that work everywhere, menus, and the help links.
#include "application/Application.h"
#include "application/ApplicationController.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/Notifications.h"
#include "folders/RecordFolderController.h"
#include "markers/MarkerSets.h"
#include "platform/FakeClock.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/LogFile.h"
#include "platform/PropertyListReader.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"

#include <QAction>
#include <QDesktopServices>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

// A text field that notes the keys that reach it.
class Field : public QLineEdit {
  public:
    QList<int> keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        keys.append(event->key());
        QLineEdit::keyPressEvent(event);
    }
};

// A window with a field that has the keyboard.
class FieldWindow : public QWidget {
  public:
    FieldWindow() : field(new Field) {
        field->setParent(this);
        show();
        activateWindow();
        field->setFocus();
    }
    bool hasKeyboard() { return QTest::qWaitForWindowActive(this) && field->hasFocus(); }

    Field* const field;
};

// Presses a key as the window system does, so that it takes the same way as a real one.
void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = {}, bool isRepeat = false) {
    QTest::simulateEvent(window.windowHandle(), true, key, modifiers, text, isRepeat);
}

void pressControlSpace(QWidget& window) {
    press(window, Qt::Key_Space, Qt::ControlModifier, u" "_s);
}

quint64 monotonicMilliseconds() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<quint64>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

QString title(const QString& id) {
    application().actions().validate();
    return application().actions().action(id)->text();
}

bool isEnabled(const QString& id) {
    application().actions().validate();
    return application().actions().action(id)->isEnabled();
}

}  // namespace

class ApplicationTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<FakeClock> _clock;
    QList<QUrl> _openedAddresses;

    QString path(const QString& name) { return joinPath(_folder->path(), name); }

    static QMainWindow& mainWindow() { return *ClipManager::getClipManager()->window(); }

    void quit() { QVERIFY(application().shouldTerminate() == Application::TerminateReply::now); }

    void relaunch() {
        quit();
        UserDefaults::useFile(path(u"settings.plist"_s));
        application().finishLaunching();
    }

  public Q_SLOTS:
    void noteAddress(const QUrl& address) { _openedAddresses.append(address); }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        _openedAddresses.clear();
        _dialogs = std::make_unique<FakeDialogs>();
        _clock = std::make_unique<FakeClock>();
        UserDefaults::useFile(path(u"settings.plist"_s));
        application().finishLaunching();
        const FolderRecord folder = FolderRecord::forPath(_folder->path());
        RecordFolderController& list = ClipManager::getClipManager()->folderList();
        list.setFolderArray({folder});
        list.setRecordingFolder(folder);
    }

    void cleanup() {
        OfflineRecorder::stopRecording();
        quit();
        _clock.reset();
        _dialogs.reset();
    }

    // Launch and quitting

    void launchShowsTheWindowsWithTheMainOneInFront() {
        QVERIFY(QTest::qWaitForWindowActive(&mainWindow()));
        QVERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(MarkerSets::window()->isVisible());
    }

    void theNextTakeIsShownFromTheStart() {
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        relaunch();
        QCOMPARE(OfflineRecorder::window()->findChild<QLabel*>(u"_currentTakeNo"_s)->text(), u"2"_s);
    }

    void quittingDuringATakeIsRefusedAndTheTakeGoesOn() {
        OfflineRecorder::startRecording();
        QVERIFY(!ApplicationController(application()).applicationShouldTerminate());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Quit Marquill?"_s);
        QCOMPARE(
            _dialogs->alerts[0].text,
            u"Marquill is currently busy with recording a clip. To quit Vistacue please stop recording and "
            "try again to quit."_s);
        QCOMPARE(_dialogs->alerts[0].buttons, QStringList{u"OK"_s});
        QVERIFY(OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
    }

    void closingTheMainWindowDuringATakeAsksToo() {
        OfflineRecorder::startRecording();
        mainWindow().close();
        QTRY_COMPARE(_dialogs->alerts.size(), 1);
        QVERIFY(mainWindow().isVisible());
        QVERIFY(OfflineRecorder::isRecording());
    }

    void closingTheMainWindowQuits() {
        mainWindow().windowHandle()->close();
        QTRY_VERIFY(!ClipManager::getClipManager());
        QVERIFY(!OfflineRecorder::shared());
    }

    void cancellingTheTrashQuestionLeavesTheProgramAsItIs() {
        QVERIFY(makeFolders(path(u"Trash"_s)));
        QVERIFY(writeFile(path(u"Trash/a#01.xml"_s), "x"));
        _dialogs->answers = {1};
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::cancel);
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Delete Clips in the Trash?"_s);
        QVERIFY(mainWindow().isVisible());
        QVERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(fileExists(path(u"Trash/a#01.xml"_s)));
        _dialogs->answers = {2};
        quit();
        QVERIFY(!fileExists(path(u"Trash/a#01.xml"_s)));
    }

    void choosingQuitInTheMenuQuits() {
        QMenu* menu = mainWindow().menuBar()->actions().first()->menu();
        menu->popup(QPoint());
        QTRY_COMPARE(QApplication::activePopupWidget(), menu);
        const QRect place = menu->actionGeometry(application().actions().action(u"terminate"_s));
        QTest::mouseClick(menu, Qt::LeftButton, {}, place.center());
        QTRY_VERIFY(!ClipManager::getClipManager());
        QVERIFY(!OfflineRecorder::shared());
    }

    void quittingSavesAndDropsTheParts() {
        quit();
        QVERIFY(!ClipManager::getClipManager());
        QVERIFY(!MarkerSets::controller());
        QVERIFY(!OfflineRecorder::shared());
        const Dictionary saved = readDictionaryFile(path(u"settings.plist"_s)).value();
        for (const QString& key : {u"ClipManagerSettings"_s, u"kMarkerSets"_s, u"kMarkerWindowFrame"_s,
                                   u"kOfflineRecorder"_s, u"kOfflineRecorderWindowFrame"_s}) {
            QVERIFY2(saved.find(key), qPrintable(key));
        }
    }

    void panelsThatWentWithTheMinimisedMainWindowAreBackAfterARestart() {
        MarkerSets::window()->hide();
        application().hide();
        QTRY_VERIFY(!OfflineRecorder::window()->isVisible());
        relaunch();
        QVERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(!MarkerSets::window()->isVisible());
    }

    void panelsComeBackWithTheMainWindow() {
        application().hide();
        QTRY_VERIFY(!OfflineRecorder::window()->isVisible());
        mainWindow().showNormal();
        QTRY_VERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(MarkerSets::window()->isVisible());
    }

    void panelsStayDuringATake() {
        OfflineRecorder::startRecording();
        application().hide();
        QTRY_VERIFY(mainWindow().isMinimized());
        QVERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(MarkerSets::window()->isVisible());
    }

    // Keys

    void escapeStopsATakeWhileATextFieldHasTheFocus() {
        FieldWindow window;
        QVERIFY(window.hasKeyboard());
        OfflineRecorder::startRecording();
        press(window, Qt::Key_Escape);
        QVERIFY(!OfflineRecorder::isRecording());
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
        QVERIFY(window.field->keys.isEmpty());
    }

    void escapeWhileIdleDoesNothingAndReachesNoWindow() {
        FieldWindow window;
        QVERIFY(window.hasKeyboard());
        press(window, Qt::Key_Escape);
        press(window, Qt::Key_Escape, Qt::NoModifier, {}, true);
        press(window, Qt::Key_A, Qt::NoModifier, u"a"_s);
        QCOMPARE(window.field->keys, QList<int>{Qt::Key_A});
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void controlSpaceStartsATake() {
        FieldWindow window;
        QVERIFY(window.hasKeyboard());
        pressControlSpace(window);
        QVERIFY(OfflineRecorder::isRecording());
        QVERIFY(window.field->keys.isEmpty());
    }

    void aTakeStartsAndStopsWhenItsKeysAreStruck() {
        QWidget& window = mainWindow();
        const auto struckEarlier = [&window](int key, Qt::KeyboardModifiers modifiers, quint64 age) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            event.setTimestamp(monotonicMilliseconds() - age);
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        };
        const Date now = _clock->now();
        struckEarlier(Qt::Key_Space, Qt::ControlModifier, 1900);
        _clock->advance(10);
        struckEarlier(Qt::Key_Escape, Qt::NoModifier, 4900);
        const Dictionary clip = readDictionaryFile(path(u"Clip#01.xml"_s)).value();
        const double late = secondsBetween(*clip.date(u"clipCreationDate"), now);
        QVERIFY(late >= 1.9 && late <= 3.0);
        // From 1.9 s before until 5.1 s after.
        QCOMPARE(clip.integer(u"clipDuration"), 7);
    }

    void aGraveAccentStartsATakeAndIsTypedDuringOne() {
        FieldWindow window;
        QVERIFY(window.hasKeyboard());
        press(window, Qt::Key_QuoteLeft, Qt::NoModifier, u"`"_s);
        QVERIFY(OfflineRecorder::isRecording());
        QVERIFY(window.field->text().isEmpty());
        press(window, Qt::Key_QuoteLeft, Qt::NoModifier, u"`"_s);
        QCOMPARE(window.field->text(), u"`"_s);
        QVERIFY(OfflineRecorder::isRecording());
    }

    void optionWithADigitFiresOnceWhileItIsHeld() {
        const QSignalSpy markers(&Notifications::centre(), &Notifications::newMarkerIssued);
        FieldWindow window;
        QVERIFY(window.hasKeyboard());
        press(window, Qt::Key_3, Qt::AltModifier, u"3"_s);
        press(window, Qt::Key_3, Qt::AltModifier, u"3"_s, true);
        press(window, Qt::Key_3, Qt::AltModifier, u"3"_s, true);
        QCOMPARE(markers.size(), 1);
        QCOMPARE(markers[0][0].value<Dictionary>().string(u"clipMarkerTitle"), u"untitled (3)"_s);
        press(window, Qt::Key_0, Qt::AltModifier, u"0"_s);
        QCOMPARE(markers.size(), 2);
        QCOMPARE(markers[1][0].value<Dictionary>().string(u"clipMarkerTitle"), u"untitled (0)"_s);
    }

    void keysWorkWhileAModalDialogIsOpen() {
        QDialog dialog;
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        pressControlSpace(dialog);
        QVERIFY(OfflineRecorder::isRecording());
        press(dialog, Qt::Key_3, Qt::AltModifier, u"3"_s);
        press(dialog, Qt::Key_Escape);
        QVERIFY(!OfflineRecorder::isRecording());
        QVERIFY(dialog.isVisible());
        const Dictionary clip = readDictionaryFile(path(u"Clip#01.xml"_s)).value();
        QCOMPARE(clip.array(u"clipMarkerArray")->size(), 1);
    }

    void keysWorkWhileAMenuIsOpen() {
        QMenu* menu = mainWindow().menuBar()->actions().first()->menu();
        menu->popup(QPoint());
        QTRY_COMPARE(QApplication::activePopupWidget(), menu);
        pressControlSpace(mainWindow());
        QVERIFY(OfflineRecorder::isRecording());
        press(mainWindow(), Qt::Key_Escape);
        QVERIFY(!OfflineRecorder::isRecording());
        menu->hide();
    }

    void escapeClosesAMenuWhileIdle() {
        QMenu* menu = mainWindow().menuBar()->actions().first()->menu();
        menu->popup(QPoint());
        QTRY_COMPARE(QApplication::activePopupWidget(), menu);
        press(mainWindow(), Qt::Key_Escape);
        QVERIFY(!menu->isVisible());
    }

    void escapeTakesASearchBackUnlessItStopsATake() {
        auto* const field = mainWindow().findChild<QLineEdit*>(u"_searchField"_s);
        const auto find = [field] {
            mainWindow().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&mainWindow()));
            application().actions().action(u"find"_s)->trigger();
            QTRY_COMPARE(QApplication::focusWidget(), field);
        };
        find();
        field->setText(u"harbour"_s);
        pressControlSpace(mainWindow());
        QVERIFY(OfflineRecorder::isRecording());
        press(mainWindow(), Qt::Key_Escape);
        QVERIFY(!OfflineRecorder::isRecording());
        QCOMPARE(field->text(), u"harbour"_s);
        find();
        press(mainWindow(), Qt::Key_Escape);
        QCOMPARE(field->text(), QString());
    }

    void keysOfTheRecorderPanelGoToTheRecorder() {
        FloatingPanel& panel = *OfflineRecorder::window();
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QVERIFY(!application().keyDown(tab));
        panel.makeKeyAndOrderFront();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        panel.setFocus();
        press(panel, Qt::Key_Tab);
        QVERIFY(panel.findChild<QLineEdit*>(u"_defaultClipName"_s)->hasFocus());
        QVERIFY(application().keyDown(tab));
    }

    void thePanelsCanBeGivenTheKeyboardByKeys() {
        FloatingPanel& recorder = *OfflineRecorder::window();
        application().goToRecorder();
        QVERIFY(QTest::qWaitForWindowActive(&recorder));
        press(recorder, Qt::Key_Tab);
        QVERIFY(recorder.findChild<QLineEdit*>(u"_defaultClipName"_s)->hasFocus());
        MarkerSets::window()->hide();
        application().goToMarkerButtons();
        QVERIFY(QTest::qWaitForWindowActive(MarkerSets::window()));
        press(*MarkerSets::window(), Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget());
        QCOMPARE(QApplication::focusWidget()->window(), MarkerSets::window());
    }

    void whatIsNoKeyPressCountsAsHandled() {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
        QVERIFY(application().keyDown(release));
    }

    // Menus

    void titlesFollowTheWindows_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("window");
        QTest::newRow("Clip Manager") << u"showHideClipManagerWindow"_s << u"Clip Manager"_s;
        QTest::newRow("markers") << u"showHideMarkerWindow"_s << u"Real Time Markers Window"_s;
        QTest::newRow("recorder") << u"showHideOfflineRecorderWindow"_s
                                  << u"Place Holder Clip Recorder Window"_s;
        QTest::newRow("shortcuts") << u"showKeyboardShortCuts"_s << u"Keyboard Shortcuts"_s;
    }

    void titlesFollowTheWindows() {
        QFETCH(const QString, id);
        QFETCH(const QString, window);
        QAction* command = application().actions().action(id);
        if (id == "showKeyboardShortCuts"_L1) {
            command->trigger();
        }
        QCOMPARE(title(id), u"Hide "_s + window);
        QVERIFY(isEnabled(id));
        command->trigger();
        QCOMPARE(command->text(), u"Show "_s + window);
        QVERIFY(isEnabled(id));
        command->trigger();
        QCOMPARE(command->text(), u"Hide "_s + window);
    }

    void aMinimisedClipManagerIsShownByItsCommand() {
        OfflineRecorder::startRecording();
        application().hide();
        QTRY_VERIFY(mainWindow().isMinimized());
        QCOMPARE(title(u"showHideClipManagerWindow"_s), u"Show Clip Manager"_s);
        application().showHideClipManagerWindow();
        QVERIFY(!mainWindow().isMinimized());
    }

    void aRecorderThatRecordsCannotBeHidden() {
        const QString id = u"showHideOfflineRecorderWindow"_s;
        OfflineRecorder::startRecording();
        QCOMPARE(title(id), u"Hide Place Holder Clip Recorder Window"_s);
        QVERIFY(!isEnabled(id));
        application().showHideOfflineRecorderWindow();
        QVERIFY(OfflineRecorder::window()->isVisible());
        OfflineRecorder::stopRecording();
        QVERIFY(isEnabled(id));
    }

    void aHiddenRecorderThatRecordsCanBeShown() {
        const QString id = u"showHideOfflineRecorderWindow"_s;
        OfflineRecorder::window()->hide();
        OfflineRecorder::startRecording();
        QCOMPARE(title(id), u"Show Place Holder Clip Recorder Window"_s);
        QVERIFY(isEnabled(id));
        application().showHideOfflineRecorderWindow();
        QVERIFY(OfflineRecorder::window()->isVisible());
    }

    void otherCommandsKeepTheirTitles() {
        QCOMPARE(title(u"orderFrontStandardAboutPanel"_s), u"About Marquill ..."_s);
        QCOMPARE(title(u"terminate"_s), u"Quit Marquill"_s);
        QCOMPARE(title(u"hide"_s), u"Hide Marquill"_s);
        QCOMPARE(title(u"troubleShooting"_s), u"Trouble Shooting ..."_s);
        for (const QString& id :
             {u"orderFrontStandardAboutPanel"_s, u"terminate"_s, u"hide"_s, u"troubleShooting"_s}) {
            QVERIFY2(isEnabled(id), qPrintable(id));
        }
    }

    void hidingTheLastWindowLeavesTheMainOneWithinReach() {
        MarkerSets::window()->hide();
        application().showHideClipManagerWindow();
        QVERIFY(!mainWindow().isVisible());
        application().showHideOfflineRecorderWindow();
        QVERIFY(!OfflineRecorder::window()->isVisible());
        QVERIFY(mainWindow().isVisible());
        QVERIFY(mainWindow().isMinimized());
    }

    void helpCommandsOpenTheirAddresses() {
        for (const QString& scheme : {u"mailto"_s, u"https"_s}) {
            QDesktopServices::setUrlHandler(scheme, this, "noteAddress");
        }
        application().sendSupportEmail();
        application().visitWebsite();
        application().troubleShooting();
        for (const QString& scheme : {u"mailto"_s, u"https"_s}) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
        QCOMPARE(_openedAddresses.size(), 3);
        QCOMPARE(_openedAddresses[0].scheme(), u"mailto"_s);
        QVERIFY(_openedAddresses[0].toEncoded().endsWith("?subject=Feedback%3A"));
        QCOMPARE(_openedAddresses[1].path(), u"/"_s);
        QCOMPARE(_openedAddresses[2].path(), u"/Support.html"_s);
    }

    void showLogOpensTheLogsFile() {
        QVERIFY(makeFolders(parentFolder(LogFile::path())));
        QVERIFY(writeNewFile(LogFile::path(), "a line\n"));
        QDesktopServices::setUrlHandler(u"file"_s, this, "noteAddress");
        application().showLog();
        QDesktopServices::unsetUrlHandler(u"file"_s);
        QCOMPARE(_openedAddresses, QList<QUrl>{QUrl::fromLocalFile(LogFile::path())});
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void showLogTellsWhenThereIsNone() {
        application().showLog();
        QVERIFY(makeFolders(parentFolder(LogFile::path())));
        QVERIFY(writeNewFile(LogFile::path(), ""));
        application().showLog();
        QCOMPARE(_dialogs->alerts.size(), 2);
        for (const Alert& alert : _dialogs->alerts) {
            QCOMPARE(alert.title, u"There is no log"_s);
            QVERIFY(alert.text.endsWith(LogFile::path()));
        }
    }

    // Last, as no event loop is entered any more once the program has been told to end.
    void askedToEndItStopsTheTakeAndAsksNothing() {
        QVERIFY(makeFolders(path(u"Trash"_s)));
        QVERIFY(writeNewFile(path(u"Trash/Old#01.xml"_s), ""));
        OfflineRecorder::startRecording();
        QCOMPARE(raise(SIGTERM), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!ClipManager::getClipManager(), 60'000);
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
        QVERIFY(fileExists(path(u"Trash/Old#01.xml"_s)));
        QVERIFY(_dialogs->alerts.isEmpty());
        application().finishLaunching();
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    ApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ApplicationTest.moc"
