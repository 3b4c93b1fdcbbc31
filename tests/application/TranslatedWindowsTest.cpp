// The windows in German: that every kind of text passes through translation, and that nothing is cut off.
#include "application/Application.h"
#include "application/KeyboardShortcuts.h"
#include "clipmanager/ClipManager.h"
#include "connect/ClipTableController.h"
#include "folders/Preferences.h"
#include "folders/RecordFolderController.h"
#include "markers/MarkerSets.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

QMainWindow& mainWindow() {
    return *ClipManager::getClipManager()->window();
}

template <class Widget>
Widget& find(QWidget& window, const QString& name) {
    auto* widget = window.findChild<Widget*>(name);
    Q_ASSERT(widget);
    return *widget;
}

// How many pixels a text lacks in its widget; buttons of a fixed size may be narrower than their style would
// like.
int missingWidth(const QWidget& widget) {
    if (qobject_cast<const QPushButton*>(&widget) && widget.maximumWidth() == QWIDGETSIZE_MAX) {
        return widget.minimumSizeHint().width() - widget.width();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->fontMetrics().horizontalAdvance(button->text().remove(u'&')) - button->width();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return label && label->metaObject() == &QLabel::staticMetaObject && !label->wordWrap()
               ? label->sizeHint().width() - label->width()
               : 0;
}

}  // namespace

class TranslatedWindowsTest : public QObject {
    Q_OBJECT

    QTemporaryDir _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    int _starts = 0;

  private Q_SLOTS:
    void init() {
        _dialogs = std::make_unique<FakeDialogs>();
        // No test sees what another one has set.
        UserDefaults::useFile(joinPath(_folder.path(), u"settings%1.plist"_s.arg(++_starts)));
        application().finishLaunching();
    }

    void cleanup() {
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
    }

    void menusAndTheirCommands() {
        QStringList titles;
        for (const QAction* menu : mainWindow().menuBar()->actions()) {
            titles.append(menu->text().remove(u'&'));
        }
        QCOMPARE(titles, (QStringList{u"Datei"_s, u"Bearbeiten"_s, u"Ansicht"_s, u"Clip"_s, u"Aufnahme"_s,
                                      u"Fenster"_s, u"Hilfe"_s}));
        application().actions().validate();
        QCOMPARE(application().actions().action(u"addFolder"_s)->text(), u"Ordner hinzufügen…"_s);
        QCOMPARE(application().actions().action(u"showHideClipManagerWindow"_s)->text(),
                 u"Clip-Manager ausblenden"_s);
    }

    void windowDescriptions() {
        QCOMPARE(mainWindow().windowTitle(), u"Clip-Manager"_s);
        QCOMPARE(OfflineRecorder::window()->windowTitle(), u"Platzhalter-Clip-Rekorder"_s);
        QCOMPARE(MarkerSets::window()->windowTitle(), u"Echtzeit-Marker"_s);
        QCOMPARE(find<QPushButton>(*MarkerSets::window(), u"_editSetButton"_s).text(), u"Bearbeiten…"_s);
    }

    void whatControllersWrite() {
        QCOMPARE(find<QLabel>(*OfflineRecorder::window(), u"_recordState"_s).text(), u"BEREIT"_s);
        const QAbstractItemModel& clips = *find<QTableView>(mainWindow(), u"_clipTable"_s).model();
        QStringList titles;
        for (int column = 0; column < clips.columnCount(); ++column) {
            titles.append(clips.headerData(column, Qt::Horizontal).toString());
        }
        QVERIFY2(titles.contains(u"Erstellungsdatum"_s), qPrintable(titles.join(u", "_s)));
    }

    void theStatusLine() {
        RecordFolderController& folders = ClipManager::getClipManager()->folderList();
        _dialogs->chosen = {_folder.path()};
        folders.addItem();
        folders.selectFolder(_folder.path());
        QStringList texts;
        for (const QLabel* label : mainWindow().findChildren<QLabel*>()) {
            texts.append(label->text());
        }
        QVERIFY2(texts.contains(u"Aktueller Ordner: "_s + _folder.path()), qPrintable(texts.join(u'\n')));
    }

    void alerts() {
        OfflineRecorder::startRecording();
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts.first().title, u"Kein Zielordner für die Aufnahme ausgewählt"_s);
    }

    void toolkitsOwnTexts() {
        QMessageBox box(QMessageBox::Question, {}, {}, QMessageBox::Cancel);
        QCOMPARE(box.button(QMessageBox::Cancel)->text().remove(u'&'), u"Abbrechen"_s);
    }

    void namesOfUndoSteps() {
        UndoManager& undo = ClipManager::getClipManager()->undoManager();
        undo.registerUndo(this, [] {});
        undo.setActionName(ClipTableController::tr("rename Clip"));
        undo.closeStep();
        application().actions().validate();
        QCOMPARE(application().actions().action(u"undo"_s)->text(), u"Rückgängig: Clip umbenennen"_s);
    }

    // Data stay as they are: a set or a label that is made here can be opened anywhere.
    void whatIsWrittenIntoSettingsAndClipsStaysAsItIs() {
        QCOMPARE(Preferences::labels().first(), u"Print"_s);
        QCOMPARE(MarkerSets::controller()->currSet()->title(), u"Default Set"_s);
    }

    void noLabelOrButtonIsCutOff() {
        QStringList cut;
        mainWindow().resize(mainWindow().minimumSizeHint());
        QTRY_COMPARE(mainWindow().size(), mainWindow().minimumSizeHint());
        const std::array<QWidget*, 3> windows{&mainWindow(), OfflineRecorder::window(), MarkerSets::window()};
        for (QWidget* window : windows) {
            window->ensurePolished();
            for (QWidget* widget : window->findChildren<QWidget*>()) {
                if (widget->isVisible() && missingWidth(*widget) > 0) {
                    cut.append(u"%1 lacks %2 pixels"_s.arg(widget->objectName()).arg(missingWidth(*widget)));
                }
            }
        }
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
    }

    void theShortcutsFitOnASmallScreen() {
        const QSize smallScreen(1280, 720);
        const KeyboardShortcuts panel(application().actions());
        const QSize needed = panel.sizeHint();
        QVERIFY2(needed.width() <= smallScreen.width() && needed.height() <= smallScreen.height(),
                 qPrintable(u"%1 × %2"_s.arg(needed.width()).arg(needed.height())));
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    options.language = u"de"_s;
    Application application(argc, argv, options);
    TranslatedWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "TranslatedWindowsTest.moc"
