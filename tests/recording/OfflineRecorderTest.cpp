// The recorder: takes, their files, their markers, and the panel.
#include "clipstore/ClipInfo.h"
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "markers/Marker.h"
#include "markers/MarkerButton.h"
#include "markers/MarkerSetPopup.h"
#include "markers/MarkerSets.h"
#include "platform/DelayedCalls.h"
#include "platform/FakeClock.h"
#include "platform/FakeDialogs.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/PropertyListReader.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecordingDestination.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace marquill;

namespace {

class FakeDestination : public RecordingDestination {
  public:
    std::optional<FolderRecord> folder;
    std::vector<ClipInfo> added;

    std::optional<FolderRecord> recordFolder() override { return folder; }
    void addClip(const ClipInfo& info, const QString&) override { added.push_back(info); }
};

// 2026-11-21 09:00:00 UTC.
const Date start{std::chrono::duration<double>(1795251600.0)};

}  // namespace

class OfflineRecorderTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<FakeClock> _clock;
    FakeDestination _destination;

    template <class Widget>
    Widget* field(const QString& name) {
        return OfflineRecorder::window()->findChild<Widget*>(name);
    }

    QString path(const QString& name) { return joinPath(_folder->path(), name); }

    Dictionary written(const QString& name) { return readDictionaryFile(path(name)).value_or(Dictionary()); }

    void restart() {
        OfflineRecorder::finish();
        OfflineRecorder::init(_destination);
    }

    static void fire(const Dictionary& marker, Date moment) {
        Q_EMIT Notifications::centre().newMarkerIssued(marker, moment);
    }

  private Q_SLOTS:
    void initTestCase() {
        WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
        WindowDescription::registerWidget<MarkerButton>(u"MarkerButton"_s);
        WindowDescription::registerWidget<MarkerSetPopup>(u"MarkerSetPopup"_s);
    }

    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        _clock = std::make_unique<FakeClock>(start);
        _destination = {};
        _destination.folder = FolderRecord::forPath(_folder->path());
        UserDefaults::useFile(path(u"settings.plist"_s));
        MarkerSets::init();
        OfflineRecorder::init(_destination);
    }

    void cleanup() {
        OfflineRecorder::finish();
        MarkerSets::finish();
        WindowDescription::useFolder(u":/windows"_s);
        _clock.reset();
        _dialogs.reset();
    }

    void aTakeIsWrittenWithAllItsFields() {
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Interview"_s);
        field<QLineEdit>(u"_defaultSceneName"_s)->setText(u"12A"_s);
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
        _clock->advance(61.5);
        OfflineRecorder::stopRecording();
        QVERIFY(!OfflineRecorder::isRecording());

        const Dictionary expected{{u"clipName"_s, u"Interview#01.xml"_s},
                                  {u"clipScene"_s, u"12A"_s},
                                  {u"clipCreationDate"_s, start},
                                  {u"clipRecordingStartTime"_s, start},
                                  {u"clipOldRecordingStartTime"_s, start},
                                  {u"clipDuration"_s, 61},
                                  {u"clipOldDuration"_s, 61},
                                  {u"clipMarkerArray"_s, Array()}};
        QCOMPARE(written(u"Interview#01.xml"_s), expected);
        QCOMPARE(_destination.added.size(), 1U);
        QCOMPARE(_destination.added.front().record(), expected);
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void anEmptyNameWritesUntitled() {
        field<QLineEdit>(u"_defaultClipName"_s)->clear();
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QCOMPARE(written(u"Untitled#01.xml"_s).string(u"clipName"), u"Untitled#01.xml"_s);
    }

    void anEmptySceneIsStoredAsEmpty() {
        field<QLineEdit>(u"_defaultSceneName"_s)->clear();
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QCOMPARE(written(u"Clip#01.xml"_s).string(u"clipScene"), u""_s);
    }

    void namesChangedDuringTheTakeAreTakenAtItsStop() {
        OfflineRecorder::startRecording();
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Wide"_s);
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"Wide#01.xml"_s)));
    }

    void aFolderThatVanishedDoesNotStart() {
        _destination.folder = FolderRecord::forPath(path(u"gone"_s));
        OfflineRecorder::startRecording();
        QVERIFY(!OfflineRecorder::isRecording());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Recording destination folder not selected"_s);
        QCOMPARE(
            _dialogs->alerts[0].text,
            u"Please specify a folder to record to by clicking in the column on the left of your destination "
            "folder's name in the Clip Manager. When properly selected a red bulls-eye icon will appear to "
            "the left of the currently selected Project Folder."_s);
        QCOMPARE(_dialogs->alerts[0].buttons, QStringList{u"OK"_s});
    }

    void withoutAFolderNothingStarts() {
        _destination.folder.reset();
        OfflineRecorder::startRecording();
        QVERIFY(!OfflineRecorder::isRecording());
        QCOMPARE(_dialogs->alerts.size(), 1);
    }

    void aMarkerIsStoredWithItsTimeFromTheStart() {
        OfflineRecorder::startRecording();
        const Dictionary marker{{u"clipMarkerTitle"_s, u"Action"_s}, {u"clipMarkerIn"_s, 0.0}};
        fire(marker, dateByAdding(start, 3.25));
        const Dictionary early{{u"clipMarkerTitle"_s, u"early"_s}, {u"clipMarkerIn"_s, 0.0}};
        fire(early, dateByAdding(start, -0.5));
        QCOMPARE(marker.real(u"clipMarkerIn"), 3.25);
        OfflineRecorder::stopRecording();
        const Array markers = written(u"Clip#01.xml"_s).array(u"clipMarkerArray").value();
        QCOMPARE(markers.size(), 2);
        QCOMPARE(markers.at(0).dictionary()->real(u"clipMarkerIn"), 3.25);
        QCOMPARE(markers.at(1).dictionary()->real(u"clipMarkerIn"), -0.5);
        const Array handedOver = _destination.added.front().clipMarkerArray().value();
        QVERIFY(handedOver.at(0).dictionary()->isSame(marker));
    }

    void markersOutsideATakeAreNotTaken() {
        const Dictionary marker{{u"clipMarkerIn"_s, 0.0}};
        fire(marker, start);
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        fire(marker, dateByAdding(start, 9));
        QCOMPARE(marker.real(u"clipMarkerIn"), 0.0);
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QVERIFY(written(u"Clip#02.xml"_s).array(u"clipMarkerArray")->isEmpty());
    }

    void aTakeOf59AndNineTenthsLastsFiftyNineSeconds() {
        OfflineRecorder::startRecording();
        _clock->advance(59.9);
        OfflineRecorder::stopRecording();
        QCOMPARE(written(u"Clip#01.xml"_s).integer(u"clipDuration"), 59);
    }

    void choosingAnotherFolderDoesNotMoveTheTake() {
        const QTemporaryDir other;
        OfflineRecorder::startRecording();
        _destination.folder = FolderRecord::forPath(other.path());
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
        QVERIFY(QDir(other.path()).isEmpty());
    }

    void aFailedWriteIsToldAndTheRecorderGoesOn() {
        OfflineRecorder::startRecording();
        QVERIFY(QDir(_folder->path()).removeRecursively());
        OfflineRecorder::stopRecording();
        QVERIFY(!OfflineRecorder::isRecording());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Couldn't create Place Holder Clip"_s);
        QCOMPARE(_dialogs->alerts[0].text,
                 u"The place holder file couldn't be created. Please check your user permissions."_s);
        QVERIFY(_destination.added.empty());
        QVERIFY(QDir().mkpath(_folder->path()));
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
    }

    void aFullOrReadOnlyVolumeIsToldAndTheRecorderGoesOn_data() {
        QTest::addColumn<ErrorCode>("code");
        QTest::newRow("full") << ErrorCode::noSpace;
        QTest::newRow("read-only") << ErrorCode::readOnly;
        QTest::newRow("no permission") << ErrorCode::permissionDenied;
    }
    void aFullOrReadOnlyVolumeIsToldAndTheRecorderGoesOn() {
        QFETCH(const ErrorCode, code);
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        OfflineRecorder::startRecording();
        faulty.failFrom(1, code);
        OfflineRecorder::stopRecording();
        QVERIFY(!OfflineRecorder::isRecording());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Couldn't create Place Holder Clip"_s);
        QVERIFY(QDir(_folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        faulty.reset();
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
    }

    void theTakeFollowsItsFolderThatIsRenamed() {
        const QString place = path(u"day 1"_s);
        QVERIFY(QDir().mkdir(place));
        _destination.folder = FolderRecord::forPath(place);
        OfflineRecorder::startRecording();
        QVERIFY(QFile::rename(place, path(u"day 2"_s)));
        _destination.folder->setFolderPath(path(u"day 2"_s));
        _destination.folder.reset();
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"day 2/Clip#01.xml"_s)));
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void textThatNoFileCanHoldCostsItsCharactersAlone() {
        // None of these can be typed.
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"A\x01"_s);
        field<QLineEdit>(u"_defaultSceneName"_s)->setText(u"12\x02"_s);
        OfflineRecorder::startRecording();
        fire(Dictionary{{u"clipMarkerTitle"_s, u"Go\x03"_s}}, dateByAdding(start, 2));
        fire(Dictionary{{u"clipMarkerTitle"_s, u"Stay"_s}}, dateByAdding(start, 3));
        OfflineRecorder::stopRecording();
        const Dictionary clip = written(u"A\uFFFD#01.xml"_s);
        QCOMPARE(clip.string(u"clipName"), u"A\uFFFD#01.xml"_s);
        QCOMPARE(clip.string(u"clipScene"), u"12\uFFFD"_s);
        const Array markers = clip.array(u"clipMarkerArray").value();
        QCOMPARE(markers.at(0).dictionary()->string(u"clipMarkerTitle"), u"Go\uFFFD"_s);
        QCOMPARE(markers.at(0).dictionary()->real(u"clipMarkerIn"), 2.0);
        QCOMPARE(markers.at(1).dictionary()->string(u"clipMarkerTitle"), u"Stay"_s);
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void aNameThatNoFileCanHaveCostsNoTake_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("in another folder") << u"../x"_s;
        QTest::newRow("too long") << QString(300, u'a');
    }
    void aNameThatNoFileCanHaveCostsNoTake() {
        QFETCH(const QString, name);
        field<QLineEdit>(u"_defaultClipName"_s)->setText(name);
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QVERIFY(fileExists(path(u"Untitled#01.xml"_s)));
        QVERIFY(_dialogs->alerts.isEmpty());
    }

    void savedNamesThatCannotBeTypedAreNotRestored() {
        OfflineRecorder::finish();
        UserDefaults::standard().setValue(u"kOfflineRecorder"_s,
                                          Dictionary{{u"kOfflineRecorderClipName"_s, u"Int/Ext"_s},
                                                     {u"kOfflineRecorderSceneName"_s, u"Int/Ext"_s}});
        OfflineRecorder::init(_destination);
        QCOMPARE(field<QLineEdit>(u"_defaultClipName"_s)->text(), u"Clip"_s);
        QCOMPARE(field<QLineEdit>(u"_defaultSceneName"_s)->text(), u"Int/Ext"_s);
    }

    void theTakeNumberFollowsNameFolderAndTakes() {
        const auto* takeNo = field<QLabel>(u"_currentTakeNo"_s);
        QCOMPARE(takeNo->text(), u"1"_s);
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QCOMPARE(takeNo->text(), u"2"_s);
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Other"_s);
        OfflineRecorder::shared()->clipNameEntered();
        QCOMPARE(takeNo->text(), u"1"_s);
        _destination.folder.reset();
        Q_EMIT Notifications::centre().recordingFolderChanged();
        QCOMPARE(takeNo->text(), u"0"_s);
    }

    void theLightIsOnInTheHalfSecondAroundEachWholeOne() {
        const auto* button = field<QToolButton>(u"_recordButton"_s);
        OfflineRecorder::startRecording();
        const qint64 lit = button->icon().cacheKey();
        for (const auto& [seconds, isLit] :
             {std::pair(0.2, true), std::pair(0.3, false), std::pair(0.7, false), std::pair(0.8, true),
              std::pair(1.2, true), std::pair(1.3, false)}) {
            _clock->setNow(dateByAdding(start, seconds));
            OfflineRecorder::shared()->timerRecordAction();
            QCOMPARE(button->icon().cacheKey() == lit, isLit);
        }
    }

    void theShotClockRunsAndKeepsTheFinalTime() {
        const auto* shotClock = field<QLabel>(u"_shotClock"_s);
        QCOMPARE(shotClock->text(), u"00:00:00"_s);
        OfflineRecorder::startRecording();
        _clock->advance(3725.9);
        OfflineRecorder::shared()->timerRecordAction();
        QCOMPARE(shotClock->text(), u"01:02:05"_s);
        OfflineRecorder::stopRecording();
        OfflineRecorder::shared()->timerRecordAction();
        QCOMPARE(shotClock->text(), u"01:02:05"_s);
        OfflineRecorder::startRecording();
        QCOMPARE(shotClock->text(), u"00:00:00"_s);
    }

    void theButtonStartsAndStops() {
        auto* button = field<QToolButton>(u"_recordButton"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(OfflineRecorder::isRecording());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!OfflineRecorder::isRecording());
        QVERIFY(fileExists(path(u"Clip#01.xml"_s)));
    }

    void aTakeEnablesTheMarkerButtons() {
        const auto* markerButton = MarkerSets::window()->findChild<MarkerButton*>();
        QVERIFY(!markerButton->isEnabled());
        OfflineRecorder::startRecording();
        QVERIFY(markerButton->isEnabled());
        OfflineRecorder::stopRecording();
        QVERIFY(!markerButton->isEnabled());
    }

    void thePanelCannotBeClosedDuringATake() {
        OfflineRecorder::startRecording();
        OfflineRecorder::window()->close();
        QVERIFY(OfflineRecorder::window()->isVisible());
        QVERIFY(OfflineRecorder::isRecording());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Can't close Window"_s);
        QCOMPARE(_dialogs->alerts[0].text, u"Please stop recording before closing the window."_s);
        OfflineRecorder::stopRecording();
        OfflineRecorder::window()->close();
        QVERIFY(!OfflineRecorder::window()->isVisible());
    }

    void aClickIntoANameTakesAllOfItAndTheNextSetsTheCursor() {
        auto* name = field<QLineEdit>(u"_defaultClipName"_s);
        name->setText(u"Clip"_s);
        OfflineRecorder::window()->makeKeyAndOrderFront();
        QVERIFY(QTest::qWaitForWindowActive(OfflineRecorder::window()));
        const QPoint behindTheText(name->width() - 5, name->height() / 2);
        QTest::mouseClick(name, Qt::LeftButton, {}, behindTheText);
        QCOMPARE(name->selectedText(), u"Clip"_s);
        QTest::mouseClick(name, Qt::LeftButton, {}, behindTheText);
        QCOMPARE(name->selectedText(), QString());
        QTest::keyClicks(name, u"s"_s);
        QCOMPARE(name->text(), u"Clips"_s);
    }

    void aClickIntoANameOfAPanelThatIsNotActiveTakesAllOfIt() {
        auto* name = field<QLineEdit>(u"_defaultClipName"_s);
        name->setText(u"Clip"_s);
        OfflineRecorder::window()->makeKeyAndOrderFront();
        QVERIFY(QTest::qWaitForWindowActive(OfflineRecorder::window()));
        QCoreApplication::processEvents();
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTest::mouseClick(name, Qt::LeftButton, {}, QPoint(name->width() - 5, name->height() / 2));
        OfflineRecorder::window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(OfflineRecorder::window()));
        QCOMPARE(name->selectedText(), u"Clip"_s);
    }

    void aClickIntoTheFieldThatIsTypedIntoSetsTheCursor() {
        auto* scene = field<QLineEdit>(u"_defaultSceneName"_s);
        scene->setText(u"12"_s);
        OfflineRecorder::window()->makeKeyAndOrderFront();
        QVERIFY(QTest::qWaitForWindowActive(OfflineRecorder::window()));
        scene->setFocus();
        QTest::keyClick(scene, Qt::Key_A);
        QTest::mouseClick(scene, Qt::LeftButton, {}, QPoint(scene->width() - 5, scene->height() / 2));
        QCOMPARE(scene->selectedText(), QString());
    }

    void enteringANameGivesTheKeysBackToThePanel() {
        const DelayedCalls::HeldTime held;
        auto* name = field<QLineEdit>(u"_defaultClipName"_s);
        OfflineRecorder::window()->makeKeyAndOrderFront();
        QVERIFY(QTest::qWaitForWindowActive(OfflineRecorder::window()));
        name->setFocus();
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(name->hasFocus());
        DelayedCalls::elapse(OfflineRecorder::shared(), 0.9);
        QVERIFY(name->hasFocus());
        DelayedCalls::elapse(OfflineRecorder::shared(), 0.2);
        QVERIFY(!name->hasFocus());
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QVERIFY(OfflineRecorder::shared()->keyDown(tab));
        QVERIFY(name->hasFocus());
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QVERIFY(!OfflineRecorder::shared()->keyDown(letter));
        QVERIFY(!OfflineRecorder::shared()->keyDown(tab));
        OfflineRecorder::shared()->deferredSwitchFirstResponder();
        QKeyEvent tabWithShift(QEvent::KeyPress, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(OfflineRecorder::shared()->keyDown(tabWithShift));
        QVERIFY(name->hasFocus());
    }

    void namesAndVisibilitySurviveARestart() {
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Name"_s);
        field<QLineEdit>(u"_defaultSceneName"_s)->setText(u"7"_s);
        OfflineRecorder::window()->hide();
        restart();
        QCOMPARE(field<QLineEdit>(u"_defaultClipName"_s)->text(), u"Name"_s);
        QCOMPARE(field<QLineEdit>(u"_defaultSceneName"_s)->text(), u"7"_s);
        QVERIFY(!OfflineRecorder::window()->isVisible());
        const Dictionary saved = UserDefaults::standard().value(u"kOfflineRecorder"_s)->dictionary().value();
        QCOMPARE(saved, (Dictionary{{u"kOfflineRecorderWindowVisible"_s, false},
                                    {u"kOfflineRecorderClipName"_s, u"Name"_s},
                                    {u"kOfflineRecorderSceneName"_s, u"7"_s}}));
        QVERIFY(UserDefaults::standard().value(u"kOfflineRecorderWindowFrame"_s));
    }

    void atFirstItShowsClipAndScene() {
        QVERIFY(OfflineRecorder::window()->isVisible());
        QCOMPARE(field<QLineEdit>(u"_defaultClipName"_s)->text(), u"Clip"_s);
        QCOMPARE(field<QLineEdit>(u"_defaultSceneName"_s)->text(), u"Scene"_s);
    }

    void aNameTakenByAnotherProgramIsLeftToIt() {
        OfflineRecorder::startRecording();
        // A link to nowhere has the name, though nothing seems to exist there.
        QVERIFY(QFile::link(path(u"nowhere"_s), path(u"Clip#01.xml"_s)));
        QVERIFY(writeNewFile(path(u"Clip#02.xml"_s), "theirs"));
        OfflineRecorder::stopRecording();
        QCOMPARE(readFile(path(u"Clip#02.xml"_s)).value(), QByteArray("theirs"));
        QCOMPARE(written(u"Clip#03.xml"_s).string(u"clipName"), u"Clip#03.xml"_s);
    }

    void aCrashCostsNoNameAndNoPlace() {
        const auto saved = [](const QString& key) {
            return UserDefaults(UserDefaults::standard().path()).value(key);
        };
        auto* scene = field<QLineEdit>(u"_defaultSceneName"_s);
        scene->setText(u"12A"_s);
        Q_EMIT scene->editingFinished();
        QCOMPARE(saved(u"kOfflineRecorder"_s)->dictionary()->string(u"kOfflineRecorderSceneName"), u"12A"_s);
        OfflineRecorder::window()->resize(480, 240);
        QTRY_VERIFY(saved(u"kOfflineRecorderWindowFrame"_s)->string()->contains(u" 480 240"_s));
    }

    void withoutAPanelDescriptionThereIsNoRecorder() {
        OfflineRecorder::finish();
        WindowDescription::useFolder(path(u"no windows"_s));
        QTest::ignoreMessage(QtWarningMsg, "Couldn't instantiate OfflineRecorder nib");
        OfflineRecorder::init(_destination);
        QVERIFY(!OfflineRecorder::window());
        OfflineRecorder::startRecording();
        QVERIFY(!OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
    }
};

QTEST_MAIN(OfflineRecorderTest)
#include "OfflineRecorderTest.moc"
