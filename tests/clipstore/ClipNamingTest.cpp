// The next free take of a name, and a clip's take and display name.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "platform/ForwardingFileSystem.h"

#include <unistd.h>

using namespace marquill;

namespace {

ClipInfo named(const QString& clipName) {
    ClipInfo info;
    info.setClipName(clipName);
    return info;
}

/// Counts how often a name is asked for; in use while it lives. Its listings are as old as a test wants.
class AskedFileSystem final : public ForwardingFileSystem {
  public:
    AskedFileSystem() { install(this); }
    ~AskedFileSystem() override { install(nullptr); }

    int asked = 0;
    std::optional<QStringList> oldListing = {};

    Result<FileAttributes> attributes(const QString& path, Links links) override {
        ++asked;
        return system().attributes(path, links);
    }
    Result<QStringList> list(const QString& folder) override {
        return oldListing ? Result<QStringList>(*oldListing) : system().list(folder);
    }
};

/// Whether the folder's file system takes "A" and "a" for one name.
bool ignoresCase(const ClipFolder& folder) {
    folder.make(u"case probe"_s);
    return fileExists(folder.path(u"CASE PROBE"_s));
}

}  // namespace

class ClipNamingTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void newNames_data() {
        QTest::addColumn<QStringList>("present");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("newName");
        QTest::addColumn<int>("takeNo");
        QTest::newRow("empty folder") << QStringList() << u"Clip"_s << u"Clip#01"_s << 1;
        QTest::newRow("movie and placeholder both count")
            << QStringList{u"Clip#01.mov"_s, u"Clip#02.xml"_s} << u"Clip"_s << u"Clip#03"_s << 3;
        QTest::newRow("the lowest free take is used again")
            << QStringList{u"Clip#02.xml"_s} << u"Clip"_s << u"Clip#01"_s << 1;
        QTest::newRow("other extensions and the trash occupy none")
            << QStringList{u"Clip#01.MOV"_s, u"Clip#01.R3D"_s, u"Trash/Clip#01.xml"_s} << u"Clip"_s
            << u"Clip#01"_s << 1;
        QTest::newRow("a take of one digit is another name")
            << QStringList{u"Clip#1.xml"_s} << u"Clip"_s << u"Clip#01"_s << 1;
        QTest::newRow("a name with a #") << QStringList{u"A#B#01.xml"_s} << u"A#B"_s << u"A#B#02"_s << 2;
        QTest::newRow("a name with %1") << QStringList() << u"Take %1"_s << u"Take %1#01"_s << 1;
        QTest::newRow("two dots in a name") << QStringList() << u".."_s << u"..#01"_s << 1;
    }
    void newNames() {
        QFETCH(const QStringList, present);
        QFETCH(const QString, name);
        QFETCH(const QString, newName);
        QFETCH(const int, takeNo);
        const ClipFolder folder;
        if (ignoresCase(folder) && present.contains(u"Clip#01.MOV"_s)) {
            QSKIP("this file system takes .MOV and .mov for one");
        }
        QVERIFY(makeFolders(folder.path(u"Trash"_s)));
        for (const QString& file : present) {
            folder.make(file);
        }
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), name), (NewClipName{newName, takeNo}));
    }

    void afterNinetyNineTakesTheHundredthHasThreeDigits() {
        const ClipFolder folder;
        for (int take = 1; take <= 99; ++take) {
            folder.make(u"Clip#%1.xml"_s.arg(take, 2, 10, QChar(u'0')));
        }
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s),
                 (NewClipName{u"Clip#100"_s, 100}));
    }

    // On a network volume each question lasts.
    void manyTakesAreNotAskedForOneByOne() {
        const ClipFolder folder;
        for (int take = 1; take <= 300; ++take) {
            folder.make(u"Clip#%1.%2"_s.arg(take, 2, 10, QChar(u'0')).arg(take % 2 ? u"xml"_s : u"mov"_s));
        }
        AskedFileSystem disk;
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s)->takeNo, 301);
        QVERIFY2(disk.asked < 30, qPrintable(QString::number(disk.asked)));
    }

    void aGapAmongManyTakesIsUsedAgain() {
        const ClipFolder folder;
        for (int take = 1; take <= 40; ++take) {
            folder.make(u"Clip#%1.xml"_s.arg(take == 33 ? 133 : take, 2, 10, QChar(u'0')));
        }
        for (const QString& other :
             {u"Clip#33.txt"_s, u"Clip#033.xml"_s, u"Clip#+33.xml"_s, u"Clip#33 .xml"_s, u"Clip#٣٣.xml"_s,
              u"Clip#3.xml"_s, u"clip#33.xml.mov"_s}) {
            folder.make(other);
        }
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s)->takeNo, 33);
    }

    void whatAListingDoesNotTellIsNotFreeForThat() {
        const ClipFolder folder;
        for (int take = 1; take <= 20; ++take) {
            folder.make(u"Clip#%1.xml"_s.arg(take, 2, 10, QChar(u'0')));
        }
        AskedFileSystem disk;
        disk.oldListing = QStringList{u"Clip#01.xml"_s, u"Clip#12.xml"_s};
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s)->takeNo, 21);
    }

    void letterCaseIsTheFileSystemsAffair() {
        const ClipFolder folder;
        folder.make(u"clip#01.xml"_s);
        const QString expected = ignoresCase(folder) ? u"Clip#02"_s : u"Clip#01"_s;
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s)->name, expected);
    }

    void aLinkToNothingOccupiesItsTake() {
        const ClipFolder folder;
        QCOMPARE(symlink("nowhere", folder.path(u"Clip#01.xml"_s).toUtf8().constData()), 0);
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"Clip"_s)->takeNo, 2);
    }

    void withoutFolderOrNameThereIsNoNewName() {
        const ClipFolder folder;
        QCOMPARE(ClipStore::getNewClipNameForFolder(QString(), u"Clip"_s), std::nullopt);
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), QString()), std::nullopt);
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u""_s), std::nullopt);
    }

    void aNameThatLeavesTheFolderIsNone() {
        const ClipFolder folder;
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"../Clip"_s), std::nullopt);
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"/Clip"_s), std::nullopt);
        QCOMPARE(ClipStore::getNewClipNameForFolder(folder.path(), u"a\0b"_s), std::nullopt);
    }

    void takesAndDisplayNames_data() {
        QTest::addColumn<QString>("clipName");
        QTest::addColumn<QString>("take");
        QTest::addColumn<QString>("displayName");
        QTest::newRow("plain") << u"Int#03.xml"_s << u"03"_s << u"Int"_s;
        QTest::newRow("two #") << u"A#B#07.mov"_s << u"07"_s << u"A#B"_s;
        QTest::newRow("no #") << u"Clip.mov"_s << u""_s << u"Clip"_s;
        QTest::newRow("nothing between # and extension") << u"Clip#.xml"_s << u""_s << u"Clip"_s;
        QTest::newRow("nothing after the #") << u"Clip#"_s << u""_s << u"Clip"_s;
        QTest::newRow("dots in the name") << u"v1.2#03.xml"_s << u"03"_s << u"v1.2"_s;
        QTest::newRow("dots in the take") << u"a#1.5.xml"_s << u"1.5"_s << u"a"_s;
        QTest::newRow("only a take") << u"#01.xml"_s << u"01"_s << u""_s;
        QTest::newRow("no extension") << u"a#01"_s << u"01"_s << u"a"_s;
        QTest::newRow("empty") << u""_s << u""_s << u""_s;
    }
    void takesAndDisplayNames() {
        QFETCH(const QString, clipName);
        QTEST(ClipStore::takeFromClip(named(clipName)), "take");
        QTEST(ClipStore::clipDisplayNameFromClip(named(clipName)), "displayName");
    }

    void theTakeTheUserTypedWins() {
        ClipInfo info = named(u"Int#03.xml"_s);
        info.setClipTake(u"7b"_s);
        QCOMPARE(ClipStore::takeFromClip(info), u"7b"_s);
        info.setClipTake(u""_s);
        QCOMPARE(ClipStore::takeFromClip(info), u"03"_s);
        info.setClipName(u"Clip.mov"_s);
        QCOMPARE(ClipStore::takeFromClip(info), u""_s);
    }

    void aRecordWithoutANameHasEmptyTexts() {
        const ClipInfo empty;
        QCOMPARE(ClipStore::takeFromClip(empty), u""_s);
        QCOMPARE(ClipStore::clipDisplayNameFromClip(empty), u""_s);
        QVERIFY(!ClipStore::takeFromClip(empty).isNull());
        QVERIFY(!ClipStore::clipDisplayNameFromClip(empty).isNull());
    }
};

QTEST_GUILESS_MAIN(ClipNamingTest)
#include "ClipNamingTest.moc"
