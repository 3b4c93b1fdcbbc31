// What becomes of one clip that two have changed.
#include "clipstore/ClipMerge.h"
#include "clipstore/MarkerMerge.h"

#include <QTest>

#include <algorithm>

using namespace marquill;

namespace {

Value markerAt(double in, const QString& title, const QString& comment = {}) {
    Dictionary marker{{u"clipMarkerIn"_s, in}, {u"clipMarkerTitle"_s, title}};
    if (!comment.isEmpty()) {
        marker.set(u"clipMarkerComment"_s, comment);
    }
    return marker;
}

// The record of a clip with a comment, if it has one.
ClipInfo commented(const QString& comment) {
    ClipInfo clip(Dictionary{{u"clipName"_s, u"A#01.xml"_s}});
    if (!comment.isNull()) {
        clip.setClipComment(comment);
    }
    return clip;
}

ClipInfo withMarkers(const Array& markers) {
    ClipInfo clip = commented({});
    clip.setClipMarkerArray(markers);
    return clip;
}

std::vector<MarkerPrint> printsOf(const Array& markers) {
    std::vector<MarkerPrint> prints;
    std::ranges::transform(markers.values(), std::back_inserter(prints), &MarkerPrint::of);
    return prints;
}

QStringList titles(const ClipInfo& clip) {
    QStringList titles;
    const Array markers = clip.clipMarkerArray().value_or(Array());
    for (const Value& marker : markers.values()) {
        titles.append(marker.dictionary()->string(u"clipMarkerTitle"_s).value_or(QString()));
    }
    return titles;
}

}  // namespace

class ClipMergeTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // A null text is no key.
    void oneKey_data() {
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("mine");
        QTest::addColumn<QString>("theirs");
        QTest::addColumn<QString>("merged");
        QTest::addColumn<bool>("conflict");
        const QString none;
        QTest::newRow("nobody") << u"a"_s << u"a"_s << u"a"_s << u"a"_s << false;
        QTest::newRow("I") << u"a"_s << u"b"_s << u"a"_s << u"b"_s << false;
        QTest::newRow("they") << u"a"_s << u"a"_s << u"b"_s << u"b"_s << false;
        QTest::newRow("both the same") << u"a"_s << u"b"_s << u"b"_s << u"b"_s << false;
        QTest::newRow("both differently") << u"a"_s << u"b"_s << u"c"_s << u"b"_s << true;
        QTest::newRow("I added") << none << u"b"_s << none << u"b"_s << false;
        QTest::newRow("they added") << none << none << u"b"_s << u"b"_s << false;
        QTest::newRow("I took away") << u"a"_s << none << u"a"_s << none << false;
        QTest::newRow("they took away") << u"a"_s << u"a"_s << none << none << false;
        QTest::newRow("I took away what they changed") << u"a"_s << none << u"b"_s << none << true;
        QTest::newRow("both added") << none << u"b"_s << u"c"_s << u"b"_s << true;
    }
    void oneKey() {
        QFETCH(const QString, base);
        QFETCH(const QString, mine);
        QFETCH(const QString, theirs);
        QFETCH(const QString, merged);
        QFETCH(const bool, conflict);
        const ClipMerge merge = mergeClips(ClipPrint(commented(base)), commented(mine), commented(theirs));
        QCOMPARE(merge.merged, commented(merged));
        QCOMPARE(merge.conflicts.size(), conflict ? std::size_t(1) : std::size_t(0));
        if (conflict) {
            QCOMPARE(merge.conflicts.front().key, ClipKey::clipComment);
            QCOMPARE(merge.conflicts.front().mine.string().value_or(QString()), mine);
            QCOMPARE(merge.conflicts.front().theirs.string().value_or(QString()), theirs);
        }
    }

    void differentKeysAreAllTaken() {
        ClipInfo base = commented(u"a"_s);
        ClipInfo mine = base.deepCopy();
        ClipInfo theirs = base.deepCopy();
        mine.setClipRating(3);
        theirs.setClipScene(u"7"_s);
        const ClipMerge merge = mergeClips(ClipPrint(base), mine, theirs);
        QVERIFY(merge.conflicts.empty());
        QCOMPARE(merge.merged.record(), (Dictionary{{u"clipName"_s, u"A#01.xml"_s},
                                                    {u"clipComment"_s, u"a"_s},
                                                    {u"clipRating"_s, 3},
                                                    {u"clipScene"_s, u"7"_s}}));
    }

    void anAnswerSettlesWhatIsInConflictAndNothingElse() {
        ClipInfo base = commented(u"a"_s);
        ClipInfo mine = commented(u"b"_s);
        ClipInfo theirs = commented(u"c"_s);
        mine.setClipRating(3);
        theirs.setClipScene(u"7"_s);
        const ClipMerge kept = mergeClips(ClipPrint(base), mine, theirs, ClipPreference::mine);
        QVERIFY(kept.conflicts.empty());
        QCOMPARE(kept.merged.clipComment(), u"b"_s);
        const ClipMerge taken = mergeClips(ClipPrint(base), mine, theirs, ClipPreference::theirs);
        QVERIFY(taken.conflicts.empty());
        QCOMPARE(taken.merged.clipComment(), u"c"_s);
        for (const ClipMerge& merge : {kept, taken}) {
            QCOMPARE(merge.merged.clipRating(), 3);
            QCOMPARE(merge.merged.clipScene(), u"7"_s);
        }
    }

    void keysOfOtherVersionsAreMergedToo() {
        ClipInfo theirs = commented({});
        Dictionary(theirs.record()).set(u"future"_s, Array{1, 2});
        const ClipMerge merge = mergeClips(ClipPrint(commented({})), commented(u"mine"_s), theirs);
        QCOMPARE(merge.merged.record().array(u"future"_s), (Array{1, 2}));
        QCOMPARE(merge.merged.clipComment(), u"mine"_s);
    }

    void whatShowingAddsIsNoConflict() {
        ClipInfo mine = commented({});
        ClipInfo theirs = commented({});
        mine.setClipTake(u"01"_s);  // what its name says
        mine.setClipFileSize(10);
        mine.setClipDuration(5);
        mine.setClipCreationDate(Date(std::chrono::seconds(1)));
        theirs.setClipTake(u"7"_s);
        theirs.setClipFileSize(20);
        theirs.setClipDuration(6);
        theirs.setClipCreationDate(Date(std::chrono::seconds(2)));
        const ClipMerge merge = mergeClips(ClipPrint(commented({})), mine, theirs);
        QVERIFY(merge.conflicts.empty());
        QCOMPARE(merge.merged.clipTake(), u"7"_s);
    }

    void theNameStaysThatOfTheFile() {
        ClipInfo mine = commented({});
        ClipInfo theirs = commented({});
        mine.setClipName(u"B#01.xml"_s);
        theirs.setClipName(u"C#01.xml"_s);
        const ClipMerge merge = mergeClips(ClipPrint(commented({})), mine, theirs);
        QVERIFY(merge.conflicts.empty());
        QCOMPARE(merge.merged.clipName(), u"B#01.xml"_s);
        // A record that could not be read has none yet.
        QCOMPARE(mergeClips(ClipPrint(ClipInfo()), ClipInfo(), theirs).merged, theirs);
    }

    void markersOfBothSidesAreKept() {
        const Array base{markerAt(1, u"one"_s), markerAt(2, u"two"_s)};
        const Array mine{markerAt(1, u"one"_s), markerAt(2, u"two"_s), markerAt(3, u"mine"_s)};
        const Array theirs{markerAt(2, u"two"_s), markerAt(4, u"theirs"_s)};
        const ClipMerge merge =
            mergeClips(ClipPrint(withMarkers(base)), withMarkers(mine), withMarkers(theirs));
        QVERIFY(merge.conflicts.empty());
        QCOMPARE(titles(merge.merged), (QStringList{u"two"_s, u"mine"_s, u"theirs"_s}));
    }

    void aMarkerThatBothMadeIsOne() {
        const Array both{markerAt(1, u"one"_s)};
        const ClipMerge merge =
            mergeClips(ClipPrint(withMarkers({})), withMarkers(both), withMarkers(both.deepCopy()));
        QCOMPARE(titles(merge.merged), QStringList{u"one"_s});
    }

    void aListThatIsNotThereIsAnEmptyOne() {
        const ClipMerge merge = mergeClips(ClipPrint(commented({})), withMarkers({markerAt(1, u"mine"_s)}),
                                           withMarkers({markerAt(2, u"theirs"_s)}));
        QVERIFY(merge.conflicts.empty());
        QCOMPARE(titles(merge.merged), (QStringList{u"mine"_s, u"theirs"_s}));
    }

    void differentMarkersMayBeChangedOnEitherSide() {
        const Array base{markerAt(1, u"one"_s), markerAt(2, u"two"_s)};
        const Array mine{markerAt(1, u"one"_s, u"my note"_s), markerAt(2, u"two"_s)};
        const Array theirs{markerAt(1, u"one"_s), markerAt(2, u"TWO"_s)};
        const std::optional<Array> merged = mergeMarkers(printsOf(base), mine, theirs);
        QVERIFY(merged);
        QCOMPARE(*merged, (Array{markerAt(1, u"one"_s, u"my note"_s), markerAt(2, u"TWO"_s)}));
    }

    void oneMarkerChangedOnBothSidesIsAConflict_data() {
        QTest::addColumn<bool>("isRemoved");
        QTest::newRow("changed differently") << false;
        QTest::newRow("changed and removed") << true;
    }
    void oneMarkerChangedOnBothSidesIsAConflict() {
        QFETCH(const bool, isRemoved);
        const Array base{markerAt(1, u"one"_s)};
        const Array mine{markerAt(1, u"one"_s, u"my note"_s)};
        const Array theirs = isRemoved ? Array() : Array{markerAt(1, u"one"_s, u"their note"_s)};
        QVERIFY(!mergeMarkers(printsOf(base), mine, theirs));
        QVERIFY(!mergeMarkers(printsOf(base), theirs, mine));
        const ClipMerge merge =
            mergeClips(ClipPrint(withMarkers(base)), withMarkers(mine), withMarkers(theirs));
        QCOMPARE(merge.conflicts.size(), std::size_t(1));
        QCOMPARE(merge.conflicts.front().key, ClipKey::clipMarkerArray);
        QCOMPARE(merge.merged.clipMarkerArray(), mine);
    }

    void removedOnBothSidesAndAnotherAddedIsNone() {
        const Array base{markerAt(1, u"one"_s)};
        const std::optional<Array> merged =
            mergeMarkers(printsOf(base), {markerAt(5, u"mine"_s)}, {markerAt(6, u"theirs"_s)});
        QVERIFY(merged);
        QCOMPARE(*merged, (Array{markerAt(5, u"mine"_s), markerAt(6, u"theirs"_s)}));
    }

    // Undo and the marker list hold the records of the markers.
    void markersThatStayKeepTheirRecords() {
        ClipInfo mine = withMarkers({markerAt(1, u"one"_s)});
        const Dictionary before = *mine.clipMarkerArray()->at(0).dictionary();
        const ClipInfo theirs = withMarkers({markerAt(1, u"one"_s), markerAt(2, u"two"_s)});
        const Dictionary record = mine.record();
        QVERIFY(takeMerged(mine, mergeClips(ClipPrint(mine), mine, theirs).merged));
        QVERIFY(mine.record().isSame(record));
        QVERIFY(mine.clipMarkerArray()->at(0).dictionary()->isSame(before));
        QVERIFY(!mine.clipMarkerArray()->at(1).dictionary()->isSame(
            *theirs.clipMarkerArray()->at(1).dictionary()));
    }

    void aPrintTellsEveryValueFromEveryOther() {
        const std::vector<Value> values{Value(),
                                        true,
                                        false,
                                        0,
                                        1,
                                        1.5,
                                        u""_s,
                                        u"1"_s,
                                        QByteArray("1"),
                                        Array(),
                                        Array{1},
                                        Array{Array{1}},
                                        Dictionary(),
                                        Date(std::chrono::seconds(1)),
                                        Dictionary{{u"a"_s, 1}},
                                        Dictionary{{u"a"_s, 2}},
                                        (qint64(1) << 62) + 1,
                                        (qint64(1) << 62) + 2};
        for (std::size_t i = 0; i < values.size(); ++i) {
            ClipInfo clip;
            if (!values[i].isNothing()) {
                Dictionary(clip.record()).set(u"key"_s, values[i]);
            }
            const ClipPrint print(clip);
            for (std::size_t j = 0; j < values.size(); ++j) {
                QCOMPARE(print.held(u"key"_s, values[j]), values[i] == values[j]);
            }
            QVERIFY(print.held(u"other"_s, Value()));
            QVERIFY(!print.held(u"other"_s, 1));
        }
        ClipInfo three;
        three.setClipRating(3);
        QVERIFY(ClipPrint(three).held(ClipKey::clipRating, 3.0));
    }

    void takingWhatIsThereChangesNothing() {
        ClipInfo clip = commented(u"a"_s);
        QVERIFY(!takeMerged(clip, commented(u"a"_s)));
        QVERIFY(takeMerged(clip, commented({})));
        QVERIFY(!clip.clipComment());
    }
};

QTEST_GUILESS_MAIN(ClipMergeTest)
#include "ClipMergeTest.moc"
