#include "movie/Movie.h"
#include "movie/MovieTools.h"
#include "movie/MovieUpdate.h"
#include "movie/WatchedFileSystem.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

#include <future>

using namespace marquill;

/// An update that stops at any write, whole or by half: every reader finds the old record or the new one.
class MovieDeathTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyStateHoldsTheOldRecordOrTheNewOne();
    void aKilledProcessLeavesTheOldRecordOrTheNewOne();
};

namespace {

constexpr FourCharCode recordType("KVXN");

struct Scenario {
    QString name;
    QByteArray file;
};

/// The same movie with its header in all the places that differ for an update.
std::vector<Scenario> scenarios() {
    const QByteArray last = smallMovie();
    std::vector<QByteArray> atoms = topLevelAtoms(last);
    const QByteArray moov = atoms.back();
    const QByteArray media = last.chopped(moov.size());
    const QByteArray first = readBytes(ffmpegMovie(
        u"first.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25"_s, u"-frames:v"_s,
                         u"10"_s, u"-c:v"_s, u"mpeg4"_s, u"-movflags"_s, u"+faststart"_s}));
    const QByteArray room(5000, 'r');
    QByteArray firstToEnd = first;
    const qint64 mdat = first.size() - topLevelAtoms(first).back().size();
    firstToEnd.replace(mdat, 4, QByteArray(4, '\0'));
    return {{u"header first"_s, first},
            {u"header last"_s, last},
            {u"header compressed"_s, media + atom("moov", MovieBuilder::compressed(moov))},
            {u"header with a 64-bit size"_s, media + longAtom("moov", moov.sliced(8))},
            {u"room of the right size"_s, media + atom("free", room) + moov},
            {u"large room"_s, media + atom("free", QByteArray(300000, 'r')) + moov},
            {u"room with a 64-bit size"_s, media + longAtom("free", room) + moov},
            {u"room behind the header"_s, media + moov + atom("free", room)},
            {u"room to the end"_s, media + moov + atomToEnd("free", room)},
            {u"header to the end"_s, media + atomToEnd("moov", moov.sliced(8))},
            {u"media to the end"_s, firstToEnd},
            {u"two headers"_s, media + moov + moov},
            {u"cut switch"_s, media + atom("frov", room) + moov},
            {u"zeros behind the header"_s, media + moov + QByteArray(4, '\0')}};
}

/// A state that an update left, waiting for the other program's opinion.
struct State {
    QString path;
    QString name;
};

class Deaths {
  public:
    Deaths(const QTemporaryDir& folder, const Scenario& scenario) : _folder(folder), _scenario(scenario) {}

    /// Updates the scenario's movie from `before` to `after` and dies everywhere in between.
    void run(const QByteArray& before, const QByteArray& after, std::vector<State>& states) {
        const QByteArray base = withRecord(before);
        QVERIFY(!base.isEmpty());
        const int writes = writesOf(base, after);
        QVERIFY(writes >= 3);
        for (int done = 0; done <= writes; ++done) {
            for (const bool tears : {false, true}) {
                if (done < writes || !tears) {
                    const QString path = die(base, after, done, tears);
                    check(path, before, after);
                    states.push_back({path, u"%1, %2 writes%3, %4 to %5 bytes"_s.arg(_scenario.name)
                                                .arg(done)
                                                .arg(tears ? u" and a half"_s : u""_s)
                                                .arg(before.size())
                                                .arg(after.size())});
                }
            }
        }
    }

  private:
    QString pathOf(const QString& name) const { return _folder.filePath(name); }

    QByteArray withRecord(const QByteArray& record) {
        const QString path = pathOf(u"base.mov"_s);
        writeBytes(path, _scenario.file);
        _media = mediaOf(path);
        if (!record.isEmpty() && !setUserDataItem(path, recordType, 1, record)) {
            return {};
        }
        return readBytes(path);
    }

    int writesOf(const QByteArray& base, const QByteArray& after) {
        const QString path = pathOf(u"whole.mov"_s);
        writeBytes(path, base);
        WatchedFileSystem files;
        const Result<void> result = setUserDataItem(path, recordType, 1, after);
        return result ? files.writes : -1;
    }

    QString die(const QByteArray& base, const QByteArray& after, int done, bool tears) {
        static int number = 0;
        const QString path = pathOf(u"%1.mov"_s.arg(++number));
        writeBytes(path, base);
        WatchedFileSystem files;
        files.dieAfter = done;
        files.tears = tears;
        const Result<void> result = setUserDataItem(path, recordType, 1, after);
        Q_UNUSED(result)
        return path;
    }

