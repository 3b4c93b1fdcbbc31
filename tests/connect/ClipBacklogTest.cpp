#include "clipstore/ClipStore.h"
#include "connect/ClipWriter.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/PropertyListWriter.h"
#include "platform/SlowFileSystem.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace marquill;

// Very many clips are written while the event loop runs, each whole, and none is lost whatever comes between.
class ClipBacklogTest : public QObject {
    Q_OBJECT

  private:
    static constexpr int many = 300;  // more than are written at a time

    std::unique_ptr<QTemporaryDir> _place;
    std::vector<ClipInfo> _clips;

    QString folder() const { return joinPath(_place->path(), u"folder"_s); }
    static QString nameOf(int number) { return u"A#%1.xml"_s.arg(number + 1, 2, 10, QChar(u'0')); }
    ClipInfo& clip(int number) { return _clips[static_cast<std::size_t>(number)]; }
    ClipInfo onDisk(int number, const QString& in = {}) const {
        const QString path = joinPath(in.isEmpty() ? folder() : in, nameOf(number));
        return ClipStore::infoForClip(path).value_or(ClipInfo());
    }
    QString sceneOnDisk(int number, const QString& in = {}) const {
        return onDisk(number, in).clipScene().value_or(QString());
    }
    int countOnDisk(const QString& scene, const QString& in = {}) const {
        int count = 0;
        for (int number = 0; number < many; ++number) {
            count += sceneOnDisk(number, in) == scene ? 1 : 0;
        }
        return count;
    }
    // Placeholders of the scene "old", known to `writer`, whose records then say "new".
    void makeClips(ClipWriter& writer) {
        QStringList names;
        for (int number = 0; number < many; ++number) {
            ClipInfo clip = ClipStore::newInfoForProxyClip(nameOf(number), folder());
            clip.setClipScene(u"old"_s);
            QFile file(joinPath(folder(), nameOf(number)));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(*writePropertyList(clip.record())) > 0);
            file.close();
            names.append(nameOf(number));
        }
        const std::vector<ClipFile> files = readClipFiles(folder(), names);
        writer.shared().noteRead(folder(), files);
        for (const ClipFile& file : files) {
            _clips.push_back(*file.clip);
            _clips.back().setClipScene(u"new"_s);
        }
    }
    // Another program writes the clip's file.
    void writeElsewhere(int number, const QString& scene, const QString& comment) const {
        ClipInfo theirs = ClipStore::newInfoForProxyClip(nameOf(number), folder());
        theirs.setClipScene(scene);
        theirs.setClipComment(comment);
        QVERIFY(ClipStore::writeClipInfo(theirs, folder()));
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkpath(folder()));
        _clips.clear();
    }

    void manyClipsAreWrittenWhileTheEventLoopRuns() {
        ClipWriter writer;
        makeClips(writer);
        const QSignalSpy progressed(&writer, &ClipWriter::progressed);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        QVERIFY(writer.isWriting());
        QVERIFY(writer.hasUnwritten());
        QCOMPARE(countOnDisk(u"old"_s), many);
        slow.letGo();
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(countOnDisk(u"new"_s), many);
        QVERIFY(!writer.hasUnwritten());
        QVERIFY(progressed.size() > 2);
        QCOMPARE(progressed.first(), QVariantList({0, many}));
        QCOMPARE(progressed.last(), QVariantList({many, many}));
    }

    void fewClipsAreWrittenAtOnce() {
        ClipWriter writer;
        makeClips(writer);
        writer.write({_clips.begin(), _clips.begin() + ClipWriter::mostAtOnce}, folder());
        QVERIFY(!writer.isWriting());
        QCOMPARE(countOnDisk(u"new"_s), static_cast<int>(ClipWriter::mostAtOnce));
    }

    void whatTheProgramWroteIsNoNewsOfOthers() {
        ClipWriter writer;
        makeClips(writer);
        writer.write(_clips, folder());
        QTRY_VERIFY(!writer.isWriting());
        for (int number = 0; number < many; ++number) {
            const KnownClip* known = writer.shared().known().find(folder(), nameOf(number));
            QCOMPARE(known->stamp, *fileStamp(joinPath(folder(), nameOf(number))));
            QVERIFY(known->held->held(ClipKey::clipScene, Value(u"new"_s)));
            QVERIFY(known->clip->isSame(clip(number)));
        }
    }

    void whoeverReadsTheFolderMeanwhileIsGivenTheWaitingRecords() {
        ClipWriter writer;
        makeClips(writer);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        for (const int number : {0, many - 1}) {  // one is being written, one waits
            QVERIFY(writer.unwritten(folder(), nameOf(number))->isSame(clip(number)));
            QVERIFY(writer.isWriting(folder(), nameOf(number)));
        }
        QVERIFY(!writer.isWriting(folder(), u"B#01.xml"_s));
        writer.leaveFolder(folder());
        slow.letGo();
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(countOnDisk(u"new"_s), many);
    }

    void aClipThatIsEditedMeanwhileIsNotWrittenOverAgain_data() {
        QTest::addColumn<int>("number");
        QTest::newRow("being written") << 0;
        QTest::newRow("waiting") << many - 1;
    }
    void aClipThatIsEditedMeanwhileIsNotWrittenOverAgain() {
        QFETCH(const int, number);
        ClipWriter writer;
        makeClips(writer);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        const std::jthread later([&slow] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            slow.letGo();
        });
        ClipInfo edited = clip(number).deepCopy();
        edited.setClipScene(u"edited"_s);
        writer.write(edited, folder());
        QCOMPARE(sceneOnDisk(number), u"edited"_s);
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(sceneOnDisk(number), u"edited"_s);
        QCOMPARE(countOnDisk(u"new"_s), many - 1);
    }

    void anotherBatchOfTheSameClipsMeanwhileCounts() {
        ClipWriter writer;
        makeClips(writer);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        const std::jthread later([&slow] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            slow.letGo();
        });
        std::vector<ClipInfo> others;
        for (const ClipInfo& clip : _clips) {
            others.push_back(clip.deepCopy());
            others.back().setClipScene(u"newest"_s);
        }
        writer.write(others, folder());
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(countOnDisk(u"newest"_s), many);
        QVERIFY(writer.shared().known().find(folder(), nameOf(0))->clip->isSame(others[0]));
    }

    void whatOthersWroteMeanwhileIsMerged() {
        ClipWriter writer;
        makeClips(writer);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        writeElsewhere(0, u"old"_s, u"theirs"_s);
        writeElsewhere(many - 1, u"old"_s, u"theirs"_s);
        slow.letGo();
        QTRY_VERIFY(!writer.isWriting());
        for (const int number : {0, many - 1}) {
            QCOMPARE(onDisk(number).clipComment(), std::optional(u"theirs"_s));
            QCOMPARE(clip(number).clipComment(), std::optional(u"theirs"_s));
        }
        QCOMPARE(countOnDisk(u"new"_s), many);
    }

    void whatOthersChangedTooIsAConflict() {
        ClipWriter writer;
        makeClips(writer);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        writeElsewhere(7, u"theirs"_s, u"theirs"_s);
        slow.letGo();
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(writer.conflicts().size(), std::size_t(1));
        QVERIFY(writer.conflicts()[0].clip.isSame(clip(7)));
        QCOMPARE(sceneOnDisk(7), u"theirs"_s);
        QCOMPARE(countOnDisk(u"new"_s), many - 1);
    }

    void aClipThatIsDeletedMeanwhileIsToldAndNotMadeAnew() {
        ClipWriter writer;
        makeClips(writer);
        const QSignalSpy lost(&writer, &ClipWriter::lost);
        SlowFileSystem slow;
        writer.write(_clips, folder());
        QTRY_VERIFY(slow.isAsked());
        QVERIFY(QFile::remove(joinPath(folder(), nameOf(many - 1))));
        slow.letGo();
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(lost.size(), 1);
        QVERIFY(!QFile::exists(joinPath(folder(), nameOf(many - 1))));
        QVERIFY(!writer.hasUnwritten());
    }

    void aFolderThatIsMovedMeanwhileIsFollowed() {
        ClipWriter writer;
        makeClips(writer);
        const QString moved = joinPath(_place->path(), u"moved"_s);
        writer.write(_clips, folder());
        QVERIFY(QFile::rename(folder(), moved));
        writer.folderMoved(folder(), moved);
        QTRY_VERIFY(!writer.isWriting());
        QCOMPARE(countOnDisk(u"new"_s, moved), many);
        QVERIFY(!QFile::exists(folder()));
    }

    void clipsThatAreRefusedAreKeptAndToldOnce() {
        ClipWriter writer;
        makeClips(writer);
        const QSignalSpy failed(&writer, &ClipWriter::failed);
        FaultyFileSystem disk;
        {
            const InstalledFileSystem installed(disk);
            disk.failFrom(1, ErrorCode::noSpace);
            writer.write(_clips, folder());
            QTRY_VERIFY(!writer.isWriting());
        }
        QCOMPARE(failed.size(), 1);
        QVERIFY(writer.hasFailing());
        QCOMPARE(countOnDisk(u"old"_s), many);
        writer.retry();
        QVERIFY(!writer.hasUnwritten());
        QCOMPARE(countOnDisk(u"new"_s), many);
    }

    void aWriterThatEndsWritesTheRest() {
        {
            ClipWriter writer;
            makeClips(writer);
            writer.write(_clips, folder());
            QCOMPARE(countOnDisk(u"old"_s), many);
        }
        QCOMPARE(countOnDisk(u"new"_s), many);
    }

    void aProgramThatDiesMeanwhileLeavesEachClipWhole_data() {
        QTest::addColumn<int>("change");
        for (const int change : {1, 2, 3, 50, 333, 1000}) {
            QTest::newRow(QByteArray::number(change).constData()) << change;
        }
    }
    void aProgramThatDiesMeanwhileLeavesEachClipWhole() {
        QFETCH(const int, change);
        FaultyFileSystem disk;
        {
            ClipWriter writer;
            makeClips(writer);
            const InstalledFileSystem installed(disk);
            disk.dieAt(change, FaultyFileSystem::Death::halfway);
            writer.write(_clips, folder());
            QTRY_VERIFY(!writer.isWriting());
        }
        QVERIFY(disk.isDead());
        QCOMPARE(countOnDisk(u"new"_s) + countOnDisk(u"old"_s), many);
    }
};

QTEST_GUILESS_MAIN(ClipBacklogTest)
#include "ClipBacklogTest.moc"
