// The recorder and its journal: what a crash in the middle of a take leaves behind, and in which order clip
// and journal come and go.
#include "platform/FaultyFileSystem.h"
#include "platform/PropertyListReader.h"
#include "recording/RecorderPanel.h"
#include "recording/TakeJournal.h"
#include "recording/TakeRecovery.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QTest>

#include <cstdio>

using namespace marquill;
using namespace std::chrono_literals;

namespace {

// 2026-11-21 09:00:00 UTC.
const Date start{std::chrono::duration<double>(1795251600.0)};
constexpr auto takeArgument = "--record-until-killed";

void fire(const QString& title, Date moment) {
    Q_EMIT Notifications::centre().newMarkerIssued(
        Dictionary{{u"clipMarkerTitle"_s, title}, {u"clipMarkerIn"_s, 0.0}}, moment);
}

bool written() {
    return OfflineRecorder::shared()->journal()->waitUntilWritten(60s);
}

// What the killed process does: a take with two markers, a sign of life, and then nothing more.
int recordUntilKilled(const QString& root) {
    registerRecorderWidgets();
    FakeClock clock(start);
    const RecorderWithJournal recorder(root);
    OfflineRecorder::window()->findChild<QLineEdit*>(u"_defaultClipName"_s)->setText(u"Harbour"_s);
    OfflineRecorder::startRecording();
    fire(u"Action"_s, dateByAdding(start, 2.5));
    clock.advance(63.7);
    OfflineRecorder::shared()->heartbeat();
    fire(u"Cut"_s, dateByAdding(start, 60));
    if (!written()) {
        return 1;
    }
    std::puts("recording");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

}  // namespace

class RecorderJournalTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<FakeClock> _clock;
    std::unique_ptr<RecorderWithJournal> _recorder;

    QString clip(const QString& name) const { return joinPath(_recorder->clips(), name); }

    template <class Widget>
    static Widget* field(const QString& name) {
        return OfflineRecorder::window()->findChild<Widget*>(name);
    }

  private Q_SLOTS:
    void initTestCase() { registerRecorderWidgets(); }

    void init() {
        _root = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        _clock = std::make_unique<FakeClock>(start);
        _recorder = std::make_unique<RecorderWithJournal>(_root->path());
    }

    void cleanup() {
        _recorder.reset();
        _clock.reset();
        _dialogs.reset();
    }

    void aTakeStandsInItsJournalFromTheStart() {
        QVERIFY(_recorder->journalNames().isEmpty());
        OfflineRecorder::startRecording();
        QVERIFY(written());
        QCOMPARE(_recorder->journal(),
                 "{\"marquillTake\":1,\"folder\":\"" + _recorder->clips().toUtf8() +
                     "\",\"name\":\"Clip\",\"scene\":\"Scene\",\"start\":1795251600}\n");
        OfflineRecorder::stopRecording();
    }

    // One of many, as other work on the machine slows single ones.
    void aMarkerIsInTheFileWithinATenthOfASecond() {
        OfflineRecorder::startRecording();
        QVERIFY(written());
        const QDeadlineTimer patience(60'000);
        qint64 quickest = std::numeric_limits<qint64>::max();
        for (int count = 1; quickest >= 100 && !patience.hasExpired(); ++count) {
            QElapsedTimer timer;
            timer.start();
            fire(u"Action"_s, dateByAdding(start, count));
            // No event is processed here: the file does not wait for the program to be idle.
            while (_recorder->journal().count("Action") < count && !patience.hasExpired()) {
                QTest::qSleep(1);
            }
            quickest = std::min(quickest, timer.elapsed());
        }
        QVERIFY2(quickest < 100, qPrintable(u"%1 ms"_s.arg(quickest)));
        OfflineRecorder::stopRecording();
    }

    void theHeartbeatNotesTimeAndWhatWasTyped() {
        OfflineRecorder::startRecording();
        _clock->advance(2);
        OfflineRecorder::shared()->heartbeat();
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Pier"_s);
        _clock->advance(2.5);
        OfflineRecorder::shared()->heartbeat();
        QVERIFY(written());
        QVERIFY(_recorder->journal().endsWith("\n{\"alive\":2}\n{\"name\":\"Pier\"}\n{\"alive\":4.5}\n"));
        OfflineRecorder::stopRecording();
    }

    void theHeartBeatsEveryTwoSecondsDuringATakeAlone() {
        OfflineRecorder::shared()->heartbeat();
        QVERIFY(written());
        QVERIFY(_recorder->journalNames().isEmpty());
        OfflineRecorder::startRecording();
        QTRY_VERIFY(_recorder->journal().contains("{\"alive\":0}\n"));
        OfflineRecorder::stopRecording();
    }

    void aStoppedTakeLeavesNoJournal() {
        OfflineRecorder::startRecording();
        fire(u"Action"_s, dateByAdding(start, 1));
        OfflineRecorder::stopRecording();
        QVERIFY(written());
        QCOMPARE(_recorder->clipNames(), QStringList{u"Clip#01.xml"_s});
        QVERIFY(_recorder->journalNames().isEmpty());
        QVERIFY(TakeRecovery::keptTakes(_recorder->journals()).empty());
    }

    void theJournalGoesOnlyWhenTheClipIsOnTheDisk() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        OfflineRecorder::startRecording();
        QVERIFY(written());
        OfflineRecorder::stopRecording();
        QVERIFY(written());
        const QStringList changes = faulty.changes();
        const qsizetype named = changes.indexOf(u"move "_s + clip(u"Clip#01.xml"_s));
        QVERIFY(named > 0);
        QVERIFY(changes.last().startsWith(u"removeFile "_s + _recorder->journals()));
        QVERIFY(named < changes.size() - 1);
        QCOMPARE(changes.filter(u"removeFile"_s).size(), 1);
    }

