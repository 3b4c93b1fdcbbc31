// The typed handles over marker and marker set records.
#include "markers/Marker.h"
#include "markers/MarkerSet.h"

#include <QTest>

using namespace marquill;

class MarkerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void keysAreWhatClipFilesHold() {
        Marker marker;
        marker.setTitle(u"Action"_s);
        marker.setIn(2.5);
        marker.setDur(0.25);
        marker.setComment(u"early"_s);
        marker.setTags(Dictionary{{u"in"_s, true}});
        marker.setOldIn(2.75);
        const Dictionary expected{{u"clipMarkerTitle"_s, u"Action"_s},
                                  {u"clipMarkerIn"_s, 2.5},
                                  {u"clipMarkerDur"_s, 0.25},
                                  {u"clipMarkerComment"_s, u"early"_s},
                                  {u"clipMarkerTags"_s, Dictionary{{u"in"_s, true}}},
                                  {u"clipMarkerOldIn"_s, 2.75}};
        QVERIFY(marker.record() == expected);
        QCOMPARE(marker.title(), u"Action"_s);
        QCOMPARE(marker.in(), 2.5);
        QCOMPARE(marker.dur(), 0.25);
        QCOMPARE(marker.comment(), u"early"_s);
        QCOMPARE(marker.oldIn(), 2.75);
    }

    void absentAndWronglyTypedValuesAreNothing() {
        const Marker empty;
        QVERIFY(!empty.title() && !empty.in() && !empty.dur() && !empty.comment() && !empty.tags());
        QVERIFY(!empty.oldIn());
        const Marker wrong(Dictionary{{clipMarkerTitle, 1}, {clipMarkerIn, u"2"_s}, {clipMarkerTags, true}});
        QVERIFY(!wrong.title() && !wrong.in() && !wrong.tags());
        QVERIFY(!wrong.tag(u"in"_s));
    }

    void wholeSecondsOfOtherWritersAreTimes() {
        const Marker marker(Dictionary{{clipMarkerIn, 3}, {clipMarkerDur, 0}});
        QCOMPARE(marker.in(), 3.0);
        QCOMPARE(marker.dur(), 0.0);
    }

    void unknownKeysStay() {
        Marker marker(Dictionary{{u"colour"_s, u"red"_s}});
        marker.setTitle(u"In"_s);
        QCOMPARE(marker.record().string(u"colour"_s), u"red"_s);
    }

    void copiesShareTheRecord() {
        Marker marker;
        const Marker same = marker;
        marker.setIn(4.0);
        QCOMPARE(same.in(), 4.0);
        QVERIFY(same.isSame(marker));
        QVERIFY(!Marker(marker.record().copy()).isSame(marker));
        QVERIFY(Marker(marker.record().copy()) == marker);
    }

    void tagsAreSetAndTakenAway() {
        Marker marker;
        QVERIFY(marker.setTag(u"out"_s, true));
        QCOMPARE(marker.tag(u"out"_s)->boolean(), true);
        QVERIFY(!marker.tag(u"in"_s));
        QVERIFY(marker.setTag(u"out"_s, std::nullopt));
        QVERIFY(!marker.tag(u"out"_s));
        QVERIFY(marker.tags()->isEmpty());
    }

    void takingATagFromAMarkerWithoutTagsAddsNone() {
        Marker marker;
        QVERIFY(marker.setTag(u"in"_s, std::nullopt));
        QVERIFY(marker.record().isEmpty());
    }

    void frozenRecordsRefuseEveryChange() {
        Dictionary record{{clipMarkerTitle, u"A"_s}, {clipMarkerTags, Dictionary()}};
        record.freeze();
        Marker marker(record);
        QVERIFY(!marker.setTitle(u"B"_s));
        QVERIFY(!marker.setTag(u"in"_s, true));
        QCOMPARE(marker.title(), u"A"_s);
        QVERIFY(!marker.tag(u"in"_s));
    }

    void setKeysAreWhatTheDefaultsHold() {
        MarkerSet set;
        set.setTitle(u"Interview"_s);
        set.setMarkerArray(arrayOfStrings({u"Question"_s, u"Answer"_s}));
        set.setMarkerID(77);
        const Dictionary expected{{u"kMarkerSetTitle"_s, u"Interview"_s},
                                  {u"kMarkerArray"_s, arrayOfStrings({u"Question"_s, u"Answer"_s})},
                                  {u"kMarkerID"_s, 77}};
        QVERIFY(set.record() == expected);
        QCOMPARE(set.title(), u"Interview"_s);
        QCOMPARE(set.markerArray()->size(), 2);
        QCOMPARE(set.markerID(), quint64(77));
    }

    void identitiesUseAllSixtyFourBits() {
        MarkerSet set;
        set.setMarkerID(18'446'744'073'709'551'615U);
        QCOMPARE(set.markerID(), quint64(18'446'744'073'709'551'615U));
    }

    void identitiesAreComparedAsNumbers() {
        QCOMPARE(unsignedNumber(Value(77.0)), quint64(77));
        QVERIFY(!unsignedNumber(Value(77.5)));
        QVERIFY(!unsignedNumber(Value(-1)));
        QVERIFY(!unsignedNumber(Value(1e30)));
        QVERIFY(!unsignedNumber(Value(u"77"_s)));
        QVERIFY(!unsignedNumber(Value(true)));
    }
};

QTEST_GUILESS_MAIN(MarkerTest)
#include "MarkerTest.moc"
