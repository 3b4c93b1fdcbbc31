// What the program does at launch with takes that an earlier run could not finish, and the command for those
// that found no place.
#include "application/Application.h"
#include "application/TakeRescue.h"
#include "clipmanager/ClipManager.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "platform/FakeDialogs.h"
#include "platform/FileBrowser.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/NoticeBar.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecoverTakesDialog.h"
#include "recording/TakeJournal.h"
#include "recording/TakeJournalFormat.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

class FakeBrowser final : public FileBrowser {
  public:
    FakeBrowser() { install(this); }
    ~FakeBrowser() override { install(nullptr); }
    FakeBrowser(const FakeBrowser&) = delete;
    FakeBrowser& operator=(const FakeBrowser&) = delete;

    QStringList revealed;
    void reveal(const QString& path) override { revealed.append(path); }
};

TakeRecovery::RecoveredTake recovered(const QString& clipName, const QString& folder) {
    ClipInfo clip;
    clip.setClipName(clipName);
    return {clip, folder};
}

}  // namespace

class TakeRescueTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;
    std::unique_ptr<FakeDialogs> _dialogs;

    QString folder() const { return joinPath(_root->path(), u"Day 1"_s); }
    static ClipManager& clipManager() { return *ClipManager::getClipManager(); }
    static QList<NoticeBar*> notices() { return clipManager().window()->findChildren<NoticeBar*>(); }

    static bool isRecoverEnabled() {
        application().actions().validate();
        return application().actions().action(u"recoverTakes"_s)->isEnabled();
    }

    static void leaveTake(const QString& name, const QString& folder) {
        const TakeRecord take{.name = name,
                              .scene = u"1"_s,
                              .folder = folder,
                              .start = Date(std::chrono::duration<double>(1795251600)),
                              .elapsed = 0,
                              .markers = {},
                              .comment = {}};
        QVERIFY(makeFolders(TakeRescue::journalFolder()));
        QVERIFY(writeNewFile(joinPath(TakeRescue::journalFolder(), name + u".journal"_s),
                             TakeJournalFormat::startLine(take)));
    }

    void launchWithFolder() {
        application().finishLaunching();
        const FolderRecord record = FolderRecord::forPath(folder());
        clipManager().folderList().setFolderArray({record});
        clipManager().folderList().setRecordingFolder(record);
    }

  private Q_SLOTS:
    void init() {
        _root = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        UserDefaults::useFile(joinPath(_root->path(), u"settings.plist"_s));
        QVERIFY(QDir().mkdir(folder()));
    }

    void cleanup() {
        OfflineRecorder::stopRecording();
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
    }

    void withNothingToRecoverNothingIsTold() {
        launchWithFolder();
        QTest::qWait(100);
        QVERIFY(notices().isEmpty());
        QVERIFY(!isRecoverEnabled());
    }

    void recoveredTakesAreToldOnceAndShown() {
        leaveTake(u"Harbour"_s, folder());
        launchWithFolder();
        QTRY_COMPARE(notices().size(), 1);
        QCOMPARE(notices()[0]->text(), u"Recovered 1 take: Harbour#01 in Day 1"_s);
        QTRY_VERIFY(notices()[0]->isVisible());
        QVERIFY(_dialogs->alerts.isEmpty());
        QVERIFY(fileExists(joinPath(folder(), u"Harbour#01.xml"_s)));
        QTest::mouseClick(notices()[0]->findChild<QPushButton*>(u"_button"_s), Qt::LeftButton);
        QCOMPARE(clipManager().shownFolder(), folder());
        QTRY_COMPARE(clipManager().clipTable().selectedClipArray().size(), 1U);
        QCOMPARE(clipManager().clipTable().selectedClipArray()[0].clipName(), u"Harbour#01.xml"_s);
        QTRY_VERIFY(notices().isEmpty());
        QVERIFY(!isRecoverEnabled());
    }

    void aTakeInAFolderThatIsNotListedIsShownByTheDesktop() {
        const FakeBrowser browser;
        leaveTake(u"Harbour"_s, folder());
        application().finishLaunching();
        QTRY_COMPARE(notices().size(), 1);
        QTest::mouseClick(notices()[0]->findChild<QPushButton*>(u"_button"_s), Qt::LeftButton);
        QCOMPARE(browser.revealed, QStringList{joinPath(folder(), u"Harbour#01.xml"_s)});
    }

    void theNoticeCanBeClosed() {
        leaveTake(u"Harbour"_s, folder());
        launchWithFolder();
        QTRY_COMPARE(notices().size(), 1);
        auto* close = notices()[0]->findChild<QToolButton*>(u"_closeButton"_s);
        QCOMPARE(close->accessibleName(), u"Close Notice"_s);
        QTest::mouseClick(close, Qt::LeftButton);
        QTRY_VERIFY(notices().isEmpty());
    }

    void theNumberOfTheNextTakeFollows() {
        leaveTake(u"Clip"_s, folder());
        launchWithFolder();
        QTRY_COMPARE(OfflineRecorder::window()->findChild<QLabel*>(u"_currentTakeNo"_s)->text(), u"2"_s);
    }

    void aTakeThatFoundNoPlaceIsToldAndListed() {
        leaveTake(u"Harbour"_s, joinPath(_root->path(), u"pulled card"_s));
        launchWithFolder();
        QTRY_COMPARE(notices().size(), 1);
        QCOMPARE(notices()[0]->text(), u"1 take could not be saved where recorded"_s);
        QVERIFY(isRecoverEnabled());
        QTest::mouseClick(notices()[0]->findChild<QPushButton*>(u"_button"_s), Qt::LeftButton);
        RecoverTakesDialog* dialog = application().takeRescue()->dialog();
        QVERIFY(dialog && dialog->window()->isVisible());
        QCOMPARE(dialog->takes().size(), 1U);
        // Takes are recorded while it is open.
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
        _dialogs->chosen = {folder()};
        QTest::mouseClick(dialog->window()->findChild<QPushButton*>(u"_recoverButton"_s), Qt::LeftButton);
        QVERIFY(fileExists(joinPath(folder(), u"Harbour#01.xml"_s)));
        QVERIFY(!isRecoverEnabled());
    }

    void aTakeWhoseStopFailsCanBeRecoveredByTheCommand() {
        launchWithFolder();
        OfflineRecorder::startRecording();
        QVERIFY(!isRecoverEnabled());
        QVERIFY(QDir(folder()).removeRecursively());
        OfflineRecorder::stopRecording();
        QCOMPARE(_dialogs->alerts.size(), 1);
        QTRY_VERIFY(isRecoverEnabled());
        application().actions().action(u"recoverTakes"_s)->trigger();
        QCOMPARE(application().takeRescue()->dialog()->takes().size(), 1U);
        // A card that is back at the next launch has its take by then.
        QVERIFY(QDir().mkdir(folder()));
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        application().finishLaunching();
        QTRY_COMPARE(notices().size(), 1);
        QVERIFY(fileExists(joinPath(folder(), u"Clip#01.xml"_s)));
    }

    void ofManyTakesTheFirstThreeAreNamed() {
        QCOMPARE(TakeRescue::textForRecovered(
                     {recovered(u"A#01.xml"_s, u"/x/Day 1"_s), recovered(u"B#12.xml"_s, u"/x/Day 2"_s)}),
                 u"Recovered 2 takes: A#01 in Day 1, B#12 in Day 2"_s);
        QCOMPARE(TakeRescue::textForRecovered(
                     {recovered(u"A#01.xml"_s, u"/x"_s), recovered(u"A#02.xml"_s, u"/x"_s),
                      recovered(u"A#03.xml"_s, u"/x"_s), recovered(u"A#04.xml"_s, u"/x"_s)}),
                 u"Recovered 4 takes: A#01 in x, A#02 in x, A#03 in x, and 1 more"_s);
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    TakeRescueTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "TakeRescueTest.moc"
