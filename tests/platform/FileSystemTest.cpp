// The operating system's files behind the FileSystem interface.
#include "platform/ExclusiveMove.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/NativeName.h"
#include "platform/SystemError.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

using namespace marquill;

namespace {

FileSystem& files() {
    return FileSystem::system();
}

template <class T>
ErrorCode codeOf(const Result<T>& result) {
    return result ? ErrorCode{} : result.error().code;
}

QByteArray contents(const QString& path) {
    return readFile(path).value_or(QByteArray("unreadable"));
}

/// The moment that the file's own tools call its birth, in whole seconds, or -1.
qint64 birthTold(const QString& path) {
    QProcess stat;
    stat.start(u"stat"_s, {u"-c"_s, u"%W"_s, path});
    stat.waitForFinished(60'000);
    return stat.readAllStandardOutput().trimmed().toLongLong();
}

}  // namespace

class FileSystemTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { _folder = std::make_unique<QTemporaryDir>(); }

    void extendedAttributesAreSetAndReplaced() {
        const QString file = path(u"a.xml"_s);
        QVERIFY(writeFile(file, "a"));
        const Result<void> set = files().setExtendedAttribute(file, "user.marquill", "one\0two"_ba);
        if (codeOf(set) == ErrorCode::unsupported) {
            QSKIP("This file system keeps no extended attributes.");
        }
        QVERIFY(set);
        QVERIFY(files().setExtendedAttribute(file, "user.marquill", QByteArray("1\0", 2)));
        std::array<char, 16> value{};
        QCOMPARE(getxattr(file.toUtf8().constData(), "user.marquill", value.data(), value.size()), 2);
        QCOMPARE(QByteArray(value.data(), 2), QByteArray("1\0", 2));
        QCOMPARE(codeOf(files().setExtendedAttribute(path(u"gone"_s), "user.marquill", "a")),
                 ErrorCode::notFound);
    }

    void openNeverWaitsAndTakesOnlyRegularFiles() {
        const QString pipe = path(u"x.xml"_s);
        QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
        QCOMPARE(codeOf(files().open(pipe, OpenMode::read)), ErrorCode::notAFile);
        QCOMPARE(codeOf(files().open(pipe, OpenMode::readWrite)), ErrorCode::notAFile);
        QCOMPARE(codeOf(readFile(pipe)), ErrorCode::notAFile);
        QCOMPARE(codeOf(files().open(u"/dev/null"_s, OpenMode::read)), ErrorCode::notAFile);
        QCOMPARE(codeOf(files().open(_folder->path(), OpenMode::read)), ErrorCode::notAFile);
        QCOMPARE(codeOf(files().open(_folder->path(), OpenMode::readWrite)), ErrorCode::notAFile);
        QCOMPARE(codeOf(files().open(path(u"none"_s), OpenMode::read)), ErrorCode::notFound);
        QCOMPARE(codeOf(files().open(path(u"none"_s), OpenMode::readWrite)), ErrorCode::notFound);
    }

