// Takes that are recovered from their journals: once, into their folders, and never at the cost of a journal.
#include "clipstore/ClipStore.h"
#include "platform/FakeClock.h"
#include "platform/FaultyFileSystem.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/PropertyListReader.h"
#include "recording/TakeJournalFile.h"
#include "recording/TakeJournalFormat.h"
#include "recording/TakeRecovery.h"
#include "recording/TakeWriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

// 2026-11-21 09:00:00.25 UTC.
const Date start{std::chrono::duration<double>(1795251600.25)};

bool always() {
    return true;
}

}  // namespace

class TakeRecoveryTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;

    QString journals() const { return joinPath(_root->path(), u"takes"_s); }
    QString clips() const { return joinPath(_root->path(), u"Day 1"_s); }
    QString clip(const QString& name) const { return joinPath(clips(), name); }

    QStringList journalNames() const { return QDir(journals()).entryList(QDir::Files, QDir::Name); }
    QStringList clipNames() const { return QDir(clips()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    TakeRecord take() const {
        return {.name = u"Harbour"_s,
                .scene = u"12A"_s,
                .folder = clips(),
                .start = start,
                .elapsed = 0,
                .markers = {},
                .comment = {}};
    }

    // Leaves a journal behind as a program does that was killed.
    QString leave(const TakeRecord& take, const QByteArray& lines,
                  const QString& name = u"take-1.journal"_s) {
        const QString path = joinPath(journals(), name);
        if (!writeNewFile(path, TakeJournalFormat::startLine(take) + lines)) {
            qFatal("no journal could be made");
        }
        return path;
    }

    static Dictionary written(const QString& path) { return readDictionaryFile(path).value_or(Dictionary()); }

  private Q_SLOTS:
    void init() {
        _root = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkdir(journals()));
        QVERIFY(QDir().mkdir(clips()));
    }

    void aTakeIsRecoveredWithAllThatIsKnown() {
        leave(take(),
              "{\"at\":2.5,\"marker\":{\"clipMarkerIn\":2.5,\"clipMarkerTitle\":\"Action\"}}\n"
              "{\"alive\":61.9}\n{\"ali");
        const auto outcome = TakeRecovery::recoverAll(journals(), always);
        QCOMPARE(outcome.recovered.size(), 1U);
        QVERIFY(outcome.kept.empty());
        // Clip files hold whole seconds.
        const Date whole{std::chrono::duration<double>(1795251600)};
        const Dictionary expected{
            {u"clipName"_s, u"Harbour#01.xml"_s},
            {u"clipScene"_s, u"12A"_s},
            {u"clipComment"_s, u"Recovered take"_s},
            {u"clipCreationDate"_s, whole},
            {u"clipRecordingStartTime"_s, whole},
            {u"clipOldRecordingStartTime"_s, whole},
            {u"clipDuration"_s, 61},
            {u"clipOldDuration"_s, 61},
            {u"clipMarkerArray"_s,
             Array{Dictionary{{u"clipMarkerIn"_s, 2.5}, {u"clipMarkerTitle"_s, u"Action"_s}}}}};
        QCOMPARE(written(clip(u"Harbour#01.xml"_s)), expected);
        QCOMPARE(outcome.recovered[0].clip.clipName(), u"Harbour#01.xml"_s);
        QCOMPARE(outcome.recovered[0].folder, clips());
        QVERIFY(journalNames().isEmpty());
    }

    void aRecoveredTakeGetsTheNextFreeNumber() {
        QVERIFY(writeNewFile(clip(u"Harbour#01.xml"_s), "theirs"));
        QVERIFY(writeNewFile(clip(u"Harbour#02.mov"_s), "theirs"));
        leave(take(), "");
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QVERIFY(fileExists(clip(u"Harbour#03.xml"_s)));
        QCOMPARE(readFile(clip(u"Harbour#01.xml"_s)).value(), QByteArray("theirs"));
    }

    void takesAreRecoveredInTheOrderTheyWereRecorded() {
        TakeRecord later = take();
        later.start = dateByAdding(start, 100);
        leave(later, "{\"stop\":2}\n", u"take-1.journal"_s);
        leave(take(), "{\"stop\":1}\n", u"take-2.journal"_s);
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 2U);
        QCOMPARE(written(clip(u"Harbour#01.xml"_s)).integer(u"clipDuration"), 1);
        QCOMPARE(written(clip(u"Harbour#02.xml"_s)).integer(u"clipDuration"), 2);
    }

    void aTakeWithoutANameIsUntitled() {
        TakeRecord unnamed = take();
        unnamed.name.clear();
        leave(unnamed, "");
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QVERIFY(fileExists(clip(u"Untitled#01.xml"_s)));
    }

    void aNameFromElsewhereLeavesTheFolderNot() {
        TakeRecord outside = take();
        outside.name = u"../takes/x"_s;
        leave(outside, "");
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QCOMPARE(clipNames(), QStringList{u"Untitled#01.xml"_s});
        QVERIFY(journalNames().isEmpty());
    }

    // Not twice

    void aClipThatWasWrittenBeforeTheCrashIsNotDoubled_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("stopped") << QByteArray("{\"alive\":4}\n{\"stop\":5.5}\n");
        QTest::newRow("not stopped") << QByteArray("{\"alive\":4}\n");
    }
    void aClipThatWasWrittenBeforeTheCrashIsNotDoubled() {
        QFETCH(const QByteArray, lines);
        TakeRecord stopped = take();
        stopped.elapsed = 5.5;
        leave(take(), lines);
        letTimePass();
        QVERIFY(TakeWriter::write(stopped));
        const auto outcome = TakeRecovery::recoverAll(journals(), always);
        QCOMPARE(outcome.recovered.size(), 1U);
        QCOMPARE(clipNames(), QStringList{u"Harbour#01.xml"_s});
        QVERIFY(!written(clip(u"Harbour#01.xml"_s)).contains(u"clipComment"_s));
        QVERIFY(journalNames().isEmpty());
    }

    void anUntitledClipOfATakeWhoseNameNoFileHasIsNotDoubled() {
        TakeRecord stopped = take();
        stopped.name = u"a/b"_s;
        leave(stopped, "{\"stop\":0}\n");
        letTimePass();
        QVERIFY(TakeWriter::write(stopped));
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QCOMPARE(clipNames(), QStringList{u"Untitled#01.xml"_s});
    }

    void anotherTakeIsNotTakenForThisOne_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<double>("startedLater");
        QTest::newRow("another start") << QByteArray("{\"stop\":5.5}\n") << 1.0;
        QTest::newRow("the same second, longer") << QByteArray("{\"stop\":7}\n") << 0.1;
        QTest::newRow("the same second, not stopped") << QByteArray("{\"alive\":6}\n") << 0.1;
        QTest::newRow("the same second, with a marker")
            << QByteArray("{\"marker\":{},\"at\":1}\n{\"stop\":5.5}\n") << 0.1;
        QTest::newRow("the same second, another scene")
            << QByteArray("{\"scene\":\"12B\"}\n{\"stop\":5.5}\n") << 0.1;
        QTest::newRow("the same second, just begun") << QByteArray() << 0.1;
    }
    void anotherTakeIsNotTakenForThisOne() {
        QFETCH(const QByteArray, lines);
        QFETCH(const double, startedLater);
        TakeRecord first = take();
        first.elapsed = 5.5;
        QVERIFY(TakeWriter::write(first));
        TakeRecord second = take();
        second.start = dateByAdding(start, startedLater);
        leave(second, lines);
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QCOMPARE(clipNames(), (QStringList{u"Harbour#01.xml"_s, u"Harbour#02.xml"_s}));
    }

    void deathAtAnyMomentCostsNothingAndDoublesNothing_data() {
        QTest::addColumn<FaultyFileSystem::Death>("death");
        QTest::newRow("before") << FaultyFileSystem::Death::before;
        QTest::newRow("halfway") << FaultyFileSystem::Death::halfway;
        QTest::newRow("after") << FaultyFileSystem::Death::after;
    }
    void deathAtAnyMomentCostsNothingAndDoublesNothing() {
        QFETCH(const FaultyFileSystem::Death, death);
        FaultyFileSystem faulty;
        int deaths = 0;
        for (int number = 1;; ++number) {
            cleanUpBetweenDeaths();
            leave(take(), "{\"marker\":{},\"at\":1}\n{\"alive\":3}\n");
            letTimePass();
            const InstalledFileSystem installed(faulty);
            faulty.reset();
            faulty.dieAt(number, death);
            static_cast<void>(TakeRecovery::recoverAll(journals(), always));
            if (!faulty.isDead()) {
                break;
            }
            ++deaths;
            faulty.reset();
            static_cast<void>(TakeRecovery::recoverAll(journals(), always));
            QCOMPARE(ClipStore::getClipsForFolder(clips()), QStringList{u"Harbour#01.xml"_s});
            QCOMPARE(written(clip(u"Harbour#01.xml"_s)).array(u"clipMarkerArray")->size(), 1);
            QVERIFY(journalNames().isEmpty());
        }
        QVERIFY(deaths >= 6);
    }

    void theJournalGoesOnlyWhenTheClipIsOnTheDisk() {
        const QString journal = leave(take(), "");
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        QVERIFY(TakeRecovery::recover(journal));
        const QStringList changes = faulty.changes();
        const qsizetype move = changes.indexOf(u"move "_s + clip(u"Harbour#01.xml"_s));
        QVERIFY(move > 1);
        QVERIFY(changes[move - 1].startsWith(u"sync "_s));
        QCOMPARE(changes[move + 1], u"syncFolder "_s + clips());
        QCOMPARE(changes.last(), u"removeFile "_s + journal);
        QCOMPARE(changes.size(), move + 3);
    }

    // Not at all

    void aTakeWhoseFolderIsGoneKeepsItsJournal() {
        leave(take(), "{\"stop\":5}\n");
        QVERIFY(QDir(clips()).removeRecursively());
        const auto outcome = TakeRecovery::recoverAll(journals(), always);
        QVERIFY(outcome.recovered.empty());
        QCOMPARE(outcome.kept.size(), 1U);
        QCOMPARE(outcome.kept[0].take.name, u"Harbour"_s);
        QCOMPARE(outcome.kept[0].take.elapsed, 5.0);
        QCOMPARE(journalNames(), QStringList{u"take-1.journal"_s});
        // The card is back.
        QVERIFY(QDir().mkdir(clips()));
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QVERIFY(journalNames().isEmpty());
    }

    void aFolderThatRefusesKeepsTheJournal_data() {
        QTest::addColumn<ErrorCode>("code");
        QTest::newRow("full") << ErrorCode::noSpace;
        QTest::newRow("read-only") << ErrorCode::readOnly;
    }
    void aFolderThatRefusesKeepsTheJournal() {
        QFETCH(const ErrorCode, code);
        const QString journal = leave(take(), "");
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, code);
        const auto recovered = TakeRecovery::recover(journal);
        QVERIFY(!recovered);
        QCOMPARE(recovered.error().code, code);
        QCOMPARE(journalNames(), QStringList{u"take-1.journal"_s});
        QVERIFY(clipNames().isEmpty());
    }

    void aTakeGoesIntoAnyFolderThatIsChosen() {
        TakeRecord homeless = take();
        homeless.folder = joinPath(_root->path(), u"pulled card"_s);
        const QString journal = leave(homeless, "{\"stop\":5}\n");
        QVERIFY(!TakeRecovery::recover(journal));
        const auto recovered = TakeRecovery::recover(journal, clips());
        QVERIFY(recovered);
        QCOMPARE(recovered->folder, clips());
        QCOMPARE(clipNames(), QStringList{u"Harbour#01.xml"_s});
        QVERIFY(journalNames().isEmpty());
    }

    void aTakeThatIsStillRecordedIsNotTouched() {
        TakeJournalFile owned(journals());
        owned.append(TakeJournalFormat::startLine(take()));
        QVERIFY(owned.flush());
        QVERIFY(TakeRecovery::keptTakes(journals()).empty());
        QVERIFY(TakeRecovery::recoverAll(journals(), always).recovered.empty());
        QCOMPARE(TakeRecovery::recover(owned.path()).error().code, ErrorCode::alreadyExists);
        QCOMPARE(TakeRecovery::discard(owned.path()).error().code, ErrorCode::alreadyExists);
        QVERIFY(fileExists(owned.path()));
        QVERIFY(clipNames().isEmpty());
    }

    void whatIsNoJournalIsLeftAlone() {
        QVERIFY(writeNewFile(joinPath(journals(), u"a.journal"_s), "{\"marquillTake\":2,\"start\":1}\n"));
        QVERIFY(writeNewFile(joinPath(journals(), u"b.journal"_s), "torn"));
        QVERIFY(writeNewFile(joinPath(journals(), u"c.new"_s), TakeJournalFormat::startLine(take())));
        QVERIFY(QDir(journals()).mkdir(u"d.journal"_s));
        QVERIFY(QFile::link(u"/dev/zero"_s, joinPath(journals(), u"e.journal"_s)));
        const auto outcome = TakeRecovery::recoverAll(journals(), always);
        QVERIFY(outcome.recovered.empty());
        QVERIFY(outcome.kept.empty());
        QCOMPARE(QDir(journals()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size(),
                 5);
        QVERIFY(clipNames().isEmpty());
    }

    void aTakeWhoseProgramEndedBeforeTheFileHadItsNameIsRecovered() {
        leave(take(), "{\"alive\":3}\n", u"take-0123456789abcdef.new"_s);
        QCOMPARE(TakeRecovery::recoverAll(journals(), always).recovered.size(), 1U);
        QCOMPARE(written(clip(u"Harbour#01.xml"_s)).integer(u"clipDuration"), 3);
        QVERIFY(journalNames().isEmpty());
    }

    void whatNeverBecameAJournalIsRemovedOnceItIsOld() {
        FakeClock clock(std::chrono::system_clock::now());
        QVERIFY(writeNewFile(joinPath(journals(), u"take-1.new"_s), ""));
        QVERIFY(writeNewFile(joinPath(journals(), u"take-2.new"_s), "{\"marquillT"));
        QVERIFY(writeNewFile(joinPath(journals(), u"take-3.new"_s), ""));
        const auto owner = FileLock::take(joinPath(journals(), u"take-3.new"_s));
        QVERIFY(owner);
        TakeRecovery::recoverAll(journals(), always);
        QCOMPARE(journalNames().size(), 3);
        clock.advance(120);
        TakeRecovery::recoverAll(journals(), always);
        QCOMPARE(journalNames(), QStringList{u"take-3.new"_s});
    }

    void withoutAFolderThereIsNothingToRecover() {
        QVERIFY(TakeRecovery::keptTakes(joinPath(_root->path(), u"nowhere"_s)).empty());
    }

    void whatIsNotWantedAnyMoreIsLeftForTheNextStart() {
        leave(take(), "");
        QVERIFY(TakeRecovery::recoverAll(journals(), [] { return false; }).recovered.empty());
        QCOMPARE(journalNames().size(), 1);
    }

    void aDiscardedTakeIsGone() {
        const QString journal = leave(take(), "");
        QVERIFY(TakeRecovery::discard(journal));
        QVERIFY(journalNames().isEmpty());
        QVERIFY(clipNames().isEmpty());
    }

  private:
    // As much as any volume tells times apart.
    static void letTimePass() { QTest::qSleep(20); }

    void cleanUpBetweenDeaths() {
        for (const QString& folder : {journals(), clips()}) {
            QVERIFY(QDir(folder).removeRecursively());
            QVERIFY(QDir().mkdir(folder));
        }
    }
};

QTEST_GUILESS_MAIN(TakeRecoveryTest)
#include "TakeRecoveryTest.moc"
