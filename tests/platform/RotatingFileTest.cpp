// A file of lines that several programs append to, and the older ones it becomes.
#include "platform/FaultyFileSystem.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/RotatingFile.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace marquill;

class RotatingFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;

    QString path(const QString& name) const { return joinPath(_folder->path(), name); }
    QByteArray content(const QString& name) const { return readFile(path(name)).value_or("none"); }
    // Ten bytes to a file, and two older ones.
    RotatingFile small() const { return {_folder->path(), u"a.log"_s, 10, 2}; }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<QTemporaryDir>(); }

    void linesStandInTheirOrder() {
        RotatingFile file = small();
        QVERIFY(file.append("one\n"));
        QVERIFY(file.append("two\n"));
        QCOMPARE(content(u"a.log"_s), "one\ntwo\n");
    }

    void aSecondStartGoesOnAtTheEnd() {
        QVERIFY(small().append("one\n"));
        QVERIFY(small().append("two\n"));
        QCOMPARE(content(u"a.log"_s), "one\ntwo\n");
    }

    void missingFoldersAreMade() {
        RotatingFile file(path(u"deep/down"_s), u"a.log"_s, 10, 2);
        QVERIFY(file.append("one\n"));
        QCOMPARE(content(u"deep/down/a.log"_s), "one\n");
    }

    void aFullFileBecomesTheFirstOlderOne() {
        RotatingFile file = small();
        QVERIFY(file.append("12345678\n"));
        QVERIFY(file.append("\n"));
        QCOMPARE(content(u"a.log"_s), "12345678\n\n");
        QVERIFY(file.append("next\n"));
        QCOMPARE(content(u"a.log"_s), "next\n");
        QCOMPARE(content(u"a.1.log"_s), "12345678\n\n");
    }

    void theOldestGoes() {
        RotatingFile file = small();
        for (const char* line : {"1-------\n", "2-------\n", "3-------\n", "4-------\n"}) {
            QVERIFY(file.append(line));
        }
        QCOMPARE(content(u"a.log"_s), "4-------\n");
        QCOMPARE(content(u"a.1.log"_s), "3-------\n");
        QCOMPARE(content(u"a.2.log"_s), "2-------\n");
        QCOMPARE(FileSystem::current().list(_folder->path()).value().size(), 3);
    }

    void whatIsLargerThanAFileGetsOneOfItsOwn() {
        RotatingFile file = small();
        QVERIFY(file.append("a\n"));
        QVERIFY(file.append("very much longer than ten bytes\n"));
        QVERIFY(file.append("b\n"));
        QCOMPARE(content(u"a.2.log"_s), "a\n");
        QCOMPARE(content(u"a.1.log"_s), "very much longer than ten bytes\n");
        QCOMPARE(content(u"a.log"_s), "b\n");
    }

    void aRemovedFileIsMadeAnew() {
        RotatingFile file = small();
        QVERIFY(file.append("one\n"));
        QVERIFY(FileSystem::current().removeFile(path(u"a.log"_s)));
        QVERIFY(file.append("two\n"));
        QCOMPARE(content(u"a.log"_s), "two\n");
    }

    void anotherProgramsRotationIsFollowed() {
        RotatingFile mine = small();
        RotatingFile other = small();
        QVERIFY(mine.append("1-------\n"));
        QVERIFY(other.append("2-----\n"));
        QVERIFY(mine.append("3\n"));
        QCOMPARE(content(u"a.2.log"_s), "none");
        QCOMPARE(content(u"a.1.log"_s), "1-------\n");
        QCOMPARE(content(u"a.log"_s), "2-----\n3\n");
    }

    void aProgramThatKeepsTheLockStopsNobody() {
        RotatingFile file = small();
        QVERIFY(file.append("1\n"));
        const auto lock = FileLock::take(path(u"a.log"_s));
        QVERIFY(lock);
        QVERIFY(file.append("2\n"));
        QCOMPARE(content(u"a.log"_s), "1\n2\n");
    }

    // Four processes write lines of their own; every line must be found whole, in one of the files.
    void linesOfSeveralProgramsStayWhole() {
        constexpr int programs = 4;
        constexpr int linesOfEach = 500;
        std::vector<pid_t> children;
        for (int program = 0; program < programs; ++program) {
            children.push_back(fork());
            if (children.back() == 0) {
                RotatingFile file(_folder->path(), u"a.log"_s, 5000, 100);
                bool isWritten = true;
                for (int line = 0; line < linesOfEach; ++line) {
                    const QByteArray text = QByteArray::number(program) + ' ' + QByteArray::number(line);
                    isWritten = isWritten && file.append(text.rightJustified(99, '.') + '\n');
                }
                _exit(isWritten ? 0 : 1);
            }
        }
        for (const pid_t child : children) {
            int status = -1;
            QCOMPARE(waitpid(child, &status, 0), child);
            QCOMPARE(status, 0);
        }
        QSet<QByteArray> lines;
        const QStringList names = FileSystem::current().list(_folder->path()).value();
        for (const QString& name : names) {
            const QByteArray text = content(name);
            QVERIFY(text.endsWith('\n'));
            for (const QByteArray& line : text.chopped(1).split('\n')) {
                QCOMPARE(line.size(), 99);
                lines.insert(line);
            }
        }
        QCOMPARE(lines.size(), programs * linesOfEach);
    }

    void afterAFailureTheNextLineBeginsOnItsOwn() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        RotatingFile file = small();
        QVERIFY(file.append("a\n"));
        faulty.failAt(1, ErrorCode::noSpace);
        QVERIFY(!file.append("half\n"));
        QVERIFY(file.append("b\n"));
        QCOMPARE(content(u"a.log"_s), "a\nha\nb\n");
    }

    void aFileThatCannotBeRotatedGrowsNoFurther() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        RotatingFile file = small();
        QVERIFY(file.append("1-------\n"));
        faulty.failFrom(1, ErrorCode::permissionDenied);
        QVERIFY(!file.append("2-------\n"));
        faulty.reset();
        QCOMPARE(content(u"a.log"_s), "1-------\n");
        QVERIFY(file.append("3-------\n"));
        QCOMPARE(content(u"a.1.log"_s), "1-------\n");
    }

    void aFolderInItsPlaceIsAnError() {
        QVERIFY(makeFolders(path(u"a.log"_s)));
        const Result<void> written = small().append("one\n");
        QVERIFY(!written);
        QCOMPARE(written.error().code, ErrorCode::notAFile);
    }
};

QTEST_GUILESS_MAIN(RotatingFileTest)
#include "RotatingFileTest.moc"
