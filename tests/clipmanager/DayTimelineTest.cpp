// Moments are written with their offset from UTC, by hand; the local clock is Berlin's.
#include "clipmanager/DayTimeline.h"
#include "clipstore/ClipInfo.h"
#include "recording/TakeRecord.h"

#include <QDateTime>
#include <QTest>

#include <algorithm>
#include <ctime>
#include <random>

using namespace marquill;

namespace {

Date at(const char* isoText) {
    const QDateTime moment = QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate);
    return Date(std::chrono::duration<double>(static_cast<double>(moment.toSecsSinceEpoch())));
}

TimelineTake take(const char* isoText, double duration, int clip = 0) {
    return {.start = at(isoText), .duration = duration, .markers = {}, .rating = 0, .clip = clip};
}

QStringList labels(const DayLayout& layout) {
    QStringList labels;
    for (const TimelineHour& hour : layout.hours()) {
        labels.append(hour.label);
    }
    return labels;
}

// "lane/lanes" of each block.
QStringList lanes(const DayLayout& layout) {
    QStringList lanes;
    for (const TimelineBlock& block : layout.blocks()) {
        lanes.append(u"%1/%2"_s.arg(block.lane).arg(block.lanes));
    }
    return lanes;
}

}  // namespace

class DayTimelineTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }

    // The take of a clip

    void aTakeBeginsWhenItsClipWasCreated() {
        ClipInfo clip;
        clip.setClipCreationDate(at("2026-11-21T10:00:00+01:00"));
        clip.setClipDuration(80);
        clip.setClipRating(4);
        clip.setClipMarkerArray(Array{Dictionary{{u"clipMarkerIn"_s, 2.5}},
                                      Dictionary{{u"clipMarkerTitle"_s, u"no time"_s}}, Value(7),
                                      Dictionary{{u"clipMarkerIn"_s, 61}}});
        const std::optional<TimelineTake> take = timelineTake(clip, 12);
        QVERIFY(take);
        QCOMPARE(take->start, at("2026-11-21T10:00:00+01:00"));
        QCOMPARE(take->end(), at("2026-11-21T10:01:20+01:00"));
        QCOMPARE(take->markers, (std::vector<double>{2.5, 61}));
        QCOMPARE(take->rating, 4);
        QCOMPARE(take->clip, 12);
    }

    void aClipWithoutADateHasNoTake() {
        ClipInfo clip;
        clip.setClipDuration(80);
        QVERIFY(!timelineTake(clip, 0));
        clip.setClipCreationDate(Date(std::chrono::duration<double>(1e15)));
        QVERIFY(!timelineTake(clip, 0));
        clip.setClipCreationDate(Date(std::chrono::duration<double>(std::nan(""))));
        QVERIFY(!timelineTake(clip, 0));
    }

    void nonsenseInARecordIsKeptWithinBounds() {
        ClipInfo clip;
        clip.setClipCreationDate(at("2026-11-21T10:00:00+01:00"));
        clip.setClipDuration(-5);
        clip.setClipRating(9);
        QCOMPARE(timelineTake(clip, 0)->duration, 0.0);
        QCOMPARE(timelineTake(clip, 0)->rating, 5);
        clip.setClipDuration(std::numeric_limits<qint64>::max());
        clip.setClipRating(-1);
        QCOMPARE(timelineTake(clip, 0)->duration, 86400.0);
        QCOMPARE(timelineTake(clip, 0)->rating, 0);
    }

    void theTakeInProgressLastsUntilNow() {
        TakeRecord record;
        record.start = at("2026-11-21T10:00:00+01:00");
        record.elapsed = 12.5;
        record.markers = Array{Dictionary{{u"clipMarkerIn"_s, 3.0}}};
        QCOMPARE(timelineTake(record).end(), dateByAdding(record.start, 12.5));
        QCOMPARE(timelineTake(record).markers, std::vector<double>{3.0});
    }

    // Days

    void withoutTakesThereIsNoDay() {
        QVERIFY(DayTimeline().days().empty());
        QVERIFY(DayTimeline(std::vector<TimelineTake>()).days().empty());
    }

    void daysChangeAtTheLocalMidnight() {
        const DayTimeline timeline({take("2026-11-21T00:00:00+01:00", 5),
                                    take("2026-11-20T23:59:59+01:00", 0),
                                    take("2026-11-21T23:59:59+01:00", 5)});
        const std::vector<TimelineDay> expected = {
            {.date = QDate(2026, 11, 20), .first = 0, .count = 1},
            {.date = QDate(2026, 11, 21), .first = 1, .count = 2},
        };
        QCOMPARE(timeline.days(), expected);
        QCOMPARE(timeline.dayOf(0), std::size_t{0});
        QCOMPARE(timeline.dayOf(1), std::size_t{1});
        QCOMPARE(timeline.dayOf(2), std::size_t{1});
    }

    void daysWithoutTakesAreNone() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 5), take("2026-11-28T10:00:00+01:00", 5)});
        QCOMPARE(timeline.days().size(), std::size_t{2});
        QCOMPARE(timeline.days()[1].date, QDate(2026, 11, 28));
    }

    void takesOfOneMomentStayInTheirOrder() {
        const DayTimeline timeline({take("2026-11-21T10:00:00+01:00", 5, 3),
                                    take("2026-11-21T10:00:00+01:00", 5, 1),
                                    take("2026-11-21T09:00:00+01:00", 5, 2)});
        QCOMPARE(timeline.takes()[0].clip, 2);
        QCOMPARE(timeline.takes()[1].clip, 3);
        QCOMPARE(timeline.takes()[2].clip, 1);
    }

    void theDayOnWhichClocksAreSetBackIsOne() {
        const DayTimeline timeline(
            {take("2026-10-25T00:00:00+02:00", 5), take("2026-10-25T23:59:59+01:00", 5)});
        QCOMPARE(timeline.days().size(), std::size_t{1});
        QCOMPARE(timeline.days()[0].date, QDate(2026, 10, 25));
    }

    // The line

    void blocksStandWhereTheTakesWereShot() {
        const DayTimeline timeline({take("2026-11-21T10:00:00+01:00", 600),
                                    take("2026-11-21T10:30:00+01:00", 300),
                                    take("2026-11-21T11:50:00+01:00", 600)});
        const DayLayout layout = timeline.layOut(0, 1200, 50);
        QCOMPARE(layout.from(), at("2026-11-21T10:00:00+01:00"));
        QCOMPARE(layout.to(), at("2026-11-21T12:00:00+01:00"));
        QCOMPARE(layout.blocks()[0].left, 0.0);
        QCOMPARE(layout.blocks()[0].width, 100.0);
        QCOMPARE(layout.blocks()[1].left, 300.0);
        QCOMPARE(layout.blocks()[1].width, 50.0);
        QCOMPARE(layout.blocks()[2].left, 1100.0);
        QCOMPARE(layout.blocks()[2].width, 100.0);
    }

    void theLineBeginsAndEndsAtFiveMinutes() {
        const DayTimeline timeline(
            {take("2026-11-21T10:04:59+01:00", 5), take("2026-11-21T11:20:00+01:00", 1)});
        const DayLayout layout = timeline.layOut(0, 1000, 50);
        QCOMPARE(layout.from(), at("2026-11-21T10:00:00+01:00"));
        QCOMPARE(layout.to(), at("2026-11-21T11:25:00+01:00"));
    }

    void theLineLastsAnHourAtLeast() {
        const DayLayout layout = DayTimeline({take("2026-11-21T10:02:00+01:00", 0)}).layOut(0, 600, 50);
        QCOMPARE(layout.from(), at("2026-11-21T10:00:00+01:00"));
        QCOMPARE(layout.to(), at("2026-11-21T11:00:00+01:00"));
        QCOMPARE(layout.blocks()[0].left, 20.0);
        QCOMPARE(layout.blocks()[0].width, DayLayout::leastWidth);
    }

    void theLineReachesTheTakeThatRuns() {
        const DayTimeline timeline({take("2026-11-21T10:00:00+01:00", 60)});
        const DayLayout today = timeline.layOut(0, 600, 50, at("2026-11-21T12:31:00+01:00"));
        QCOMPARE(today.to(), at("2026-11-21T12:35:00+01:00"));
        const DayLayout otherDay = timeline.layOut(0, 600, 50, at("2026-11-22T12:31:00+01:00"));
        QCOMPARE(otherDay.to(), at("2026-11-21T11:00:00+01:00"));
    }

    void aTakeAcrossMidnightBelongsToTheDayItBeganOn() {
        const DayTimeline timeline(
            {take("2026-11-21T22:00:00+01:00", 60), take("2026-11-21T23:50:00+01:00", 1500)});
        QCOMPARE(timeline.days().size(), std::size_t{1});
        const DayLayout layout = timeline.layOut(0, 900, 50);
        QCOMPARE(layout.to(), at("2026-11-22T00:15:00+01:00"));
        QVERIFY(labels(layout).contains(u"00:00"_s));
        QCOMPARE(layout.blocks()[1].left + layout.blocks()[1].width, 900.0);
    }

    void aShortTakeAtTheEndOfTheLineStaysOnIt() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 60), take("2026-11-21T19:59:59+01:00", 1)});
        const DayLayout layout = timeline.layOut(0, 500, 50);
        QCOMPARE(layout.blocks()[1].left + layout.blocks()[1].width, 500.0);
        QCOMPARE(layout.blocks()[1].width, DayLayout::leastWidth);
    }

    void aLineWithoutRoomHasBlocksAllTheSame() {
        const DayLayout layout = DayTimeline({take("2026-11-21T10:00:00+01:00", 60)}).layOut(0, -5, 50);
        QCOMPARE(layout.blocks()[0].left, 0.0);
        QCOMPARE(layout.blocks()[0].width, DayLayout::leastWidth);
    }

    // Lanes

    void takesOfOneTimeShareTheHeight() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 600), take("2026-11-21T10:05:00+01:00", 600),
             take("2026-11-21T10:12:00+01:00", 60), take("2026-11-21T10:30:00+01:00", 600)});
        QCOMPARE(lanes(timeline.layOut(0, 600, 50)), (QStringList{u"0/2"_s, u"1/2"_s, u"0/2"_s, u"0/1"_s}));
    }

    void takesThatMeetDoNotShareIt() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 600), take("2026-11-21T10:10:00+01:00", 600)});
        QCOMPARE(lanes(timeline.layOut(0, 600, 50)), (QStringList{u"0/1"_s, u"0/1"_s}));
    }

    void momentsAtOneTimeAreBothSeen() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 0), take("2026-11-21T10:00:00+01:00", 0)});
        QCOMPARE(lanes(timeline.layOut(0, 600, 50)), (QStringList{u"0/2"_s, u"1/2"_s}));
    }

    void aFourthLaneIsMergedIntoTheOneThatIsFreeNext() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 1200), take("2026-11-21T10:01:00+01:00", 600),
             take("2026-11-21T10:02:00+01:00", 1200), take("2026-11-21T10:03:00+01:00", 60)});
        QCOMPARE(lanes(timeline.layOut(0, 600, 50)), (QStringList{u"0/3"_s, u"1/3"_s, u"2/3"_s, u"1/3"_s}));
    }

    // Against a comparison of every pair: only what is merged may lie upon another.
    void lanesKeepTakesApart() {
        std::mt19937 random(7);
        for (int round = 0; round < 50; ++round) {
            std::vector<TimelineTake> takes;
            for (int i = 0; i < 60; ++i) {
                TimelineTake each = take("2026-11-21T10:00:00+01:00", static_cast<double>(random() % 900));
                each.start = dateByAdding(each.start, static_cast<double>(random() % 14'400));
                takes.push_back(each);
            }
            const DayTimeline timeline(takes);
            const DayLayout layout = timeline.layOut(0, 1000, 50);
            for (const TimelineBlock& one : layout.blocks()) {
                QVERIFY(one.lane >= 0 && one.lane < one.lanes && one.lanes <= DayLayout::mostLanes);
                for (const TimelineBlock& other : layout.blocks()) {
                    const bool overlap = one.take < other.take && timeline.takes()[other.take].start <
                                                                      timeline.takes()[one.take].end();
                    if (overlap) {
                        QCOMPARE(one.lanes, other.lanes);
                        QVERIFY(one.lane != other.lane || one.lanes == DayLayout::mostLanes);
                    }
                }
            }
        }
    }

    // Hours

    void hoursAreAsFarApartAsTheirLabelsNeed_data() {
        QTest::addColumn<double>("labelWidth");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("hours") << 60.0
                               << QStringList{u"09:00"_s, u"10:00"_s, u"11:00"_s, u"12:00"_s, u"13:00"_s};
        QTest::newRow("two hours") << 61.0 << QStringList{u"10:00"_s, u"12:00"_s};
        QTest::newRow("three hours") << 121.0 << QStringList{u"09:00"_s, u"12:00"_s};
        QTest::newRow("half hours") << 30.0
                                    << QStringList{u"09:00"_s, u"09:30"_s, u"10:00"_s, u"10:30"_s, u"11:00"_s,
                                                   u"11:30"_s, u"12:00"_s, u"12:30"_s, u"13:00"_s};
        QTest::newRow("more than there are") << 5000.0 << QStringList{u"12:00"_s};
    }
    // One pixel a minute, from 08:40 to 13:10.
    void hoursAreAsFarApartAsTheirLabelsNeed() {
        QFETCH(const double, labelWidth);
        const DayTimeline timeline(
            {take("2026-11-21T08:40:00+01:00", 60), take("2026-11-21T13:00:00+01:00", 600)});
        QTEST(labels(timeline.layOut(0, 270, labelWidth)), "expected");
    }

    void hoursStandAtTheirMoments() {
        const DayTimeline timeline(
            {take("2026-11-21T09:40:00+01:00", 60), take("2026-11-21T11:30:00+01:00", 600)});
        const DayLayout layout = timeline.layOut(0, 120, 60);
        QCOMPARE(labels(layout), (QStringList{u"10:00"_s, u"11:00"_s}));
        QCOMPARE(layout.hours()[0].x, 20.0);
        QCOMPARE(layout.hours()[1].x, 80.0);
    }

    void clocksThatAreSetBackShowAnHourTwice() {
        const DayTimeline timeline(
            {take("2026-10-25T00:30:00+02:00", 60), take("2026-10-25T04:29:00+01:00", 60)});
        const DayLayout layout = timeline.layOut(0, 300, 60);
        QCOMPARE(secondsBetween(layout.from(), layout.to()), 5 * 3600.0);
        QCOMPARE(labels(layout), (QStringList{u"01:00"_s, u"02:00"_s, u"02:00"_s, u"03:00"_s, u"04:00"_s}));
    }

    void clocksThatAreSetForwardLeaveAnHourOut() {
        const DayTimeline timeline(
            {take("2026-03-29T00:30:00+01:00", 60), take("2026-03-29T04:29:00+02:00", 60)});
        const DayLayout layout = timeline.layOut(0, 180, 60);
        QCOMPARE(secondsBetween(layout.from(), layout.to()), 3 * 3600.0);
        QCOMPARE(labels(layout), (QStringList{u"01:00"_s, u"03:00"_s, u"04:00"_s}));
    }

    // Two o'clock comes twice, an hour apart, where labels need two.
    void labelsNeverOverlapThoughClocksAreSetBack() {
        const DayTimeline timeline(
            {take("2026-10-25T00:00:00+02:00", 60), take("2026-10-25T05:59:00+01:00", 60)});
        QCOMPARE(labels(timeline.layOut(0, 420, 120)),
                 (QStringList{u"00:00"_s, u"02:00"_s, u"04:00"_s, u"06:00"_s}));
    }

    // Clicks

    void aClickHitsTheBlockUnderItAndNoGap() {
        const DayTimeline timeline({take("2026-11-21T10:00:00+01:00", 600),
                                    take("2026-11-21T10:30:00+01:00", 0),
                                    take("2026-11-21T11:50:00+01:00", 600)});
        const DayLayout layout = timeline.layOut(0, 1200, 50);
        QCOMPARE(layout.blockAt(50, 0.5, 3), std::optional<std::size_t>(0));
        QCOMPARE(layout.blockAt(102, 0.5, 3), std::optional<std::size_t>(0));
        QCOMPARE(layout.blockAt(104, 0.5, 3), std::nullopt);
        QCOMPARE(layout.blockAt(297.5, 0.5, 3), std::optional<std::size_t>(1));
        QCOMPARE(layout.blockAt(305.5, 0.5, 3), std::optional<std::size_t>(1));
        QCOMPARE(layout.blockAt(800, 0.5, 3), std::nullopt);
        QCOMPARE(layout.blockAt(1199, 0.5, 3), std::optional<std::size_t>(2));
    }

    void theHeightOfAClickChoosesTheLane() {
        const DayTimeline timeline(
            {take("2026-11-21T10:00:00+01:00", 600), take("2026-11-21T10:00:00+01:00", 600)});
        const DayLayout layout = timeline.layOut(0, 600, 50);
        QCOMPARE(layout.blockAt(50, 0.1, 3), std::optional<std::size_t>(0));
        QCOMPARE(layout.blockAt(50, 0.9, 3), std::optional<std::size_t>(1));
        QCOMPARE(layout.blockAt(50, -2, 3), std::optional<std::size_t>(0));
        QCOMPARE(layout.blockAt(50, 7, 3), std::optional<std::size_t>(1));
    }

    void ofShortTakesTheNearestIsHit() {
        const DayTimeline timeline({take("2026-11-21T10:00:00+01:00", 0),
                                    take("2026-11-21T10:01:00+01:00", 0),
                                    take("2026-11-21T18:00:00+01:00", 0)});
        const DayLayout layout = timeline.layOut(0, 960, 50);
        QCOMPARE(layout.blockAt(1.4, 0.5, 3), std::optional<std::size_t>(0));
        QCOMPARE(layout.blockAt(3.6, 0.5, 3), std::optional<std::size_t>(1));
    }
};

QTEST_APPLESS_MAIN(DayTimelineTest)
#include "DayTimelineTest.moc"
