// Movies that are in no list of clips.
#include "ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "clipstore/LeftOutMovies.h"
#include "movie/MovieTools.h"
#include "platform/FaultyFileSystem.h"
#include "platform/PropertyListWriter.h"

#include <QDir>

using namespace marquill;

namespace {

constexpr FourCharCode recordType("KVXN");

QByteArray movieWith(const std::optional<QByteArray>& userData) {
    return MovieBuilder{.userData = userData}.headerLast();
}

}  // namespace

class LeftOutMoviesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void eachIsNamedWithItsReason_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<LeftOutMovie::Cause>("cause");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no user data") << movieWith(std::nullopt) << LeftOutMovie::Cause::noUserData
                                      << u"It has no user data to keep the clip’s record in."_s;
        QTest::newRow("no movie") << QByteArray("no movie at all") << LeftOutMovie::Cause::cannotBeOpened
                                  << u"It cannot be opened: "_s;
        QTest::newRow("empty file") << QByteArray() << LeftOutMovie::Cause::cannotBeOpened
                                    << u"It cannot be opened: "_s;
        QTest::newRow("cut record") << movieWith(atom(recordType, "<plist><dict><key>clipScene"))
                                    << LeftOutMovie::Cause::recordCannotBeRead
                                    << u"Its record cannot be read: "_s;
    }
    void eachIsNamedWithItsReason() {
        QFETCH(const QByteArray, file);
        QFETCH(const QString, reason);
        const ClipFolder folder;
        folder.make(u"left.mov"_s, file);
        const std::vector<LeftOutMovie> found = LeftOutMovies::find(folder.path());
        QCOMPARE(found.size(), std::size_t{1});
        QCOMPARE(found[0].name(), u"left.mov"_s);
        QCOMPARE(found[0].path, folder.path(u"left.mov"_s));
        QTEST(found[0].cause, "cause");
        QVERIFY2(found[0].reason.startsWith(reason), qPrintable(found[0].reason));
        QVERIFY(found[0].reason.size() > reason.size() || reason.endsWith(u'.'));
    }

    void whatIsListedIsNotLeftOut() {
        const ClipFolder folder;
        folder.make(u"clip.mov"_s, movieWith(QByteArray()));
        folder.make(u"record.mov"_s, movieWith(atom(recordType, *writePropertyList(Dictionary()))));
        folder.makePlaceholder(u"placeholder.xml"_s, "");
        QVERIFY(LeftOutMovies::find(folder.path()).empty());
        QCOMPARE(ClipStore::readClipInfoForFolder(folder.path()).size(), std::size_t{3});
    }

    void whatCouldNeverBeAClipIsNotMissed() {
        const ClipFolder folder;
        folder.make(u"tmp_recording.mov"_s, movieWith(std::nullopt));
        folder.make(u"camera.MOV"_s, movieWith(std::nullopt));
        folder.make(u"broken.xml"_s, "no placeholder");
        QVERIFY(QDir(folder.path()).mkdir(u"Trash"_s));
        folder.make(u"Trash/thrown away.mov"_s, movieWith(std::nullopt));
        QVERIFY(LeftOutMovies::find(folder.path()).empty());
        QVERIFY(LeftOutMovies::moviesOfFolder(folder.path()).isEmpty());
    }

    void aFolderNamedAsAMovieCannotBeOpened() {
        const ClipFolder folder;
        QVERIFY(QDir(folder.path()).mkdir(u"bundle.mov"_s));
        QCOMPARE(LeftOutMovies::find(folder.path()).front().cause, LeftOutMovie::Cause::cannotBeOpened);
    }

    void whatCanBeDoneDependsOnTheCause() {
        using Cause = LeftOutMovie::Cause;
        const auto movie = [](Cause cause) { return LeftOutMovie{.path = {}, .cause = cause, .reason = {}}; };
        QVERIFY(movie(Cause::noUserData).canBeListed());
        QVERIFY(movie(Cause::noUserData).canBeImported());
        QVERIFY(!movie(Cause::recordCannotBeRead).canBeListed());
        QVERIFY(movie(Cause::recordCannotBeRead).canBeImported());
        QVERIFY(!movie(Cause::cannotBeOpened).canBeListed());
        QVERIFY(!movie(Cause::cannotBeOpened).canBeImported());
    }

    void userDataMakeAMovieAClipThatKeepsItsRecord() {
        const ClipFolder folder;
        const QString path = folder.path(u"Harbour#01.mov"_s);
        QVERIFY(QFile::copy(bareMovie(), path));
        const std::optional<QByteArray> before = ffprobe(path);
        QVERIFY(before);
        QCOMPARE(LeftOutMovies::find(folder.path()).size(), std::size_t{1});
        QVERIFY(LeftOutMovies::giveUserData(path));
        QCOMPARE(ffprobe(path), before);
        QVERIFY(LeftOutMovies::find(folder.path()).empty());
        ClipInfo clip = *ClipStore::infoForClip(path);
        QCOMPARE(clip.record(), (Dictionary{{u"clipName"_s, u"Harbour#01.mov"_s}, {u"clipDuration"_s, 2}}));
        clip.setClipScene(u"12A"_s);
        QCOMPARE(ClipStore::updateClipInfo(clip, folder.path()), 0);
        QCOMPARE(ClipStore::infoForClip(path)->clipScene(), u"12A"_s);
        QCOMPARE(ffprobe(path), before);
    }

    void whatCannotBeGivenSaysWhyAndNamesTheFile() {
        const ClipFolder folder;
        folder.make(u"no movie.mov"_s, "no movie at all");
        folder.make(u"read only.mov"_s, movieWith(std::nullopt));
        const Result<void> noMovie = LeftOutMovies::giveUserData(folder.path(u"no movie.mov"_s));
        QCOMPARE(noMovie.error().path, folder.path(u"no movie.mov"_s));
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::readOnly);
        const Result<void> readOnly = LeftOutMovies::giveUserData(folder.path(u"read only.mov"_s));
        QCOMPARE(readOnly.error().code, ErrorCode::readOnly);
        QCOMPARE(readOnly.error().path, folder.path(u"read only.mov"_s));
    }

  private:
    /// Two seconds that ffmpeg wrote without user data.
    static QString bareMovie() {
        return ffmpegMovie(u"bare.mov"_s,
                           {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x48:rate=25"_s, u"-t"_s, u"2"_s,
                            u"-c:v"_s, u"mjpeg"_s, u"-fflags"_s, u"+bitexact"_s});
    }
};

QTEST_GUILESS_MAIN(LeftOutMoviesTest)
#include "LeftOutMoviesTest.moc"
