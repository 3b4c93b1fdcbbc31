// marquill record from a pipe: digits and line ends, and every way that a take can end.
#include "clipstore/ClipStore.h"
#include "commandline/CommandRun.h"
#include "markers/Marker.h"
#include "platform/Files.h"
#include "recording/TakeRecovery.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/types.h>

#include <csignal>
#include <memory>

using namespace marquill;

namespace {

constexpr int patience = 60'000;  // milliseconds

constexpr auto settingsText = R"(<plist><dict>
<key>kMarkerSets</key><dict>
 <key>kMarkerSetArray</key><array>
  <dict><key>kMarkerSetTitle</key><string>Default Set</string><key>kMarkerID</key><integer>1</integer>
   <key>kMarkerArray</key><array/></dict>
  <dict><key>kMarkerSetTitle</key><string>Interview</string><key>kMarkerID</key><integer>2</integer>
   <key>kMarkerArray</key><array><string>Question</string><string>Action</string><string></string></array></dict>
  <dict><key>kMarkerSetTitle</key><string>Sport</string><key>kMarkerID</key><integer>3</integer>
   <key>kMarkerArray</key><array><string>Goal</string></array></dict>
 </array>
 <key>kMarkerCurrSet</key><integer>2</integer>
</dict>
<key>kOfflineRecorder</key><dict>
 <key>kOfflineRecorderClipName</key><string>Court</string>
 <key>kOfflineRecorderSceneName</key><string>4</string>
</dict>
</dict></plist>)";

}  // namespace

class RecordCommandTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;
    QString _folder;
    QString _settings;

    QString clipPath(const QString& name) const { return joinPath(_folder, name); }
    ClipInfo clip(const QString& name) const {
        return ClipStore::infoForClip(clipPath(name)).value_or(ClipInfo());
    }
    QStringList markerTitles(const QString& name) const {
        QStringList titles;
        const Array markers = clip(name).clipMarkerArray().value_or(Array());
        for (const Value& marker : markers.values()) {
            titles.append(Marker(marker.dictionary().value_or(Dictionary())).title().value_or(u"none"_s));
        }
        return titles;
    }
    Outcome record(const QStringList& more, const QByteArray& input) const {
        return run(QStringList{u"record"_s, _folder} + more, input);
    }
    QStringList journals() const {
        return QDir(_settings + u".state/takes"_s).entryList(QDir::Files | QDir::Hidden);
    }
    // Starts a take whose input stays open, and waits until it runs.
    std::unique_ptr<QProcess> start(const QStringList& more = {}) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(shellEnvironment());
        process->start(QStringLiteral(MARQUILL_PROGRAM), QStringList{u"record"_s, _folder} + more);
        waitForText(*process, "Recording ");
        return process;
    }
    // Waits until the take has told this, whatever else it has told before.
    static void waitForText(QProcess& process, const QByteArray& text) {
        QByteArray told;
        while (!told.contains(text) && process.waitForReadyRead(patience)) {
            told += process.readAllStandardOutput();
        }
        QVERIFY2(told.contains(text), told);
    }
    // Whether the journal of the take that is running says so.
    bool journalSays(const QByteArray& text) const {
        const QStringList names = journals();
        const QString folder = _settings + u".state/takes"_s;
        return names.size() == 1 &&
               readFile(joinPath(folder, names[0])).value_or(QByteArray()).contains(text);
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _folder = joinPath(_place->path(), u"Day 1"_s);
        _settings = joinPath(_place->path(), u"settings.plist"_s);
        QVERIFY(makeFolders(_folder));
        QVERIFY(writeFile(_settings, settingsText));
    }

    void digitsFireAndALineEndStops() {
        const Outcome record = this->record({u"--name"_s, u"Wide"_s, u"--scene"_s, u"12A"_s}, "1x0\n5");
        QCOMPARE(record.errors, QByteArray());
        QCOMPARE(record.status, 0);
        QVERIFY2(record.output.startsWith("Recording Wide#01, take 1, into " + _folder.toUtf8() + '\n'),
                 record.output);
        // Whole seconds; how many depends on when the program gets to what is typed.
        const QRegularExpression told(
            u"\n00:00:\\d\\d  untitled \\(1\\)\n00:00:\\d\\d  untitled \\(0\\)\n"
            "00:00:(\\d\\d)  %1\n$"_s.arg(QRegularExpression::escape(clipPath(u"Wide#01.xml"_s))));
        const QRegularExpressionMatch match = told.match(QString::fromUtf8(record.output));
        QVERIFY2(match.hasMatch(), record.output);
        QCOMPARE(markerTitles(u"Wide#01.xml"_s), (QStringList{u"untitled (1)"_s, u"untitled (0)"_s}));
        const ClipInfo clip = this->clip(u"Wide#01.xml"_s);
        QStringList keys;
        for (const Dictionary::Entry& entry : clip.record().entries()) {
            keys.append(entry.key);
        }
        keys.sort();
        // Those that the recorder's panel writes, and no others.
        QCOMPARE(keys, (QStringList{u"clipCreationDate"_s, u"clipDuration"_s, u"clipMarkerArray"_s,
                                    u"clipName"_s, u"clipOldDuration"_s, u"clipOldRecordingStartTime"_s,
                                    u"clipRecordingStartTime"_s, u"clipScene"_s}));
        QCOMPARE(clip.clipScene(), std::optional(u"12A"_s));
        QCOMPARE(clip.clipCreationDate(), clip.clipRecordingStartTime());
        QCOMPARE(clip.clipDuration(), std::optional<qint64>(match.captured(1).toInt()));
    }

    void aMarkerHasItsTimeAndTheKeysOfAFiredOne() {
        QElapsedTimer timer;
        timer.start();
        const std::unique_ptr<QProcess> process = start();
        QTest::qSleep(1200);
        process->write("2");
        waitForText(*process, "untitled (2)");
        const double latest = static_cast<double>(timer.elapsed()) / 1000;
        process->write("\n");
        QVERIFY(process->waitForFinished(patience));
        const ClipInfo clip = this->clip(u"Clip#01.xml"_s);
        const Marker marker(clip.clipMarkerArray().value_or(Array{Dictionary()}).at(0).dictionary().value());
        QCOMPARE(marker.title(), std::optional(u"untitled (2)"_s));
        QVERIFY2(marker.in() > 1.0 && marker.in() <= latest, "the marker's time");
        QCOMPARE(marker.dur(), std::optional(0.0));
        QCOMPARE(marker.comment(), std::optional(QString()));
        QCOMPARE(marker.tags().value_or(Dictionary{{u"x"_s, 1}}).entries().size(), 0);
        QVERIFY(clip.clipDuration().value_or(0) >= 1);
    }

    void escapeStops() {
        QCOMPARE(record({}, "1\x1b").status, 0);
        QCOMPARE(markerTitles(u"Clip#01.xml"_s), QStringList{u"untitled (1)"_s});
    }

    void theEndOfTheInputStops() {
        QCOMPARE(record({}, "7").status, 0);
        QCOMPARE(markerTitles(u"Clip#01.xml"_s), QStringList{u"untitled (7)"_s});
        QCOMPARE(record({}, "").status, 0);
        QCOMPARE(markerTitles(u"Clip#02.xml"_s), QStringList());
    }

    void arrowKeysDoNotStopAndADigitWithAltFires() {
        QCOMPARE(record({},
                        "\x1b[A1\x1b[1;5C2\x1bOP\x1b"
                        "3\n")
                     .status,
                 0);
        QCOMPARE(markerTitles(u"Clip#01.xml"_s),
                 (QStringList{u"untitled (1)"_s, u"untitled (2)"_s, u"untitled (3)"_s}));
    }

    void aSignalStopsAndTheTakeIsWritten_data() {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGHUP") << SIGHUP;
    }
    void aSignalStopsAndTheTakeIsWritten() {
        QFETCH(const int, signal);
        const std::unique_ptr<QProcess> process = start();
        process->write("4");
        waitForText(*process, "untitled (4)");
        QCOMPARE(::kill(static_cast<pid_t>(process->processId()), signal), 0);
        QVERIFY(process->waitForFinished(patience));
        QCOMPARE(process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(process->exitCode(), 0);
        QCOMPARE(markerTitles(u"Clip#01.xml"_s), QStringList{u"untitled (4)"_s});
    }

    void aReaderThatGoesAwayCostsNoTake() {
        const std::unique_ptr<QProcess> process = start({u"--settings"_s, _settings});
        process->closeReadChannel(QProcess::StandardOutput);
        process->write("1");
        QTRY_VERIFY(journalSays("Question"));
        process->write("2\n");
        QVERIFY(process->waitForFinished(patience));
        QCOMPARE(process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(markerTitles(u"Court#01.xml"_s), (QStringList{u"Question"_s, u"Action"_s}));
    }

    void nameSceneAndSetAreThoseOfTheSettings() {
        const Outcome record = this->record({u"--settings"_s, _settings}, "1234\n");
        QCOMPARE(record.errors, QByteArray());
        QCOMPARE(markerTitles(u"Court#01.xml"_s),
                 (QStringList{u"Question"_s, u"Action"_s, u""_s, u"untitled (4)"_s}));
        QCOMPARE(clip(u"Court#01.xml"_s).clipScene(), std::optional(u"4"_s));
        const Marker action(clip(u"Court#01.xml"_s).clipMarkerArray()->at(1).dictionary().value());
        QCOMPARE(action.tag(markerTagIn), std::optional(Value(true)));
        QCOMPARE(readFile(_settings).value_or(QByteArray()), QByteArray(settingsText));
    }

    void anotherSetCanBeNamed() {
        QCOMPARE(record({u"--settings"_s, _settings, u"--marker-set"_s, u"Sport"_s}, "1\n").status, 0);
        QCOMPARE(markerTitles(u"Court#01.xml"_s), QStringList{u"Goal"_s});
    }

    void aSetThatIsNotThereIsRefusedWithThoseThatAre() {
        const Outcome record =
            this->record({u"--settings"_s, _settings, u"--marker-set"_s, u"Chess"_s}, "1\n");
        QCOMPARE(record.status, 1);
        QCOMPARE(
            record.errors,
            QByteArray(
                "marquill: no marker set is called \"Chess\"; there are: Default Set, Interview, Sport\n"));
        QCOMPARE(ClipStore::getClipsForFolder(_folder), QStringList());
    }

    void theNextFreeTakeIsTold() {
        QVERIFY(writeFile(clipPath(u"Clip#01.xml"_s), "taken"));
        const Outcome record = this->record({}, "\n");
        QVERIFY2(record.output.startsWith("Recording Clip#02, take 2, "), record.output);
        QVERIFY(fileExists(clipPath(u"Clip#02.xml"_s)));
        QCOMPARE(readFile(clipPath(u"Clip#01.xml"_s)).value_or(QByteArray()), QByteArray("taken"));
    }

    void aNameThatNoFileCanHaveCostsNoTake() {
        const Outcome record = this->record({u"--name"_s, u"a/b"_s}, "1\n");
        QCOMPARE(record.status, 0);
        QCOMPARE(markerTitles(u"Untitled#01.xml"_s), QStringList{u"untitled (1)"_s});
    }

    void aMissingFolderIsToldBeforeTheTake() {
        const QString gone = joinPath(_place->path(), u"gone"_s);
        const Outcome record = run({u"record"_s, gone}, "1\n");
        QCOMPARE(record.status, 1);
        QCOMPARE(record.output, QByteArray());
        QVERIFY2(record.errors.startsWith("marquill: " + gone.toUtf8() + ": "), record.errors);
    }

    void aJournalStandsForTheTakeUntilItIsWritten() {
        const std::unique_ptr<QProcess> process = start({u"--settings"_s, _settings});
        process->write("1");
        QTRY_VERIFY(!journals().isEmpty());
        process->write("\n");
        QVERIFY(process->waitForFinished(patience));
        QVERIFY(fileExists(clipPath(u"Court#01.xml"_s)));
        QCOMPARE(journals(), QStringList());
    }

    void aTakeThatIsKilledCanBeRecovered() {
        const std::unique_ptr<QProcess> process = start({u"--settings"_s, _settings});
        process->write("1");
        QTRY_VERIFY(journalSays("Question"));
        const auto hasMarker = [this] {
            const std::vector<TakeRecovery::KeptTake> kept =
                TakeRecovery::keptTakes(_settings + u".state/takes"_s);
            return kept.size() == 1 && kept[0].take.markers.size() == 1;
        };
        process->kill();
        QVERIFY(process->waitForFinished(patience));
        QTRY_VERIFY(hasMarker());
        TakeRecovery::recoverAll(_settings + u".state/takes"_s, [] { return true; });
        QCOMPARE(markerTitles(u"Court#01.xml"_s), QStringList{u"Question"_s});
    }

    void aTakeThatCannotBeWrittenFailsInTheWindowsWords() {
        const std::unique_ptr<QProcess> process = start({u"--settings"_s, _settings});
        QVERIFY(removeAll(_folder));
        process->write("\n");
        QVERIFY(process->waitForFinished(patience));
        QCOMPARE(process->exitCode(), 1);
        QVERIFY(
            process->readAllStandardError().endsWith("marquill: Couldn't create Place Holder Clip: The place "
                                                     "holder file couldn't be created. Please check "
                                                     "your user permissions.\n"));
        QCOMPARE(journals().size(), 1);
    }
};

QTEST_GUILESS_MAIN(RecordCommandTest)
#include "RecordCommandTest.moc"
