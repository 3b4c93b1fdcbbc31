// The menu bar: its commands and their keys, the Edit menu in text fields, and the panel that lists the keys.
#include "application/Application.h"
#include "clipmanager/ClipManager.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/UserDefaults.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

QMainWindow& mainWindow() {
    return *ClipManager::getClipManager()->window();
}

QAction& command(const QString& id) {
    application().actions().validate();
    return *application().actions().action(id);
}

UndoManager& undoManager() {
    return ClipManager::getClipManager()->undoManager();
}

// A field with the keyboard in a window of its own.
template <class Widget>
class FieldWindow : public QWidget {
  public:
    FieldWindow() : field(new Widget(this)) {
        show();
        activateWindow();
        field->setFocus();
    }
    bool hasKeyboard() { return QTest::qWaitForWindowActive(this) && field->hasFocus(); }

    Widget* const field;
};

void press(QWidget& window, const QKeySequence& keys) {
    QTest::simulateEvent(window.windowHandle(), true, keys[0].key(), keys[0].keyboardModifiers(), {}, false);
}

}  // namespace

class MenuBarTest : public QObject {
    Q_OBJECT

    QTemporaryDir _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    int _steps = 0;

    // Something to take back that is no typing.
    void changeSomething() {
        undoManager().registerUndo(this, [this] { --_steps; });
        undoManager().setActionName(u"change Something"_s);
        undoManager().closeStep();
        _steps = 1;
    }

  private Q_SLOTS:
    void init() {
        _dialogs = std::make_unique<FakeDialogs>();
        UserDefaults::useFile(joinPath(_folder.path(), u"settings.plist"_s));
        application().finishLaunching();
    }

    void cleanup() {
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
    }

    void menusStandInTheirCustomaryOrder() {
        QStringList titles;
        for (const QAction* menu : mainWindow().menuBar()->actions()) {
            titles.append(menu->text().remove(u'&'));
        }
        QCOMPARE(titles, (QStringList{u"File"_s, u"Edit"_s, u"View"_s, u"Clip"_s, u"Record"_s, u"Window"_s,
                                      u"Help"_s}));
    }

    void everyKeyStandsInTheManual() {
        QFile page(qEnvironmentVariable("MARQUILL_SOURCE_DIR") + u"/docs/manual/keys.md"_s);
        QVERIFY(page.open(QIODevice::ReadOnly));
        const QString keys = QString::fromUtf8(page.readAll());
        int commands = 0;
        for (const ActionDescription& description : application().actions().descriptions()) {
            const QString key = description.shortcut.toString(QKeySequence::NativeText);
            if (key.isEmpty() || description.menu == "&Record"_L1) {
                continue;  // the keys of the recorder act everywhere, and stand among those
            }
            const QString row = u"| %1 | %2 |"_s.arg(key, description.text);
            QVERIFY2(keys.contains(row), qPrintable(row));
            ++commands;
        }
        QCOMPARE(keys.count(u"\n| Ctrl+"_s) + keys.count(u"\n| F"_s), commands + 1);  // Ctrl+Space
    }

    void everyCommandStandsInAMenu() {
        QSet<QString> shown;
        for (const QMenu* menu : mainWindow().menuBar()->findChildren<QMenu*>()) {
            for (const QAction* action : menu->actions()) {
                shown.insert(action->objectName());
            }
        }
        for (const ActionDescription& description : application().actions().descriptions()) {
            QVERIFY2(shown.contains(description.id), qPrintable(description.id));
        }
    }

    void noKeyIsTakenTwice() {
        QSet<QString> keys;
        for (const ActionDescription& description : application().actions().descriptions()) {
            const QString key = description.shortcut.toString();
            QVERIFY2(key.isEmpty() || !keys.contains(key), qPrintable(description.id));
            keys.insert(key);
        }
    }

