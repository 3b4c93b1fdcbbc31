#include "clipstore/ClipStore.h"
#include "connect/ClipWriter.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

// Edits that cannot be written are kept and written later, and never over another clip.
class ClipWriterTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _place;
    FaultyFileSystem _disk;

    QString folder() const { return _place->path(); }

    // A new clip file without a scene.
    ClipInfo clipNamed(const QString& name, const QString& in = {}) const {
        ClipInfo clip = ClipStore::newInfoForProxyClip(name, folder());
        if (!ClipStore::createProxyClip(clip, in.isEmpty() ? folder() : in)) {
            qFatal("The clip could not be made");
        }
        return clip;
    }

    QString sceneOnDisk(const QString& name, const QString& in = {}) const {
        const auto clip = ClipStore::infoForClip(joinPath(in.isEmpty() ? folder() : in, name));
        return clip ? clip->clipScene().value_or(QString()) : QString();
    }

    void fillDisk() { _disk.failFrom(1, ErrorCode::noSpace); }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _disk.reset();
        FileSystem::install(&_disk);
    }
    void cleanup() { FileSystem::install(nullptr); }

    void writtenClipIsNotKept() {
        ClipWriter writer;
        const QSignalSpy failed(&writer, &ClipWriter::failed);
        ClipInfo clip = clipNamed(u"A#01.xml"_s);
        clip.setClipScene(u"1"_s);
        writer.write(clip, folder());
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s), u"1"_s);
        QVERIFY(!writer.hasUnwritten());
        QCOMPARE(failed.size(), 0);
    }

    void failedClipIsKeptNamedAndWrittenAsItIsByThen() {
        ClipWriter writer;
        const QSignalSpy failed(&writer, &ClipWriter::failed);
        const QSignalSpy allWritten(&writer, &ClipWriter::allWritten);
        ClipInfo clip = clipNamed(u"A#01.xml"_s);
        clip.setClipScene(u"1"_s);
        fillDisk();
        writer.write(clip, folder());
        QCOMPARE(failed.size(), 1);
        QVERIFY(writer.unwritten(folder(), u"A#01.xml"_s)->isSame(clip));
        QVERIFY2(writer.unwrittenText().startsWith(u"“A#01.xml” could not be saved: "_s),
                 qPrintable(writer.unwrittenText()));
        writer.retry();
        QVERIFY(writer.hasUnwritten());
        clip.setClipScene(u"2"_s);
        _disk.reset();
        writer.retry();
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s), u"2"_s);
        QVERIFY(!writer.hasUnwritten());
        QCOMPARE(allWritten.size(), 1);
    }

    void laterWriteTakesThePlaceOfTheKeptOne() {
        ClipWriter writer;
        const QSignalSpy allWritten(&writer, &ClipWriter::allWritten);
        ClipInfo before = clipNamed(u"A#01.xml"_s);
        before.setClipScene(u"old"_s);
        fillDisk();
        writer.write(before, folder());
        _disk.reset();
        ClipInfo after = before.deepCopy();
        after.setClipScene(u"new"_s);
        writer.write(after, folder());
        QCOMPARE(allWritten.size(), 1);
        writer.retry();
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s), u"new"_s);
    }

    void oneThatFailsDoesNotKeepTheOthersFromTheDisk() {
        ClipWriter writer(10);
        ClipInfo broken = clipNamed(u"A#01.xml"_s);
        ClipInfo good = clipNamed(u"B#01.xml"_s);
        good.setClipScene(u"1"_s);
        broken.setClipScene(QString(QChar(0x1)));  // no property list can hold it
        fillDisk();
        writer.write(broken, folder());
        writer.write(good, folder());
        QVERIFY2(writer.unwrittenText().contains(u"and 1 other clip could"_s),
                 qPrintable(writer.unwrittenText()));
        _disk.reset();
        QTRY_COMPARE(sceneOnDisk(u"B#01.xml"_s), u"1"_s);
        QVERIFY(writer.hasUnwritten());
    }

    void clipThatWasDeletedIsToldAndNotKept() {
        ClipWriter writer;
        const QSignalSpy lost(&writer, &ClipWriter::lost);
        ClipInfo clip = clipNamed(u"A#01.xml"_s);
        QVERIFY(QFile::remove(joinPath(folder(), u"A#01.xml"_s)));
        writer.write(clip, folder());
        QCOMPARE(lost.size(), 1);
        QVERIFY(lost[0][0].toString().startsWith(u"“A#01.xml” could not be saved: "_s));
        QVERIFY(!writer.hasUnwritten());
        QVERIFY(!QFile::exists(joinPath(folder(), u"A#01.xml"_s)));
    }

    void clipOfAFolderThatIsOfflineIsWrittenWhenItIsBack() {
        ClipWriter writer;
        const QString card = joinPath(folder(), u"card"_s);
        QVERIFY(QDir().mkpath(card));
        ClipInfo clip = clipNamed(u"A#01.xml"_s, card);
        clip.setClipScene(u"1"_s);
        QVERIFY(QFile::rename(card, joinPath(folder(), u"away"_s)));
        writer.write(clip, card);
        QVERIFY(writer.hasUnwritten());
        QVERIFY(QFile::rename(joinPath(folder(), u"away"_s), card));
        writer.retry();
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s, card), u"1"_s);
    }

    void whatIsKeptFollowsItsClipIntoTheTrashAndToANewFolder() {
        ClipWriter writer;
        const QString from = joinPath(folder(), u"from"_s);
        const QString to = joinPath(folder(), u"to"_s);
        QVERIFY(QDir().mkpath(joinPath(from, u"Trash"_s)));
        ClipInfo clip = clipNamed(u"A#01.xml"_s, from);
        clip.setClipScene(u"1"_s);
        fillDisk();
        writer.write(clip, from);
        _disk.reset();
        QVERIFY(QFile::rename(joinPath(from, u"A#01.xml"_s), joinPath(from, u"Trash/A#01.xml"_s)));
        writer.clipMoved(clip, from, joinPath(from, u"Trash"_s));
        QVERIFY(QFile::rename(from, to));
        writer.folderMoved(from, to);
        writer.retry();
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s, joinPath(to, u"Trash"_s)), u"1"_s);
    }

    void anotherClipOfTheNameIsNotWrittenOver() {
        ClipWriter writer;
        ClipInfo old = clipNamed(u"A#01.xml"_s);
        old.setClipScene(u"old"_s);
        fillDisk();
        writer.write(old, folder());
        _disk.reset();
        QVERIFY(QFile::remove(joinPath(folder(), u"A#01.xml"_s)));
        const ClipInfo take = clipNamed(u"A#01.xml"_s);
        writer.clipReplaced(take, folder());
        writer.retry();
        QCOMPARE(sceneOnDisk(u"A#01.xml"_s), QString());
        QVERIFY(!writer.hasUnwritten());
    }
};

QTEST_GUILESS_MAIN(ClipWriterTest)
#include "ClipWriterTest.moc"