    /// The media bytes of a movie, all of them at the place where they were.
    static QByteArray mediaOf(const QString& path) {
        const QByteArray file = readBytes(path);
        const qsizetype mdat = file.indexOf("mdat");
        const qsizetype size = 2000;
        return file.sliced(mdat + 4, std::min(size, file.size() - mdat - 4));
    }

    void check(const QString& path, const QByteArray& before, const QByteArray& after) {
        const Result<Movie> movie = Movie::open(path);
        QVERIFY2(movie, movie ? "" : qPrintable(movie.error().description()));
        const QByteArray record = movie->userData()->item(recordType, 1).value_or(QByteArray());
        QVERIFY(record == before || record == after);
        QCOMPARE(movie->userData()->count("\xa9swr"), 1);
        QCOMPARE(movie->tracks().size(), std::size_t{1});
        QCOMPARE(movie->tracks().front().sampleCount, quint64{10});
        QVERIFY(mediaOf(path).startsWith(_media.first(1500)));
        updateAgain(path);
    }

    /// The next update repairs what the last one left.
    void updateAgain(const QString& path) {
        const QByteArray bytes = readBytes(path);
        const QByteArray next(777, 'n');
        const Result<void> updated = setUserDataItem(path, recordType, 1, next);
        QVERIFY2(updated, updated ? "" : qPrintable(updated.error().description()));
        const Result<Movie> movie = Movie::open(path);
        QVERIFY(movie);
        QCOMPARE(movie->userData()->item(recordType, 1), std::optional(next));
        int headers = 0;
        for (const QByteArray& one : topLevelAtoms(readBytes(path))) {
            headers += one.mid(4, 4) == "moov" ? 1 : 0;
        }
        QCOMPARE(headers, 1);
        writeBytes(path, bytes);
    }

    const QTemporaryDir& _folder;
    const Scenario& _scenario;
    QByteArray _media;
};

/// The states that the other program does not open, or finds something else in.
QStringList rejected(const std::vector<State>& states, std::size_t first, const QByteArray& expected) {
    QStringList names;
    for (std::size_t index = first; index < states.size(); index += 2) {
        const std::optional<QByteArray> said = ffprobe(states[index].path);
        if (said != expected) {
            names.append(states[index].name + u": "_s + QString::fromUtf8(said.value_or("not opened")));
        }
    }
    return names;
}

}  // namespace

void MovieDeathTest::everyStateHoldsTheOldRecordOrTheNewOne() {
    const QTemporaryDir folder;
    std::vector<State> states;
    for (const Scenario& scenario : scenarios()) {
        for (const auto& [before, after] :
             {std::pair(0, 300), std::pair(300, 301), std::pair(2000, 12), std::pair(40, 9000)}) {
            Deaths(folder, scenario).run(QByteArray(before, 'o'), QByteArray(after, 'n'), states);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(scenario.name));
        }
    }
    const QString plain = folder.filePath(u"plain.mov"_s);
    QVERIFY(writeBytes(plain, smallMovie()));
    const std::optional<QByteArray> expected = ffprobe(plain);
    QVERIFY(expected);
    auto odd = std::async(std::launch::async, rejected, std::cref(states), std::size_t{1}, *expected);
    const QStringList names = rejected(states, 0, *expected) + odd.get();
    qInfo("%zu states, each opened here and by ffprobe", states.size());
    QVERIFY2(names.isEmpty(),
             qPrintable(u"%1 rejected: "_s.arg(names.size()) + names.mid(0, 10).join(u"\n"_s)));
    QVERIFY(states.size() >= 500);
}

void MovieDeathTest::aKilledProcessLeavesTheOldRecordOrTheNewOne() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"killed.mov"_s);
    int states = 0;
    bool finished = false;
    for (int done = 0; !finished; ++done) {
        QVERIFY(writeBytes(path, smallMovie()));
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            WatchedFileSystem files;
            files.dieAfter = done;
            // A failed write ends the process at once, as a signal would: nothing after it runs.
            const Result<void> result = setUserDataItem(path, recordType, 1, "new");
            _exit(result ? 0 : 9);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        finished = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        const Result<Movie> movie = Movie::open(path);
        QVERIFY(movie);
        const std::optional<QByteArray> record = movie->userData()->item(recordType, 1);
        QVERIFY(!record || *record == "new");
        QVERIFY(!finished || record);
        QVERIFY(ffprobe(path));
        ++states;
    }
    qInfo("%d processes ended", states);
    QVERIFY(states >= 5);
}

QTEST_GUILESS_MAIN(MovieDeathTest)
#include "MovieDeathTest.moc"
