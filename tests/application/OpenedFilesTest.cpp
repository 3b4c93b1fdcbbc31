// What the program is given to open: folders, movies and clips.
#include "application/Application.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/ClipFolder.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "movie/MovieBuilder.h"
#include "platform/FakeDialogs.h"
#include "platform/NoticeBar.h"
#include "platform/SingleInstance.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"

#include <QDialog>
#include <QDir>
#include <QFileOpenEvent>
#include <QMainWindow>
#include <QPushButton>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

ClipManager& clipManager() {
    return *ClipManager::getClipManager();
}

void open(const QStringList& paths) {
    application().startedAgain({.paths = paths, .activationToken = {}});
}

QStringList listedFolders() {
    QStringList paths;
    for (const FolderRecord& folder : clipManager().folderList().folderArray()) {
        paths.append(folder.folderPath().value_or(QString()));
    }
    return paths;
}

QString recordingFolder() {
    const std::optional<FolderRecord>& folder = clipManager().folderList().recordingFolder();
    return folder ? folder->folderPath().value_or(QString()) : QString();
}

QStringList selectedClips() {
    QStringList names;
    for (const ClipInfo& clip : clipManager().clipTable().selectedClipArray()) {
        names.append(clip.clipName().value_or(QString()));
    }
    names.sort();
    return names;
}

// Bars that were told to go do so a little later.
QStringList notices() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList texts;
    for (const NoticeBar* notice : clipManager().window()->findChildren<NoticeBar*>()) {
        texts.append(notice->text());
    }
    return texts;
}

QByteArray movie() {
    return MovieBuilder{.duration = 600, .userData = std::nullopt}.headerLast();
}

}  // namespace

class OpenedFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ClipFolder> _day1;
    std::unique_ptr<ClipFolder> _day2;
    std::unique_ptr<QTemporaryDir> _settings;
    std::unique_ptr<FakeDialogs> _dialogs;

    void showDay1() {
        const FolderRecord folder = FolderRecord::forPath(_day1->path());
        clipManager().folderList().setFolderArray({folder});
        clipManager().folderList().setRecordingFolder(folder);
        clipManager().folderList().selectFolder(_day1->path());
        QTRY_VERIFY(!clipManager().isReading());
    }

  private Q_SLOTS:
    void init() {
        _day1 = std::make_unique<ClipFolder>();
        _day2 = std::make_unique<ClipFolder>();
        _settings = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        UserDefaults::useFile(_settings->filePath(u"settings.plist"_s));
        application().finishLaunching();
        showDay1();
    }

    void cleanup() {
        OfflineRecorder::stopRecording();
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
    }

    void aNewFolderIsAddedAndShownAndTakesGoWhereTheyWent() {
        open({_day2->path()});
        QCOMPARE(listedFolders(), (QStringList{_day1->path(), _day2->path()}));
        QCOMPARE(clipManager().shownFolder(), _day2->path());
        QCOMPARE(recordingFolder(), _day1->path());
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void aFolderOfTheListIsShown() {
        open({_day2->path()});
        open({_day1->path()});
        QCOMPARE(listedFolders(), (QStringList{_day1->path(), _day2->path()}));
        QCOMPARE(clipManager().shownFolder(), _day1->path());
    }

    void theFirstFolderOfAllIsRecordedInto() {
        clipManager().folderList().setRecordingFolder(std::nullopt);
        clipManager().folderList().setFolderArray({});
        open({_day2->path()});
        QCOMPARE(recordingFolder(), _day2->path());
    }

    void aFolderThatIsReachedThroughALinkIsTheOneOfTheList() {
        const QString link = _settings->filePath(u"link"_s);
        QVERIFY(QFile::link(_day1->path(), link));
        open({link});
        QCOMPARE(listedFolders(), QStringList{_day1->path()});
        QCOMPARE(clipManager().shownFolder(), _day1->path());
    }

    void ofSeveralFoldersAllAreAddedAndTheLastIsShown() {
        const ClipFolder day3;
        open({_day2->path(), day3.path()});
        QCOMPARE(listedFolders().size(), 3);
        QCOMPARE(clipManager().shownFolder(), day3.path());
    }

    void clipsAreSelectedOnceTheirFolderIsRead() {
        for (const QString& name : {u"a#01.xml"_s, u"b 光\n#01.xml"_s, u"c#01.xml"_s}) {
            _day2->makePlaceholder(name, "<key>clipName</key><string>" + name.toUtf8() + "</string>");
        }
        open({_day2->path(u"a#01.xml"_s), _day2->path(u"b 光\n#01.xml"_s)});
        QTRY_COMPARE(selectedClips(), (QStringList{u"a#01.xml"_s, u"b 光\n#01.xml"_s}));
        QVERIFY(notices().isEmpty());
        // Also when it has been read already.
        open({_day2->path(u"c#01.xml"_s)});
        QTRY_COMPARE(selectedClips(), QStringList{u"c#01.xml"_s});
    }

    void aMovieSelectsThePlaceholderThatIsConnectedToIt() {
        _day2->make(u"A003_C001.mov"_s, movie());
        _day2->makePlaceholder(u"a#01.xml"_s,
                               "<key>clipName</key><string>a#01.xml</string><key>clipPath</key><string>" +
                                   _day2->path(u"A003_C001.mov"_s).toUtf8() + "</string>");
        open({_day2->path(u"A003_C001.mov"_s)});
        QTRY_COMPARE(selectedClips(), QStringList{u"a#01.xml"_s});
        QVERIFY(notices().isEmpty());
    }

    void aMovieWithoutAClipIsOfferedAndNothingIsWritten() {
        _day2->make(u"A003_C001.mp4"_s, movie());
        open({_day2->path(u"A003_C001.mp4"_s)});
        QTRY_COMPARE(notices(), QStringList{u"“A003_C001.mp4” has no clip yet"_s});
        QCOMPARE(clipManager().shownFolder(), _day2->path());
        QCOMPARE(_day2->names(), QStringList{u"A003_C001.mp4"_s});
        QTest::mouseClick(
            clipManager().window()->findChild<NoticeBar*>()->findChild<QPushButton*>(u"_button"_s),
            Qt::LeftButton);
        QCOMPARE(_day2->names(), (QStringList{u"A003_C001.mp4"_s, u"A003_C001.xml"_s}));
        QTRY_COMPARE(selectedClips(), QStringList{u"A003_C001.xml"_s});
    }

    void whatIsNoMovieIsOfferedNothing() {
        _day2->make(u"notes.txt"_s, "notes");
        open({_day2->path(u"notes.txt"_s)});
        QTRY_COMPARE(notices(), QStringList{u"“notes.txt” is neither a movie nor a clip"_s});
        QVERIFY(!clipManager().window()->findChild<NoticeBar*>()->hasButton());
    }

    void whatIsGoneIsToldAndTheRestIsOpened() {
        open({_day2->path(u"gone.mov"_s), _day2->path()});
        QCOMPARE(notices(), QStringList{u"“gone.mov” cannot be found"_s});
        QCOMPARE(clipManager().shownFolder(), _day2->path());
        // The next opening's notice takes the place of this one.
        open({_day2->path(u"gone"_s), _day2->path(u"lost"_s)});
        QTRY_COMPARE(notices(), QStringList{u"2 files cannot be found"_s});
    }

    void nothingHappensBehindAModalWindow() {
        QDialog dialog;
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        open({_day2->path()});
        QCoreApplication::processEvents();
        QCOMPARE(clipManager().shownFolder(), _day1->path());
        dialog.close();
        QTRY_COMPARE(clipManager().shownFolder(), _day2->path());
    }

    void theDesktopMayAskForAFileByAnEvent() {
        QFileOpenEvent event(_day2->path());
        QCoreApplication::sendEvent(&application(), &event);
        QCOMPARE(clipManager().shownFolder(), _day2->path());
    }

    void aSecondStartBringsTheHiddenWindowBack() {
        clipManager().window()->hide();
        open({});
        QVERIFY(clipManager().window()->isVisible());
        QCOMPARE(clipManager().shownFolder(), _day1->path());
    }

    void aTakeGoesOnWhileAFolderIsOpened() {
        OfflineRecorder::startRecording();
        open({_day2->path()});
        QVERIFY(OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
        QCOMPARE(_day1->names(), QStringList{u"Clip#01.xml"_s});
    }
};

int main(int argc, char** argv) {
    Application application(argc, argv);
    OpenedFilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "OpenedFilesTest.moc"
