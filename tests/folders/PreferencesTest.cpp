// The preferences: what they take from the settings and save there, and their window.
#include "clipstore/Notifications.h"
#include "folders/Preferences.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace marquill;

namespace {

const QStringList fiveLabels = {u"Print"_s, u"Trash"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s};

// What the settings file holds under the key, read anew.
std::optional<Value> onDisk(const QString& key) {
    return UserDefaults(UserDefaults::standard().path()).value(key);
}

Dictionary preferencesOnDisk() {
    const std::optional<Value> value = onDisk(u"PrefDict"_s);
    return value ? value->dictionary().value_or(Dictionary()) : Dictionary();
}

template <class Widget>
Widget* widget(const QString& name) {
    return Preferences::shared()->window().findChild<Widget*>(name);
}

QString currentTab() {
    return widget<QTabWidget>(u"_tabView"_s)->currentWidget()->objectName();
}

}  // namespace

class PreferencesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        UserDefaults::useFile(_place->filePath(u"settings.plist"_s));
    }

    void cleanup() {
        Preferences::finish();
        WindowDescription::useFolder(u":/windows"_s);
    }

    void theFirstStartGivesFiveLabels() {
        Preferences::init();
        QCOMPARE(Preferences::labels(), fiveLabels);
    }

    void savedLabelsComeBack() {
        save({{u"LabelArray"_s, arrayOfStrings({u"B"_s, u"A"_s, u"A"_s})}});
        Preferences::init();
        QCOMPARE(Preferences::labels(), (QStringList{u"B"_s, u"A"_s, u"A"_s}));
    }

    void savedPreferencesWithoutLabelsGiveAnEmptyList() {
        save({{u"AudioVolume"_s, 0.0}});
        Preferences::init();
        QCOMPARE(Preferences::labels(), QStringList());
    }

    void savedPreferencesWithLabelsOfAnotherTypeGiveAnEmptyList() {
        save({{u"LabelArray"_s, u"Print"_s}});
        Preferences::init();
        QCOMPARE(Preferences::labels(), QStringList());
    }

    void theSavedVolumeIsNeverRestored() {
        save({{u"AudioVolume"_s, 0.75}, {u"LabelArray"_s, Array()}});
        Preferences::init();
        QCOMPARE(Preferences::audioVolume(), 0.0F);
        QVERIFY(!Preferences::audioPlayThrough());
        QCOMPARE(widget<QSlider>(u"_volumeSlider"_s)->value(), 0);
    }

    void finishSavesVolumeAndLabels() {
        Preferences::init();
        Preferences::setAudioVolume(0.5F);
        Preferences::finish();
        QVERIFY(!Preferences::shared());
        QVERIFY(preferencesOnDisk() ==
                (Dictionary{{u"AudioVolume"_s, 0.5}, {u"LabelArray"_s, arrayOfStrings(fiveLabels)}}));
    }

    void finishKeepsWhatItDoesNotKnow() {
        save({{u"LabelArray"_s, Array()}, {u"Newer"_s, 7}});
        Preferences::init();
        Preferences::finish();
        QCOMPARE(preferencesOnDisk().integer(u"Newer"_s), 7);
    }

    void finishWithoutInitSavesNothing() {
        Preferences::finish();
        QVERIFY(!onDisk(u"PrefDict"_s));
    }

    void labelsAreSavedTheMomentTheyChange() {
        Preferences::init();
        QVERIFY(!onDisk(u"PrefDict"_s));
        controller().addLabelItem();
        QCOMPARE(labelsOnDisk(), fiveLabels + QStringList(u"New Label"_s));
        Preferences::shared()->undoManager().undo();
        QCOMPARE(labelsOnDisk(), fiveLabels);
    }

    void everyChangeIsPostedAgainWithoutObjectOnceItIsSaved() {
        Preferences::init();
        const QSignalSpy posts(&Notifications::centre(), &Notifications::labelListHasChanged);
        QStringList savedByThen;
        const auto connection = connect(&Notifications::centre(), &Notifications::labelListHasChanged, this,
                                        [&savedByThen](QObject* object) {
                                            if (!object) {
                                                savedByThen = labelsOnDisk();
                                            }
                                        });
        controller().setItemName({.label = u"Circle"_s, .index = 0});
        disconnect(connection);
        QCOMPARE(posts.count(), 2);
        QList<QObject*> objects = {posts[0][0].value<QObject*>(), posts[1][0].value<QObject*>()};
        QVERIFY(objects.removeOne(nullptr));
        QCOMPARE(objects.first(), &controller());
        QCOMPARE(savedByThen.value(0), u"Circle"_s);
    }

    void aListThatIsNotItsOwnIsNotPostedAgain() {
        Preferences::init();
        const QSignalSpy posts(&Notifications::centre(), &Notifications::labelListHasChanged);
        QObject other;
        Q_EMIT Notifications::centre().labelListHasChanged(&other);
        QCOMPARE(posts.count(), 1);
    }

    void aMissingWindowIsLoggedAndLeavesNoInstance() {
        WindowDescription::useFolder(_place->path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate Preferences nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Preferences\\.ui"_s));
        Preferences::init();
        expectNoInstance();
    }

    void aWindowWithoutItsTableIsLoggedAndLeavesNoInstance() {
        QFile description(_place->filePath(u"Preferences.ui"_s));
        QVERIFY(description.open(QIODevice::WriteOnly));
        description.write("<ui version=\"4.0\"><class>P</class><widget class=\"QDialog\" name=\"P\"/></ui>");
        description.close();
        WindowDescription::useFolder(_place->path());
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate Preferences nib");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"_labelTable"_s));
        Preferences::init();
        expectNoInstance();
    }

    void playThroughIsOnExactlyAboveZero() {
        Preferences::init();
        const QSignalSpy changes(Preferences::shared(), &Preferences::audioVolumeChanged);
        Preferences::setAudioVolume(0.001F);
        QVERIFY(Preferences::audioPlayThrough());
        Preferences::setAudioVolume(0.0F);
        QVERIFY(!Preferences::audioPlayThrough());
        QCOMPARE(changes.count(), 2);
        Preferences::setAudioVolume(0.0F);
        QCOMPARE(changes.count(), 2);
    }

    void theVolumeStaysWithinItsRange() {
        Preferences::init();
        Preferences::setAudioVolume(2.0F);
        QCOMPARE(Preferences::audioVolume(), 1.0F);
        Preferences::setAudioVolume(-1.0F);
        QCOMPARE(Preferences::audioVolume(), 0.0F);
    }

    void theSliderIsBoundToTheVolume() {
        Preferences::init();
        auto* slider = widget<QSlider>(u"_volumeSlider"_s);
        auto* text = widget<QLabel>(u"_volumeText"_s);
        QCOMPARE(text->text(), u"Off"_s);
        slider->setValue(40);
        QCOMPARE(Preferences::audioVolume(), 0.4F);
        QCOMPARE(text->text(), u"40 %"_s);
        Preferences::setAudioVolume(0.25F);
        QCOMPARE(slider->value(), 25);
        Preferences::setAudioVolume(0.001F);
        QCOMPARE(Preferences::audioVolume(), 0.001F);
        QCOMPARE(text->text(), u"1 %"_s);
    }

    void theThemeIsAppliedAndSavedBesideThePreferences() {
        save({{u"LabelArray"_s, arrayOfStrings({u"A"_s})}});
        Preferences::init();
        QCOMPARE(Preferences::themeChoice(), Theme::Choice::followSystem);
        auto* popup = widget<QComboBox>(u"_themePopup"_s);
        QCOMPARE(popup->currentText(), u"Follow the system"_s);
        choose(*popup, u"Dark"_s);
        QVERIFY(Theme::isDark());
        const std::optional<Value> saved = onDisk(u"kTheme"_s);
        QVERIFY(saved);
        QCOMPARE(saved->string(), u"dark"_s);
        QVERIFY(preferencesOnDisk() == (Dictionary{{u"LabelArray"_s, arrayOfStrings({u"A"_s})}}));
        choose(*popup, u"Light"_s);
        QVERIFY(!Theme::isDark());
        QCOMPARE(Preferences::themeChoice(), Theme::Choice::light);
        Preferences::setThemeChoice(Theme::Choice::dark);
        QCOMPARE(popup->currentText(), u"Dark"_s);
    }

    void theSavedThemeComesBack() {
        UserDefaults::standard().setValue(u"kTheme"_s, u"dark"_s);
        Preferences::init();
        QVERIFY(Theme::isDark());
        QCOMPARE(widget<QComboBox>(u"_themePopup"_s)->currentText(), u"Dark"_s);
    }

    void anUnknownThemeFollowsTheSystem() {
        UserDefaults::standard().setValue(u"kTheme"_s, u"pink"_s);
        Preferences::init();
        QCOMPARE(Preferences::themeChoice(), Theme::Choice::followSystem);
    }

    void theSettingsFileIsShownAndCanBeCopied() {
        Preferences::init();
        QCOMPARE(widget<QPlainTextEdit>(u"_settingsFileField"_s)->toPlainText(),
                 UserDefaults::standard().path());
        QVERIFY(widget<QPlainTextEdit>(u"_settingsFileField"_s)->isReadOnly());
        widget<QPushButton>(u"_copyPathButton"_s)->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), UserDefaults::standard().path());
    }

    void labelsAreTheFirstTab() {
        Preferences::init();
        QCOMPARE(currentTab(), u"shotLabels"_s);
        QCOMPARE(widget<QTabWidget>(u"_tabView"_s)->widget(0)->objectName(), u"shotLabels"_s);
        QCOMPARE(widget<QTabWidget>(u"_tabView"_s)->widget(1)->objectName(), u"General"_s);
    }

    void switchToTabIgnoresAnUnknownIdentifier() {
        Preferences::init();
        Preferences::switchToTab(u"General"_s);
        QCOMPARE(currentTab(), u"General"_s);
        Preferences::switchToTab(u"Unknown"_s);
        QCOMPARE(currentTab(), u"General"_s);
        Preferences::switchToTab(u"shotLabels"_s);
        QCOMPARE(currentTab(), u"shotLabels"_s);
    }

    void theWindowRunsModallyOnTheTabUntilItIsClosed() {
        Preferences::init();
        QDialog& window = Preferences::shared()->window();
        bool ranModally = false;
        QTimer::singleShot(0, this, [&] {
            ranModally = window.isVisible() && window.isModal() && currentTab() == u"General"_s;
            window.close();
        });
        Preferences::showDialogWithTab(u"General"_s);
        QVERIFY(ranModally);
        QVERIFY(!window.isVisible());
        QVERIFY(Preferences::shared());
    }

    void theCloseButtonEndsTheWindow() {
        Preferences::init();
        QTimer::singleShot(0, this, [] { widget<QPushButton>(u"_closeButton"_s)->click(); });
        Preferences::runDialog();
        QVERIFY(!Preferences::shared()->window().isVisible());
    }

    void aWindowThatRunsIsNotRunASecondTime() {
        Preferences::init();
        int turns = 0;
        QTimer::singleShot(0, this, [&] {
            Preferences::runDialog();
            ++turns;
            Preferences::shared()->window().close();
        });
        Preferences::runDialog();
        QCOMPARE(turns, 1);
    }

    void finishWhileTheWindowRunsEndsIt() {
        Preferences::init();
        QTimer::singleShot(0, this, [] { Preferences::finish(); });
        Preferences::runDialog();
        QVERIFY(!Preferences::shared());
    }

    void returnInACellEndsTheEditOnly() {
        Preferences::init();
        QDialog& window = Preferences::shared()->window();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* table = widget<TableView>(u"_labelTable"_s);
        table->edit(controller().model().index(0, 0));
        auto* editor = table->findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, u"Circle"_s);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!table->findChild<QLineEdit*>());
        QStringList expected = fiveLabels;
        expected[0] = u"Circle"_s;
        QCOMPARE(Preferences::labels(), expected);
        QVERIFY(window.isVisible());
    }

    void closingTheWindowKeepsTheEditInHand() {
        Preferences::init();
        QDialog& window = Preferences::shared()->window();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* table = widget<TableView>(u"_labelTable"_s);
        table->setFocus();
        table->edit(controller().model().index(0, 0));
        auto* editor = table->findChild<QLineEdit*>();
        QVERIFY(editor && editor->hasFocus());
        QTest::keyClicks(editor, u"Circle"_s);
        window.close();
        QCOMPARE(Preferences::labels().value(0), u"Circle"_s);
    }

    void everyControlIsNamedAndReachedByTheKeyboard() {
        Preferences::init();
        for (const QString& name : {u"_labelTable"_s, u"_addLabelButton"_s, u"_deleteLabelButton"_s,
                                    u"_undoButton"_s, u"_redoButton"_s, u"_themePopup"_s, u"_volumeSlider"_s,
                                    u"_settingsFileField"_s, u"_copyPathButton"_s}) {
            const auto* control = widget<QWidget>(name);
            QVERIFY2(control, qPrintable(name));
            QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(name));
            QVERIFY2(control->focusPolicy() & Qt::TabFocus, qPrintable(name));
        }
    }

  private:
    static LabelTableController& controller() { return Preferences::shared()->labelTableController(); }

    static QStringList labelsOnDisk() {
        return stringsOfArray(preferencesOnDisk().array(u"LabelArray"_s).value_or(Array()));
    }

    static void save(const Dictionary& preferences) {
        UserDefaults::standard().setValue(u"PrefDict"_s, preferences);
        QVERIFY(UserDefaults::standard().save());
    }

    static void choose(QComboBox& popup, const QString& text) {
        popup.setCurrentText(text);
        Q_EMIT popup.activated(popup.currentIndex());
    }

    static void expectNoInstance() {
        QVERIFY(!Preferences::shared());
        QCOMPARE(Preferences::labels(), QStringList());
        QCOMPARE(Preferences::audioVolume(), 0.0F);
        QVERIFY(!Preferences::audioPlayThrough());
        Preferences::setAudioVolume(1.0F);
        QCOMPARE(Preferences::audioVolume(), 0.0F);
        Preferences::showDialogWithTab(u"shotLabels"_s);
        Preferences::finish();
    }

    std::unique_ptr<QTemporaryDir> _place;
};

QTEST_MAIN(PreferencesTest)
#include "PreferencesTest.moc"
