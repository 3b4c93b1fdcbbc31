#include "connect/MediaFiles.h"
#include "connect/MediaFolder.h"

#include <QDateTime>
#include <QRegularExpression>

#include <unistd.h>

using namespace marquill;

class MediaFilesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<MediaFolder> _folder;

    QString path(const QString& name) const { return _folder->path(name); }
    QStringList found(const QStringList& endings) const {
        QStringList names;
        const QStringList files = MediaFiles::filesInFolder(_folder->path(), endings).value();
        for (const QString& file : files) {
            names.append(file.mid(_folder->path().size() + 1));
        }
        names.sort();
        return names;
    }
    MediaFiles::Candidates candidates(const QStringList& names, const QString& clipType) const {
        QStringList files;
        for (const QString& name : names) {
            files.append(path(name));
        }
        return MediaFiles::candidates(files, clipType).value();
    }
    Date dateOf(const QString& name, const QString& clipType) const {
        const MediaFiles::Candidates all = candidates({name}, clipType);
        return all.found.empty() ? Date() : all.found.front().creationDate;
    }
    std::optional<QString> matching(const QString& name, const std::optional<QString>& extension) const {
        return MediaFiles::findMatchingFileName(name, _folder->path(), extension);
    }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<MediaFolder>(); }

    void eachKindHasItsEndings() {
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeQT"_s), QStringList({u".mov"_s, u".MOV"_s}));
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeRedH"_s), QStringList(u"_H.mov"_s));
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeRedP"_s), QStringList(u"_P.mov"_s));
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeRedM"_s), QStringList(u"_M.mov"_s));
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeRedRaw"_s), QStringList(u".R3D"_s));
        QCOMPARE(MediaFiles::endingsForClipType(u"clipTypeP2"_s), QStringList());
        QCOMPARE(MediaFiles::endingsForClipType(u"unknown"_s), QStringList());
    }

    void theNameOfAMovieTellsItsKind() {
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a/A001_C003_H.mov"_s), u"clipTypeRedH"_s);
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a/A001_C003_P.mov"_s), u"clipTypeRedP"_s);
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a/A001_C003_M.mov"_s), u"clipTypeRedM"_s);
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a/A001_C003_P.mov.old_H.mov"_s), u"clipTypeRedH"_s);
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a/take_h.mov"_s), u"clipTypeQT"_s);
        QCOMPARE(MediaFiles::clipTypeOfMovie(u"/a_H.mov/take.mov"_s), u"clipTypeQT"_s);
    }

    // Files

    void endingsAreSearchedForAnywhereInThePath() {
        for (const char* name : {"take.mov", "take.mov.bak", "a.movie", "TAKE.MOV", "take.Mov", "notes.txt",
                                 "card.mov/notes.txt", "b/take_H.mov"}) {
            _folder->makeDated(QString::fromLatin1(name), "", 0);
        }
        QCOMPARE(found({u".mov"_s, u".MOV"_s}),
                 QStringList({u"TAKE.MOV"_s, u"a.movie"_s, u"b/take_H.mov"_s, u"card.mov"_s,
                              u"card.mov/notes.txt"_s, u"take.mov"_s, u"take.mov.bak"_s}));
        QCOMPARE(found({u"_H.mov"_s}), QStringList(u"b/take_H.mov"_s));
    }

    void theFoldersOwnPathDoesNotCount() {
        _folder->makeDated(u"a.mov/notes.txt"_s, "", 0);
        QCOMPARE(MediaFiles::filesInFolder(path(u"a.mov"_s), {u".mov"_s}), QStringList());
    }

    void filesAreInTheOrderOfTheWalk() {
        for (int number = 0; number < 60; ++number) {
            _folder->makeDated(u"%1/%2.mov"_s.arg(number % 3).arg(number * 7), "", 0);
        }
        QStringList expected;
        const QStringList subs = FileSystem::system().list(_folder->path()).value();
        for (const QString& sub : subs) {
            const QStringList names = FileSystem::system().list(path(sub)).value();
            for (const QString& name : names) {
                expected.append(joinPath(path(sub), name));
            }
        }
        QCOMPARE(MediaFiles::filesInFolder(_folder->path(), {u".mov"_s}), expected);
    }

    void withoutFolderOrEndingsThereIsNone() {
        QCOMPARE(MediaFiles::filesInFolder({}, {u".mov"_s}), std::nullopt);
        QCOMPARE(MediaFiles::filesInFolder(_folder->path(), {}), std::nullopt);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"none"_s));
        QCOMPARE(MediaFiles::filesInFolder(path(u"none"_s), {u".mov"_s}), std::nullopt);
    }

    // Converted movies

    void aConvertedMovieIsFoundForItsProxyAndItsRawFile() {
        _folder->make(u"A001_C003_0612AB.mov"_s);
        const std::optional<QString> converted(u"A001_C003_0612AB.mov"_s);
        QCOMPARE(matching(u"A001_C003_0612AB_P.mov"_s, u"mov"_s), converted);
        QCOMPARE(matching(u"A001_C003_0612AB.R3D"_s, u"mov"_s), converted);
        QCOMPARE(matching(u"a001_c003_0612ab.R3D"_s, u"mov"_s), std::nullopt);
        QCOMPARE(matching(u"A001_C003.R3D"_s, u"mov"_s), std::nullopt);
    }

    void onlyTheGivenExtensionCounts() {
        _folder->make(u"A001.MOV"_s);
        _folder->make(u"A001"_s);
        QCOMPARE(matching(u"A001.R3D"_s, u"mov"_s), std::nullopt);
        QCOMPARE(matching(u"A001.R3D"_s, u"MOV"_s), std::optional(u"A001.MOV"_s));
        QVERIFY(matching(u"A001.R3D"_s, std::nullopt));
    }

    void theFirstOfSeveralInTheListingIsTaken() {
        for (const char* name : {"A.mov", "A0.mov", "A00.mov", "A001.mov", "001.mov", "01.mov", "1.mov"}) {
            _folder->make(QString::fromLatin1(name));
        }
        QCOMPARE(matching(u"A001.R3D"_s, u"mov"_s),
                 std::optional(FileSystem::system().list(_folder->path()).value().constFirst()));
    }

    void subfoldersHoldNoConvertedMovie() {
        _folder->makeDated(u"sub/A001.mov"_s, "", 0);
        QCOMPARE(matching(u"A001.R3D"_s, u"mov"_s), std::nullopt);
    }

    void withoutNameOrFolderNoneMatches() {
        _folder->make(u"A001.mov"_s);
        QCOMPARE(matching({}, u"mov"_s), std::nullopt);
        QCOMPARE(MediaFiles::findMatchingFileName(u"A001.R3D"_s, {}, u"mov"_s), std::nullopt);
        QCOMPARE(MediaFiles::findMatchingFileName(u"A001.R3D"_s, path(u"none"_s), u"mov"_s), std::nullopt);
    }

    // Dates

    void aMovieWrittenAtItsEndBeganItsLengthEarlier() {
        _folder->makeDated(u"take.mov"_s, MediaFolder::movieOf(60), 0);
        QCOMPARE(dateOf(u"take.mov"_s, ClipType::quickTime), noon(-60));
    }

    // 150.5 frames of 24/600 s are 6.02 s: 3612 units.
    void theLengthIsNotRounded() {
        _folder->makeDated(u"take.mov"_s, MovieBuilder{.duration = 3612}.headerFirst(), 0);
        QCOMPARE(dateOf(u"take.mov"_s, ClipType::quickTime), noon(-6.02));
    }

    void aMovieWrittenToAfterItWasMadeKeepsItsDate() {
        const auto now = [] { return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000; };
        const double before = now() - 1;  // the file system's clock may tick slower, or finer
        _folder->make(u"take.mov"_s, MediaFolder::movieOf(60));
        const double after = now() + 1;
        _folder->setDate(u"take.mov"_s, 3e9);
        const double date = dateOf(u"take.mov"_s, ClipType::quickTime).time_since_epoch().count();
        QVERIFY(date >= before);
        QVERIFY(date <= after);
    }

    void whatDoesNotOpenKeepsItsDateAndTakesPart() {
        _folder->makeDated(u"clip.mov.txt"_s, "no movie", 5);
        QCOMPARE(dateOf(u"clip.mov.txt"_s, ClipType::quickTime), noon(5));
    }

    void aFolderIsACandidate() {
        _folder->makeDated(u"card.mov/a"_s, "", 0);
        _folder->setDate(u"card.mov"_s, 9);
        QCOMPARE(dateOf(u"card.mov"_s, ClipType::quickTime), noon(9));
    }

    void linksHaveTheDatesOfWhatTheyPointTo() {
        _folder->makeMovie(u"take.mov"_s, 100);
        QCOMPARE(symlink("take.mov", path(u"link.mov"_s).toUtf8().constData()), 0);
        QCOMPARE(dateOf(u"link.mov"_s, ClipType::quickTime), noon(100));
        QCOMPARE(symlink("none", path(u"dangling.mov"_s).toUtf8().constData()), 0);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"dangling"_s));
        QVERIFY(candidates({u"dangling.mov"_s}, ClipType::quickTime).found.empty());
    }

    void aRedProxyHasTheDateOfTheRawFileBesideIt() {
        _folder->makeDated(u"A001.RDC/A001_P.mov"_s, MediaFolder::movieOf(60), 500);
        _folder->makeDated(u"A001.RDC/A001.R3D"_s, "raw", 7);
        for (const QString& clipType : {ClipType::redH, ClipType::redP, ClipType::redM}) {
            const MediaFiles::Candidates all = candidates({u"A001.RDC/A001_P.mov"_s}, clipType);
            QCOMPARE(all.lackingR3D, 0);
            QCOMPARE(all.found, std::vector<MediaCandidate>(
                                    {{.path = path(u"A001.RDC/A001_P.mov"_s), .creationDate = noon(7)}}));
        }
    }

    void theFirstRawFileOfTheListingCounts() {
        for (int number = 0; number < 9; ++number) {
            _folder->makeDated(u"A001_%1.R3D"_s.arg(number), "raw", number);
        }
        _folder->makeDated(u"A001_H.mov"_s, "", 0);
        QStringList names = FileSystem::system().list(_folder->path()).value();
        names.removeAll(u"A001_H.mov"_s);
        QCOMPARE(dateOf(u"A001_H.mov"_s, ClipType::redH), noon(names.constFirst().mid(5, 1).toInt()));
    }

    void proxiesWithoutARawFileAreCountedAndLeftOut() {
        _folder->makeDated(u"a/A001_P.mov"_s, "", 0);
        _folder->makeDated(u"a/A001.r3d"_s, "the wrong case", 0);
        _folder->makeDated(u"a/A002_P.mov"_s, "", 0);
        _folder->makeDated(u"b/A003_P.mov"_s, "", 0);
        _folder->makeDated(u"b/A003.R3D"_s, "", 3);
        const MediaFiles::Candidates all =
            candidates({u"a/A001_P.mov"_s, u"b/A003_P.mov"_s, u"a/A002_P.mov"_s}, ClipType::redP);
        QCOMPARE(all.lackingR3D, 2);
        QCOMPARE(all.found.size(), std::size_t{1});
        QCOMPARE(all.found.front().path, path(u"b/A003_P.mov"_s));
    }

    void aRawFileHasItsOwnDate() {
        _folder->makeDated(u"A001.R3D"_s, MediaFolder::movieOf(60), 7);
        QCOMPARE(dateOf(u"A001.R3D"_s, ClipType::redRaw), noon(7));
    }

    void candidatesAreInTheOrderOfTheFiles() {
        QStringList names;
        for (int number = 0; number < 300; ++number) {
            names.append(u"%1.mov"_s.arg((number * 131) % 300));
            _folder->makeMovie(names.last(), number);
        }
        const MediaFiles::Candidates all = candidates(names, ClipType::quickTime);
        for (int number = 0; number < 300; ++number) {
            QCOMPARE(all.found[static_cast<std::size_t>(number)].creationDate, noon(number));
        }
    }

    void progressEndsIt() {
        _folder->makeMovie(u"take.mov"_s, 0);
        const auto never = [](qsizetype, qsizetype) { return false; };
        QCOMPARE(MediaFiles::candidates({path(u"take.mov"_s)}, ClipType::quickTime, never).has_value(),
                 false);
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QCOMPARE(MediaFiles::filesInFolder(_folder->path(), {u".mov"_s}, never), std::nullopt);
    }
};

QTEST_APPLESS_MAIN(MediaFilesTest)
#include "MediaFilesTest.moc"
