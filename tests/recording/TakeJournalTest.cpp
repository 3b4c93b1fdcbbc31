// The journal of a take: its bytes, what is read of damaged ones, and the file that grows line by line.
#include "markers/Marker.h"
#include "platform/FaultyFileSystem.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/ForwardingFileSystem.h"
#include "recording/TakeJournal.h"
#include "recording/TakeJournalFile.h"
#include "recording/TakeJournalFormat.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>

using namespace marquill;
using namespace std::chrono_literals;

namespace {

// The example of docs/formats/journal.md, as far as it is whole.
const QByteArray startLine =
    R"({"marquillTake":1,"folder":"/media/card/Day 1","name":"Harbour","scene":"12A","start":1795251600.25})"
    "\n";
const QByteArray actionLine =
    R"({"at":2.5,"marker":{"clipMarkerComment":"","clipMarkerDur":0,"clipMarkerIn":2.5,)"
    R"("clipMarkerTags":{"in":true},"clipMarkerTitle":"Action"}})"
    "\n";
const QByteArray aliveLine = "{\"alive\":4}\n";
const QByteArray cutLine =
    R"({"at":5.125,"marker":{"clipMarkerComment":"","clipMarkerDur":0,"clipMarkerIn":5.125,)"
    R"("clipMarkerTags":{},"clipMarkerTitle":"Cut"}})"
    "\n";

TakeRecord harbour() {
    return {.name = u"Harbour"_s,
            .scene = u"12A"_s,
            .folder = u"/media/card/Day 1"_s,
            .start = Date(std::chrono::duration<double>(1795251600.25)),
            .elapsed = 0,
            .markers = {},
            .comment = {}};
}

Dictionary marker(const QString& title, double in, const Dictionary& tags = {}) {
    return {{clipMarkerTitle, title},
            {clipMarkerIn, in},
            {clipMarkerDur, 0.0},
            {clipMarkerComment, u""_s},
            {clipMarkerTags, tags}};
}

TakeRecord takeOf(const QByteArray& bytes) {
    return TakeJournalFormat::read(bytes).value_or(TakeJournalFormat::Journal{}).take;
}

Dictionary markerOf(const QByteArray& line) {
    const Array markers = takeOf(startLine + line).markers;
    return markers.isEmpty() ? Dictionary() : markers.at(0).dictionary().value_or(Dictionary());
}

bool isReal(const Dictionary& record, const QString& key) {
    return std::holds_alternative<double>(record.find(key)->variant());
}

// A disk whose syncs do not return until they may, and whose writes take their time.
class SlowDisk final : public ForwardingFileSystem {
  public:
    static constexpr std::chrono::milliseconds writeTime = TakeJournal::patience / 10;

    bool isWaiting() const { return _isWaiting; }
    void goOn() { _mayGoOn.test_and_set(), _mayGoOn.notify_all(); }

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        auto file = system().open(path, mode);
        if (!file) {
            return std::unexpected(file.error());
        }
        return std::make_unique<File>(*this, *std::move(file));
    }

  private:
    class File final : public ForwardingFile {
      public:
        File(SlowDisk& disk, std::unique_ptr<OpenFile> file) : ForwardingFile(std::move(file)), _disk(disk) {}
        Result<void> write(qint64 offset, QByteArrayView bytes) override {
            std::this_thread::sleep_for(writeTime);
            return ForwardingFile::write(offset, bytes);
        }
        Result<void> sync() override {
            _disk._isWaiting = true;
            _disk._mayGoOn.wait(false);
            _disk._isWaiting = false;
            return ForwardingFile::sync();
        }

      private:
        SlowDisk& _disk;
    };

    std::atomic<bool> _isWaiting = false;
    std::atomic_flag _mayGoOn;
};

}  // namespace

class TakeJournalTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;

    QString folder() const { return joinPath(_folder->path(), u"state/takes"_s); }
    QStringList names() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QByteArray content() const {
        const QStringList all = names();
        return all.size() == 1 ? readFile(joinPath(folder(), all.front())).value_or(QByteArray())
                               : QByteArray();
    }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<QTemporaryDir>(); }

    // The bytes

    void linesAreThoseOfTheFormat() {
        QCOMPARE(TakeJournalFormat::startLine(harbour()), startLine);
        QCOMPARE(TakeJournalFormat::markerLine(marker(u"Action"_s, 2.5, {{u"in"_s, true}}), 2.5), actionLine);
        QCOMPARE(TakeJournalFormat::aliveLine(4), aliveLine);
        QCOMPARE(TakeJournalFormat::markerLine(marker(u"Cut"_s, 5.125), 5.125), cutLine);
        QCOMPARE(TakeJournalFormat::stopLine(61.5), QByteArray("{\"stop\":61.5}\n"));
    }

    void onlyWhatHasChangedIsNoted() {
        TakeRecord now = harbour();
        QCOMPARE(TakeJournalFormat::changeLine(harbour(), now), QByteArray());
        now.name = u"Pier"_s;
        now.folder = u"/media/card/Day 2"_s;
        QCOMPARE(TakeJournalFormat::changeLine(harbour(), now),
                 QByteArray("{\"folder\":\"/media/card/Day 2\",\"name\":\"Pier\"}\n"));
        QCOMPARE(takeOf(startLine + "{\"folder\":\"/b\",\"name\":\"Pier\",\"scene\":\"\"}\n").name,
                 u"Pier"_s);
        QCOMPARE(takeOf(startLine + "{\"folder\":\"/b\"}\n").folder, u"/b"_s);
        QCOMPARE(takeOf(startLine + "{\"scene\":\"\"}\n").scene, u""_s);
    }

    void aJournalIsReadBack() {
        const auto journal = TakeJournalFormat::read(startLine + actionLine + aliveLine + cutLine + "{\"ali");
        QVERIFY(journal);
        QVERIFY(!journal->isStopped);
        const TakeRecord& take = journal->take;
        QCOMPARE(take.name, u"Harbour"_s);
        QCOMPARE(take.scene, u"12A"_s);
        QCOMPARE(take.folder, u"/media/card/Day 1"_s);
        QCOMPARE(take.start, harbour().start);
        QCOMPARE(take.elapsed, 5.125);
        QCOMPARE(take.markers, (Array{marker(u"Action"_s, 2.5, {{u"in"_s, true}}), marker(u"Cut"_s, 5.125)}));
    }

    void aWholeNumberOfSecondsIsAReal() {
        const Dictionary read = markerOf(TakeJournalFormat::markerLine(
            Dictionary{{clipMarkerIn, 2.0}, {clipMarkerDur, 0.0}, {clipMarkerOldIn, -3.0}, {u"count"_s, 7}},
            2));
        QVERIFY(isReal(read, clipMarkerIn));
        QVERIFY(isReal(read, clipMarkerDur));
        QVERIFY(isReal(read, clipMarkerOldIn));
        QVERIFY(!isReal(read, u"count"_s));
        QCOMPARE(read.real(clipMarkerOldIn), -3.0);
    }

    void everyKindOfValueSurvives() {
        const Dictionary record{{u"$date"_s, u"a key of its own"_s},
                                {u"array"_s, Array{1, 2.5, u"drei"_s, false, Array(), Dictionary()}},
                                {u"data"_s, QByteArray("\0\xff\n", 3)},
                                {u"date"_s, Date(std::chrono::duration<double>(1795251600.5))},
                                {u"large"_s, qint64{9'007'199'254'740'991}},
                                {u"nested"_s, Dictionary{{u"$"_s, Dictionary{{u"$date"_s, 5}}}}},
                                {u"text"_s, u"line\nline \u2028 \"quoted\" \U0001F3AC"_s}};
        const QByteArray line = TakeJournalFormat::markerLine(record, 0);
        QCOMPARE(line.count('\n'), 1);
        QCOMPARE(markerOf(line), record);
    }

    void textThatNoFileCanHoldCostsItsCharactersAlone() {
        TakeRecord take = harbour();
        take.name = u"A\x01"_s + QChar(0xD800) + u"B"_s;
        QCOMPARE(takeOf(TakeJournalFormat::startLine(take)).name, u"A\uFFFD\uFFFDB"_s);
        QCOMPARE(markerOf(TakeJournalFormat::markerLine(marker(QString(QChar(0xDC00)), 1), 1))
                     .string(clipMarkerTitle),
                 u"\uFFFD"_s);
    }

    void whatJsonCannotHoldIsLeftOut() {
        const Dictionary read = markerOf(TakeJournalFormat::markerLine(
            Dictionary{
                {u"a"_s, std::numeric_limits<double>::infinity()}, {u"b"_s, std::nan("")}, {u"c"_s, 1}},
            0));
        QCOMPARE(read, (Dictionary{{u"c"_s, 1}}));
    }

    // Reading what is damaged

    void aJournalTornAtAnyByteGivesWhatStoodBefore() {
        const QList<QByteArray> lines{startLine, actionLine, aliveLine, cutLine, "{\"stop\":7}\n"};
        const QList<double> elapsed{0, 2.5, 4, 5.125, 7};
        const QList<int> markers{0, 1, 1, 2, 2};
        const QByteArray whole = lines.join();
        for (qsizetype size = 0; size <= whole.size(); ++size) {
            const auto journal = TakeJournalFormat::read(whole.first(size));
            const qsizetype count = whole.first(size).count('\n');
            if (count == 0) {
                QVERIFY(!journal);
                QCOMPARE(journal.error().code, ErrorCode::endsEarly);
                continue;
            }
            QVERIFY(journal);
            QCOMPARE(journal->take.name, u"Harbour"_s);
            QCOMPARE(journal->take.elapsed, elapsed[count - 1]);
            QCOMPARE(journal->take.markers.size(), markers[count - 1]);
            QCOMPARE(journal->isStopped, count == 5);
        }
    }

    void readingEndsAtALineThatIsNone_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("zeros, as a power cut leaves them") << QByteArray(512, '\0') + "\n";
        QTest::newRow("no JSON") << QByteArray("{\"alive\":\n");
        QTest::newRow("two objects") << QByteArray("{\"alive\":9}{\"alive\":9}\n");
        QTest::newRow("an array") << QByteArray("[{\"alive\":9}]\n");
        QTest::newRow("a number") << QByteArray("9\n");
        QTest::newRow("empty") << QByteArray("\n");
        QTest::newRow("no UTF-8") << QByteArray("{\"name\":\"\xff\xfe\"}\n");
        QTest::newRow("too long") << QByteArray("{\"alive\":9}") + QByteArray(1 << 20, ' ') + "\n";
        QTest::newRow("nested without end") << QByteArray("{\"a\":") + QByteArray(100'000, '[') + "\n";
    }
    void readingEndsAtALineThatIsNone() {
        QFETCH(const QByteArray, line);
        const TakeRecord take = takeOf(startLine + aliveLine + line + "{\"alive\":99}\n");
        QCOMPARE(take.name, u"Harbour"_s);
        QCOMPARE(take.elapsed, 4.0);
    }

    void aFirstLineThatIsNoneIsNoJournal_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<ErrorCode>("code");
        QTest::newRow("empty file") << QByteArray() << ErrorCode::endsEarly;
        QTest::newRow("no JSON") << QByteArray("take\n") << ErrorCode::malformed;
        QTest::newRow("another object") << QByteArray("{\"start\":1}\n") << ErrorCode::malformed;
        QTest::newRow("without a start") << QByteArray("{\"marquillTake\":1}\n") << ErrorCode::malformed;
        QTest::newRow("a start that is none")
            << QByteArray("{\"marquillTake\":1,\"start\":\"now\"}\n") << ErrorCode::malformed;
        QTest::newRow("a start beyond all years")
            << QByteArray("{\"marquillTake\":1,\"start\":1e300}\n") << ErrorCode::malformed;
        QTest::newRow("a later version")
            << QByteArray("{\"marquillTake\":2,\"start\":1}\n") << ErrorCode::unsupported;
    }
    void aFirstLineThatIsNoneIsNoJournal() {
        QFETCH(const QByteArray, line);
        QFETCH(const ErrorCode, code);
        const auto journal = TakeJournalFormat::read(line);
        QVERIFY(!journal);
        QCOMPARE(journal.error().code, code);
    }

    void whatMeansNothingIsPassedOver() {
        const auto journal =
            TakeJournalFormat::read(startLine +
                                    "{\"later\":[1,2],\"alive\":\"long\"}\n{\"marker\":7,\"at\":1}\n{"
                                    "\"alive\":1e300}\n{\"name\":null}\n"
                                    "{\"folder\":\"not/absolute\"}\n{\"alive\":-5}\n{\"stop\":true}\n");
        QVERIFY(journal);
        QCOMPARE(journal->take.elapsed, 1.0);
        QCOMPARE(journal->take.name, u"Harbour"_s);
        QCOMPARE(journal->take.folder, u"/media/card/Day 1"_s);
        QVERIFY(journal->take.markers.isEmpty());
        QVERIFY(!journal->isStopped);
    }

    void aValueNestedTooDeepIsLeftOut() {
        const QByteArray deep = QByteArray("{\"a\":").repeated(900) + "1" + QByteArray(900, '}');
        const TakeRecord take =
            takeOf(startLine + "{\"at\":1,\"marker\":{\"clipMarkerIn\":1,\"x\":" + deep + "}}\n");
        QCOMPARE(take.markers.size(), 1);
        QCOMPARE(take.markers.at(0).dictionary()->real(clipMarkerIn), 1.0);
    }

    void theStopIsTheLastWordOnTheLength() {
        QCOMPARE(takeOf(startLine + "{\"alive\":8}\n{\"stop\":7}\n{\"alive\":9}\n").elapsed, 7.0);
        QCOMPARE(takeOf(startLine + "{\"stop\":-1}\n").elapsed, 0.0);
    }

    // The file

    void theFileGrowsWithTheTake() {
        TakeJournal journal(folder());
        TakeRecord take = harbour();
        journal.begin(take);
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(content(), startLine);
        QVERIFY(names().front().endsWith(u".journal"_s));
        journal.addMarker(marker(u"Action"_s, 2.5, {{u"in"_s, true}}), 2.5);
        take.elapsed = 4;
        journal.beat(take);
        journal.addMarker(marker(u"Cut"_s, 5.125), 5.125);
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(content(), startLine + actionLine + aliveLine + cutLine);
        take.elapsed = 6;
        take.scene = u"12B"_s;
        journal.stop(take);
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(content(),
                 startLine + actionLine + aliveLine + cutLine + "{\"scene\":\"12B\"}\n{\"stop\":6}\n");
        journal.remove();
        QVERIFY(journal.waitUntilWritten(60s));
        QVERIFY(names().isEmpty());
    }

    void aJournalHasItsNameOnlyWhenItsFirstLineIsOnTheDisk() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        QVERIFY(makeFolders(folder()));
        faulty.reset();
        TakeJournalFile file(folder());
        file.append(startLine);
        QVERIFY(file.flush());
        const QStringList changes = faulty.changes();
        QCOMPARE(changes.size(), 5);
        QVERIFY(changes[0].startsWith(u"create"_s) && changes[0].endsWith(u".new"_s));
        QVERIFY(changes[1].startsWith(u"write"_s));
        QVERIFY(changes[2].startsWith(u"sync "_s));
        QCOMPARE(changes[3], u"move "_s + file.path());
        QCOMPARE(changes[4], u"syncFolder "_s + folder());
    }

    void whatIsWrittenNeedNotBeOnTheDiskToOutliveTheProgram() {
        TakeJournalFile file(folder());
        file.append(startLine);
        QVERIFY(file.write());
        QVERIFY(file.path().endsWith(u".new"_s));
        QCOMPARE(readFile(file.path()).value(), startLine);
        QVERIFY(file.sync());
        QVERIFY(file.path().endsWith(u".journal"_s));
    }

    void aSyncThatFailedHasItsBytesWrittenAgain() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        TakeJournalFile file(folder());
        file.append(startLine);
        QVERIFY(file.flush());
        file.append(aliveLine);
        faulty.reset();
        faulty.failAt(2, ErrorCode::inputOutput);
        QVERIFY(!file.flush());
        faulty.reset();
        QVERIFY(file.flush());
        QCOMPARE(faulty.changes().size(), 2);
        QVERIFY(faulty.changes()[0].startsWith(u"write "_s));
        QCOMPARE(readFile(file.path()).value(), startLine + aliveLine);
    }

    void aLineIsWrittenWhileTheDiskIsBusyWithThoseBefore() {
        SlowDisk disk;
        const InstalledFileSystem installed(disk);
        TakeJournal journal(folder());
        journal.begin(harbour());
        QTRY_VERIFY_WITH_TIMEOUT(disk.isWaiting(), 60'000);
        journal.addMarker(marker(u"Action"_s, 2.5, {{u"in"_s, true}}), 2.5);
        QTRY_COMPARE_WITH_TIMEOUT(content(), startLine + actionLine, 60'000);
        QVERIFY(disk.isWaiting());
        disk.goOn();
        QVERIFY(journal.waitUntilWritten(60s));
        QVERIFY(names().front().endsWith(u".journal"_s));
    }

    // So that it outlives the program. A machine that is too slow for that in time is given more tries.
    void aKeyIsDoneWithWhenItsLineIsWritten() {
        int inTime = 0;
        for (int tries = 0; tries < 20 && inTime < 2; ++tries) {
            SlowDisk disk;
            const InstalledFileSystem installed(disk);
            TakeJournal journal(folder());
            inTime = 0;
            const auto isWritten = [&](const QByteArray& lines, const auto& call) {
                const auto start = std::chrono::steady_clock::now();
                call();
                const bool isLate = std::chrono::steady_clock::now() - start >= TakeJournal::patience;
                inTime += isLate ? 0 : 1;
                return isLate || content() == lines;
            };
            const bool hasStart = isWritten(startLine, [&] { journal.begin(harbour()); });
            const bool hasMarker = inTime == 0 || isWritten(startLine + actionLine, [&] {
                                       journal.addMarker(marker(u"Action"_s, 2.5, {{u"in"_s, true}}), 2.5);
                                   });
            disk.goOn();
            QVERIFY(hasStart && hasMarker);
            journal.remove();
            QVERIFY(journal.waitUntilWritten(60s));
        }
    }

    void theJournalOfARunningTakeIsLocked() {
        TakeJournalFile file(folder());
        file.append(startLine);
        QVERIFY(file.flush());
        const auto refused = FileLock::take(file.path());
        QVERIFY(!refused);
        QCOMPARE(refused.error().code, ErrorCode::alreadyExists);
    }

    void whatAFullVolumeRefusedIsWrittenLater_data() {
        QTest::addColumn<int>("change");
        for (int change = 1; change <= 9; ++change) {
            QTest::addRow("from change %d on", change) << change;
        }
    }
    void whatAFullVolumeRefusedIsWrittenLater() {
        QFETCH(const int, change);
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(change, ErrorCode::noSpace);
        TakeJournalFile file(folder());
        file.append(startLine);
        static_cast<void>(file.flush());
        file.append(aliveLine);
        QVERIFY(!file.flush() || change == 9);
        faulty.reset();
        file.append(cutLine);
        QVERIFY(file.flush());
        QCOMPARE(readFile(file.path()).value(), startLine + aliveLine + cutLine);
        QVERIFY(file.path().endsWith(TakeJournalFile::suffix));
    }

    void aProblemIsToldOnceAndSoIsItsEnd() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::readOnly);
        TakeJournal journal(folder());
        const QSignalSpy problems(&journal, &TakeJournal::problemChanged);
        journal.begin(harbour());
        QVERIFY(journal.waitUntilWritten(60s));
        journal.beat(harbour());
        QVERIFY(journal.waitUntilWritten(60s));
        QTRY_COMPARE(problems.size(), 1);
        QVERIFY(!problems[0][0].toString().isEmpty());
        faulty.reset();
        journal.beat(harbour());
        QVERIFY(journal.waitUntilWritten(60s));
        QTRY_COMPARE(problems.size(), 2);
        QVERIFY(problems[1][0].toString().isEmpty());
        QCOMPARE(content(), startLine + "{\"alive\":0}\n{\"alive\":0}\n");
    }

    void aKeptJournalIsFree() {
        TakeJournal journal(folder());
        const QSignalSpy kept(&journal, &TakeJournal::kept);
        journal.begin(harbour());
        journal.stop(harbour());
        journal.keep();
        QVERIFY(journal.waitUntilWritten(60s));
        QTRY_COMPARE(kept.size(), 1);
        QVERIFY(FileLock::take(joinPath(folder(), names().front())));
        QCOMPARE(content(), startLine + "{\"stop\":0}\n");
    }

    void theNextTakeHasAJournalOfItsOwn() {
        TakeJournal journal(folder());
        journal.begin(harbour());
        journal.keep();
        journal.begin(harbour());
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(names().size(), 2);
        journal.remove();
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(content(), startLine);
    }

    void whatIsStillToBeWrittenIsWrittenAtTheEnd() {
        {
            TakeJournal journal(folder());
            journal.begin(harbour());
            journal.beat(harbour());
        }
        QCOMPARE(content(), startLine + "{\"alive\":0}\n");
    }

    void aLineThatIsTooLongCostsNoOther() {
        TakeJournal journal(folder());
        journal.begin(harbour());
        journal.addMarker(marker(QString(2 << 20, u'x'), 1), 1);
        journal.beat(harbour());
        QVERIFY(journal.waitUntilWritten(60s));
        QCOMPARE(content(), startLine + "{\"alive\":0}\n");
    }
};

QTEST_GUILESS_MAIN(TakeJournalTest)
#include "TakeJournalTest.moc"