    void noKeyCollidesWithMarkersStartingATakeOrRatings() {
        QSet<QString> taken{u"`"_s};
        for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
            taken.insert(u"Alt+"_s + digit);
            taken.insert(QString(digit));
        }
        for (const ActionDescription& description : application().actions().descriptions()) {
            const QString key = description.shortcut.toString();
            QVERIFY2(!taken.contains(key), qPrintable(description.id));
            QVERIFY2(key != u"Ctrl+Space"_s || description.id == u"startRecording"_s,
                     qPrintable(description.id));
        }
    }

    void toolBarButtonsTellTheKeyOfTheirCommand() {
        QCOMPARE(mainWindow().findChild<QAction*>(u"AddFolder"_s)->toolTip(),
                 u"Add recording folder (Ctrl+O)"_s);
        QCOMPARE(mainWindow().findChild<QAction*>(u"DeleteClips"_s)->toolTip(),
                 u"Delete clips (Ctrl+Backspace)"_s);
    }

    void theShortcutsPanelListsEveryKey() {
        application().showKeyboardShortCuts();
        const QWidget* panel = nullptr;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            panel = window->objectName() == u"_keyboardShortcuts"_s ? window : panel;
        }
        QVERIFY(panel);
        QStringList texts;
        for (const QLabel* label : panel->findChildren<QLabel*>()) {
            texts.append(label->text());
        }
        for (const ActionDescription& description : application().actions().descriptions()) {
            if (!description.shortcut.isEmpty()) {
                QVERIFY2(texts.contains(description.text), qPrintable(description.id));
                QVERIFY2(texts.contains(description.shortcut.toString(QKeySequence::NativeText)),
                         qPrintable(description.id));
            }
        }
        QVERIFY(texts.contains(u"Alt+1 … 9, 0"_s));
    }

    // The Edit menu

    void undoTakesBackTypingBeforeTheWindowsStep() {
        changeSomething();
        FieldWindow<QLineEdit> window;
        QVERIFY(window.hasKeyboard());
        QTest::keyClicks(window.field, u"abc"_s);
        QCOMPARE(command(u"undo"_s).text(), u"Undo Typing"_s);
        command(u"undo"_s).trigger();
        QCOMPARE(window.field->text(), QString());
        QCOMPARE(_steps, 1);
        QCOMPARE(command(u"redo"_s).text(), u"Redo Typing"_s);
        command(u"redo"_s).trigger();
        QCOMPARE(window.field->text(), u"abc"_s);
    }

    void undoOfAFieldWithoutTypingIsTheWindows() {
        changeSomething();
        FieldWindow<QLineEdit> window;
        QVERIFY(window.hasKeyboard());
        QCOMPARE(command(u"undo"_s).text(), u"Undo change Something"_s);
        press(window, QKeySequence::Undo);
        QCOMPARE(_steps, 0);
    }

    void undoByKeyTakesBackTypingInALongText() {
        changeSomething();
        FieldWindow<QPlainTextEdit> window;
        QVERIFY(window.hasKeyboard());
        QTest::keyClicks(window.field, u"abc"_s);
        press(window, QKeySequence::Undo);
        QCOMPARE(window.field->toPlainText(), QString());
        QCOMPARE(_steps, 1);
    }

    void editCommandsActOnTheFieldWithTheKeyboard() {
        FieldWindow<QLineEdit> window;
        QVERIFY(window.hasKeyboard());
        window.field->setText(u"Harbour"_s);
        window.field->deselect();
        QVERIFY(!command(u"cut"_s).isEnabled());
        QVERIFY(!command(u"copy"_s).isEnabled());
        command(u"selectAll"_s).trigger();
        QVERIFY(command(u"copy"_s).isEnabled());
        command(u"cut"_s).trigger();
        QCOMPARE(window.field->text(), QString());
        QCOMPARE(QApplication::clipboard()->text(), u"Harbour"_s);
        QVERIFY(!command(u"selectAll"_s).isEnabled());
        command(u"paste"_s).trigger();
        QCOMPARE(window.field->text(), u"Harbour"_s);
    }

    void editCommandsLeaveAReadOnlyTextAsItIs() {
        FieldWindow<QPlainTextEdit> window;
        QVERIFY(window.hasKeyboard());
        window.field->setPlainText(u"12 Frames dropped"_s);
        window.field->setReadOnly(true);
        QApplication::clipboard()->setText(u"x"_s);
        command(u"selectAll"_s).trigger();
        QVERIFY(command(u"copy"_s).isEnabled());
        QVERIFY(!command(u"cut"_s).isEnabled());
        QVERIFY(!command(u"paste"_s).isEnabled());
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    MenuBarTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MenuBarTest.moc"
