// What differs between a folder that is known and a look at it.
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "clipstore/FolderComparison.h"

#include <QFile>
#include <QTest>

using namespace marquill;

namespace {

FileStamp stamp(quint64 inode, qint64 size = 10, int second = 0) {
    return {
        .device = 1, .inode = inode, .size = size, .modificationDate = Date(std::chrono::seconds(second))};
}

KnownFolder known(const std::vector<FolderFile>& files) {
    KnownFolder folder;
    for (const FolderFile& file : files) {
        folder.insert(file.name, {.stamp = file.stamp, .held = {}, .clip = {}});
    }
    return folder;
}

using Renamed = std::vector<std::pair<QString, QString>>;

ClipFile fileOf(const QString& name, const ClipInfo& clip) {
    return {.name = name, .stamp = {}, .clip = clip, .held = std::make_shared<const ClipPrint>(clip)};
}

void know(KnownClip& known, const ClipInfo& clip) {
    known.held = std::make_shared<const ClipPrint>(clip);
    known.clip = clip;
}

ClipInfo takeBegunAt(int second, const QString& comment = {}) {
    ClipInfo clip;
    clip.setClipRecordingStartTime(Date(std::chrono::seconds(second)));
    clip.setClipComment(comment);
    return clip;
}

}  // namespace

class FolderComparisonTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aFolderAsItWasDiffersInNothing() {
        const std::vector<FolderFile> files{{u"a.xml"_s, stamp(1)}, {u"b.mov"_s, stamp(2)}};
        QVERIFY(compareFolder(known(files), files, Identities::last).isNone());
        QVERIFY(compareFolder({}, {}, Identities::last).isNone());
    }

    void newGoneAndChangedAreTold() {
        const FolderDifference difference = compareFolder(
            known({{u"a.xml"_s, stamp(1)}, {u"b.xml"_s, stamp(2)}, {u"c.xml"_s, stamp(3)}}),
            {{u"d.xml"_s, stamp(4)}, {u"b.xml"_s, stamp(2, 11)}, {u"c.xml"_s, stamp(3)}}, Identities::last);
        QCOMPARE(difference.appeared, QStringList{u"d.xml"_s});
        QCOMPARE(difference.missing, QStringList{u"a.xml"_s});
        QCOMPARE(difference.changed, QStringList{u"b.xml"_s});
        QCOMPARE(difference.renamed, Renamed());
    }

    void eachPartOfAStampTellsOfAChange() {
        const KnownFolder folder = known({{u"a.xml"_s, stamp(1)}});
        for (const FileStamp& now : {stamp(2), stamp(1, 11), stamp(1, 10, 1)}) {
            QCOMPARE(compareFolder(folder, {{u"a.xml"_s, now}}, Identities::last).changed,
                     QStringList{u"a.xml"_s});
        }
    }

    // Else a network volume that gives its files new identities would be read anew at every look.
    void anotherIdentityAloneIsNoChangeWhereIdentitiesChange() {
        const KnownFolder folder = known({{u"a.xml"_s, stamp(1)}});
        QVERIFY(compareFolder(folder, {{u"a.xml"_s, stamp(2)}}, Identities::mayChange).isNone());
        QVERIFY(!compareFolder(folder, {{u"a.xml"_s, stamp(1, 10, 1)}}, Identities::mayChange).isNone());
    }

    void theSameFileUnderAnotherNameIsRenamed() {
        const FolderDifference difference =
            compareFolder(known({{u"a.xml"_s, stamp(1)}}), {{u"b.xml"_s, stamp(1)}}, Identities::last);
        QCOMPARE(difference.renamed, (Renamed{{u"a.xml"_s, u"b.xml"_s}}));
        QVERIFY(difference.appeared.isEmpty());
        QVERIFY(difference.missing.isEmpty());
    }

    void aSecondNameOfAFileThatIsThereIsNew() {
        const FolderDifference difference =
            compareFolder(known({{u"a.xml"_s, stamp(1)}}), {{u"a.xml"_s, stamp(1)}, {u"b.xml"_s, stamp(1)}},
                          Identities::last);
        QCOMPARE(difference.appeared, QStringList{u"b.xml"_s});
    }

    // The identity of a file that was removed is soon another one's.
    void aPlaceholderWithAnIdentityThatWasFreedIsNew() {
        const FolderDifference difference =
            compareFolder(known({{u"a.xml"_s, stamp(1)}}), {{u"b.xml"_s, stamp(1, 12, 5)}}, Identities::last);
        QCOMPARE(difference.appeared, QStringList{u"b.xml"_s});
        QCOMPARE(difference.missing, QStringList{u"a.xml"_s});
    }

    void aMovieThatWasRenamedAndWrittenIsRenamed() {
        QCOMPARE(
            compareFolder(known({{u"a.mov"_s, stamp(1)}}), {{u"b.mov"_s, stamp(1, 12, 5)}}, Identities::last)
                .renamed,
            (Renamed{{u"a.mov"_s, u"b.mov"_s}}));
    }

    void twoThatExchangeTheirNamesHaveChanged() {
        const FolderDifference difference =
            compareFolder(known({{u"a.xml"_s, stamp(1)}, {u"b.xml"_s, stamp(2)}}),
                          {{u"a.xml"_s, stamp(2)}, {u"b.xml"_s, stamp(1)}}, Identities::last);
        QCOMPARE(difference.changed, (QStringList{u"a.xml"_s, u"b.xml"_s}));
    }

    void aTakeThatWasRenamedAndWrittenAnewIsFoundByWhatItSays() {
        KnownFolder folder = known({{u"a#01.xml"_s, stamp(1)}, {u"b#01.xml"_s, stamp(2)}});
        know(folder[u"a#01.xml"_s], takeBegunAt(5, u"good"_s));
        know(folder[u"b#01.xml"_s], takeBegunAt(9, u"good"_s));
        ClipInfo renamed = takeBegunAt(9, u"good"_s);
        renamed.setClipName(u"c#01.xml"_s);
        renamed.setClipTake(u"01"_s);
        const auto found =
            findRenamed(folder, {u"a#01.xml"_s, u"b#01.xml"_s}, {fileOf(u"c#01.xml"_s, renamed)});
        QCOMPARE(found, (std::vector<std::pair<QString, std::size_t>>{{u"b#01.xml"_s, 0}}));
    }

    void aTakeThatWasEditedAndRenamedIsFoundByItsStart() {
        KnownFolder folder = known({{u"a#01.xml"_s, stamp(1)}});
        know(folder[u"a#01.xml"_s], takeBegunAt(5, u"good"_s));
        QCOMPARE(findRenamed(folder, {u"a#01.xml"_s}, {fileOf(u"c.xml"_s, takeBegunAt(5, u"bad"_s))}).size(),
                 std::size_t(1));
        QVERIFY(
            findRenamed(folder, {u"a#01.xml"_s}, {fileOf(u"c.xml"_s, takeBegunAt(6, u"good"_s))}).empty());
        QVERIFY(
            findRenamed(folder, {u"a#01.xml"_s}, {fileOf(u"c.mov"_s, takeBegunAt(5, u"good"_s))}).empty());
        // Of records that say nothing, nothing is known.
        know(folder[u"a#01.xml"_s], ClipInfo());
        QVERIFY(findRenamed(folder, {u"a#01.xml"_s}, {fileOf(u"c.xml"_s, ClipInfo())}).empty());
    }

    // Two programs that record together begin together.
    void ofTakesThatBeganTogetherTheOneThatSaysTheSameIsRenamed() {
        KnownFolder folder = known({{u"a#01.xml"_s, stamp(1)}, {u"b#01.xml"_s, stamp(2)}});
        know(folder[u"a#01.xml"_s], takeBegunAt(5, u"good"_s));
        know(folder[u"b#01.xml"_s], takeBegunAt(5, u"bad"_s));
        const QStringList missing{u"a#01.xml"_s, u"b#01.xml"_s};
        QCOMPARE(findRenamed(folder, missing, {fileOf(u"c.xml"_s, takeBegunAt(5, u"bad"_s))}),
                 (std::vector<std::pair<QString, std::size_t>>{{u"b#01.xml"_s, 0}}));
        QVERIFY(findRenamed(folder, missing, {fileOf(u"c.xml"_s, takeBegunAt(5, u"new"_s))}).empty());
    }

    void aLookLeavesOutWhatIsNoClip() {
        const ClipFolder folder;
        for (const QString& name :
             {u"a#01.xml"_s, u"tmp_b.xml"_s, u".marquill-0123456789abcdef"_s, u"c.txt"_s}) {
            folder.make(name, "x");
        }
        const auto files = lookAtFolder(folder.path());
        QVERIFY(files);
        QCOMPARE(files->size(), std::size_t(1));
        QCOMPARE(files->front().name, u"a#01.xml"_s);
        QCOMPARE(files->front().stamp.size, 1);
        QVERIFY(!lookAtFolder(folder.path(u"missing"_s)));
    }

    void writingThatExpectsAnotherStampChangesNothing() {
        const ClipFolder folder;
        folder.make(u"a.xml"_s, "old");
        const Result<FileStamp> before = fileStamp(folder.path(u"a.xml"_s));
        QVERIFY(before);
        const Result<FileStamp> written = replaceFile(folder.path(u"a.xml"_s), "new", *before);
        QVERIFY(written);
        QCOMPARE(folder.contents(u"a.xml"_s), "new");
        QVERIFY(fileStamp(folder.path(u"a.xml"_s)) == *written);
        const Result<FileStamp> refused = replaceFile(folder.path(u"a.xml"_s), "newer", *before);
        QVERIFY(!refused);
        QCOMPARE(refused.error().code, ErrorCode::changedMeanwhile);
        QCOMPARE(folder.contents(u"a.xml"_s), "new");
        QCOMPARE(folder.names(), QStringList{u"a.xml"_s});
    }

    void onlyOldTemporaryFilesOfOursAreSwept() {
        const ClipFolder folder;
        const QString ours = u".marquill-0123456789abcdef"_s;
        for (const QString& name : {ours, u".marquill-fedcba9876543210"_s, u".marquill-mine"_s, u"a.xml"_s,
                                    u".marquill-0123456789abcdef1"_s}) {
            folder.make(name, "x");
            QFile file(folder.path(name));
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(name == ours ? 1000 : 3000),
                                     QFileDevice::FileModificationTime));
        }
        QCOMPARE(sweepTemporaryFiles(folder.path(), Date(std::chrono::seconds(2000))), 1);
        QCOMPARE(folder.names(),
                 (QStringList{u".marquill-0123456789abcdef1"_s, u".marquill-fedcba9876543210"_s,
                              u".marquill-mine"_s, u"a.xml"_s}));
        QCOMPARE(sweepTemporaryFiles(folder.path(), Date(std::chrono::seconds(4000))), 1);
        QCOMPARE(folder.names(),
                 (QStringList{u".marquill-0123456789abcdef1"_s, u".marquill-mine"_s, u"a.xml"_s}));
    }
};

QTEST_GUILESS_MAIN(FolderComparisonTest)
#include "FolderComparisonTest.moc"
