// A second start of the program itself: what it hands on, and when it runs on its own.
#include "platform/Files.h"
#include "platform/PropertyListReader.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

constexpr int longTime = 60'000;  // milliseconds

}  // namespace

class SecondStartTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;

    QString path(const QString& name) const { return joinPath(_root->path(), name); }

    QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        // Homes of its own, and no ffmpeg: the demo needs no movies here.
        for (const auto& [variable, folder] :
             {std::pair(u"XDG_CONFIG_HOME"_s, u"config"_s), std::pair(u"XDG_STATE_HOME"_s, u"state"_s),
              std::pair(u"XDG_CACHE_HOME"_s, u"cache"_s), std::pair(u"PATH"_s, u"nothing"_s)}) {
            environment.insert(variable, path(folder));
        }
        environment.remove(u"XDG_RUNTIME_DIR"_s);
        return environment;
    }

    std::unique_ptr<QProcess> start(const QStringList& arguments, const QString& workingFolder = {}) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment());
        process->setWorkingDirectory(workingFolder.isEmpty() ? _root->path() : workingFolder);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(MARQUILL_PROGRAM), arguments);
        return process;
    }

    static bool ends(QProcess& process) {
        return process.waitForFinished(longTime) && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == EXIT_SUCCESS;
    }

    // The record folders that a running program has saved in the settings.
    QStringList savedFolders(const QString& settings = u"config/marquill/settings.plist"_s) const {
        QStringList paths;
        const Dictionary saved = readDictionaryFile(path(settings)).value_or(Dictionary());
        const auto manager = saved.dictionary(u"ClipManagerSettings"_s).value_or(Dictionary());
        const Array folders = manager.array(u"kRecordFolderArray"_s).value_or(Array());
        for (const Value& folder : folders.values()) {
            paths.append(folder.dictionary()->string(u"folderPath"_s).value_or(QString()));
        }
        paths.sort();
        return paths;
    }

    QString makeFolder(const QString& name) const {
        const QString folder = path(name);
        return makeFolders(folder) ? folder : QString();
    }

  private Q_SLOTS:
    void init() { _root = std::make_unique<QTemporaryDir>(); }

    void itsPathsGoToTheRunningProgramAndItEnds() {
        const QString one = makeFolder(u"Day 1"_s);
        const auto first = start({one});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), QStringList{one}, longTime);
        const QString two = makeFolder(u"Tag zwei\n光"_s);
        const QString three = makeFolder(u"-x"_s);
        // As seen from where the second was started.
        const auto second = start({u"../Tag zwei\n光"_s, u"--"_s, u"../-x/"_s}, one);
        QVERIFY(ends(*second));
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), (QStringList{three, one, two}), longTime);
        QCOMPARE(first->state(), QProcess::Running);
        first->kill();
        QVERIFY(first->waitForFinished());
    }

    void ofTwoStartsAtOnceOneRuns() {
        const QString one = makeFolder(u"1"_s);
        const QString two = makeFolder(u"2"_s);
        const auto a = start({one});
        const auto b = start({two});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), (QStringList{one, two}), longTime);
        QTRY_VERIFY_WITH_TIMEOUT((a->state() == QProcess::NotRunning) != (b->state() == QProcess::NotRunning),
                                 longTime);
        for (QProcess* each : {a.get(), b.get()}) {
            each->kill();
            each->waitForFinished();
        }
    }

    void afterAKillTheNextStartRuns() {
        const QString one = makeFolder(u"1"_s);
        const QString two = makeFolder(u"2"_s);
        const auto first = start({one});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), QStringList{one}, longTime);
        first->kill();
        QVERIFY(first->waitForFinished());
        const auto next = start({two});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), (QStringList{one, two}), longTime);
        QCOMPARE(next->state(), QProcess::Running);
        // The one that took over is the one that is told now.
        QVERIFY(ends(*start({})));
        next->kill();
        QVERIFY(next->waitForFinished());
    }

    void otherSettingsAndTheDemoAreProgramsOfTheirOwn() {
        const QString one = makeFolder(u"1"_s);
        const auto first = start({one});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), QStringList{one}, longTime);
        const auto other = start({u"--settings"_s, u"other.plist"_s, u"1"_s});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(u"other.plist"_s), QStringList{one}, longTime);
        const auto demo = start({u"--demo"_s});
        QTRY_VERIFY_WITH_TIMEOUT(fileExists(path(u"cache/marquill/demo/settings.plist"_s)), longTime);
        QVERIFY(ends(*start({u"--settings"_s, path(u"other.plist"_s)})));
        QVERIFY(ends(*start({u"--demo"_s})));
        for (QProcess* each : {first.get(), other.get(), demo.get()}) {
            QCOMPARE(each->state(), QProcess::Running);
            each->kill();
            QVERIFY(each->waitForFinished());
        }
        QCOMPARE(savedFolders(), QStringList{one});
    }

    void commandsRunBesideIt() {
        const QString one = makeFolder(u"1"_s);
        QVERIFY(writeNewFile(joinPath(one, u"Harbour#01.xml"_s), R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>clipName</key><string>Harbour#01.xml</string></dict></plist>
)"));
        const auto first = start({one});
        QTRY_COMPARE_WITH_TIMEOUT(savedFolders(), QStringList{one}, longTime);
        const auto list = start({u"list"_s, one});
        QVERIFY(ends(*list));
        QVERIFY(list->readAllStandardOutput().startsWith("Harbour\t01"));
        first->kill();
        QVERIFY(first->waitForFinished());
    }
};

QTEST_GUILESS_MAIN(SecondStartTest)
#include "SecondStartTest.moc"
