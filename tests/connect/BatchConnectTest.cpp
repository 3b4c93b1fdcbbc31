#include "connect/BatchConnect.h"
#include "connect/MediaFolder.h"

using namespace marquill;

class BatchConnectTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<MediaFolder> _folder;
    std::vector<ClipInfo> _clips;

    void place(const std::vector<double>& moments) {
        for (const double seconds : moments) {
            _clips.push_back(
                placeholderAt(u"Shot#%1.xml"_s.arg(_clips.size() + 1, 2, 10, QChar(u'0')), seconds));
        }
    }
    QString path(const QString& name) const { return _folder->path(name); }
    BatchResult connectFiles(const QString& clipType = ClipType::quickTime,
                             const std::optional<QString>& converted = {}) const {
        const QStringList files =
            MediaFiles::filesInFolder(_folder->path(), MediaFiles::endingsForClipType(clipType)).value();
        return BatchConnect::doBatchConnect(_clips, files, clipType, converted);
    }
    // "Shot#01.xml a.mov", in the order of the media.
    static QStringList connections(const BatchResult& result) {
        QStringList texts;
        for (const BatchPair& pair : result.pairs) {
            texts.append(*pair.clip.clipName() + u' ' + lastPathComponent(pair.media));
        }
        return texts;
    }
    static QStringList told(const BatchResult& result) {
        QStringList texts;
        for (const Alert& alert : result.alerts()) {
            texts.append({alert.title, alert.text});
            texts.append(alert.buttons);
        }
        return texts;
    }
    static QStringList onlySome(int connected, int of) {
        return {u"Could not connect all clips"_s,
                u"Only %1 of %2 clips could be connected."_s.arg(connected).arg(of), u"OK"_s};
    }
    static QStringList noRedFiles() {
        return {u"Red files not found"_s,
                u"For one or more clips the original '.r3d' clip could not be found. As a result the "
                "matching result might be incorrect."_s,
                u"OK"_s};
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<MediaFolder>();
        _clips.clear();
    }

    void theNearerPlaceHolderGetsTheFile() {
        place({100, 104});
        _folder->makeMovie(u"a.mov"_s, 103);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result), QStringList(u"Shot#02.xml a.mov"_s));
        QCOMPARE(result.pairs.front().seconds, 1.0);
        QCOMPARE(told(result), onlySome(1, 2));
        QVERIFY(result.succeeded());
    }

    void onATieTheEarlierPlaceHolderKeepsTheFile() {
        place({106, 100});
        _folder->makeMovie(u"a.mov"_s, 103);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result), QStringList(u"Shot#02.xml a.mov"_s));
        QCOMPARE(result.pairs.front().placeholder, std::size_t{1});
        QCOMPARE(told(result), onlySome(1, 2));
    }

    void theEarlierOfEquallyNearFilesIsTaken() {
        place({100});
        _folder->makeMovie(u"a.mov"_s, 110);
        _folder->makeMovie(u"b.mov"_s, 90);
        _folder->makeMovie(u"c.mov"_s, 130);
        QCOMPARE(connections(connectFiles()), QStringList(u"Shot#01.xml b.mov"_s));
    }

    void allClipsOfABatchStartWithTheLatestOfTheMedia() {
        place({100, 300, 200});
        _folder->makeMovie(u"a.mov"_s, 101);
        _folder->makeMovie(u"b.mov"_s, 202);
        _folder->makeMovie(u"c.mov"_s, 303);
        _folder->makeMovie(u"d.mov"_s, 900);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result),
                 QStringList({u"Shot#01.xml a.mov"_s, u"Shot#03.xml b.mov"_s, u"Shot#02.xml c.mov"_s}));
        QCOMPARE(result.startDate, std::optional(noon(900)));
        for (const BatchPair& pair : result.pairs) {
            QCOMPARE(pair.clip.clipRecordingStartTime(), std::optional(noon(900)));
        }
        QCOMPARE(result.pairs[0].clip.clipMarkerOffset(), std::optional(800.0));
        QCOMPARE(result.pairs[1].clip.clipMarkerOffset(), std::optional(700.0));
        QCOMPARE(result.pairs[2].clip.clipMarkerOffset(), std::optional(600.0));
        QCOMPARE(told(result), QStringList());
    }

    void aMovieWrittenAtItsEndIsMatchedAndStampedByItsBeginning() {
        place({1000});
        _folder->makeDated(u"a.mov"_s, MediaFolder::movieOf(60), 1000);
        const BatchResult result = connectFiles();
        QCOMPARE(result.pairs.front().seconds, 60.0);
        QCOMPARE(result.pairs.front().clip.clipRecordingStartTime(), std::optional(noon(940)));
        QCOMPARE(result.pairs.front().clip.clipMarkerOffset(), std::optional(-60.0));
    }

    void aFileThatOnlyContainsTheEndingIsMatchedAndDoesNotOpen() {
        place({100});
        _folder->makeDated(u"clip.mov.txt"_s, "notes", 100);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result), QStringList());
        QCOMPARE(told(result), onlySome(0, 1));
        QVERIFY(!result.lastResult);
        QVERIFY(!result.succeeded());
    }

    void theResultIsThatOfTheLastAttempt() {
        place({100, 200});
        _folder->makeDated(u"a.mov.txt"_s, "notes", 100);
        _folder->makeMovie(u"b.mov"_s, 200);
        QVERIFY(connectFiles().succeeded());
        _folder->setDate(u"a.mov.txt"_s, 201);
        _folder->makeMovie(u"b.mov"_s, 100);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result), QStringList(u"Shot#01.xml b.mov"_s));
        QVERIFY(!result.succeeded());
    }

    void oldClipsArePlaceHoldersAndNewClipsTheirConnectedCopies() {
        place({100, 200});
        _folder->makeMovie(u"a.mov"_s, 200);
        const BatchResult result = connectFiles();
        const ClipChangeSet set = result.changeSet(_clips);
        QCOMPARE(set.actionName, u"connect Clips"_s);
        QCOMPARE(set.oldClips.size(), std::size_t{1});
        QVERIFY(set.oldClips.front().isSame(_clips[1]));
        QVERIFY(set.newClips.front() == result.pairs.front().clip);
        QVERIFY(_clips[1] == placeholderAt(u"Shot#02.xml"_s, 200));
    }

    void whatWasEditedSinceStays() {
        place({100});
        _folder->makeMovie(u"a.mov"_s, 100);
        const BatchResult result = connectFiles();
        _clips[0].setClipComment(u"typed meanwhile"_s);
        const ClipInfo connected = result.changeSet(_clips).newClips.front();
        QCOMPARE(connected.clipComment(), std::optional(u"typed meanwhile"_s));
        QCOMPARE(connected.clipPath(), std::optional(path(u"a.mov"_s)));
    }

    void nothingToDoFailsSilently() {
        _folder->makeMovie(u"a.mov"_s, 100);
        QVERIFY(!connectFiles().succeeded());
        QCOMPARE(told(connectFiles()), QStringList());
        place({100});
        const BatchResult noFiles = BatchConnect::doBatchConnect(_clips, {}, ClipType::quickTime, {});
        QVERIFY(!noFiles.succeeded());
        QCOMPARE(told(noFiles), QStringList());
        const BatchResult noClips = BatchConnect::doP2BatchConnect(_clips, {}, ClipType::p2, {});
        QVERIFY(!noClips.succeeded());
        QCOMPARE(told(noClips), QStringList());
    }

    void aPlaceHolderWithoutADateIsNotConnected() {
        place({100, 200});
        _clips[0].setClipCreationDate({});
        _folder->makeMovie(u"a.mov"_s, 100);
        const BatchResult result = connectFiles();
        QCOMPARE(connections(result), QStringList(u"Shot#02.xml a.mov"_s));
        QCOMPARE(told(result), onlySome(1, 2));
    }

    void redFilesNotFoundIsToldLast() {
        place({100, 200});
        _folder->makeMovie(u"a/A001_P.mov"_s, 500);
        _folder->makeDated(u"a/A001.R3D"_s, "raw", 200);
        _folder->makeMovie(u"b/A002_P.mov"_s, 100);
        const BatchResult result = connectFiles(ClipType::redP);
        QCOMPARE(connections(result), QStringList(u"Shot#02.xml A001_P.mov"_s));
        QCOMPARE(result.pairs.front().clip.clipProxyType(), std::optional(u"clipTypeRedP"_s));
        QCOMPARE(result.pairs.front().clip.clipRecordingStartTime(), std::optional(noon(200)));
        QCOMPARE(told(result), onlySome(1, 2) + noRedFiles());
        QVERIFY(result.lastResult);
        QVERIFY(!result.succeeded());
    }

    void withoutAnyRawFileNoneIsConnected() {
        place({100});
        _folder->makeMovie(u"A001_H.mov"_s, 100);
        const BatchResult result = connectFiles(ClipType::redH);
        QCOMPARE(told(result), onlySome(0, 1) + noRedFiles());
        QVERIFY(result.lastResult);
        QVERIFY(!result.succeeded());
    }

    void rawFilesConnectTheirConvertedMovies() {
        const MediaFolder converted;
        converted.makeMovie(u"A001_C003_0612AB.mov"_s, 7777, 30);
        place({100, 200});
        _folder->makeDated(u"A001_C003_0612AB.R3D"_s, "raw", 101);
        _folder->makeDated(u"A001_C004_0612XY.R3D"_s, "raw", 202);
        const BatchResult result = connectFiles(ClipType::redRaw, converted.path());
        QCOMPARE(connections(result), QStringList(u"Shot#01.xml A001_C003_0612AB.mov"_s));
        const ClipInfo& clip = result.pairs.front().clip;
        QCOMPARE(clip.clipPath(), std::optional(converted.path(u"A001_C003_0612AB.mov"_s)));
        QCOMPARE(clip.clipRecordingStartTime(), std::optional(noon(202)));
        QCOMPARE(clip.clipProxyType(), std::optional(u"clipTypeRedRaw"_s));
        QCOMPARE(clip.clipDuration(), std::optional<qint64>(30));
        QCOMPARE(told(result), onlySome(1, 2));
    }

    void withoutAConversionFolderTheRawFileItselfIsOpened() {
        place({100});
        _folder->makeDated(u"A001.R3D"_s, MediaFolder::movieOf(5), 100);
        QCOMPARE(connections(connectFiles(ClipType::redRaw)), QStringList(u"Shot#01.xml A001.R3D"_s));
    }

    // P2

    void p2TiesGoToTheFirstInTheGivenOrders() {
        place({106, 100});
        const std::vector<P2Clip> clips = {{.p2_fileName = u"0002CD"_s, .p2_creationDate = noon(109)},
                                           {.p2_fileName = u"0001AB"_s, .p2_creationDate = noon(103)}};
        _folder->makeMovie(u"0001AB.mov"_s, 0);
        _folder->makeMovie(u"0002CD.mov"_s, 0);
        const BatchResult result =
            BatchConnect::doP2BatchConnect(_clips, clips, ClipType::p2, _folder->path());
        QCOMPARE(connections(result),
                 QStringList({u"Shot#01.xml 0002CD.mov"_s, u"Shot#02.xml 0001AB.mov"_s}));
        QCOMPARE(result.startDate, std::optional(noon(103)));
        QCOMPARE(result.pairs[0].clip.clipRecordingStartTime(), std::optional(noon(103)));
        QCOMPARE(result.pairs[0].clip.clipMarkerOffset(), std::optional(-3.0));
        QCOMPARE(result.pairs[1].clip.clipMarkerOffset(), std::optional(3.0));
        QCOMPARE(result.pairs[1].clip.clipProxyType(), std::optional(u"clipTypeP2"_s));
        QCOMPARE(told(result), QStringList());
    }

    void p2PlaceHoldersAreWalkedAsTheyAreSelected() {
        place({106, 100});
        const std::vector<P2Clip> clips = {{.p2_fileName = u"0001AB"_s, .p2_creationDate = noon(103)}};
        _folder->makeMovie(u"0001AB.mov"_s, 0);
        const BatchResult result =
            BatchConnect::doP2BatchConnect(_clips, clips, ClipType::p2, _folder->path());
        QCOMPARE(connections(result), QStringList(u"Shot#01.xml 0001AB.mov"_s));
        QCOMPARE(told(result), onlySome(1, 2));
    }

    void p2ClipsThatWereNotConvertedAreNotConnected() {
        place({100});
        const std::vector<P2Clip> clips = {{.p2_fileName = u"0001AB"_s, .p2_creationDate = noon(100)}};
        QCOMPARE(told(BatchConnect::doP2BatchConnect(_clips, clips, ClipType::p2, _folder->path())),
                 onlySome(0, 1));
        QCOMPARE(told(BatchConnect::doP2BatchConnect(_clips, clips, ClipType::p2, {})), onlySome(0, 1));
    }

    void aCancelledBatchHasNoPairsAndTellsNothing() {
        place({100});
        _folder->makeMovie(u"a.mov"_s, 100);
        int calls = 0;
        int allCalls = 0;
        const auto count = [&](qsizetype, qsizetype) { return ++allCalls > 0; };
        QCOMPARE(BatchConnect::doBatchConnect(_clips, {path(u"a.mov"_s)}, ClipType::quickTime, {}, count)
                     .connected(),
                 1);
        for (int last = 0; last < allCalls; ++last) {
            calls = 0;
            const BatchResult result =
                BatchConnect::doBatchConnect(_clips, {path(u"a.mov"_s)}, ClipType::quickTime, {},
                                             [&](qsizetype, qsizetype) { return calls++ != last; });
            QVERIFY(result.isCancelled);
            QCOMPARE(result.connected(), 0);
            QCOMPARE(told(result), QStringList());
        }
    }
};

QTEST_APPLESS_MAIN(BatchConnectTest)
#include "BatchConnectTest.moc"