    void aSocketIsNoFile() {
        const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = path(u"s.xml"_s).toUtf8();
        qstrncpy(address.sun_path, name.constData(), sizeof(address.sun_path));
        QCOMPARE(bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        QCOMPARE(codeOf(files().open(path(u"s.xml"_s), OpenMode::read)), ErrorCode::notAFile);
        close(socketFile);
    }

    void createNewRefusesWhateverHasTheName() {
        make(u"a"_s, "kept");
        QCOMPARE(symlink("nowhere", path(u"link"_s).toUtf8().constData()), 0);
        QCOMPARE(codeOf(files().open(path(u"a"_s), OpenMode::createNew)), ErrorCode::alreadyExists);
        QCOMPARE(codeOf(files().open(path(u"link"_s), OpenMode::createNew)), ErrorCode::alreadyExists);
        QCOMPARE(contents(path(u"a"_s)), QByteArray("kept"));
    }

    void readsAndWritesAtOffsets() {
        const auto file = *files().open(path(u"a"_s), OpenMode::createNew);
        QVERIFY(file->write(0, "0123456789"));
        QVERIFY(file->write(3, "abc"));
        QVERIFY(file->sync());
        std::array<char, 8> buffer{};
        QCOMPARE(file->read(6, buffer).value(), 4);
        QCOMPARE(QByteArray(buffer.data(), 4), QByteArray("6789"));
        QCOMPARE(file->read(100, buffer).value(), 0);
        QCOMPARE(contents(path(u"a"_s)), QByteArray("012abc6789"));
        QCOMPARE(file->attributes().value().size, 10);
    }

    void aFileOpenedForReadingIsNotWritten() {
        make(u"a"_s, "kept");
        const auto file = *files().open(path(u"a"_s), OpenMode::read);
        QVERIFY(!file->write(0, "x"));
        QCOMPARE(contents(path(u"a"_s)), QByteArray("kept"));
    }

    void attributesFollowOrKeepLinks() {
        make(u"a"_s, "four");
        QCOMPARE(symlink("a", path(u"link"_s).toUtf8().constData()), 0);
        const FileAttributes real = files().attributes(path(u"a"_s), Links::keep).value();
        const FileAttributes followed = files().attributes(path(u"link"_s), Links::follow).value();
        const FileAttributes link = files().attributes(path(u"link"_s), Links::keep).value();
        QCOMPARE(real.type, FileType::regular);
        QCOMPARE(real.size, 4);
        QVERIFY(followed.isSameFile(real));
        QVERIFY(!link.isSameFile(real));
        QCOMPARE(link.type, FileType::symbolicLink);
        QCOMPARE(files().linkTarget(path(u"link"_s)).value(), u"a"_s);
        QVERIFY(!files().linkTarget(path(u"a"_s)));
        QCOMPARE(files().attributes(_folder->path(), Links::keep).value().type, FileType::folder);
    }

    void creationDateIsTheEarlierOfBirthAndModification() {
        FileAttributes attributes;
        attributes.modificationDate = Date(std::chrono::duration<double>(1000));
        QCOMPARE(attributes.creationDate(), attributes.modificationDate);
        attributes.birthDate = Date(std::chrono::duration<double>(2000));
        QCOMPARE(attributes.creationDate(), attributes.modificationDate);
        attributes.birthDate = Date(std::chrono::duration<double>(500));
        QCOMPARE(attributes.creationDate(), *attributes.birthDate);
    }

    void datesAreTheFileSystemsOwn() {
        make(u"a"_s, "x");
        const std::array<timespec, 2> times{timespec{1'000'000'000, 0}, timespec{1'000'000'000, 250'000'000}};
        QCOMPARE(utimensat(AT_FDCWD, path(u"a"_s).toUtf8().constData(), times.data(), 0), 0);
        const FileAttributes attributes = files().attributes(path(u"a"_s), Links::keep).value();
        QCOMPARE(attributes.modificationDate, Date(std::chrono::duration<double>(1'000'000'000.25)));
        QCOMPARE(attributes.creationDate(), attributes.modificationDate);
        if (const qint64 birth = birthTold(path(u"a"_s)); birth > 0) {
            QVERIFY(attributes.birthDate);
            QCOMPARE(static_cast<qint64>(attributes.birthDate->time_since_epoch().count()), birth);
        }
    }

    void listsEveryNameOnceAndNeitherDot() {
        make(u"b#01.xml"_s, "");
        make(u".hidden"_s, "");
        QVERIFY(files().makeFolder(path(u"Trash"_s)));
        QStringList names = files().list(_folder->path()).value();
        names.sort();
        QCOMPARE(names, QStringList({u".hidden"_s, u"Trash"_s, u"b#01.xml"_s}));
        QCOMPARE(codeOf(files().list(path(u"none"_s))), ErrorCode::notFound);
        QCOMPARE(codeOf(files().list(path(u".hidden"_s))), ErrorCode::notFound);
    }

    void entriesSayWhatEachNameIsInTheOrderOfTheListing() {
        QVERIFY(writeFile(path(u"a.mov"_s), "x"));
        QVERIFY(files().makeFolder(path(u"b.mov"_s)));
        QCOMPARE(symlink("b.mov", path(u"c.mov"_s).toUtf8().constData()), 0);
        QCOMPARE(mkfifo(path(u"d.mov"_s).toUtf8().constData(), 0600), 0);
        FaultyFileSystem wrapper;  // asks for each one's attributes, as any file system may
        for (FileSystem* fileSystem : {&files(), static_cast<FileSystem*>(&wrapper)}) {
            const auto entries = fileSystem->entries(_folder->path()).value();
            QStringList names;
            QMap<QString, FileType> types;
            for (const FolderEntry& entry : entries) {
                names.append(entry.name);
                types[entry.name] = entry.type;
            }
            QCOMPARE(names, files().list(_folder->path()).value());
            QCOMPARE(types[u"a.mov"_s], FileType::regular);
            QCOMPARE(types[u"b.mov"_s], FileType::folder);
            QCOMPARE(types[u"c.mov"_s], FileType::symbolicLink);
            QCOMPARE(types[u"d.mov"_s], FileType::other);
            QCOMPARE(codeOf(fileSystem->entries(path(u"none"_s))), ErrorCode::notFound);
        }
    }

    void listsInTheFileSystemsOwnOrder() {
        for (int number = 0; number < 50; ++number) {
            make(u"clip %1.xml"_s.arg(number), "");
        }
        QProcess tool;
        tool.start(u"ls"_s, {u"-U"_s, _folder->path()});
        QVERIFY(tool.waitForFinished(60'000));
        const QString told = QString::fromUtf8(tool.readAllStandardOutput());
        QCOMPARE(files().list(_folder->path()).value(), told.split(u'\n', Qt::SkipEmptyParts));
    }

    void aNameThatIsNoTextIsLeftOutAndNeverMistaken() {
        const QByteArray folder = _folder->path().toUtf8();
        for (const char* name : {"/caf\xe9.xml", "/caf\xc3\xa9.xml",
                                 "/\xef\xbb\xbf"
                                 "bom.xml",
                                 "/\xef\xbf\xbd.xml"}) {
            close(::open((folder + name).constData(), O_CREAT | O_WRONLY, 0600));
        }
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"caf%E9.xml.* is no UTF-8 text"_s));
        const QStringList names = files().list(_folder->path()).value();
        QCOMPARE(names.size(), 3);
        for (const QString& name : names) {
            QVERIFY2(files().attributes(path(name), Links::keep), qPrintable(name));
        }
        unlink((folder + "/caf\xe9.xml").constData());
    }

    void namesConvertExactlyOrNotAtAll() {
        QCOMPARE(nativeName(u"/a/é"_s), std::optional(QByteArray("/a/\xc3\xa9")));
        QCOMPARE(nativeName(QString()), std::nullopt);
        QCOMPARE(nativeName(u"a\0.xml"_s), std::nullopt);
        QCOMPARE(nativeName(QString(QChar(0xd800))), std::nullopt);
        QCOMPARE(textOfNativeName("\xc0\xaf"), std::nullopt);
        QCOMPARE(textOfNativeName("\xed\xa0\x80"), std::nullopt);
        QCOMPARE(textOfNativeName("\xef\xbb\xbf"
                                  "a"),
                 std::optional(QString(QChar(0xfeff)) + u'a'));
        // Composed and decomposed letters are two names here and stay two.
        QCOMPARE(nativeName(u"e\u0301"_s), std::optional(QByteArray("e\xcc\x81")));
    }

    void aPathWithANulTouchesNothing() {
        make(u"a"_s, "kept");
        const QString strange = path(u"a"_s) + QChar(QChar::Null) + u".xml"_s;
        QCOMPARE(codeOf(files().removeFile(strange)), ErrorCode::notFound);
        QCOMPARE(codeOf(files().replace(strange, path(u"b"_s))), ErrorCode::notFound);
        QCOMPARE(codeOf(files().move(path(u"a"_s), strange)), ErrorCode::notFound);
        QVERIFY(!fileExists(strange));
        QCOMPARE(contents(path(u"a"_s)), QByteArray("kept"));
    }

    void moveNeverReplaces() {
        make(u"a"_s, "a");
        make(u"b"_s, "b");
        QCOMPARE(codeOf(files().move(path(u"a"_s), path(u"b"_s))), ErrorCode::alreadyExists);
        QCOMPARE(contents(path(u"b"_s)), QByteArray("b"));
        QVERIFY(files().move(path(u"a"_s), path(u"c"_s)));
        QCOMPARE(contents(path(u"c"_s)), QByteArray("a"));
        QVERIFY(!fileExists(path(u"a"_s)));
        const Result<void> missing = files().move(path(u"a"_s), path(u"d"_s));
        QCOMPARE(codeOf(missing), ErrorCode::notFound);
        QCOMPARE(missing.error().path, path(u"a"_s));
    }

    void replaceReplaces() {
        make(u"a"_s, "a");
        make(u"b"_s, "b");
        QVERIFY(files().replace(path(u"a"_s), path(u"b"_s)));
        QCOMPARE(contents(path(u"b"_s)), QByteArray("a"));
        QVERIFY(!fileExists(path(u"a"_s)));
    }

    void everyMeansOfMovingIsExclusive_data() {
        QTest::addColumn<int (*)(const char*, const char*)>("move");
        QTest::newRow("in one step") << &renameIfFree;
        QTest::newRow("by a second name") << &linkThenUnlink;
        QTest::newRow("by a reserved name") << &reserveThenRename;
        QTest::newRow("by what the volume has") << &moveIfFree;
    }
    void everyMeansOfMovingIsExclusive() {
        using Move = int (*)(const char*, const char*);
        QFETCH(const Move, move);
        make(u"a"_s, "a");
        make(u"b"_s, "b");
        const QByteArray a = path(u"a"_s).toUtf8();
        const QByteArray b = path(u"b"_s).toUtf8();
        const QByteArray c = path(u"c"_s).toUtf8();
        QCOMPARE(move(a.constData(), b.constData()), EEXIST);
        QCOMPARE(contents(path(u"a"_s)), QByteArray("a"));
        QCOMPARE(contents(path(u"b"_s)), QByteArray("b"));
        QCOMPARE(move(a.constData(), c.constData()), 0);
        QCOMPARE(contents(path(u"c"_s)), QByteArray("a"));
        QVERIFY(!fileExists(path(u"a"_s)));
        QCOMPARE(move(a.constData(), path(u"d"_s).toUtf8().constData()), ENOENT);
        QVERIFY(!fileExists(path(u"d"_s)));
    }

    void ofTwoProcessesWithOneNewNameOneIsRefused() {
        // Each process reports by its exit code: 0 written, 1 refused because the name was taken.
        for (int round = 0; round < 20; ++round) {
            const QString clip = path(u"c#%1.xml"_s.arg(round));
            std::array<pid_t, 2> children{};
            for (pid_t& child : children) {
                child = fork();
                if (child == 0) {
                    const Result<void> written = writeNewFile(clip, QByteArray::number(qint64{getpid()}));
                    _exit(written ? 0 : written.error().code == ErrorCode::alreadyExists ? 1 : 2);
                }
            }
            std::array<int, 2> codes{};
            for (std::size_t child = 0; child < children.size(); ++child) {
                int status = 0;
                waitpid(children[child], &status, 0);
                codes[child] = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
            QCOMPARE(codes[0] + codes[1], 1);
            QCOMPARE(contents(clip), QByteArray::number(qint64{children[codes[0] == 0 ? 0 : 1]}));
        }
    }

    void aKilledWriterLeavesAWholeFile() {
        const QString clip = path(u"c#01.xml"_s);
        const QByteArray first(200'000, 'a');
        const QByteArray second(300'000, 'b');
        QVERIFY(writeFile(clip, first));
        for (int round = 0; round < 12; ++round) {
            const pid_t child = fork();
            if (child == 0) {
                for (;;) {
                    static_cast<void>(writeFile(clip, second));
                    static_cast<void>(writeFile(clip, first));
                }
            }
            QTest::qSleep(3 + 7 * round % 20);
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            const QByteArray found = contents(clip);
            QVERIFY(found == first || found == second);
        }
    }

    void foldersAreMadeAndRemoved() {
        QVERIFY(files().makeFolder(path(u"Trash"_s)));
        QCOMPARE(codeOf(files().makeFolder(path(u"Trash"_s))), ErrorCode::alreadyExists);
        make(u"Trash/a"_s, "");
        QCOMPARE(codeOf(files().removeFolder(path(u"Trash"_s))), ErrorCode::alreadyExists);
        QCOMPARE(codeOf(files().removeFile(path(u"Trash"_s))), ErrorCode::notAFile);
        QVERIFY(files().removeFile(path(u"Trash/a"_s)));
        QVERIFY(files().syncFolder(path(u"Trash"_s)));
        QVERIFY(files().removeFolder(path(u"Trash"_s)));
        QCOMPARE(codeOf(files().syncFolder(path(u"Trash"_s))), ErrorCode::notFound);
    }

    void permissionsAreSetAndRead() {
        make(u"a"_s, "");
        QVERIFY(files().open(path(u"a"_s), OpenMode::read).value()->setPermissions(0604));
        QCOMPARE(files().attributes(path(u"a"_s), Links::keep).value().permissions, 0604U);
    }

    void errorsSayWhatToDo_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<ErrorCode>("code");
        QTest::addColumn<QString>("word");
        QTest::newRow("full") << ENOSPC << ErrorCode::noSpace << u"Free some space"_s;
        QTest::newRow("quota") << EDQUOT << ErrorCode::noSpace << u"Free some space"_s;
        QTest::newRow("read-only") << EROFS << ErrorCode::readOnly << u"read-only"_s;
        QTest::newRow("not allowed") << EACCES << ErrorCode::permissionDenied << u"permissions"_s;
        QTest::newRow("missing") << ENOENT << ErrorCode::notFound << u"moved or deleted"_s;
        QTest::newRow("long name") << ENAMETOOLONG << ErrorCode::unsupported << u"Shorten it"_s;
        QTest::newRow("device") << EIO << ErrorCode::inputOutput << u"device failed"_s;
        QTest::newRow("another one") << ENOTRECOVERABLE << ErrorCode::inputOutput << u"not recoverable"_s;
    }
    void errorsSayWhatToDo() {
        QFETCH(const int, number);
        QFETCH(const QString, word);
        const Error error = systemError(number, u"/a/b"_s);
        QTEST(error.code, "code");
        QVERIFY2(error.message.contains(word), qPrintable(error.message));
        QCOMPARE(error.path, u"/a/b"_s);
    }

    void anInstalledFileSystemIsTheOneInUse() {
        FaultyFileSystem faulty;
        {
            const InstalledFileSystem installed(faulty);
            QVERIFY(makeFolders(path(u"a/b"_s)));
        }
        QCOMPARE(faulty.changes(),
                 QStringList({u"makeFolder "_s + path(u"a"_s), u"makeFolder "_s + path(u"a/b"_s)}));
        QCOMPARE(&FileSystem::current(), &FileSystem::system());
    }

  private:
    QString path(const QString& name) const { return joinPath(_folder->path(), name); }

    void make(const QString& name, QByteArrayView bytes) {
        const auto file = files().open(path(name), OpenMode::createNew);
        QVERIFY(file);
        QVERIFY((*file)->write(0, bytes));
    }

    std::unique_ptr<QTemporaryDir> _folder;
};

QTEST_GUILESS_MAIN(FileSystemTest)
#include "FileSystemTest.moc"
