#include "clipmanager/ExportedClips.h"
#include "clipmanager/TextExport.h"
#include "platform/FaultyFileSystem.h"

#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace marquill;
using namespace marquill::TextExport;

class TextExportTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;

    QString path(const QString& name) const { return _place->filePath(name); }

    static QStringList linesOf(const Dictionary& record) {
        return encodeClipAsText(ClipInfo(record)).split(u'\r');
    }

    static bool hasCaption(const QStringList& lines, const QString& caption) {
        return std::ranges::any_of(lines, [&](const QString& line) { return line.startsWith(caption); });
    }

  private Q_SLOTS:
    void initTestCase() { useFixedTimeZone(); }
    void init() { _place = std::make_unique<QTemporaryDir>(); }

    void theDocumentIsTheOneWrittenByHand() {
        QVERIFY(doExportAsTextAtPath(path(u"a.txt"_s), clipsOfTheTextDocuments()));
        QCOMPARE(*readFile(path(u"a.txt"_s)), goldenDocument(u"readable.txt"_s));
    }

    void clipsAreNumberedByTheirPlace() {
        const std::vector<ClipInfo> clips(600, ClipInfo(Dictionary{{ClipKey::clipName, u"a.mov"_s}}));
        QVERIFY(doExportAsTextAtPath(path(u"a.txt"_s), clips));
        int number = 0;
        for (const QByteArray& line : readFile(path(u"a.txt"_s))->split('\r')) {
            if (line.contains(". Clip *")) {
                QVERIFY(line.startsWith(QByteArray::number(++number) + ". "));
            }
        }
        QCOMPARE(number, 600);
    }

    void withoutClipsTheDocumentIsEmpty() {
        QVERIFY(doExportAsTextAtPath(path(u"a.txt"_s), {}));
        QCOMPARE(*readFile(path(u"a.txt"_s)), QByteArray());
    }

    void sizesAreCutOffToMegabytes_data() {
        QTest::addColumn<Value>("bytes");
        QTest::addColumn<QString>("line");
        QTest::newRow("one and a half") << Value(1'572'864) << u"File Size: 1 MB"_s;
        QTest::newRow("nearly one") << Value(1'048'575) << u"File Size: 0 MB"_s;
        QTest::newRow("one") << Value(1'048'576) << u"File Size: 1 MB"_s;
        QTest::newRow("a hundred gigabytes") << Value(qint64{107'374'182'400}) << u"File Size: 102400 MB"_s;
        QTest::newRow("real") << Value(2'097'151.9) << u"File Size: 1 MB"_s;
        QTest::newRow("negative") << Value(-1'572'864) << u"File Size: -1 MB"_s;
        QTest::newRow("huge") << Value(1e300) << u"File Size: 2147483647 MB"_s;
        QTest::newRow("no number") << Value(std::numeric_limits<double>::quiet_NaN()) << u"File Size: 0 MB"_s;
    }
    void sizesAreCutOffToMegabytes() {
        QFETCH(const Value, bytes);
        QFETCH(const QString, line);
        QVERIFY(linesOf({{ClipKey::clipName, u"a.mov"_s}, {ClipKey::clipFileSize, bytes}}).contains(line));
    }

    void aPlaceholderHasMediaAndAMovieHasFrames() {
        const QStringList placeholder = linesOf({{ClipKey::clipName, u"a#01.xml"_s}});
        QVERIFY(placeholder.contains(u"Media Name: -"_s) && placeholder.contains(u"Media Location: -"_s));
        QVERIFY(!hasCaption(placeholder, u"Frame Drops"_s) && !hasCaption(placeholder, u"Corrupted"_s));
        const QStringList movie =
            linesOf({{ClipKey::clipName, u"a#01.mov"_s}, {ClipKey::clipFrameCorrupts, Array{1, 2, 3}}});
        QVERIFY(!hasCaption(movie, u"Media"_s));
        QVERIFY(movie.contains(u"Frame Drops: 0"_s) && movie.contains(u"Corrupted Frames: 3"_s));
    }

    void mediaAreToldByNameAndFolder_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("location");
        QTest::newRow("usual") << u"/media/A 1/c.mov"_s << u"c.mov"_s << u"/media/A 1"_s;
        QTest::newRow("top") << u"/c.mov"_s << u"c.mov"_s << u"/"_s;
        QTest::newRow("bare") << u"c.mov"_s << u"c.mov"_s << u""_s;
    }
    void mediaAreToldByNameAndFolder() {
        QFETCH(const QString, path);
        QFETCH(const QString, name);
        QFETCH(const QString, location);
        const QStringList lines = linesOf({{ClipKey::clipName, u"a#01.xml"_s}, {ClipKey::clipPath, path}});
        QCOMPARE(lines.at(1), u"Media Name: "_s + name);
        QCOMPARE(lines.at(2), u"Media Location: "_s + location);
    }

    void missingFieldsAreDashesAndEmptyOnesEmpty() {
        const QStringList missing = linesOf({{ClipKey::clipName, u"a#01.mov"_s}});
        const QStringList empty = linesOf({{ClipKey::clipName, u"a.mov"_s},
                                           {ClipKey::clipLabel, u""_s},
                                           {ClipKey::clipScene, u""_s},
                                           {ClipKey::clipTake, u""_s},
                                           {ClipKey::clipComment, u""_s}});
        QVERIFY(missing.contains(u"Take: 01"_s) && empty.contains(u"Take: "_s));
        for (const QString& caption : {u"Shot: "_s, u"Scene: "_s, u"Comment: "_s}) {
            QVERIFY(missing.contains(caption + u'-'));
            QVERIFY(empty.contains(caption));
        }
    }

    void otherMissingValuesAreNull() {
        const QStringList lines = linesOf({});
        QVERIFY(lines.contains(u"Name: (null)"_s));
        QVERIFY(lines.contains(u"Creation Date/Time: (null)"_s));
        QVERIFY(lines.contains(u"Rating: 0"_s));
        QVERIFY(lines.contains(u"Duration: 00:00:00"_s));
        QCOMPARE(encodeMarkerAsText(Marker()),
                 u"Name: (null)\rStart Time: 00:00:00\rDuration: 00:00:00\rComment: -\r"_s);
    }

    void timesLoseTheirFraction() {
        const auto startOf = [](double in) {
            return encodeMarkerAsText(Marker(markerRecord(u"m"_s, in, 3599.999))).split(u'\r');
        };
        QCOMPARE(startOf(59.99).at(1), u"Start Time: 00:00:59"_s);
        QCOMPARE(startOf(59.99).at(2), u"Duration: 00:59:59"_s);
        QCOMPARE(startOf(-0.9).at(1), u"Start Time: 00:00:00"_s);
        QCOMPARE(startOf(std::numeric_limits<double>::quiet_NaN()).at(1), u"Start Time: 00:00:00"_s);
        QCOMPARE(startOf(std::numeric_limits<double>::infinity()).at(1),
                 u"Start Time: 2562047788015215:30:07"_s);
    }

    void aClipWithoutMarkersHasNoneListed() {
        QVERIFY(!encodeClipAsText(ClipInfo({{ClipKey::clipMarkerArray, Array()}})).contains(u"Marker"_s));
    }

    void oneForeignCharacterFailsAndLeavesTheOldFile_data() {
        QTest::addColumn<Dictionary>("record");
        QTest::newRow("comment") << Dictionary{{ClipKey::clipComment, u"caf\u00E9"_s}};
        QTest::newRow("scene") << Dictionary{{ClipKey::clipScene, u"\u0080"_s}};
        QTest::newRow("folder") << Dictionary{{ClipKey::clipName, u"a.xml"_s},
                                              {ClipKey::clipPath, u"/Möwe/a.mov"_s}};
        QTest::newRow("marker") << Dictionary{
            {ClipKey::clipMarkerArray, Array{Dictionary{{clipMarkerTitle, u"\U0001F600"_s}}}}};
    }
    void oneForeignCharacterFailsAndLeavesTheOldFile() {
        QFETCH(const Dictionary, record);
        const QString target = path(u"a.txt"_s);
        QVERIFY(writeFile(target, "old"));
        std::vector<ClipInfo> clips(300, ClipInfo(Dictionary{{ClipKey::clipName, u"a.mov"_s}}));
        clips.at(290) = ClipInfo(record);
        const Result<void> done = doExportAsTextAtPath(target, clips);
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::malformed);
        QVERIFY(done.error().message.contains(u"Clip 291 "_s));
        QCOMPARE(*readFile(target), QByteArray("old"));
        QCOMPARE(QDir(_place->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.txt"_s});
    }

    void whatIsNotShownMayBeForeign() {
        const Dictionary record{{ClipKey::clipName, u"a.mov"_s}, {ClipKey::clipPath, u"/Möwe.mov"_s}};
        QVERIFY(doExportAsTextAtPath(path(u"a.txt"_s), {{ClipInfo(record)}}));
    }

    void whatCannotBeWrittenIsAnError() {
        FaultyFileSystem fileSystem;
        const InstalledFileSystem installed(fileSystem);
        fileSystem.failFrom(2, ErrorCode::noSpace);
        const Result<void> done = doExportAsTextAtPath(path(u"a.txt"_s), clipsOfTheTextDocuments());
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::noSpace);
        QVERIFY(QDir(_place->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void nothingIsWrittenWhenCancelled() {
        const auto never = [](qsizetype, qsizetype) { return false; };
        const Result<void> done = doExportAsTextAtPath(path(u"a.txt"_s), clipsOfTheTextDocuments(), never);
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::interrupted);
        QVERIFY(!fileExists(path(u"a.txt"_s)));
    }
};

QTEST_GUILESS_MAIN(TextExportTest)
#include "TextExportTest.moc"
