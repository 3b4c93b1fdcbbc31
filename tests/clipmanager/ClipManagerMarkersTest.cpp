#include "clipmanager/ClipManagerFixture.h"
#include "clipmanager/DayStrip.h"
#include "clipstore/Notifications.h"
#include "connect/MoviePreview.h"
#include "markers/MarkerSets.h"
#include "platform/FakeClock.h"
#include "platform/FloatingPanel.h"
#include "platform/MovieMaker.h"
#include "platform/UndoManager.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"

#include <QPushButton>
#include <QTableView>

using namespace marquill;

// The current clip's marker list, in the window.
class ClipManagerMarkersTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<MovieMaker> _maker;
    std::unique_ptr<ClipManagerFixture> _fixture;

    ClipManager& manager() { return *_fixture->manager; }
    MoviePreview& preview() { return _fixture->outlet<MoviePreview>(u"_moviePreview"_s); }
    void press(const QString& button) { _fixture->outlet<QPushButton>(button).click(); }
    int rows() { return _fixture->outlet<QTableView>(u"_markerTable"_s).model()->rowCount(); }

    static Dictionary marker(const QString& title, double in) {
        return Dictionary{{u"clipMarkerTitle"_s, title}, {u"clipMarkerIn"_s, in}};
    }

    static QStringList titles(const ClipInfo& clip) {
        QStringList titles;
        for (const Value& value : clip.clipMarkerArray().value_or(Array()).values()) {
            titles.append(Marker(*value.dictionary()).title().value_or(QString()));
        }
        return titles;
    }

    // A connected placeholder, its movie loaded.
    void showPlayable() {
        _fixture->writeClip(u"A#01.xml"_s,
                            {{u"clipPath"_s, _maker->makeShades(u"25.mov"_s, u"25"_s, 2)},
                             {u"clipMarkerArray"_s, Array{marker(u"first"_s, 0.5), marker(u"second"_s, 1)}}});
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        QTRY_VERIFY(preview().isLoaded());
    }

    static bool buttonsAreEnabled() { return MarkerSets::controller()->buttons().front()->isEnabled(); }

    static void fire(const QString& title) {
        Q_EMIT Notifications::centre().newMarkerIssued(marker(title, 0), Date());
    }

  private Q_SLOTS:
    void initTestCase() {
        _maker = std::make_unique<MovieMaker>();
        WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s);
    }
    void cleanupTestCase() { _maker.reset(); }
    void init() { _fixture = std::make_unique<ClipManagerFixture>(); }
    void cleanup() {
        if (OfflineRecorder::isRecording()) {
            OfflineRecorder::stopRecording();
        }
        OfflineRecorder::finish();
        MarkerSets::finish();
        _fixture.reset();
    }

    void listShowsTheClipsMarkersAndNoneWithoutAClip() {
        showPlayable();
        QCOMPARE(rows(), 2);
        QCOMPARE(_fixture->outlet<QLabel>(u"_markerCount"_s).text(), u"0 of 2 Markers Selected"_s);
        QVERIFY(_fixture->outlet<QPushButton>(u"_addMarkerButton"_s).isEnabled());
        _fixture->table().deselectAll();
        QCOMPARE(rows(), 0);
        for (const QString& button :
             {u"_addMarkerButton"_s, u"_deleteMarkerButton"_s, u"_setStartButton"_s, u"_setStopButton"_s}) {
            QVERIFY2(!_fixture->outlet<QPushButton>(button).isEnabled(), qPrintable(button));
        }
    }

    void clipWithoutMarkersGetsNoneByBeingLookedAt() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        _fixture->table().deselectAll();
        QVERIFY(!_fixture->clip(u"A#01.xml"_s).clipMarkerArray());
    }

    void firedMarkerLandsInTheListAtTheCurrentTime() {
        showPlayable();
        fire(u"Good"_s);
        QCOMPARE(titles(*manager().currentClip()), QStringList({u"first"_s, u"second"_s, u"Good"_s}));
        QTRY_COMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)).size(), 3);
        manager().undoManager().undo();
        QCOMPARE(titles(*manager().currentClip()), QStringList({u"first"_s, u"second"_s}));
        _fixture->table().deselectAll();
        fire(u"Late"_s);
        QCOMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)), QStringList({u"first"_s, u"second"_s}));
        QVERIFY(!manager().undoManager().canUndo());
    }

    void firedMarkerPassesAClipThatDoesNotPlay() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        QTRY_COMPARE(_fixture->message(), u"Clip not connected"_s);
        fire(u"Good"_s);
        QCOMPARE(rows(), 0);
    }

    void inReplacesEveryInMarkerInOneStep() {
        showPlayable();
        press(u"_inButton"_s);
        manager().undoManager().closeStep();
        press(u"_inButton"_s);
        press(u"_outButton"_s);
        QCOMPARE(titles(*manager().currentClip()), QStringList({u"first"_s, u"second"_s, u"In"_s, u"Out"_s}));
    }

    void stepsInTheListAreForgottenWhenTheClipIsLeft() {
        showPlayable();
        press(u"_addMarkerButton"_s);
        manager().undoManager().closeStep();
        QCOMPARE(manager().undoManager().undoActionName(), u"add Marker(s)"_s);
        _fixture->table().deselectAll();
        QVERIFY(!manager().undoManager().canUndo());
        QVERIFY(!manager().undoManager().canRedo());
        QCOMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)),
                 QStringList({u"first"_s, u"second"_s, u"Untitled"_s}));
    }

    void inWorksForAPlaceholderThatIsNotConnected() {
        _fixture->writeClip(u"A#01.xml"_s);
        _fixture->show();
        _fixture->select(u"A#01.xml"_s);
        press(u"_inButton"_s);
        QCOMPARE(titles(*manager().currentClip()), QStringList(u"In"_s));
        _fixture->table().deselectAll();
        QCOMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)), QStringList(u"In"_s));
    }

    void selectedMarkerMovesThePreview() {
        showPlayable();
        _fixture->outlet<QTableView>(u"_markerTable"_s).selectRow(1);
        QTRY_COMPARE(preview().currentTime().value / preview().currentTime().timeScale, 1);
    }

    // The real-time markers

    void markerButtonsAreEnabledWhileAMovieIsShown() {
        MarkerSets::init();
        QVERIFY(!buttonsAreEnabled());
        showPlayable();
        QTRY_VERIFY(buttonsAreEnabled());
        _fixture->table().deselectAll();
        QVERIFY(!buttonsAreEnabled());
    }

    void takesMarkersAreTheRecordersWhateverIsSelected() {
        MarkerSets::init();
        showPlayable();
        OfflineRecorder::init(manager());
        manager().recordingFolderChanged();
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
        QVERIFY(buttonsAreEnabled());
        fire(u"Take"_s);
        QCOMPARE(rows(), 2);
        _fixture->table().deselectAll();
        QVERIFY(buttonsAreEnabled());
        manager().timerAction();
        QVERIFY(buttonsAreEnabled());
        _fixture->select(u"A#01.xml"_s);
        QTest::qWait(50);
        fire(u"Take"_s);
        QCOMPARE(rows(), 2);
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        OfflineRecorder::stopRecording();
        QVERIFY(!buttonsAreEnabled());
        QStringList names = ClipStore::getClipsForFolder(_fixture->path(u"a"_s));
        names.removeAll(u"A#01.xml"_s);
        QCOMPARE(names.size(), 1);
        QCOMPARE(titles(_fixture->onDisk(names[0])), QStringList({u"Take"_s, u"Take"_s}));
    }

    void endOfATakeLeavesTheButtonsToTheClipShown() {
        QVERIFY(QDir(_fixture->path(u"b"_s)).exists());
        MarkerSets::init();
        showPlayable();
        QTRY_VERIFY(buttonsAreEnabled());
        manager().folderList().setRecordingFolder(manager().folderList().folderArray()[1]);
        OfflineRecorder::init(manager());
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QVERIFY(manager().currentClip());
        QVERIFY(buttonsAreEnabled());
    }

    void theTakeInProgressStandsInTheDayTimeline() {
        FakeClock clock;
        MarkerSets::init();
        _fixture->writeClip(u"A#01.xml"_s, {{u"clipCreationDate"_s, dateByAdding(clock.now(), -300)},
                                            {u"clipDuration"_s, 60}});
        _fixture->show();
        OfflineRecorder::init(manager());
        manager().recordingFolderChanged();
        auto& strip = _fixture->outlet<DayStrip>(u"_dayStrip"_s);
        QTRY_COMPARE(strip.timeline().takes().size(), std::size_t{1});
        OfflineRecorder::startRecording();
        clock.advance(90);
        manager().timerAction();
        QVERIFY(!strip.view().progressRect().isEmpty());
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QVERIFY(strip.view().progressRect().isEmpty());
        manager().folderList().selectFolder(_fixture->path(u"a"_s));
        QTRY_COMPARE(strip.timeline().takes().size(), std::size_t{1});
        QVERIFY(!strip.view().progressRect().isEmpty());
        OfflineRecorder::stopRecording();
        QVERIFY(strip.view().progressRect().isEmpty());
        QTRY_COMPARE(strip.timeline().takes().size(), std::size_t{2});
        QCOMPARE(strip.timeline().takes()[1].duration, 90.0);
        QTRY_COMPARE(strip.view().spokenPlace(), 2);
    }

    // A click fires a second later; what it was meant for may be over by then.
    void markerClickedAtTheEndOfATakeIsTheTakesAndNotTheClipsShown() {
        MarkerSets::init();
        showPlayable();
        QTRY_VERIFY(buttonsAreEnabled());
        manager().folderList().setRecordingFolder(manager().folderList().folderArray()[1]);
        OfflineRecorder::init(manager());
        OfflineRecorder::startRecording();
        QTest::mouseClick(MarkerSets::controller()->buttons().front(), Qt::LeftButton);
        OfflineRecorder::stopRecording();
        QTest::qWait(1200);
        QCOMPARE(rows(), 2);
        const QStringList takes = ClipStore::getClipsForFolder(_fixture->path(u"b"_s));
        QCOMPARE(takes.size(), 1);
        QCOMPARE(titles(_fixture->onDisk(u"../b/"_s + takes[0])).size(), 1);
    }

    void markerClickedJustBeforeTheClipIsLeftIsItsOwn() {
        MarkerSets::init();
        showPlayable();
        QTRY_VERIFY(buttonsAreEnabled());
        QTest::mouseClick(MarkerSets::controller()->buttons().front(), Qt::LeftButton);
        _fixture->table().deselectAll();
        QCOMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)).size(), 3);
        QTest::qWait(1200);
        QCOMPARE(titles(_fixture->onDisk(u"A#01.xml"_s)).size(), 3);
    }
};

QTEST_MAIN(ClipManagerMarkersTest)
#include "ClipManagerMarkersTest.moc"