    void aTakeThatCannotBeWrittenKeepsItsJournal() {
        field<QLineEdit>(u"_defaultClipName"_s)->setText(u"Harbour"_s);
        OfflineRecorder::startRecording();
        fire(u"Action"_s, dateByAdding(start, 1.5));
        _clock->advance(8.25);
        QVERIFY(QDir(_recorder->clips()).removeRecursively());
        OfflineRecorder::stopRecording();
        QVERIFY(written());
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Couldn't create Place Holder Clip"_s);
        QVERIFY(_recorder->journal().endsWith("\n{\"stop\":8.25}\n"));
        const auto kept = TakeRecovery::keptTakes(_recorder->journals());
        QCOMPARE(kept.size(), 1U);
        QCOMPARE(kept[0].take.name, u"Harbour"_s);
        QCOMPARE(kept[0].take.elapsed, 8.25);
        QCOMPARE(kept[0].take.markers.size(), 1);
        // The next one goes well, and has a journal of its own.
        QVERIFY(QDir().mkpath(_recorder->clips()));
        OfflineRecorder::startRecording();
        OfflineRecorder::stopRecording();
        QVERIFY(written());
        QCOMPARE(_recorder->journalNames().size(), 1);
    }

    void aJournalThatCannotBeWrittenIsToldAndCostsNoTake() {
        // A file stands where the journals' folder is to be.
        QVERIFY(writeNewFile(_recorder->journals(), "in the way"));
        auto* warning = field<QLabel>(u"_recordWarning"_s);
        OfflineRecorder::startRecording();
        QTRY_VERIFY(warning->text().contains(u"A crash would cost this take"_s));
        QVERIFY(!warning->isHidden());
        QVERIFY(OfflineRecorder::isRecording());
        OfflineRecorder::stopRecording();
        QCOMPARE(_recorder->clipNames(), QStringList{u"Clip#01.xml"_s});
        QVERIFY(_dialogs->alerts.isEmpty());
        QTRY_VERIFY(warning->isHidden());
    }

    void anotherMarquillLeavesARunningTakeAlone() {
        OfflineRecorder::startRecording();
        QVERIFY(written());
        const auto outcome = TakeRecovery::recoverAll(_recorder->journals(), [] { return true; });
        QVERIFY(outcome.recovered.empty());
        QVERIFY(_recorder->clipNames().isEmpty());
        OfflineRecorder::stopRecording();
        QCOMPARE(_recorder->clipNames(), QStringList{u"Clip#01.xml"_s});
    }

    void aTakeWhoseProgramIsKilledIsRecovered() {
        const QTemporaryDir root;
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {QString::fromLatin1(takeArgument), root.path()});
        QByteArray output;
        while (!output.contains("recording") && program.waitForReadyRead(60'000)) {
            output += program.readAllStandardOutput();
        }
        QVERIFY2(output.contains("recording"), program.readAllStandardError().constData());
        const QString journals = joinPath(root.path(), u"takes"_s);
        const auto always = [] { return true; };
        // It lives, and has its take to itself.
        QVERIFY(TakeRecovery::recoverAll(journals, always).recovered.empty());
        program.kill();
        QVERIFY(program.waitForFinished(60'000));
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);

        const auto outcome = TakeRecovery::recoverAll(journals, always);
        QCOMPARE(outcome.recovered.size(), 1U);
        const Dictionary clip =
            readDictionaryFile(joinPath(root.path(), u"Day 1/Harbour#01.xml"_s)).value_or(Dictionary());
        QCOMPARE(clip.integer(u"clipDuration"), 63);
        QCOMPARE(clip.date(u"clipRecordingStartTime"), start);
        QCOMPARE(clip.string(u"clipScene"), u"Scene"_s);
        QCOMPARE(clip.string(u"clipComment"), u"Recovered take"_s);
        const Array markers = clip.array(u"clipMarkerArray").value();
        QCOMPARE(markers.size(), 2);
        QCOMPARE(markers.at(0).dictionary()->string(u"clipMarkerTitle"), u"Action"_s);
        QCOMPARE(markers.at(0).dictionary()->real(u"clipMarkerIn"), 2.5);
        QCOMPARE(markers.at(1).dictionary()->real(u"clipMarkerIn"), 60.0);
        QVERIFY(QDir(journals).isEmpty());
    }
};

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1StringView(takeArgument)) {
        return recordUntilKilled(arguments[2]);
    }
    RecorderJournalTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "RecorderJournalTest.moc"
