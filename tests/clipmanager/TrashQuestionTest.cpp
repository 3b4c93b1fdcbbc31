// The question about the trash when the user quits.
#include "clipmanager/TrashQuestion.h"
#include "clipstore/ClipFolder.h"
#include "platform/FakeDialogs.h"
#include "platform/FaultyFileSystem.h"
#include "platform/SlowFileSystem.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

using namespace marquill;

namespace {

constexpr int keep = 0;
constexpr int cancel = 1;
constexpr int deleteThem = 2;

class TrashFolder : public ClipFolder {
  public:
    explicit TrashFolder(const QStringList& names) {
        QDir(path()).mkdir(u"Trash"_s);
        for (const QString& name : names) {
            make(u"Trash/"_s + name, "take");
        }
    }
    QStringList trash() const { return QDir(path(u"Trash"_s)).entryList(QDir::Files); }
};

// Presses `key` in the next alert, where the keyboard is.
void pressInAlert(Qt::Key key) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, key] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            QWidget* focus = box->focusWidget();
            QTest::keyClick(focus ? focus : box, key);
        }
    });
    timer->start(1);
}

QStringList manyNames() {
    QStringList names;
    for (qsizetype take = 1; take <= TrashQuestion::many; ++take) {
        names.append(u"a#%1.xml"_s.arg(take));
    }
    return names;
}

// Calls `answer` with the sheet that shows the progress, once it is there.
void whenSheetIsShown(const std::function<void(QDialog*)>& answer) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, answer] {
        if (auto* sheet = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            answer(sheet);
        }
    });
    timer->start(1);
}

}  // namespace

class TrashQuestionTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void withoutTrashNothingIsAsked() {
        FakeDialogs dialogs;
        const TrashFolder folder({u"notes.txt"_s});
        QVERIFY(TrashQuestion::cleanUp({folder.path(), u"/nowhere"_s}, nullptr));
        QVERIFY(TrashQuestion::cleanUp({}, nullptr));
        QVERIFY(dialogs.alerts.isEmpty());
    }

    void theQuestionIsPutWordForWord() {
        FakeDialogs dialogs;
        const TrashFolder folder({u"a#01.xml"_s});
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(dialogs.alerts.size(), 1);
        QCOMPARE(dialogs.alerts[0].title, u"Delete Clips in the Trash?"_s);
        QCOMPARE(
            dialogs.alerts[0].text,
            u"There are clips in the trash folder in one or more recording folders. You can either delete these clips or keep them in the trash folder(s). Deleting clips cannot be undone."_s);
        QCOMPARE(dialogs.alerts[0].buttons,
                 (QStringList{u"Keep Clips"_s, u"Cancel Quitting"_s, u"Delete Clips"_s}));
    }

    void keptClipsStay() {
        FakeDialogs dialogs;
        dialogs.answers = {keep};
        const TrashFolder folder({u"a#01.xml"_s});
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(folder.trash(), QStringList{u"a#01.xml"_s});
    }

    void cancellingStaysAndDeletesNothing() {
        FakeDialogs dialogs;
        dialogs.answers = {cancel};
        const TrashFolder folder({u"a#01.xml"_s});
        QVERIFY(!TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(folder.trash(), QStringList{u"a#01.xml"_s});
        QCOMPARE(dialogs.alerts.size(), 1);
    }

    void deletingTakesTheClipsOfAllFoldersAndNothingElse() {
        FakeDialogs dialogs;
        dialogs.answers = {deleteThem};
        const TrashFolder first({u"a#01.xml"_s, u"notes.txt"_s});
        const TrashFolder second({u"b#01.mov"_s});
        QVERIFY(TrashQuestion::cleanUp({first.path(), second.path()}, nullptr));
        QCOMPARE(first.trash(), QStringList{u"notes.txt"_s});
        QVERIFY(second.trash().isEmpty());
        QCOMPARE(dialogs.alerts.size(), 1);
    }

    void whatCannotBeDeletedIsToldAndTheProgramStillQuits() {
        FakeDialogs dialogs;
        dialogs.answers = {deleteThem};
        const TrashFolder folder({u"a.xml"_s, u"b.xml"_s, u"c.xml"_s});
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failAt(2, ErrorCode::permissionDenied);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Trash/"_s));
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(folder.trash().size(), 1);
        QCOMPARE(dialogs.alerts.size(), 2);
        QCOMPARE(dialogs.alerts[1].title, u"Could not delete Clips"_s);
        QCOMPARE(
            dialogs.alerts[1].text,
            u"1 clips of 3 clips could not be deleted. Please try to delete them manually in the Finder."_s);
        QCOMPARE(dialogs.alerts[1].buttons, QStringList{u"Ok"_s});
    }

    void deletingNothingSaysNothing() {
        FakeDialogs dialogs;
        TrashQuestion::deleteClips({}, nullptr);
        QVERIFY(dialogs.alerts.isEmpty());
    }

    void ofManyClipsASheetShowsHowFarItIs() {
        FakeDialogs dialogs;
        dialogs.answers = {deleteThem};
        const TrashFolder folder(manyNames());
        QWidget window;
        window.show();
        SlowFileSystem slow;
        bool wasShown = false;
        bool hasQuit = true;
        whenSheetIsShown([&](QDialog* sheet) {
            wasShown = sheet->parentWidget() == &window;
            // Quitting is asked for once more.
            hasQuit = TrashQuestion::cleanUp({folder.path()}, &window);
            slow.letGo();
        });
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, &window));
        QVERIFY(wasShown);
        QVERIFY(!hasQuit);
        QVERIFY(folder.trash().isEmpty());
        QCOMPARE(dialogs.alerts.size(), 1);
    }

    void cancellingTheSheetKeepsTheRest() {
        FakeDialogs dialogs;
        dialogs.answers = {deleteThem};
        const TrashFolder folder(manyNames());
        QWidget window;
        window.show();
        SlowFileSystem slow;
        whenSheetIsShown([&](QDialog* sheet) {
            sheet->findChild<QPushButton*>(u"_cancelButton"_s)->click();
            slow.letGo();
        });
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, &window));
        // The one that was under way goes.
        QVERIFY(folder.trash().size() >= TrashQuestion::many - 1);
        QCOMPARE(dialogs.alerts.size(), 1);
    }

    void returnKeepsTheClips() {
        const TrashFolder folder({u"a#01.xml"_s});
        pressInAlert(Qt::Key_Return);
        QVERIFY(TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(folder.trash(), QStringList{u"a#01.xml"_s});
    }

    void escapeGoesBackToWork() {
        const TrashFolder folder({u"a#01.xml"_s});
        pressInAlert(Qt::Key_Escape);
        QVERIFY(!TrashQuestion::cleanUp({folder.path()}, nullptr));
        QCOMPARE(folder.trash(), QStringList{u"a#01.xml"_s});
    }
};

QTEST_MAIN(TrashQuestionTest)
#include "TrashQuestionTest.moc"
