// Whole files, written so that a reader never sees a part of one, on volumes that fail and in processes that
// die.
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

using namespace marquill;

namespace {

const QByteArray oldBytes = "the old take, whole";
const QByteArray newBytes = "the new take, whole and longer than the old one";

QByteArray contents(const QString& path) {
    const Result<QByteArray> bytes = readFile(path);
    return bytes ? *bytes : QByteArray("unreadable");
}

QStringList temporariesIn(const QString& folder) {
    const QStringList names = FileSystem::system().list(folder).value_or(QStringList());
    return names.filter(u".marquill-"_s);
}

ErrorCode codeOf(const Result<void>& result) {
    return result ? ErrorCode{} : result.error().code;
}

}  // namespace

class FilesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        _path = joinPath(_folder->path(), u"Interview#01.xml"_s);
    }
    void cleanup() { FileSystem::install(nullptr); }

    void writesAndReadsAWholeFile_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("text") << newBytes;
        for (const int size : {1, 16'383, 16'384, 16'385}) {
            QTest::addRow("%d bytes", size) << QByteArray(size, 'x');
        }
        QTest::newRow("zeros and more than a block") << QByteArray(300'000, '\0') + "end";
    }
    void writesAndReadsAWholeFile() {
        QFETCH(const QByteArray, bytes);
        QVERIFY(writeFile(_path, bytes));
        QCOMPARE(contents(_path), bytes);
        QVERIFY(writeFile(_path, oldBytes));
        QCOMPARE(contents(_path), oldBytes);
        QCOMPARE(FileSystem::current().list(_folder->path()).value(), QStringList{u"Interview#01.xml"_s});
    }

    void aNameOfTwoHundredAndFiftyFiveBytesIsWritten() {
        const QString path = joinPath(_folder->path(), QString(251, u'n') + u".xml"_s);
        QVERIFY(writeFile(path, oldBytes));
        QVERIFY(writeFile(path, newBytes));
        QCOMPARE(contents(path), newBytes);
        const QString newPath = joinPath(_folder->path(), QString(251, u'm') + u".xml"_s);
        QVERIFY(writeNewFile(newPath, newBytes));
        QCOMPARE(contents(newPath), newBytes);
    }

    void theTemporaryFileIsNoClipAndIsSyncedBeforeItGetsItsName() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        QVERIFY(writeFile(_path, newBytes));
        const QStringList changes = faulty.changes();
        QCOMPARE(changes.size(), 5);
        const QString temporary = changes.at(0).section(u' ', 1);
        QVERIFY(changes.at(0).startsWith("create "_L1));
        QVERIFY(lastPathComponent(temporary).startsWith(".marquill-"_L1));
        QVERIFY(!temporary.endsWith(".xml"_L1) && !temporary.endsWith(".mov"_L1));
        QCOMPARE(parentFolder(temporary), _folder->path());
        QCOMPARE(changes.sliced(1), QStringList({u"write "_s + temporary, u"sync "_s + temporary,
                                                 u"replace "_s + _path, u"syncFolder "_s + _folder->path()}));
    }

    void aProcessThatDiesAtAnyMomentLeavesTheOldFileOrTheNewOne_data() {
        QTest::addColumn<bool>("replacing");
        QTest::newRow("replacing a file") << true;
        QTest::newRow("a new file") << false;
    }
    void aProcessThatDiesAtAnyMomentLeavesTheOldFileOrTheNewOne() {
        QFETCH(const bool, replacing);
        using Death = FaultyFileSystem::Death;
        const int operations = replacing ? 6 : 5;
        bool sawOld = false;
        bool sawNew = false;
        for (int number = 1; number <= operations; ++number) {
            for (const Death death : {Death::before, Death::halfway, Death::after}) {
                init();
                if (replacing) {
                    QVERIFY(writeFile(_path, oldBytes));
                }
                FaultyFileSystem faulty;
                {
                    const InstalledFileSystem installed(faulty);
                    faulty.dieAt(number, death);
                    static_cast<void>(replacing ? writeFile(_path, newBytes) : writeNewFile(_path, newBytes));
                }
                QVERIFY2(faulty.isDead(), qPrintable(u"no operation %1"_s.arg(number)));
                const bool isOld = replacing ? contents(_path) == oldBytes : !fileExists(_path);
                const bool isNew = contents(_path) == newBytes;
                QVERIFY2(isOld || isNew, qPrintable(faulty.changes().join(u'\n')));
                sawOld |= isOld;
                sawNew |= isNew;
                const bool renamed =
                    number > operations - 1 || (number == operations - 1 && death == Death::after);
                QCOMPARE(isNew, renamed);
            }
        }
        QVERIFY(sawOld && sawNew);
    }

    void aFailureAtAnyMomentLeavesTheOldFileAndNoTemporary_data() {
        QTest::addColumn<ErrorCode>("code");
        QTest::newRow("full volume") << ErrorCode::noSpace;
        QTest::newRow("read-only volume") << ErrorCode::readOnly;
        QTest::newRow("failing device") << ErrorCode::inputOutput;
    }
    void aFailureAtAnyMomentLeavesTheOldFileAndNoTemporary() {
        QFETCH(const ErrorCode, code);
        constexpr int renaming = 5;
        for (int number = 1; number <= renaming; ++number) {
            if (number == 2) {
                continue;  // The permissions: a memory card has none, and the file is written all the same.
            }
            init();
            QVERIFY(writeFile(_path, oldBytes));
            FaultyFileSystem faulty;
            const InstalledFileSystem installed(faulty);
            faulty.failFrom(number, code);
            const Result<void> written = writeFile(_path, newBytes);
            QCOMPARE(codeOf(written), code);
            QCOMPARE(written.error().path, _path);
            QCOMPARE(contents(_path), oldBytes);
            QCOMPARE(temporariesIn(_folder->path()), QStringList());
        }
    }

    void volumesWithoutPermissionsOrFolderSyncAreWrittenTo() {
        QVERIFY(writeFile(_path, oldBytes));
        for (const int number : {2, 6}) {
            FaultyFileSystem faulty;
            const InstalledFileSystem installed(faulty);
            faulty.failAt(number, ErrorCode::unsupported);
            QVERIFY(writeFile(_path, newBytes));
            QCOMPARE(faulty.changeCount(), 6);
            QCOMPARE(contents(_path), newBytes);
        }
    }

    void replacingKeepsThePermissions() {
        QVERIFY(writeFile(_path, oldBytes));
        QCOMPARE(chmod(_path.toUtf8().constData(), 0640), 0);
        QVERIFY(writeFile(_path, newBytes));
        QCOMPARE(FileSystem::current().attributes(_path, Links::keep).value().permissions, 0640U);
    }

    void aNewFileHasThePermissionsTheUserGivesNewFiles() {
        const mode_t mask = umask(027);
        QVERIFY(writeFile(_path, oldBytes));
        umask(mask);
        QCOMPARE(FileSystem::current().attributes(_path, Links::keep).value().permissions, 0640U);
    }

    void aSymbolicLinkIsWrittenThrough_data() {
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<bool>("exists");
        QTest::newRow("relative") << QByteArray("elsewhere/real.xml") << true;
        QTest::newRow("up and down") << QByteArray("elsewhere/../elsewhere/real.xml") << true;
        QTest::newRow("absolute") << QByteArray() << true;
        QTest::newRow("to nothing yet") << QByteArray("elsewhere/real.xml") << false;
    }
    void aSymbolicLinkIsWrittenThrough() {
        QFETCH(QByteArray, target);
        QFETCH(const bool, exists);
        const QString elsewhere = joinPath(_folder->path(), u"elsewhere"_s);
        const QString real = joinPath(elsewhere, u"real.xml"_s);
        QVERIFY(makeFolders(elsewhere));
        if (exists) {
            QVERIFY(writeFile(real, oldBytes));
        }
        if (target.isEmpty()) {
            target = real.toUtf8();
        }
        const QString between = joinPath(_folder->path(), u"between"_s);
        QCOMPARE(symlink(target.constData(), between.toUtf8().constData()), 0);
        QCOMPARE(symlink("between", _path.toUtf8().constData()), 0);
        QVERIFY(writeFile(_path, newBytes));
        QCOMPARE(contents(real), newBytes);
        QCOMPARE(FileSystem::current().attributes(_path, Links::keep).value().type, FileType::symbolicLink);
        QCOMPARE(temporariesIn(_folder->path()), QStringList());
        QCOMPARE(codeOf(writeNewFile(_path, oldBytes)), ErrorCode::alreadyExists);
        QCOMPARE(contents(real), newBytes);
    }

    void linksInACircleAreRefused() {
        QCOMPARE(symlink("b", joinPath(_folder->path(), u"a"_s).toUtf8().constData()), 0);
        QCOMPARE(symlink("a", joinPath(_folder->path(), u"b"_s).toUtf8().constData()), 0);
        QCOMPARE(codeOf(writeFile(joinPath(_folder->path(), u"a"_s), newBytes)), ErrorCode::notFound);
    }

    void aFolderOrPipeIsNeverReplaced() {
        QVERIFY(makeFolders(_path));
        QCOMPARE(codeOf(writeFile(_path, newBytes)), ErrorCode::notAFile);
        QCOMPARE(codeOf(writeNewFile(_path, newBytes)), ErrorCode::alreadyExists);
        const QString pipe = joinPath(_folder->path(), u"pipe.xml"_s);
        QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
        QCOMPARE(codeOf(writeFile(pipe, newBytes)), ErrorCode::notAFile);
        QCOMPARE(FileSystem::current().attributes(pipe, Links::keep).value().type, FileType::other);
        QCOMPARE(temporariesIn(_folder->path()), QStringList());
    }

    void aNewFileNeverReplacesOne() {
        QVERIFY(writeNewFile(_path, oldBytes));
        QCOMPARE(codeOf(writeNewFile(_path, newBytes)), ErrorCode::alreadyExists);
        QCOMPARE(contents(_path), oldBytes);
        QCOMPARE(temporariesIn(_folder->path()), QStringList());
    }

    void ofManyWritersOfOneNewFileExactlyOneWins() {
        constexpr int writers = 4;
        for (int round = 0; round < 25; ++round) {
            const QString path = joinPath(_folder->path(), u"c#%1.xml"_s.arg(round));
            std::atomic<int> winners = 0;
            std::atomic<int> refused = 0;
            std::atomic<int> winner = -1;
            std::atomic<bool> go = false;
            std::vector<std::thread> threads;
            for (int writer = 0; writer < writers; ++writer) {
                threads.emplace_back([&, writer] {
                    while (!go) {
                    }
                    const Result<void> written = writeNewFile(path, QByteArray::number(writer));
                    if (written) {
                        ++winners;
                        winner = writer;
                    } else if (written.error().code == ErrorCode::alreadyExists) {
                        ++refused;
                    }
                });
            }
            go = true;
            for (std::thread& thread : threads) {
                thread.join();
            }
            QCOMPARE(winners.load(), 1);
            QCOMPARE(refused.load(), writers - 1);
            QCOMPARE(contents(path), QByteArray::number(winner.load()));
        }
        QCOMPARE(temporariesIn(_folder->path()), QStringList());
    }

    void aMissingFolderIsSaidToBeMissing() {
        const QString path = joinPath(_folder->path(), u"gone/c#01.xml"_s);
        QCOMPARE(codeOf(writeFile(path, newBytes)), ErrorCode::notFound);
        QCOMPARE(codeOf(writeNewFile(path, newBytes)), ErrorCode::notFound);
        QCOMPARE(writeNewFile(path, newBytes).error().path, path);
        QCOMPARE(readFile(path).error().code, ErrorCode::notFound);
    }

    void filesAboveOneGibibyteAreNotRead() {
        QCOMPARE(
            FileSystem::current().open(_path, OpenMode::createNew).value()->write(1 << 30, "x").has_value(),
            true);
        QCOMPARE(readFile(_path).error().code, ErrorCode::unsupported);
    }

    void existenceFollowsLinks() {
        const QString link = joinPath(_folder->path(), u"link"_s);
        QCOMPARE(symlink("Interview#01.xml", link.toUtf8().constData()), 0);
        QVERIFY(!fileExists(link));
        QVERIFY(writeFile(_path, oldBytes));
        QVERIFY(fileExists(link));
        QVERIFY(!folderExists(link));
        QVERIFY(folderExists(_folder->path()));
        QVERIFY(!fileExists(QString()));
    }

    void foldersAreMadeWithThoseAboveThem() {
        const QString deep = joinPath(_folder->path(), u"a/b/c"_s);
        QVERIFY(makeFolders(deep));
        QVERIFY(folderExists(deep));
        QVERIFY(makeFolders(deep));
        QVERIFY(writeFile(_path, oldBytes));
        QVERIFY(!makeFolders(_path));
        QVERIFY(!makeFolders(joinPath(_path, u"x"_s)));
    }

    void removingAFolderNeverFollowsALink() {
        const QString outside = joinPath(_folder->path(), u"outside"_s);
        const QString inside = joinPath(_folder->path(), u"inside"_s);
        QVERIFY(makeFolders(joinPath(inside, u"deeper"_s)));
        QVERIFY(makeFolders(outside));
        QVERIFY(writeFile(joinPath(outside, u"kept"_s), oldBytes));
        QVERIFY(writeFile(joinPath(inside, u"deeper/gone"_s), oldBytes));
        QCOMPARE(symlink("../outside", joinPath(inside, u"link"_s).toUtf8().constData()), 0);
        QVERIFY(removeAll(inside));
        QVERIFY(!fileExists(inside));
        QCOMPARE(contents(joinPath(outside, u"kept"_s)), oldBytes);
        QCOMPARE(codeOf(removeAll(inside)), ErrorCode::notFound);
    }

    void pathParts_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("without");
        QTest::newRow("plain") << u"/a/b/c#01.xml"_s << u"/a/b"_s << u"c#01.xml"_s << u"xml"_s
                               << u"/a/b/c#01"_s;
        QTest::newRow("two dots") << u"c.d#01.xml"_s << u"."_s << u"c.d#01.xml"_s << u"xml"_s << u"c.d#01"_s;
        QTest::newRow("only a dot name") << u"/a/.xml"_s << u"/a"_s << u".xml"_s << QString() << u"/a/.xml"_s;
        QTest::newRow("dot at the end") << u"a."_s << u"."_s << u"a."_s << QString() << u"a."_s;
        QTest::newRow("no dot") << u"a"_s << u"."_s << u"a"_s << QString() << u"a"_s;
        QTest::newRow("dot in the folder") << u"/a.b/c"_s << u"/a.b"_s << u"c"_s << QString() << u"/a.b/c"_s;
        QTest::newRow("slashes at the end")
            << u"/a/b.mov//"_s << u"/a"_s << u"b.mov"_s << u"mov"_s << u"/a/b"_s;
        QTest::newRow("two slashes") << u"/a//b"_s << u"/a"_s << u"b"_s << QString() << u"/a//b"_s;
        QTest::newRow("in the root") << u"/a.mov"_s << u"/"_s << u"a.mov"_s << u"mov"_s << u"/a"_s;
        QTest::newRow("root") << u"/"_s << u"/"_s << u"/"_s << QString() << u"/"_s;
        QTest::newRow("nothing") << QString() << u"."_s << QString() << QString() << QString();
    }
    void pathParts() {
        QFETCH(const QString, path);
        QTEST(parentFolder(path), "folder");
        QTEST(lastPathComponent(path), "name");
        QTEST(pathExtension(path), "extension");
        QTEST(withoutPathExtension(path), "without");
    }

    void pathsAreJoinedWithOneSlash() {
        QCOMPARE(joinPath(u"/a"_s, u"b"_s), u"/a/b"_s);
        QCOMPARE(joinPath(u"/a//"_s, u"b"_s), u"/a/b"_s);
        QCOMPARE(joinPath(u"/"_s, u"b"_s), u"/b"_s);
        QCOMPARE(joinPath(QString(), u"b"_s), u"b"_s);
    }

  private:
    std::unique_ptr<QTemporaryDir> _folder;
    QString _path;
};

QTEST_GUILESS_MAIN(FilesTest)
#include "FilesTest.moc"
