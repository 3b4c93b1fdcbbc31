// Making markers and marker sets, and the titles of a set's buttons.
#include "markers/MarkerSetStore.h"
#include "platform/FakeClock.h"

#include <QTest>

using namespace marquill;

namespace {

Marker fired(const QString& title) {
    return MarkerSetStore::getMarkerWithTitle(title, std::nullopt);
}

MarkerSet setWithTitles(const QStringList& titles) {
    MarkerSet set = MarkerSetStore::newMarkerSetWithTitle(u"Set"_s);
    set.setMarkerArray(arrayOfStrings(titles));
    return set;
}

}  // namespace

class MarkerSetStoreTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aNewMarkerIsAPointAtTheStart() {
        const Dictionary expected{{u"clipMarkerTitle"_s, u"Good"_s},
                                  {u"clipMarkerIn"_s, 0.0},
                                  {u"clipMarkerDur"_s, 0.0},
                                  {u"clipMarkerComment"_s, QString()},
                                  {u"clipMarkerTags"_s, Dictionary()}};
        QVERIFY(fired(u"Good"_s).record() == expected);
        QVERIFY(std::holds_alternative<double>(fired(u"Good"_s).record().find(clipMarkerIn)->variant()));
    }

    void aNewMarkerCarriesItsComment() {
        QCOMPARE(MarkerSetStore::getMarkerWithTitle(u"Good"_s, u"slate missing"_s).comment(),
                 u"slate missing"_s);
    }

    void filmSetCallsTagTheMarker_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("in");
        QTest::addColumn<bool>("out");
        QTest::newRow("Action") << u"Action"_s << true << false;
        QTest::newRow("In") << u"In"_s << true << false;
        QTest::newRow("Cut") << u"Cut"_s << false << true;
        QTest::newRow("Out") << u"Out"_s << false << true;
        QTest::newRow("lower case") << u"action"_s << false << false;
        QTest::newRow("part of a word") << u"Cutaway"_s << false << false;
        QTest::newRow("blank") << QString() << false << false;
    }
    void filmSetCallsTagTheMarker() {
        QFETCH(const QString, title);
        QFETCH(const bool, in);
        QFETCH(const bool, out);
        const Marker marker = fired(title);
        QCOMPARE(MarkerSetStore::markerTag(marker, u"in"_s), in ? std::optional<Value>(true) : std::nullopt);
        QCOMPARE(MarkerSetStore::markerTag(marker, u"out"_s),
                 out ? std::optional<Value>(true) : std::nullopt);
    }

    void tagsNeedAMarkerAndAName() {
        QVERIFY(!MarkerSetStore::markerTag(std::nullopt, u"in"_s));
        QVERIFY(!MarkerSetStore::markerTag(fired(u"Action"_s), QString()));
        MarkerSetStore::setMarker(std::nullopt, u"in"_s, true);
        const Marker marker = fired(u"Good"_s);
        MarkerSetStore::setMarker(marker, QString(), true);
        QVERIFY(marker.tags()->isEmpty());
    }

    void aMissingValueRemovesTheTag() {
        const Marker marker = fired(u"Action"_s);
        MarkerSetStore::setMarker(marker, u"out"_s, true);
        MarkerSetStore::setMarker(marker, u"in"_s, std::nullopt);
        QVERIFY(!MarkerSetStore::markerTag(marker, u"in"_s));
        QVERIFY(MarkerSetStore::markerTag(marker, u"out"_s));
    }

    void buttonsWithoutAnEntryAreNumberedAsTheirKeys() {
        const MarkerSet set = MarkerSetStore::newMarkerSetWithTitle(u"Set"_s);
        for (int index = 0; index < 9; ++index) {
            QCOMPARE(MarkerSetStore::markerStringAtIndex(index, set), u"untitled (%1)"_s.arg(index + 1));
        }
        QCOMPARE(MarkerSetStore::markerStringAtIndex(9, set), u"untitled (0)"_s);
        QCOMPARE(MarkerSetStore::markerStringAtIndex(23, set), u"untitled (0)"_s);
    }

    void anEntryIsTheTitleAsItIs() {
        const MarkerSet set = setWithTitles({u"Action"_s, QString()});
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, set), u"Action"_s);
        QCOMPARE(MarkerSetStore::markerStringAtIndex(1, set), QString());
        QCOMPARE(MarkerSetStore::markerStringAtIndex(2, set), u"untitled (3)"_s);
    }

    void entriesThatAreNoTextsAreUntitled() {
        MarkerSet set = MarkerSetStore::newMarkerSetWithTitle(u"Set"_s);
        set.setMarkerArray(Array{Value(5)});
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, set), u"untitled (1)"_s);
        QCOMPARE(MarkerSetStore::markerStringAtIndex(-1, MarkerSet()), u"untitled (0)"_s);
    }

    void aTitleBeyondTheEndBlanksTheButtonsBefore() {
        const MarkerSet set = MarkerSetStore::newMarkerSetWithTitle(u"Set"_s);
        QVERIFY(MarkerSetStore::setMarkerString(u"Good"_s, set, 3));
        QCOMPARE(set.markerArray()->size(), 4);
        QCOMPARE(stringsOfArray(*set.markerArray()),
                 QStringList({QString(), QString(), QString(), u"Good"_s}));
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, set), QString());
        QCOMPARE(MarkerSetStore::markerStringAtIndex(5, set), u"untitled (6)"_s);
    }

    void aTitleReplacesTheEntry() {
        const MarkerSet set = setWithTitles({u"A"_s, u"B"_s, u"C"_s});
        QVERIFY(MarkerSetStore::setMarkerString(u"X"_s, set, 1));
        QCOMPARE(stringsOfArray(*set.markerArray()), QStringList({u"A"_s, u"X"_s, u"C"_s}));
    }

    void aSetWithoutTitlesGetsThem() {
        const MarkerSet set(Dictionary{{kMarkerSetTitle, u"Set"_s}});
        QVERIFY(MarkerSetStore::setMarkerString(u"X"_s, set, 0));
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, set), u"X"_s);
    }

    void readOnlySetsKeepTheirTitles() {
        Dictionary record = setWithTitles({u"A"_s}).record();
        record.freeze();
        const Result<void> stored = MarkerSetStore::setMarkerString(u"X"_s, MarkerSet(record), 0);
        QVERIFY(!stored);
        QCOMPARE(stored.error().code, ErrorCode::frozen);
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, MarkerSet(record)), u"A"_s);
        QVERIFY(!MarkerSetStore::setMarkerString(u"X"_s, MarkerSet(record), 4));
        QCOMPARE(MarkerSet(record).markerArray()->size(), 1);
    }

    void readOnlyTitlesStaySoInACopiedSet() {
        Dictionary record = setWithTitles({u"A"_s}).record();
        record.freeze();
        QVERIFY(!MarkerSetStore::setMarkerString(u"X"_s, MarkerSet(record.copy()), 0));
    }

    void thereIsNoButtonBeforeTheFirst() {
        const MarkerSet set = setWithTitles({u"A"_s});
        QVERIFY(!MarkerSetStore::setMarkerString(u"X"_s, set, -1));
        QCOMPARE(stringsOfArray(*set.markerArray()), QStringList{u"A"_s});
    }

    void aNewSetHasNoTitlesAndTheClocksIdentity() {
        const FakeClock clock;
        const quint64 before = clock.microseconds();
        const MarkerSet set = MarkerSetStore::newMarkerSetWithTitle(u"New Set"_s);
        const Dictionary expected{{u"kMarkerSetTitle"_s, u"New Set"_s},
                                  {u"kMarkerArray"_s, Array()},
                                  {u"kMarkerID"_s, Value(before + 1)}};
        QVERIFY(set.record() == expected);
        QVERIFY(set.markerID() < MarkerSetStore::newMarkerSetWithTitle(u"New Set"_s).markerID());
    }

    void aDuplicateStandsOnItsOwn() {
        const MarkerSet source = setWithTitles({u"A"_s, u"B"_s});
        const MarkerSet copy = MarkerSetStore::duplicateMarkerSet(source, u"Copy"_s);
        QCOMPARE(copy.title(), u"Copy"_s);
        QVERIFY(copy.markerID() != source.markerID());
        QVERIFY(copy.markerArray() == source.markerArray());
        QVERIFY(MarkerSetStore::setMarkerString(u"X"_s, copy, 0));
        QCOMPARE(MarkerSetStore::markerStringAtIndex(0, source), u"A"_s);
        QCOMPARE(source.title(), u"Set"_s);
    }

    void aDuplicateOfAReadOnlySetCanBeChanged() {
        Dictionary record = setWithTitles({u"A"_s}).record();
        record.set(u"colour"_s, u"red"_s);
        record.freeze();
        const MarkerSet copy = MarkerSetStore::duplicateMarkerSet(MarkerSet(record), u"Set"_s);
        QVERIFY(MarkerSetStore::setMarkerString(u"X"_s, copy, 0));
        QCOMPARE(copy.record().string(u"colour"_s), u"red"_s);
    }
};

QTEST_GUILESS_MAIN(MarkerSetStoreTest)
#include "MarkerSetStoreTest.moc"
