#include "clipmanager/ExportedClips.h"
#include "clipmanager/TableExport.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;
using namespace marquill::TableExport;

class TableExportTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;

    QString path() const { return _place->filePath(u"table"_s); }

    QByteArray exported(const QString& delimiter, const std::vector<ClipInfo>& clips) const {
        const Result<void> done = doExportAsTableAtPath(path(), delimiter, clips);
        return done ? *readFile(path()) : done.error().description().toUtf8();
    }

    static QStringList rowsOf(const Dictionary& record) {
        return encodeClipAsTable(ClipInfo(record), u","_s).split(u'\r');
    }

  private Q_SLOTS:
    void initTestCase() { useFixedTimeZone(); }
    void init() { _place = std::make_unique<QTemporaryDir>(); }

    void theTabDocumentIsTheOneWrittenByHand() {
        QCOMPARE(exported(u"\t"_s, clipsOfTheTextDocuments()), goldenDocument(u"tabs.txt"_s));
    }

    void theCommaDocumentIsTheOneWrittenByHand() {
        QCOMPARE(exported(u","_s, clipsOfTheTextDocuments()), goldenDocument(u"commas.csv"_s));
    }

    void theThirdClipIsNumberedThree() {
        const std::vector<ClipInfo> clips(3, ClipInfo(Dictionary{{ClipKey::clipName, u"a.mov"_s}}));
        QVERIFY(exported(u","_s, clips).contains("\r\r\r3. Clip\rName ,a\r"));
    }

    void sizesAreCutOffToMegabytes() {
        QVERIFY(rowsOf({{ClipKey::clipFileSize, 1'572'864}}).contains(u"File Size [MB],1 MB"_s));
        QVERIFY(rowsOf({{ClipKey::clipFileSize, 1'048'575}}).contains(u"File Size [MB],0 MB"_s));
    }

    void valuesAreNeitherQuotedNorEscaped() {
        const QStringList rows =
            rowsOf({{ClipKey::clipName, u"a, b#01.mov"_s}, {ClipKey::clipComment, u"\"one\", two\rthree"_s}});
        QCOMPARE(rows.first(), u"Name ,a, b"_s);
        QVERIFY(rows.contains(u"Comment ,\"one\", two"_s));
        QVERIFY(rows.contains(u"three"_s));
    }

    void emptyCommentsStayEmptyAndMarkersGetADash() {
        const QStringList rows =
            rowsOf({{ClipKey::clipComment, u""_s},
                    {ClipKey::clipMarkerArray, Array{markerRecord(u"a"_s, 1, 2), Dictionary()}}});
        QVERIFY(rows.contains(u"Comment ,"_s));
        QVERIFY(rows.contains(u"1. Marker,a,00:00:01,00:00:02,-,"_s));
        QCOMPARE(rows.last(), u"2. Marker,(null),00:00:00,00:00:00,-,"_s);
    }

    void aClipWithoutMarkersHasNoMarkerHeader() {
        const Array one{markerRecord(u"a"_s, 1, 2)};
        QVERIFY(rowsOf({{ClipKey::clipMarkerArray, one}}).contains(u",Name,Start Time,Duration,Comment"_s));
        QVERIFY(!rowsOf({{ClipKey::clipMarkerArray, Array()}}).join(u' ').contains(u"Start Time"_s));
        QVERIFY(!rowsOf({}).join(u' ').contains(u"Start Time"_s));
    }

    void aPlaceholderHasMediaAndAMovieHasFrames() {
        const QString placeholder = rowsOf({{ClipKey::clipName, u"a#01.xml"_s}}).join(u'\n');
        QVERIFY(placeholder.contains(u"Media Name: ,-\nMedia Location: ,-\n"_s));
        QVERIFY(!placeholder.contains(u"Frame"_s));
        const QString movie = rowsOf({{ClipKey::clipName, u"a#01.mov"_s}}).join(u'\n');
        QVERIFY(!movie.contains(u"Media"_s));
        QVERIFY(movie.endsWith(u"Frame Drops ,0\nCorrupted Frames ,0\n"_s));
    }

    void oneForeignCharacterFailsAndLeavesTheOldFile() {
        QVERIFY(writeFile(path(), "old"));
        const ClipInfo clip(Dictionary{{ClipKey::clipComment, u"caf\u00E9"_s}});
        const Result<void> done = doExportAsTableAtPath(path(), u"\t"_s, {{clip}});
        QVERIFY(!done);
        QCOMPARE(done.error().code, ErrorCode::malformed);
        QCOMPARE(*readFile(path()), QByteArray("old"));
    }
};

QTEST_GUILESS_MAIN(TableExportTest)
#include "TableExportTest.moc"
