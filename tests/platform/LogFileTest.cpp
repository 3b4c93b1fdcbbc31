// The log as a file: what its lines say, and that it costs the program nothing when it cannot be written.
#include "platform/FakeClock.h"
#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/ForwardingFileSystem.h"
#include "platform/Log.h"
#include "platform/LogFile.h"
#include "platform/LogLine.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <future>
#include <mutex>
#include <thread>

using namespace marquill;

namespace {

// What the log passes on: in the program, what standard error gets.
QStringList passedOn;
std::mutex passedOnMutex;

void notePassedOn(QtMsgType, const QMessageLogContext&, const QString& message) {
    const std::scoped_lock lock(passedOnMutex);
    passedOn.append(message);
}

// Stands where the toolkit's own handler stands in the program.
class NotingHandler {
  public:
    NotingHandler() : _before(qInstallMessageHandler(notePassedOn)) { passedOn.clear(); }
    ~NotingHandler() { qInstallMessageHandler(_before); }
    NotingHandler(const NotingHandler&) = delete;
    NotingHandler& operator=(const NotingHandler&) = delete;

  private:
    QtMessageHandler _before;
};

// A disk that does not answer until it is let go.
class HangingFileSystem : public ForwardingFileSystem {
  public:
    explicit HangingFileSystem(std::shared_future<void> go) : _go(std::move(go)) {}
    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        _go.wait();
        return system().open(path, mode);
    }
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        _go.wait();
        return system().attributes(path, links);
    }

  private:
    std::shared_future<void> _go;
};

}  // namespace

class LogFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<NotingHandler> _noting;

    QByteArray content(const QString& name = u"marquill.log"_s) const {
        QFile file(joinPath(_folder->path(), name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "none"_ba;
    }
    QByteArrayList lines() const { return content().chopped(1).split('\n'); }

    void start(LogFile& log, LogFile::Manner manner = LogFile::Manner::plain) const {
        log.start(_folder->path(), u"test"_s, manner);
    }

    static bool isWritten(LogFile& log) { return log.waitUntilWritten(std::chrono::minutes(1)); }

  private Q_SLOTS:
    void init() {
        qputenv("TZ", "UTC");
        _folder = std::make_unique<QTemporaryDir>();
        _noting = std::make_unique<NotingHandler>();
    }
    void cleanup() { _noting.reset(); }

    void aLineTellsMomentProcessLevelCategoryAndMessage() {
        qputenv("TZ", "Asia/Kolkata");
        const Date moment(std::chrono::duration<double>(1'795'248'300.0625));
        QCOMPARE(LogLine::of(moment, QtWarningMsg, "marquill.connect", u"No trash folder found"),
                 "2026-11-21T13:35:00.062+05:30 " + QByteArray::number(QCoreApplication::applicationPid()) +
                     " warning connect: No trash folder found\n");
    }

    void aLineTellsHowFarWestOfUtcItIs() {
        qputenv("TZ", "America/St_Johns");
        const Date moment(std::chrono::duration<double>(1'795'248'300));
        QVERIFY(LogLine::of(moment, QtInfoMsg, "qt.qpa", u"a").startsWith("2026-11-21T04:35:00.000-03:30 "));
        QVERIFY(LogLine::of(moment, QtInfoMsg, "qt.qpa", u"a").endsWith(" info qt.qpa: a\n"));
    }

    // A file's name must not be able to add lines to the log, nor to command the terminal that shows it.
    void aMessageIsOneLineWhateverItHolds() {
        const QByteArray line =
            LogLine::of({}, QtWarningMsg, "marquill.connect", u"a\nb\r\x1b[2J\x7f\u0085\u2028é\U0001F3AC");
        QCOMPARE(line.sliced(line.indexOf("connect: ")),
                 "connect: a\\nb\\x0d\\x1b[2J\\x7f\\x85\\x2028é🎬\n"_ba);
    }

    void aVeryLongMessageIsCut() {
        const QByteArray line = LogLine::of({}, QtWarningMsg, "a", QString(20'000, u'é'));
        QCOMPARE(line.count("é"), LogLine::longestMessage);
        QVERIFY(line.endsWith("…\n"));
    }

    void theFirstLineTellsOfTheProgramAndItsSurroundings() {
        QCoreApplication::setApplicationVersion(u"1.2.3"_s);
        LogFile log;
        start(log);
        QVERIFY(isWritten(log));
        QCOMPARE(lines().size(), 1);
        const QRegularExpression expected(
            uR"( info application: Marquill 1\.2\.3 starts \(test\)\. Qt 6\.\d+\.\d+, .+, \w+, \w+$)"_s);
        QVERIFY2(expected.match(QString::fromUtf8(lines().first())).hasMatch(), lines().first().constData());
    }

    void messagesGoToTheFileAndWhereTheyWentBefore() {
        LogFile log;
        start(log);
        qCWarning(logMovie, "not a movie");
        qCInfo(logFolders, "a folder");
        QVERIFY(isWritten(log));
        QCOMPARE(lines().size(), 3);
        QVERIFY(lines().at(1).endsWith(" warning movie: not a movie"));
        QVERIFY(lines().at(2).endsWith(" info folders: a folder"));
        QCOMPARE(passedOn, (QStringList{u"not a movie"_s, u"a folder"_s}));
    }

    void messagesBeforeTheStartFollowTheFirstLine() {
        LogFile log;
        qCWarning(logPlatform, "the settings are damaged");
        start(log);
        QVERIFY(isWritten(log));
        QCOMPARE(lines().size(), 2);
        QVERIFY(lines().first().contains("Marquill"));
        QVERIFY(lines().last().endsWith("the settings are damaged"));
    }

    void aQuietLogLeavesNoFileWhenThereIsNothingToTell() {
        {
            LogFile log;
            start(log, LogFile::Manner::quiet);
        }
        QCOMPARE(content(), "none");
        LogFile log;
        start(log, LogFile::Manner::quiet);
        qCWarning(logMovie, "not a movie");
        qCWarning(logMovie, "nor is this");
        QVERIFY(isWritten(log));
        QCOMPARE(lines().size(), 3);
        QVERIFY(lines().first().contains("Marquill"));
    }

    void debugMessagesAreWrittenOnlyWhenAskedFor() {
        LogFile log;
        start(log);
        qCDebug(logMovie, "noise");
        qDebug("a library's noise");
        QLoggingCategory::setFilterRules(u"marquill.movie.debug=true"_s);
        qCDebug(logMovie, "wanted");
        QLoggingCategory::setFilterRules({});
        QVERIFY(isWritten(log));
        QCOMPARE(lines().size(), 2);
        QVERIFY(lines().last().endsWith(" debug movie: wanted"));
    }

    void messagesOfAllThreadsArrive() {
        LogFile log;
        start(log);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([thread] {
                for (int message = 0; message < 100; ++message) {
                    qCWarning(logConnect, "%d of thread %d", message, thread);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        QVERIFY(isWritten(log));
        const QByteArrayList all = lines();
        QCOMPARE(QSet<QByteArray>(all.cbegin(), all.cend()).size(), 401);
    }

    void theEndWritesWhatIsStillToBeWritten() {
        {
            LogFile log;
            start(log);
            for (int message = 0; message < 200; ++message) {
                qCWarning(logConnect, "message %d", message);
            }
        }
        // A disk that does not answer for long is left behind, and writes when it does.
        QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 201, 60'000);
        qCWarning(logConnect, "too late");
        QCOMPARE(lines().size(), 201);
        QCOMPARE(passedOn.last(), u"too late"_s);
    }

    void fiveFilesOfAMegabyteAreKept() {
        LogFile log;
        start(log);
        const QString message(7000, u'm');
        for (int count = 0; count < 1000; ++count) {
            qCWarning(logConnect).noquote() << message;
            if (count % 20 == 0) {
                QVERIFY(isWritten(log));
            }
        }
        QVERIFY(isWritten(log));
        const QStringList names = FileSystem::current().list(_folder->path()).value();
        QCOMPARE(QSet<QString>(names.cbegin(), names.cend()),
                 (QSet<QString>{u"marquill.log"_s, u"marquill.1.log"_s, u"marquill.2.log"_s,
                                u"marquill.3.log"_s, u"marquill.4.log"_s}));
        for (const QString& name : names) {
            QVERIFY(content(name).size() <= 1'000'000);
        }
        QVERIFY(content(u"marquill.1.log"_s).size() > 700'000);
    }

    void afterAFullDiskTheFileTellsHowMuchItLacks() {
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        LogFile log;
        start(log);
        QVERIFY(isWritten(log));
        faulty.failFrom(1, ErrorCode::noSpace);
        qCWarning(logConnect, "one");
        QVERIFY(isWritten(log));
        qCWarning(logConnect, "two");
        QVERIFY(isWritten(log));
        faulty.reset();
        qCWarning(logConnect, "three");
        QVERIFY(isWritten(log));
        QVERIFY2(content().contains(" warning platform: 2 messages are missing here.\n"),
                 content().constData());
        QVERIFY(lines().last().endsWith("three"));
        QCOMPARE(passedOn, (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    }

    void aDiskThatHangsDelaysNobodyAndLinesAreCounted() {
        std::promise<void> go;
        HangingFileSystem hanging(go.get_future().share());
        const InstalledFileSystem installed(hanging);
        LogFile log;
        start(log);
        for (int message = 0; message < 10'000; ++message) {
            qCWarning(logConnect, "message %d", message);
        }
        QCOMPARE(passedOn.size(), 10'000);
        QCOMPARE(content(), "none");
        go.set_value();
        QVERIFY(isWritten(log));
        const QRegularExpression missing(u"platform: (\\d+) messages are missing here\\.\n"_s);
        const QString text = QString::fromUtf8(content());
        QVERIFY(missing.match(text).hasMatch());
        QCOMPARE(text.count(u"connect: message "_s) + missing.match(text).captured(1).toInt(), 10'000);
    }
};

QTEST_GUILESS_MAIN(LogFileTest)
#include "LogFileTest.moc"
