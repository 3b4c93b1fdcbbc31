// Movies that are imported as placeholders.
#include "clipmanager/MovieImport.h"
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "movie/MovieBuilder.h"
#include "platform/FaultyFileSystem.h"

using namespace marquill;

namespace {

QByteArray movieOf(quint64 seconds) {
    return MovieBuilder{.duration = 600 * seconds, .userData = std::nullopt}.headerLast();
}

}  // namespace

class MovieImportTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void thePlaceholderIsNamedAsTheMovieAndConnectedToIt() {
        const ClipFolder card;
        const ClipFolder shoot;
        card.make(u"A001_C003.MOV"_s, movieOf(75));
        const QString path = card.path(u"A001_C003.MOV"_s);
        const ImportedMovies imported = MovieImport::importMovies({path}, shoot.path());
        QVERIFY(imported.errors.empty());
        QCOMPARE(imported.clips.size(), std::size_t{1});
        QCOMPARE(shoot.names(), QStringList{u"A001_C003.xml"_s});
        const ClipInfo written = *ClipStore::infoForClip(shoot.path(u"A001_C003.xml"_s));
        QCOMPARE(written.clipName(), u"A001_C003.xml"_s);
        QCOMPARE(written.clipPath(), path);
        QCOMPARE(written.clipProxyType(), u"clipTypeQT"_s);
        QCOMPARE(written.clipDuration(), 75);
        QCOMPARE(imported.clips[0].clipName(), written.clipName());
        QCOMPARE(card.names(), QStringList{u"A001_C003.MOV"_s});
    }

    void oneFailureDoesNotStopTheOthers() {
        const ClipFolder card;
        const ClipFolder shoot;
        card.make(u"a.mov"_s, movieOf(1));
        card.make(u"broken.mov"_s, "no movie at all");
        card.make(u"z.mov"_s, movieOf(2));
        const ImportedMovies imported =
            MovieImport::importMovies({card.path(u"z.mov"_s), card.path(u"broken.mov"_s),
                                       card.path(u"gone.mov"_s), card.path(u"a.mov"_s)},
                                      shoot.path());
        QCOMPARE(imported.clips.size(), std::size_t{2});
        QCOMPARE(imported.clips[0].clipName(), u"z.xml"_s);
        QCOMPARE(imported.clips[1].clipName(), u"a.xml"_s);
        QCOMPARE(imported.errors.size(), std::size_t{2});
        QCOMPARE(imported.errors[0].path, card.path(u"broken.mov"_s));
        QCOMPARE(imported.errors[1].path, card.path(u"gone.mov"_s));
        QCOMPARE(imported.errors[1].code, ErrorCode::notFound);
    }

    void aPlaceholderOfThatNameIsKept() {
        const ClipFolder shoot;
        shoot.make(u"a#01.mov"_s, movieOf(1));
        shoot.makePlaceholder(u"a#01.xml"_s, "<key>clipComment</key><string>logged on set</string>");
        const QByteArray before = shoot.contents(u"a#01.xml"_s);
        const ImportedMovies imported = MovieImport::importMovies({shoot.path(u"a#01.mov"_s)}, shoot.path());
        QVERIFY(imported.clips.empty());
        QCOMPARE(imported.errors.size(), std::size_t{1});
        QCOMPARE(imported.errors[0].code, ErrorCode::alreadyExists);
        QCOMPARE(imported.errors[0].path, shoot.path(u"a#01.xml"_s));
        QCOMPARE(shoot.contents(u"a#01.xml"_s), before);
    }

    void twoMoviesOfOneNameMakeOnePlaceholder() {
        const ClipFolder first;
        const ClipFolder second;
        const ClipFolder shoot;
        first.make(u"a.mov"_s, movieOf(1));
        second.make(u"a.MOV"_s, movieOf(2));
        const ImportedMovies imported =
            MovieImport::importMovies({first.path(u"a.mov"_s), second.path(u"a.MOV"_s)}, shoot.path());
        QCOMPARE(imported.clips.size(), std::size_t{1});
        QCOMPARE(imported.errors.size(), std::size_t{1});
        QCOMPARE(ClipStore::infoForClip(shoot.path(u"a.xml"_s))->clipPath(), first.path(u"a.mov"_s));
    }

    void aFullVolumeLeavesNoHalfPlaceholder() {
        const ClipFolder card;
        const ClipFolder shoot;
        card.make(u"a.mov"_s, movieOf(1));
        FaultyFileSystem faulty;
        const InstalledFileSystem installed(faulty);
        faulty.failFrom(1, ErrorCode::noSpace);
        const Result<ClipInfo> imported = MovieImport::importMovie(card.path(u"a.mov"_s), shoot.path());
        QCOMPARE(imported.error().code, ErrorCode::noSpace);
        QVERIFY(shoot.names().isEmpty());
    }

    void nothingChosenGivesNothing() {
        const ClipFolder shoot;
        const ImportedMovies imported = MovieImport::importMovies({}, shoot.path());
        QVERIFY(imported.clips.empty() && imported.errors.empty() && shoot.names().isEmpty());
    }
};

QTEST_GUILESS_MAIN(MovieImportTest)
#include "MovieImportTest.moc"
