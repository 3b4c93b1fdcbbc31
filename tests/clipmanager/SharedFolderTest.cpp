// The window over a folder that others write too: what they write comes into the clip that is edited, what is
// being typed stays, and what both have changed is asked about.
#include "clipmanager/ClipConflicts.h"
#include "clipmanager/ClipManagerFixture.h"
#include "connect/ClipFolderWatch.h"
#include "markers/MarkerSets.h"
#include "platform/FloatingPanel.h"
#include "platform/NoticeBar.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"
#include "recording/OfflineRecorder.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace marquill;

class SharedFolderTest : public QObject {
    Q_OBJECT

  private:
    static inline const QString name = u"A#01.xml"_s;
    std::unique_ptr<ClipManagerFixture> _fixture;

    ClipManager& manager() { return *_fixture->manager; }
    ClipWriter& writer() { return _fixture->table().writer(); }
    QString comment() { return _fixture->outlet<QPlainTextEdit>(u"_commentView"_s).toPlainText(); }
    QString scene() { return _fixture->outlet<QLineEdit>(u"_clipSceneText"_s).text(); }
    QAbstractItemModel& markerRows() { return *_fixture->outlet<TableView>(u"_markerTable"_s).model(); }

    QList<NoticeBar*> notices() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return manager().window()->findChildren<NoticeBar*>();
    }

    static Dictionary marker(const QString& title, double in) {
        return Dictionary{{u"clipMarkerTitle"_s, title}, {u"clipMarkerIn"_s, in}};
    }

    // As another program does, which has read the clip just before.
    void change(const QString& clipName, const QString& key, const Value& value) const {
        const ClipInfo clip = _fixture->onDisk(clipName);
        Dictionary(clip.record()).set(key, value);
        QVERIFY(ClipStore::writeClipInfo(clip, _fixture->path(u"a"_s)));
    }

    void showClips() {
        _fixture->writeClip(
            name, {{u"clipComment"_s, u"old"_s}, {u"clipMarkerArray"_s, Array{marker(u"one"_s, 1)}}});
        _fixture->writeClip(u"B#01.xml"_s);
        _fixture->show();
        _fixture->select(name);
    }

    // Both have changed the comment, and this program has tried to save its own.
    void disagree() {
        showClips();
        manager().folderWatch().stop();
        change(name, ClipKey::clipComment, u"theirs"_s);
        manager().textDidChange(ClipKey::clipComment, u"mine"_s);
        manager().commentChanged();
        QCOMPARE(writer().conflicts().size(), std::size_t(1));
    }

  private Q_SLOTS:
    void initTestCase() { WindowDescription::registerWidget<FloatingPanel>(u"MainWindow"_s); }
    void init() { _fixture = std::make_unique<ClipManagerFixture>(); }
    void cleanup() {
        if (OfflineRecorder::isRecording()) {
            OfflineRecorder::stopRecording();
        }
        OfflineRecorder::finish();
        MarkerSets::finish();
        _fixture.reset();
    }

    void whatOthersWriteIsShownInTheFields() {
        showClips();
        change(name, ClipKey::clipScene, u"7"_s);
        QTRY_COMPARE_WITH_TIMEOUT(scene(), u"7"_s, 60'000);
        QVERIFY(manager().currentClip()->isSame(_fixture->clip(name)));
        QVERIFY(!manager().undoManager().canUndo());
    }

    void whatIsBeingTypedStaysAndBothAreSaved() {
        showClips();
        manager().textDidChange(ClipKey::clipComment, u"mine"_s);
        change(name, ClipKey::clipScene, u"7"_s);
        QTRY_COMPARE_WITH_TIMEOUT(scene(), u"7"_s, 60'000);
        QCOMPARE(_fixture->clip(name).clipComment(), u"mine"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(_fixture->onDisk(name).clipComment(), u"mine"_s);
        QCOMPARE(_fixture->onDisk(name).clipScene(), u"7"_s);
        QVERIFY(manager().undoManager().canUndo());
        manager().undo();
        QCOMPARE(_fixture->onDisk(name).clipComment(), u"old"_s);
        QCOMPARE(_fixture->onDisk(name).clipScene(), u"7"_s);
    }

    void lookingAtAClipWritesNothing() {
        showClips();
        change(name, ClipKey::clipScene, u"7"_s);
        QTRY_COMPARE_WITH_TIMEOUT(scene(), u"7"_s, 60'000);
        const Result<FileStamp> before = fileStamp(_fixture->path(u"a/A#01.xml"_s));
        _fixture->select(u"B#01.xml"_s);
        QVERIFY(fileStamp(_fixture->path(u"a/A#01.xml"_s)) == *before);
    }

    void markersOfOthersComeIntoTheList() {
        showClips();
        QCOMPARE(markerRows().rowCount(), 1);
        _fixture->outlet<TableView>(u"_markerTable"_s).selectRow(0);
        change(name, ClipKey::clipMarkerArray, Array{marker(u"one"_s, 1), marker(u"two"_s, 2)});
        QTRY_COMPARE_WITH_TIMEOUT(markerRows().rowCount(), 2, 60'000);
        QCOMPARE(_fixture->outlet<QLabel>(u"_markerCount"_s).text(), u"1 of 2 Markers Selected"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(_fixture->onDisk(name).clipMarkerArray()->size(), 2);
    }

    void theCurrentClipKeepsBeingItWhenOthersRenameIt() {
        showClips();
        const ClipInfo clip = *manager().currentClip();
        manager().textDidChange(ClipKey::clipScene, u"7"_s);
        QVERIFY(QFile::rename(_fixture->path(u"a/A#01.xml"_s), _fixture->path(u"a/Wide#01.xml"_s)));
        QTRY_VERIFY_WITH_TIMEOUT(_fixture->table().model().rowOfName(u"Wide#01.xml"_s) >= 0, 60'000);
        QVERIFY(manager().currentClip()->isSame(clip));
        QCOMPARE(_fixture->outlet<QLineEdit>(u"_clipNameText"_s).text(), u"Wide"_s);
        _fixture->select(u"B#01.xml"_s);
        QCOMPARE(_fixture->onDisk(u"Wide#01.xml"_s).clipScene(), u"7"_s);
        QVERIFY(!QFile::exists(_fixture->path(u"a/A#01.xml"_s)));
        QCOMPARE(notices().size(), 0);
    }

    void aClipThatIsGoneWithItsLastEditIsTold() {
        showClips();
        manager().textDidChange(ClipKey::clipComment, u"mine"_s);
        QVERIFY(QFile::remove(_fixture->path(u"a/A#01.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(_fixture->table().clipArray().size(), std::size_t(1), 60'000);
        QVERIFY(!manager().currentClip());
        QCOMPARE(notices().size(), 1);
        QVERIFY2(notices()[0]->text().startsWith(u"“A#01.xml” could not be saved: "_s),
                 qPrintable(notices()[0]->text()));
        QVERIFY(!QFile::exists(_fixture->path(u"a/A#01.xml"_s)));
        QVERIFY(!QFile::exists(_fixture->path(u"a/Trash/A#01.xml"_s)));
    }

    void aClipThatIsGoneUneditedIsNoNews() {
        showClips();
        QVERIFY(QFile::remove(_fixture->path(u"a/A#01.xml"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(_fixture->table().clipArray().size(), std::size_t(1), 60'000);
        QCOMPARE(notices().size(), 0);
        QVERIFY(!manager().currentClip());
    }

    void aQuestionIsAskedOnlyWhenTheNoticeIsPressed() {
        disagree();
        QTRY_COMPARE_WITH_TIMEOUT(notices().size(), 1, 60'000);
        QCOMPARE(notices()[0]->text(), u"Somebody else has changed “A#01.xml” too."_s);
        QCOMPARE(_fixture->dialogs.alerts.size(), 0);
        QCOMPARE(_fixture->onDisk(name).clipComment(), u"theirs"_s);
    }

    void theAnswerIsWrittenAndShown_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("comment");
        QTest::newRow("Keep Mine") << 0 << u"mine"_s;
        QTest::newRow("Take Theirs") << 1 << u"theirs"_s;
    }
    void theAnswerIsWrittenAndShown() {
        QFETCH(const int, answer);
        QFETCH(const QString, comment);
        disagree();
        QTRY_COMPARE_WITH_TIMEOUT(notices().size(), 1, 60'000);
        _fixture->dialogs.answers = {answer};
        notices()[0]->findChild<QPushButton*>()->click();
        QCOMPARE(_fixture->dialogs.alerts.size(), 1);
        QCOMPARE(_fixture->dialogs.alerts[0].title, u"Which changes of “A#01.xml” shall stay?"_s);
        QCOMPARE(_fixture->dialogs.alerts[0].text, u"Comment: yours is “mine”, theirs is “theirs”."_s);
        QCOMPARE(_fixture->dialogs.alerts[0].buttons,
                 (QStringList{u"Keep Mine"_s, u"Take Theirs"_s, u"Decide Later"_s}));
        QCOMPARE(_fixture->onDisk(name).clipComment(), comment);
        QCOMPARE(_fixture->clip(name).clipComment(), comment);
        QCOMPARE(this->comment(), comment);
        QTRY_COMPARE_WITH_TIMEOUT(notices().size(), 0, 60'000);
        QVERIFY(!writer().hasUnwritten());
    }

    void whoDecidesLaterIsAskedAtQuitting() {
        disagree();
        QTRY_COMPARE_WITH_TIMEOUT(notices().size(), 1, 60'000);
        _fixture->dialogs.answers = {2};
        notices()[0]->findChild<QPushButton*>()->click();
        QCOMPARE(_fixture->onDisk(name).clipComment(), u"theirs"_s);
        QVERIFY(writer().hasUnwritten());
        QCOMPARE(notices().size(), 0);
        QCOMPARE(writer().unwrittenText(),
                 u"“A#01.xml” could not be saved: Somebody else has changed it too."_s);
    }

    void nothingComesUpDuringATake() {
        MarkerSets::init();
        showClips();
        OfflineRecorder::init(manager());
        manager().recordingFolderChanged();
        OfflineRecorder::startRecording();
        QVERIFY(OfflineRecorder::isRecording());
        manager().folderWatch().stop();
        change(name, ClipKey::clipComment, u"theirs"_s);
        manager().textDidChange(ClipKey::clipComment, u"mine"_s);
        manager().commentChanged();
        QCOMPARE(writer().conflicts().size(), std::size_t(1));
        QTest::qWait(50);
        QCOMPARE(notices().size(), 0);
        OfflineRecorder::stopRecording();
        QTRY_COMPARE_WITH_TIMEOUT(notices().size(), 1, 60'000);
        QCOMPARE(_fixture->dialogs.alerts.size(), 0);
    }

    void theQuestionTellsEachKeyOnALine() {
        QCOMPARE(ClipConflicts::textFor({{ClipKey::clipRating, qint64(3), Value()},
                                         {ClipKey::clipMarkerArray, Array{1, 2}, Array{1}},
                                         {ClipKey::clipComment, QString(200, u'a'), u"b"_s},
                                         {u"future"_s, u"x"_s, u"y"_s}}),
                 u"Rating: yours is 3, theirs is nothing.\n"
                 "Markers: yours is 2 markers, theirs is 1 marker.\n"
                 "Comment: yours is “"_s +
                     QString(120, u'a') +
                     u"…”, theirs is “b”.\n"
                     "future: yours is “x”, theirs is “y”."_s);
    }

    void takesOfAnotherProgramComeIntoTheShownFolder() {
        showClips();
        _fixture->writeClip(u"C#01.xml"_s);
        QTRY_VERIFY_WITH_TIMEOUT(_fixture->table().model().rowOfName(u"C#01.xml"_s) >= 0, 60'000);
        QCOMPARE(manager().currentClip()->clipName(), name);
    }

    void aFolderThatIsLeftIsWatchedNoMore() {
        showClips();
        manager().folderList().selectFolder(_fixture->path(u"b"_s));
        QTRY_VERIFY(!manager().isReading());
        _fixture->writeClip(u"C#01.xml"_s);
        QVERIFY(writeFile(_fixture->path(u"b/D#01.xml"_s),
                          *writePropertyList(Dictionary{{u"clipName"_s, u"D#01.xml"_s}})));
        QTRY_VERIFY_WITH_TIMEOUT(_fixture->table().model().rowOfName(u"D#01.xml"_s) >= 0, 60'000);
        QCOMPARE(_fixture->table().clipArray().size(), std::size_t(1));
    }
};

QTEST_MAIN(SharedFolderTest)
#include "SharedFolderTest.moc"
