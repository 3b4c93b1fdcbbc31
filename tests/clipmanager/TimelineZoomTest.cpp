// Which part of a day is seen: its ends are never left, and what is pointed at stays where it is.
#include "clipmanager/TimelineZoom.h"

#include <QTest>

using namespace marquill;

class TimelineZoomTest : public QObject {
    Q_OBJECT

    static constexpr double width = 100;

  private Q_SLOTS:
    void atFirstAllOfItIsSeen() {
        const TimelineZoom zoom;
        QCOMPARE(zoom.factor(), 1.0);
        QCOMPARE(zoom.offset(), 0.0);
    }

    void whatIsPointedAtStays() {
        TimelineZoom zoom;
        zoom.zoom(4, 25, width);  // what stands at 25 is at 100 of 400
        QCOMPARE(zoom.factor(), 4.0);
        QCOMPARE(zoom.offset(), 75.0);
        zoom.zoom(2, 50, width);  // 125 of 400 is 250 of 800
        QCOMPARE(zoom.offset(), 200.0);
        zoom.zoom(0.5, 50, width);
        QCOMPARE(zoom.offset(), 75.0);
    }

    void theEndsAreNotLeft() {
        TimelineZoom zoom;
        zoom.zoom(2, 0, width);
        zoom.scroll(-30, width);
        QCOMPARE(zoom.offset(), 0.0);
        zoom.scroll(1000, width);
        QCOMPARE(zoom.offset(), 100.0);
        zoom.scroll(0, 60);  // narrower than it was
        QCOMPARE(zoom.offset(), 60.0);
        zoom.zoom(0.01, 50, width);
        QCOMPARE(zoom.factor(), 1.0);
        QCOMPARE(zoom.offset(), 0.0);
        zoom.zoom(1e9, 50, width);
        QCOMPARE(zoom.factor(), TimelineZoom::most);
    }

    void noMoreIsScrolledThanIsNeeded() {
        TimelineZoom zoom;
        zoom.zoom(10, 0, width);
        zoom.show(20, 60, width);
        QCOMPARE(zoom.offset(), 0.0);
        zoom.show(480, 500, width);
        QCOMPARE(zoom.offset(), 400.0);
        zoom.show(350, 360, width);
        QCOMPARE(zoom.offset(), 350.0);
        zoom.show(600, 900, width);
        QCOMPARE(zoom.offset(), 600.0);
    }
};

QTEST_APPLESS_MAIN(TimelineZoomTest)
#include "TimelineZoomTest.moc"
