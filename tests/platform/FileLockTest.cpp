// Locks that end with their owner.
#include "platform/FileLock.h"
#include "platform/Files.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace marquill;

class FileLockTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;

    QString path(const QString& name) const { return joinPath(_folder->path(), name); }
    static ErrorCode refusal(const QString& path) {
        const auto lock = FileLock::take(path);
        return lock ? ErrorCode::interrupted : lock.error().code;
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        QVERIFY(writeNewFile(path(u"file"_s), "content"));
    }

    void oneOwnerAtATime() {
        auto lock = FileLock::take(path(u"file"_s));
        QVERIFY(lock);
        QCOMPARE(refusal(path(u"file"_s)), ErrorCode::alreadyExists);
        lock->reset();
        QVERIFY(FileLock::take(path(u"file"_s)));
        QCOMPARE(readFile(path(u"file"_s)).value(), QByteArray("content"));
    }

    void aRenamedFileStaysLocked() {
        const auto lock = FileLock::take(path(u"file"_s));
        QVERIFY(QFile::rename(path(u"file"_s), path(u"renamed"_s)));
        QCOMPARE(refusal(path(u"renamed"_s)), ErrorCode::alreadyExists);
    }

    void whatIsNoFileCannotBeLocked() {
        QCOMPARE(refusal(path(u"missing"_s)), ErrorCode::notFound);
        QVERIFY(!FileLock::take(_folder->path()));
        QVERIFY(QFile::link(path(u"file"_s), path(u"link"_s)));
        QVERIFY(!FileLock::take(path(u"link"_s)));
        QVERIFY(!FileLock::take(QString()));
    }

    void aLockEndsWithItsProcess() {
        std::array<int, 2> ready{};
        QCOMPARE(pipe(ready.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            const auto lock = FileLock::take(path(u"file"_s));
            const char answer = lock ? 'y' : 'n';
            static_cast<void>(!write(ready[1], &answer, 1));
            pause();
            _exit(0);
        }
        char answer = 0;
        QCOMPARE(read(ready[0], &answer, 1), 1);
        QCOMPARE(answer, 'y');
        QCOMPARE(refusal(path(u"file"_s)), ErrorCode::alreadyExists);
        QCOMPARE(kill(child, SIGKILL), 0);
        QCOMPARE(waitpid(child, nullptr, 0), child);
        QVERIFY(FileLock::take(path(u"file"_s)));
        close(ready[0]);
        close(ready[1]);
    }
};

QTEST_GUILESS_MAIN(FileLockTest)
#include "FileLockTest.moc"
