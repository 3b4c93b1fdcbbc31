#include "clipmanager/DayStrip.h"
#include "connect/ClipTable.h"
#include "platform/Theme.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolButton>
#include <QToolTip>

#include <ctime>

using namespace marquill;

namespace {

// 2026-11-21 00:00:00 in the time zone of this test, which is UTC.
constexpr double midnight = 1'795'219'200;
constexpr int hour = 3600;
constexpr int day = 24 * hour;

Date at(int seconds) {
    return Date(std::chrono::duration<double>(midnight + seconds));
}

ClipInfo clip(const QString& name, int start, int duration, const QList<double>& markers = {}) {
    ClipInfo clip = clipNamed(name);
    clip.setClipCreationDate(at(start));
    clip.setClipDuration(duration);
    Array records;
    for (const double in : markers) {
        records.append(Dictionary{{u"clipMarkerIn"_s, in}});
    }
    clip.setClipMarkerArray(records);
    return clip;
}

}  // namespace

class DayStripTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipTable> _clips;
    DayStrip* _strip = nullptr;

    DayTimelineView& view() { return _strip->view(); }

    // Three takes of one day, in another order than that of their time.
    static std::vector<ClipInfo> oneDay() {
        return {clip(u"c#03.xml"_s, 11 * hour, 600), clip(u"a#01.xml"_s, 10 * hour, 600, {60, 300}),
                clip(u"b#02.xml"_s, 10 * hour + 1800, 600, {30})};
    }

    void show(const std::vector<ClipInfo>& clips) {
        _clips->controller->setClipArray(clips, _clips->folder.path());
        QTRY_COMPARE(_strip->timeline().takes().size() + static_cast<std::size_t>(_strip->datelessClips()),
                     clips.size());
        QCoreApplication::processEvents();
    }

    void click(std::size_t take, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(&view(), Qt::LeftButton, modifiers, view().blockRect(take).center().toPoint());
    }

    // Whether the strip took it.
    bool turnWheel(const QPointF& point, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent turn(point, view().mapToGlobal(point), {}, {0, angle}, Qt::NoButton, modifiers,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view(), &turn);
        return turn.isAccepted();
    }

    void press(Qt::Key key) { QTest::keyClick(&view(), key); }

    QString text(const char* button) const {
        for (const QToolButton* each : _strip->findChildren<QToolButton*>()) {
            if (each->toolTip() == QLatin1StringView(button)) {
                return each->isVisible() ? (each->isEnabled() ? u"enabled"_s : u"disabled"_s) : u"hidden"_s;
            }
        }
        return u"none"_s;
    }

    void press(const char* button) const {
        for (QToolButton* each : _strip->findChildren<QToolButton*>()) {
            if (each->toolTip() == QLatin1StringView(button)) {
                each->click();
            }
        }
    }

    QDate shownDay() const { return _strip->timeline().days()[_strip->day()].date; }

  private Q_SLOTS:
    void initTestCase() {
        qputenv("TZ", "UTC");
        tzset();
        Theme::apply(*qApp, Theme::Choice::light);
    }

    void init() {
        _clips = std::make_unique<ClipTable>();
        _strip = new DayStrip(&_clips->window);
        static_cast<QVBoxLayout*>(_clips->window.layout())->insertWidget(0, _strip);
        _strip->setClipTable(*_clips->controller);
        _clips->show();
    }
    void cleanup() {
        delete _strip;
        _clips.reset();
    }

    // When it is there

    void withoutTakesItIsHidden() {
        QVERIFY(!_strip->isVisible());
        show({clipNamed(u"undated.mov"_s)});
        QVERIFY(!_strip->isVisible());
        show(oneDay());
        QVERIFY(_strip->isVisible());
        show({});
        QVERIFY(!_strip->isVisible());
    }

    void whoDoesNotWantItDoesNotSeeIt() {
        _strip->setWanted(false);
        show(oneDay());
        QVERIFY(!_strip->isVisible());
        _strip->setWanted(true);
        QVERIFY(_strip->isVisible());
    }

    void inALowPaneTheTableHasTheRoom() {
        _clips->window.setMinimumSize(100, 64);
        show(oneDay());
        _clips->window.resize(900, 110);
        QTRY_VERIFY(!_strip->isVisible());
        _clips->window.resize(900, 400);
        QTRY_VERIFY(_strip->isVisible());
    }

    void clipsWithoutADateAreCounted() {
        std::vector<ClipInfo> clips = oneDay();
        clips.push_back(clipNamed(u"undated.mov"_s));
        show(clips);
        QCOMPARE(_strip->datelessClips(), 1);
        QCOMPARE(_strip->timeline().takes().size(), std::size_t{3});
    }

    // Where things are

    void blocksStandAlongTheHours() {
        show(oneDay());
        // From 10:00 to 11:10 between the margins of 8 pixels.
        const double width = view().width() - 16;
        QCOMPARE(view().blockRect(0).left(), 8.0);
        QCOMPARE(view().blockRect(0).width(), width * 10 / 70);
        QCOMPARE(view().blockRect(1).left(), 8 + width * 30 / 70);
        QCOMPARE(view().blockRect(2).right(), 8 + width);
        const std::vector<double> ticks = view().tickPlaces(_strip->timeline().takes()[0]);
        QCOMPARE(ticks.size(), std::size_t{2});
        QCOMPARE(ticks[0], 8 + width * 1 / 70);
        QCOMPARE(ticks[1], 8 + width * 5 / 70);
    }

    void betterTakesAreHigher() {
        std::vector<ClipInfo> clips = oneDay();
        clips[0].setClipRating(5);
        clips[1].setClipRating(2);
        show(clips);
        QVERIFY(view().blockRect(2).height() > view().blockRect(0).height());
        QVERIFY(view().blockRect(0).height() > view().blockRect(1).height());
        QCOMPARE(view().blockRect(2).bottom(), view().blockRect(1).bottom());
    }

    void everyBlockIsWithinTheView() {
        std::vector<ClipInfo> clips;
        for (int number = 0; number < 40; ++number) {
            clips.push_back(
                clip(u"clip#%1.xml"_s.arg(number), 9 * hour + number * 127 % 5000, number * 31 % 700));
        }
        show(clips);
        for (std::size_t take = 0; take < clips.size(); ++take) {
            QVERIFY(QRectF(view().rect()).contains(view().blockRect(take)));
        }
    }

    // Selecting

    void aClickSelectsTheClip() {
        show(oneDay());
        click(1);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
        click(2);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
    }

    void aClickIntoAGapChangesNothing() {
        show(oneDay());
        click(1);
        const QPoint gap(qRound(view().blockRect(0).right() + 40), qRound(view().blockRect(0).center().y()));
        QVERIFY(!view().takeAt(gap));
        QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, gap);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
    }

    void controlAddsAndTakesAway() {
        show(oneDay());
        click(1);
        click(2, Qt::ControlModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"c#03.xml"_s, u"b#02.xml"_s}));
        click(1, Qt::ControlModifier);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
        click(2, Qt::ControlModifier);
        QCOMPARE(_clips->selected(), QStringList());
    }

    // In the table "a" and "b" are not beside "c" in this order.
    void shiftSelectsARangeOfTime() {
        show(oneDay());
        click(2);
        click(1, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"c#03.xml"_s, u"b#02.xml"_s}));
        click(0, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"c#03.xml"_s, u"a#01.xml"_s, u"b#02.xml"_s}));
        // The range still begins where it began.
        click(1, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"c#03.xml"_s, u"b#02.xml"_s}));
    }

    void aRangeBeginsAtAClipSelectedInTheTable() {
        show(oneDay());
        _clips->controller->selectClip(_clips->clip(1));
        click(1, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"a#01.xml"_s, u"b#02.xml"_s}));
    }

    void arrowKeysGoThroughTheDayInTime() {
        show(oneDay());
        view().setFocus();
        press(Qt::Key_Right);
        QCOMPARE(_clips->selected(), QStringList{u"a#01.xml"_s});
        press(Qt::Key_Right);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
        press(Qt::Key_Left);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
        press(Qt::Key_Home);
        QCOMPARE(_clips->selected(), QStringList{u"a#01.xml"_s});
        press(Qt::Key_Left);
        QCOMPARE(_clips->selected(), QStringList{u"a#01.xml"_s});
        press(Qt::Key_End);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
        QVERIFY(view().hasFocus());
    }

    void withNothingSelectedLeftIsTheLastTake() {
        show(oneDay());
        press(Qt::Key_Left);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
    }

    void aDigitRatesTheTakeThatWasClicked() {
        const std::vector<ClipInfo> clips = oneDay();
        QVERIFY(ClipStore::createProxyClip(clips[2], _clips->folder.path()));
        show(clips);
        click(1);
        const double unrated = view().blockRect(0).height();
        press(Qt::Key_4);
        QCOMPARE(_clips->clip(2).clipRating(), 4);
        _clips->controller->deselectAll();
        QTRY_VERIFY(view().blockRect(1).height() > unrated);
    }

    void undatedClipsAreSelectedInTheTableAlone() {
        std::vector<ClipInfo> clips = oneDay();
        clips.push_back(clipNamed(u"undated.mov"_s));
        show(clips);
        _clips->controller->selectClip(clips.back());
        QCOMPARE(view().spokenPlace(), 0);
        click(0, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), QStringList{u"a#01.xml"_s});
    }

    // Searches

    void takesThatASearchHidesAreNeitherClickedNorGoneTo() {
        std::vector<ClipInfo> clips = oneDay();
        clips[0].setClipScene(u"7"_s);
        clips[1].setClipScene(u"7"_s);
        show(clips);
        _clips->controller->setQuery(u"scene:7"_s);
        QCOMPARE(_clips->controller->shownClipCount(), 2);
        click(1);
        QCOMPARE(_clips->selected(), QStringList());
        QVERIFY(view().tipOfTake(1).endsWith(u"Not among the clips found"_s));
        press(Qt::Key_Home);
        press(Qt::Key_Right);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
        click(0, Qt::ShiftModifier);
        QCOMPARE(_clips->selected(), (QStringList{u"c#03.xml"_s, u"a#01.xml"_s}));
        _clips->controller->setQuery({});
        click(1);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
    }

    // Rows are counted without the hidden ones.
    void whatIsSelectedWhileASearchHidesOthersIsShownSelected() {
        std::vector<ClipInfo> clips = oneDay();
        clips[2].setClipScene(u"7"_s);
        show(clips);
        _clips->controller->setQuery(u"scene:7"_s);
        _clips->controller->selectClip(clips[2]);
        QCOMPARE(view().spokenText(), u"Take 2 of 3, 10:30:00, 00:10:00"_s);
    }

    // Days

    void oneDayNeedsNoWayToOthers() {
        show(oneDay());
        QCOMPARE(text("Previous day"), u"hidden"_s);
        QCOMPARE(text("Next day"), u"hidden"_s);
    }

    void theLastDayIsShownFirstAndTheOthersCanBeReached() {
        show({clip(u"a#01.xml"_s, hour, 5), clip(u"b#01.xml"_s, hour + 2 * day, 5),
              clip(u"c#01.xml"_s, day, 5)});
        QCOMPARE(shownDay(), QDate(2026, 11, 23));
        QCOMPARE(text("Next day"), u"disabled"_s);
        press("Previous day");
        QCOMPARE(shownDay(), QDate(2026, 11, 22));
        press("Previous day");
        QCOMPARE(shownDay(), QDate(2026, 11, 21));
        QCOMPARE(text("Previous day"), u"disabled"_s);
        QCOMPARE(text("Next day"), u"enabled"_s);
        QVERIFY(view().blockRect(1).isEmpty());
        QVERIFY(!view().blockRect(0).isEmpty());
    }

    void theDayOfTheCurrentClipIsShown() {
        const std::vector<ClipInfo> clips = {clip(u"a#01.xml"_s, hour, 5),
                                             clip(u"b#01.xml"_s, hour + day, 5)};
        show(clips);
        _clips->controller->selectClip(clips[0]);
        QCOMPARE(shownDay(), QDate(2026, 11, 21));
        press(Qt::Key_Right);
        QCOMPARE(_clips->selected(), QStringList{u"b#01.xml"_s});
        QCOMPARE(shownDay(), QDate(2026, 11, 22));
    }

    void theDayStaysWhileClipsOfOthersComeAndChange() {
        std::vector<ClipInfo> clips = {clip(u"a#01.xml"_s, hour, 5), clip(u"b#01.xml"_s, hour + day, 5)};
        show(clips);
        press("Previous day");
        _clips->controller->addClipsRead({clip(u"c#01.xml"_s, 3 * day, 5)}, {});
        QTRY_COMPARE(_strip->timeline().days().size(), std::size_t{3});
        QCOMPARE(shownDay(), QDate(2026, 11, 21));
    }

    void anotherFolderBeginsAtItsLastDay() {
        const std::vector<ClipInfo> clips = {clip(u"a#01.xml"_s, hour, 5),
                                             clip(u"b#01.xml"_s, hour + day, 5)};
        show(clips);
        press("Previous day");
        const ClipFolder other;
        _clips->controller->setClipArray({clip(u"c#01.xml"_s, hour, 5), clip(u"d#01.xml"_s, hour + day, 5)},
                                         other.path());
        QTRY_COMPARE(shownDay(), QDate(2026, 11, 22));
    }

    void rowsMayMoveAndGo() {
        show(oneDay());
        _clips->table.horizontalHeader()->setSortIndicator(ClipTableModel::clip, Qt::DescendingOrder);
        QCOMPARE(_clips->names().first(), u"c#03.xml"_s);
        QTRY_COMPARE(_strip->timeline().takes()[0].clip, 2);
        click(0);
        QCOMPARE(_clips->selected(), QStringList{u"a#01.xml"_s});
        _clips->controller->model().removeRowsAt({0});
        QTRY_COMPARE(_strip->timeline().takes().size(), std::size_t{2});
        click(1);
        QCOMPARE(_clips->selected(), QStringList{u"b#02.xml"_s});
    }

    // The take in progress

    void theTakeInProgressGrows() {
        show(oneDay());
        QVERIFY(view().progressRect().isEmpty());
        TimelineTake take{
            .start = at(11 * hour + 1800), .duration = 60, .markers = {}, .rating = 0, .clip = 0};
        _strip->setTakeInProgress(take);
        const double narrow = view().progressRect().width();
        // It ends at 11:31, and the line at 11:35.
        QCOMPARE(view().dayLayout().to(), at(11 * hour + 35 * 60));
        take.duration = 240;
        _strip->setTakeInProgress(take);
        QVERIFY(view().progressRect().width() > narrow);
        QCOMPARE(view().dayLayout().to(), at(11 * hour + 35 * 60));
        take.duration = 600;
        _strip->setTakeInProgress(take);
        QCOMPARE(view().dayLayout().to(), at(11 * hour + 40 * 60));
        _strip->setTakeInProgress(std::nullopt);
        QVERIFY(view().progressRect().isEmpty());
        QCOMPARE(view().dayLayout().to(), at(11 * hour + 10 * 60));
    }

    void aTakeInProgressOfAnotherDayIsNotShown() {
        show(oneDay());
        _strip->setTakeInProgress(
            TimelineTake{.start = at(day + hour), .duration = 60, .markers = {}, .rating = 0, .clip = 0});
        QVERIFY(view().progressRect().isEmpty());
        QCOMPARE(view().dayLayout().to(), at(11 * hour + 10 * 60));
    }

    // What is told

    void theTipTellsWhatWasEntered() {
        std::vector<ClipInfo> clips = oneDay();
        clips[1].setClipScene(u"12A"_s);
        clips[1].setClipRating(3);
        clips[1].setClipLabel(u"Print"_s);
        clips[2].setClipLabel(u"Hold"_s);
        show(clips);
        QCOMPARE(view().tipOfTake(0),
                 u"a, take 01\n10:00:00, duration 00:10:00\nScene 12A · ★★★ · Print\n"
                 u"2 markers"_s);
        QCOMPARE(view().tipOfTake(1), u"b, take 02\n10:30:00, duration 00:10:00\nHold\n1 marker"_s);
    }

    // A part of the day

    void controlAndTheWheelZoomWhatIsPointedAt() {
        show(oneDay());
        const QPointF point = view().blockRect(1).center();
        turnWheel(point, 480, Qt::ControlModifier);
        QVERIFY(view().zoom().factor() > 2);
        QCOMPARE(view().takeAt(point), std::optional<std::size_t>(1));
        QVERIFY(view().blockRect(2).left() - view().blockRect(0).right() > view().width());
        turnWheel(point, -4800, Qt::ControlModifier);
        QCOMPARE(view().zoom().factor(), 1.0);
        QCOMPARE(view().blockRect(1).center(), point);
    }

    void theWheelScrollsWhatDoesNotFit() {
        show(oneDay());
        QVERIFY(!turnWheel(view().blockRect(1).center(), -120));
        turnWheel(view().blockRect(1).center(), 480, Qt::ControlModifier);
        const double left = view().blockRect(1).left();
        QVERIFY(turnWheel(view().blockRect(1).center(), -120));
        QCOMPARE(view().blockRect(1).left(), left - 120);
        turnWheel(view().blockRect(1).center(), 1'000'000);
        QCOMPARE(view().zoom().offset(), 0.0);
    }

    void plusAndMinusZoomAroundTheSelectedTake() {
        show(oneDay());
        click(1);
        const double middle = view().blockRect(1).center().x();
        QTest::keyClicks(&view(), u"++"_s);
        QCOMPARE(view().zoom().factor(), 4.0);
        QVERIFY(std::abs(view().blockRect(1).center().x() - middle) < 2);
        QTest::keyClicks(&view(), u"--"_s);
        QCOMPARE(view().zoom().factor(), 1.0);
    }

    void theSelectedTakeIsBroughtIntoView() {
        show(oneDay());
        click(0);
        QTest::keyClicks(&view(), u"++"_s);
        QVERIFY(!QRectF(view().rect()).intersects(view().blockRect(2)));
        press(Qt::Key_End);
        QVERIFY(QRectF(view().rect()).contains(view().blockRect(2).center()));
        click(2);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
    }

    void anotherDayIsShownWhole() {
        show({clip(u"a#01.xml"_s, 10 * hour, 600), clip(u"b#01.xml"_s, day + 10 * hour, 600)});
        QTest::keyClicks(&view(), u"+"_s);
        QCOMPARE(view().zoom().factor(), 2.0);
        press("Previous day");
        QCOMPARE(view().zoom().factor(), 1.0);
    }

    void whatIsEditedLeavesTheZoomAsItIs() {
        show(oneDay());
        QTest::keyClicks(&view(), u"+"_s);
        _clips->controller->setObjectValue(5, ClipTableModel::rating, 0);
        QTRY_COMPARE(_strip->timeline().takes()[2].rating, 5);
        QCOMPARE(view().zoom().factor(), 2.0);
    }

    void theTipTellsOfTheTake() {
        show(oneDay());
        QCOMPARE(view().tipOfTake(0), u"a, take 01\n10:00:00, duration 00:10:00\n2 markers"_s);
        QCOMPARE(view().tipOfTake(1), u"b, take 02\n10:30:00, duration 00:10:00\n1 marker"_s);
        QCOMPARE(view().tipOfTake(2), u"c, take 03\n11:00:00, duration 00:10:00"_s);
        const QPoint point = view().blockRect(1).center().toPoint();
        QHelpEvent help(QEvent::ToolTip, point, view().mapToGlobal(point));
        QCoreApplication::sendEvent(&view(), &help);
        QTRY_COMPARE(QToolTip::text(), view().tipOfTake(1));
        QToolTip::hideText();
    }

    void assistiveProgramsFindASliderOverTheTakes() {
        show(oneDay());
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&view());
        QCOMPARE(spoken->role(), QAccessible::Slider);
        QCOMPARE(spoken->text(QAccessible::Name), u"Day timeline"_s);
        QCOMPARE(spoken->text(QAccessible::Value), u"No take selected"_s);
        click(1);
        QCOMPARE(spoken->text(QAccessible::Value), u"Take 2 of 3, 10:30:00, 00:10:00"_s);
        QAccessibleValueInterface* value = spoken->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toInt(), 2);
        QCOMPARE(value->minimumValue().toInt(), 1);
        QCOMPARE(value->maximumValue().toInt(), 3);
        value->setCurrentValue(3);
        QCOMPARE(_clips->selected(), QStringList{u"c#03.xml"_s});
    }

    void bothThemesPaintTheirOwnColours() {
        show(oneDay());
        click(1);
        for (const Theme::Choice choice : {Theme::Choice::dark, Theme::Choice::light}) {
            Theme::apply(*qApp, choice);
            const QImage image = view().grab().toImage();
            const auto colourIn = [&](std::size_t take) {
                return image.pixelColor(view().blockRect(take).center().toPoint());
            };
            QCOMPARE(colourIn(1), Theme::colours().accent);
            QCOMPARE(colourIn(2), Theme::colours().mutedText);
        }
    }
};

QTEST_MAIN(DayStripTest)
#include "DayStripTest.moc"
