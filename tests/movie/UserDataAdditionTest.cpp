// A movie without a list of user data gets one, safely: whenever the writing stops, every reader finds the
// movie without a list or with an empty one.
#include "movie/MovieTools.h"
#include "movie/MovieUpdate.h"
#include "movie/WatchedFileSystem.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

MovieBuilder bareMovie() {
    return MovieBuilder{.userData = std::nullopt};
}

Result<void> addTo(const QString& path) {
    const Result<Movie> movie = Movie::open(path);
    return movie ? addUserData(*movie) : std::unexpected(movie.error());
}

}  // namespace

class UserDataAdditionTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theMovieGetsAnEmptyListAndKeepsAllElse_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("header first") << bareMovie().headerFirst();
        QTest::newRow("header last") << bareMovie().headerLast();
        QTest::newRow("room") << bareMovie().headerLast(atom("free", QByteArray(5000, 'r')));
        QTest::newRow("header compressed") << bareMovie().headerCompressed();
        QTest::newRow("no tracks") << MovieBuilder{.tracks = {}, .userData = std::nullopt}.headerLast();
    }
    void theMovieGetsAnEmptyListAndKeepsAllElse() {
        QFETCH(const QByteArray, file);
        QVERIFY(writeBytes(path(), file));
        const Result<Movie> before = Movie::open(path());
        QVERIFY(addTo(path()));
        const Result<Movie> after = Movie::open(path());
        QCOMPARE(after->userData(), std::optional(UserData()));
        QCOMPARE(after->duration(), before->duration());
        QCOMPARE(after->tracks().size(), before->tracks().size());
        const QByteArray media = bareMovie().media();
        QCOMPARE(readBytes(path()).indexOf(media), file.indexOf(media));
        QVERIFY(setUserDataItem(path(), "KVXN", 1, "record"));
        QCOMPARE(Movie::open(path())->userData()->item("KVXN", 1), QByteArray("record"));
    }

    void aTracksOwnListIsNotTheMovies() {
        MovieBuilder builder = bareMovie();
        builder.tracks.front().userData = atom("udta", atom("name", "camera"));
        QVERIFY(writeBytes(path(), builder.headerLast()));
        QVERIFY(!Movie::open(path())->userData());
        QVERIFY(addTo(path()));
        QCOMPARE(Movie::open(path())->userData(), std::optional(UserData()));
        QVERIFY(readBytes(path()).contains(builder.tracks.front().userData));
    }

    void theZeroThatEndsTheHeaderStaysAtItsEnd() {
        QVERIFY(writeBytes(path(), atom("moov", bareMovie().headerBody(0) + QByteArray(4, '\0'))));
        QVERIFY(addTo(path()));
        const Result<Movie> movie = Movie::open(path());
        QVERIFY(movie->userData());
        QVERIFY(readBytes(path())
                    .mid(movie->header().offset, movie->header().size)
                    .endsWith(QByteArray(4, '\0')));
    }

    void aListThatIsThereIsLeftUntouched() {
        const QByteArray file = MovieBuilder{.userData = atom("name", "kept")}.headerLast();
        QVERIFY(writeBytes(path(), file));
        WatchedFileSystem files;
        QVERIFY(addTo(path()));
        QCOMPARE(files.writes, 0);
        QVERIFY(readBytes(path()) == file);
    }

    void referenceMoviesAreRefused() {
        const QByteArray file = atom("moov", atom("rmra", {}));
        QVERIFY(writeBytes(path(), file));
        const Result<void> added = addTo(path());
        QCOMPARE(added.error().code, ErrorCode::unsupported);
        QCOMPARE(added.error().path, path());
        QVERIFY(readBytes(path()) == file);
    }

    void aMovieThatWasChangedMeanwhileIsRefused() {
        QVERIFY(writeBytes(path(), bareMovie().headerLast()));
        const Result<Movie> movie = Movie::open(path());
        QVERIFY(writeBytes(path(), bareMovie().headerLast(atom("free", "more"))));
        const QByteArray changed = readBytes(path());
        QCOMPARE(addUserData(*movie).error().code, ErrorCode::changedMeanwhile);
        QVERIFY(readBytes(path()) == changed);
    }

    void anotherProgramReadsTheMovieInEveryStateOfTheWriting() {
        const QString original = ffmpegMovie(
            u"bare.mov"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25"_s, u"-frames:v"_s,
                            u"10"_s, u"-c:v"_s, u"mpeg4"_s, u"-fflags"_s, u"+bitexact"_s});
        QVERIFY(Movie::open(original));
        QVERIFY2(!Movie::open(original)->userData(), "the movie is to have no user data");
        const std::optional<QByteArray> expected = ffprobe(original);
        QVERIFY(expected);
        bool finished = false;
        for (int done = 0; !finished; ++done) {
            QVERIFY(done < 20);
            for (const bool tears : {true, false}) {
                QVERIFY(writeBytes(path(), readBytes(original)));
                finished = addUntil(done, tears);
                QCOMPARE(ffprobe(path()), expected);
                const Result<Movie> movie = Movie::open(path());
                QVERIFY(movie);
                QVERIFY(!movie->userData() || movie->userData()->items().empty());
                QVERIFY(!finished || movie->userData());
                QVERIFY(addTo(path()));
                QCOMPARE(Movie::open(path())->userData(), std::optional(UserData()));
            }
        }
    }

  private:
    QString path() const { return _folder.filePath(u"movie.mov"_s); }

    /// Whether the list was added, when the writing stops after `writes` writes.
    bool addUntil(int writes, bool tears) const {
        WatchedFileSystem files;
        files.dieAfter = writes;
        files.tears = tears;
        return addTo(path()).has_value();
    }

    QTemporaryDir _folder;
};

QTEST_GUILESS_MAIN(UserDataAdditionTest)
#include "UserDataAdditionTest.moc"
