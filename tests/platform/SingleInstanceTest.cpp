// One program of its kind: who is first, what the first is told, and what stands in nobody's way.
#include "platform/Files.h"
#include "platform/SingleInstance.h"

#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

using namespace marquill;
using Outcome = SingleInstance::Outcome;

namespace {

// Longer than any machine takes; nothing here waits for it to pass.
constexpr std::chrono::minutes patience{1};

}  // namespace

class SingleInstanceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;

    // So short that its sockets' names fit into what systems allow.
    QString folder() const { return joinPath(_root->path(), u"run"_s); }
    QStringList left() const { return FileSystem::system().list(folder()).value_or(QStringList()); }

    // Begins a later start in a thread of its own, as the first must be free to answer it.
    Outcome laterStart(const ProgramStart& start) const {
        std::optional<Outcome> outcome;
        const std::unique_ptr<QThread> later(QThread::create(
            [this, &start, &outcome] { outcome = SingleInstance(folder(), u"a"_s).begin(start, patience); }));
        QSignalSpy ended(later.get(), &QThread::finished);
        later->start();
        while (!later->isFinished()) {
            ended.wait(100);
        }
        return *outcome;
    }

  private Q_SLOTS:
    void init() { _root = std::make_unique<QTemporaryDir>(); }

    void theFirstIsToldWhatALaterStartWasGiven() {
        SingleInstance first(folder(), u"a"_s);
        QCOMPARE(first.begin({}), Outcome::first);
        std::vector<ProgramStart> starts;
        connect(&first, &SingleInstance::startedAgain, this,
                [&starts](const ProgramStart& start) { starts.push_back(start); });
        const ProgramStart given{
            .paths = {u"/Shoot/Day 1"_s, u"/a\nb \"c\"\\.mov"_s, u"/Müller 光\U0001F3AC"_s},
            .activationToken = u"token_TIME12"_s};
        QCOMPARE(laterStart(given), Outcome::handedOn);
        QCOMPARE(laterStart({}), Outcome::handedOn);
        QTRY_COMPARE(starts.size(), std::size_t{2});
        QVERIFY(starts[0] == given);
        QVERIFY(starts[1] == ProgramStart());
    }

    void theNextIsFirstWhenTheFirstHasEnded() {
        auto first = std::make_unique<SingleInstance>(folder(), u"a"_s);
        QCOMPARE(first->begin({}), Outcome::first);
        QVERIFY(!left().isEmpty());
        first.reset();
        QVERIFY(left().isEmpty());
        QCOMPARE(SingleInstance(folder(), u"a"_s).begin({}), Outcome::first);
    }

    void kindsRunBesideEachOther() {
        SingleInstance one(folder(), u"a"_s);
        SingleInstance other(folder(), u"b"_s);
        QCOMPARE(one.begin({}), Outcome::first);
        QCOMPARE(other.begin({}), Outcome::first);
    }

    void whatAKilledProgramLeftIsTakenOver() {
        QVERIFY(makeFolders(folder()));
        QVERIFY(writeNewFile(joinPath(folder(), u"a.lock"_s), ""));
        QVERIFY(writeNewFile(joinPath(folder(), u"a.socket"_s), ""));
        SingleInstance first(folder(), u"a"_s);
        QCOMPARE(first.begin({}), Outcome::first);
        QCOMPARE(laterStart({}), Outcome::handedOn);
    }

    // The first is of this very thread, so it cannot answer.
    void aFirstThatHangsIsGivenUp() {
        SingleInstance first(folder(), u"a"_s);
        QCOMPARE(first.begin({}), Outcome::first);
        {
            SingleInstance later(folder(), u"a"_s);
            QTest::ignoreMessage(QtWarningMsg,
                                 "the program that runs already does not answer; this one runs beside it");
            QCOMPARE(later.begin({}, std::chrono::milliseconds(50)), Outcome::alone);
        }
        // What the later one does not own it takes from nobody.
        QCOMPARE(laterStart({}), Outcome::handedOn);
    }

    void withoutAFolderItRunsAlone() {
        QVERIFY(writeNewFile(folder(), "no folder"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"run"_s));
        QCOMPARE(SingleInstance(folder(), u"a"_s).begin({}, patience), Outcome::alone);
    }

    // Nobody waits then for a program that cannot be reached.
    void withoutASocketEachRunsAlone() {
        const QString name(150, u'a');
        SingleInstance first(folder(), name);
        SingleInstance second(folder(), name);
        for (SingleInstance* each : {&first, &second}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"later starts cannot be heard of"_s));
            QCOMPARE(each->begin({}, patience), Outcome::alone);
        }
        QVERIFY(left().isEmpty());
    }

    void nonsenseIsRefused() {
        SingleInstance first(folder(), u"a"_s);
        const QSignalSpy starts(&first, &SingleInstance::startedAgain);
        QCOMPARE(first.begin({}), Outcome::first);
        QLocalSocket socket;
        socket.connectToServer(joinPath(folder(), u"a.socket"_s));
        QVERIFY(socket.waitForConnected());
        QTest::ignoreMessage(QtWarningMsg, "a later start sent what nobody understands");
        socket.write("[\"paths\"]\n");
        QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
        QCOMPARE(laterStart({}), Outcome::handedOn);
        QTRY_COMPARE(starts.size(), 1);
    }

    void itsFolderIsTheSessionsOrTheStateFolder() {
        qputenv("XDG_RUNTIME_DIR", _root->path().toUtf8());
        QCOMPARE(runtimeFolder(), joinPath(_root->path(), u"marquill"_s));
        qputenv("XDG_RUNTIME_DIR", joinPath(_root->path(), u"gone"_s).toUtf8());
        qputenv("XDG_STATE_HOME", "/state");
        QCOMPARE(runtimeFolder(), u"/state/marquill"_s);
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
