#include "clipmanager/DayTimeline.h"

#include "clipstore/ClipInfo.h"
#include "markers/Marker.h"
#include "recording/TakeRecord.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <cmath>

namespace marquill {

namespace {

constexpr int minute = 60;
constexpr int hour = 60 * minute;
constexpr double longestTake = 24.0 * hour;
constexpr double shortestTake = 1;  // durations are cut off to whole seconds
constexpr double shortestLine = hour;
constexpr qint64 rounding = qint64{5} * minute;  // what a line begins and ends at a multiple of

qint64 wholeSeconds(Date date) {
    return static_cast<qint64>(std::floor(date.time_since_epoch().count()));
}

Date dateOf(qint64 seconds) {
    return Date(std::chrono::duration<double>(static_cast<double>(seconds)));
}

QDateTime localTime(qint64 seconds) {
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::LocalTime);
}

bool isInCalendar(Date date) {
    constexpr double lastSecond = 253'402'300'799.0;  // of the year 9999
    const double seconds = date.time_since_epoch().count();
    return seconds >= -lastSecond && seconds < lastSecond;
}

std::vector<double> markerTimes(const Array& markers) {
    std::vector<double> times;
    for (const Value& value : markers.values()) {
        const std::optional<Dictionary> record = value.dictionary();
        if (const std::optional<double> in = record ? Marker(*record).in() : std::nullopt) {
            times.push_back(*in);
        }
    }
    return times;
}

// The least distance of labels, in minutes, that has room for them.
int labelStep(double pixelsPerMinute, double labelWidth) {
    constexpr std::array steps = {5, 10, 15, 30, 60, 120, 180, 360, 720};
    const auto* const step =
        std::ranges::find_if(steps, [&](int minutes) { return minutes * pixelsPerMinute >= labelWidth; });
    return step == steps.end() ? steps.back() : *step;
}

// The lanes of takes that overlap one another, directly or through others.
class Lanes {
  public:
    explicit Lanes(std::vector<TimelineBlock>& blocks) : _blocks(blocks) {}

    // Gives the block at `index`, whose take begins no earlier than those before it, its lane.
    void place(std::size_t index, const TimelineTake& take) {
        if (_used > 0 && take.start >= *std::max_element(_ends.begin(), _ends.begin() + _used)) {
            close(index);
        }
        const int lane = freeLane(take.start);
        _used = std::max(_used, lane + 1);
        Date& end = _ends.at(static_cast<std::size_t>(lane));
        end = std::max(end, dateByAdding(take.start, std::max(take.duration, shortestTake)));
        _blocks[index].lane = lane;
    }

    // Tells the blocks placed since the last time, those before `index`, how many lanes they share.
    void close(std::size_t index) {
        for (; _first < index; ++_first) {
            _blocks[_first].lanes = _used;
        }
        _used = 0;
        _ends.fill(Date::min());
    }

  private:
    // With every lane taken, it is the one that is free next.
    int freeLane(Date start) const {
        const auto* const ends = _ends.begin();
        const auto* const free = std::find_if(ends, ends + _used, [&](Date end) { return end <= start; });
        if (free != ends + _used || _used < DayLayout::mostLanes) {
            return static_cast<int>(free - ends);
        }
        return static_cast<int>(std::ranges::min_element(_ends) - ends);
    }

    std::vector<TimelineBlock>& _blocks;
    std::size_t _first = 0;  // of those that overlap
    int _used = 0;
    std::array<Date, DayLayout::mostLanes> _ends = {Date::min(), Date::min(), Date::min()};
};

}  // namespace

std::optional<TimelineTake> timelineTake(const ClipInfo& info, int clip) {
    const std::optional<Date> start = info.clipCreationDate();
    if (!start || !isInCalendar(*start)) {
        return std::nullopt;
    }
    const auto duration = static_cast<double>(info.clipDuration().value_or(0));
    return TimelineTake{.start = *start,
                        .duration = std::clamp(duration, 0.0, longestTake),
                        .markers = markerTimes(info.clipMarkerArray().value_or(Array())),
                        .rating = static_cast<int>(std::clamp<qint64>(info.clipRating().value_or(0), 0, 5)),
                        .clip = clip};
}

TimelineTake timelineTake(const TakeRecord& take) {
    return {.start = take.start,
            .duration = std::clamp(take.elapsed, 0.0, longestTake),
            .markers = markerTimes(take.markers)};
}

double DayLayout::xOf(Date date) const {
    const double length = secondsBetween(_from, _to);
    return length > 0 ? secondsBetween(_from, date) / length * _width : 0;
}

std::optional<std::size_t> DayLayout::blockAt(double x, double y, double reach) const {
    std::optional<std::size_t> nearest;
    double distance = 0;
    for (std::size_t i = 0; i < _blocks.size(); ++i) {
        const TimelineBlock& block = _blocks[i];
        const int lane = std::clamp(static_cast<int>(y * block.lanes), 0, block.lanes - 1);
        const double outside = std::max(block.left - x, x - block.left - block.width);
        if (block.lane != lane || outside > reach) {
            continue;
        }
        const double away = std::abs(block.left + block.width / 2 - x);
        if (!nearest || away < distance) {
            nearest = i;
            distance = away;
        }
    }
    return nearest;
}

void DayLayout::addHours(double labelWidth) {
    const double minutes = secondsBetween(_from, _to) / minute;
    const int step = labelStep(_width / minutes, labelWidth);
    const qint64 unit = qint64{std::min(step * minute, hour)};
    const qint64 from = wholeSeconds(_from);
    const QTime first = localTime(from).time();
    // The clock shows a full hour, or a part of one, every so many seconds, however it is set that day.
    qint64 moment = from - (first.minute() * minute + first.second()) % unit;
    double last = -labelWidth;
    for (; dateOf(moment) <= _to; moment += unit) {
        const QTime shown = localTime(moment).time();
        const double x = xOf(dateOf(moment));
        if (moment >= from && (shown.hour() * 60 + shown.minute()) % step == 0 && x - last >= labelWidth) {
            _hours.push_back({.x = x, .label = shown.toString(u"HH:mm"_s)});
            last = x;
        }
    }
}

DayTimeline::DayTimeline(std::vector<TimelineTake> takes) : _takes(std::move(takes)) {
    std::ranges::stable_sort(_takes, {}, &TimelineTake::start);
    findDays();
}

// Asks the calendar once a day, not once a take.
void DayTimeline::findDays() {
    for (auto first = _takes.begin(); first != _takes.end();) {
        const QDate date = localTime(wholeSeconds(first->start)).date();
        const Date next = dateOf(date.addDays(1).startOfDay(Qt::LocalTime).toSecsSinceEpoch());
        auto last = std::ranges::lower_bound(first, _takes.end(), next, {}, &TimelineTake::start);
        last = std::max(last, first + 1);
        _days.push_back({.date = date,
                         .first = static_cast<std::size_t>(first - _takes.begin()),
                         .count = static_cast<std::size_t>(last - first)});
        first = last;
    }
}

std::size_t DayTimeline::dayOf(std::size_t take) const {
    const auto after = std::ranges::upper_bound(_days, take, {}, &TimelineDay::first);
    return static_cast<std::size_t>(after - _days.begin()) - 1;
}

std::pair<Date, Date> DayTimeline::span(const TimelineDay& day, std::optional<Date> until) const {
    const Date first = _takes[day.first].start;
    Date last = first;
    for (std::size_t i = day.first; i < day.first + day.count; ++i) {
        last = std::max(last, _takes[i].end());
    }
    if (until && localTime(wholeSeconds(*until)).date() == day.date) {
        last = std::max(last, *until);
    }
    const qint64 from = wholeSeconds(first) - (wholeSeconds(first) % rounding + rounding) % rounding;
    const auto length = static_cast<qint64>(std::ceil(secondsBetween(dateOf(from), last) / rounding));
    const auto seconds = std::max(static_cast<double>(length * rounding), shortestLine);
    return {dateOf(from), dateByAdding(dateOf(from), seconds)};
}

std::vector<TimelineBlock> DayTimeline::blocks(const TimelineDay& day, const DayLayout& layout) const {
    std::vector<TimelineBlock> blocks(day.count);
    Lanes lanes(blocks);
    for (std::size_t i = 0; i < day.count; ++i) {
        const TimelineTake& take = _takes[day.first + i];
        const double left = layout.xOf(take.start);
        const double width = std::max(layout.xOf(take.end()) - left, DayLayout::leastWidth);
        blocks[i].take = day.first + i;
        blocks[i].left = std::max(std::min(left, layout.width() - width), 0.0);
        blocks[i].width = width;
        lanes.place(i, take);
    }
    lanes.close(day.count);
    return blocks;
}

DayLayout DayTimeline::layOut(std::size_t day, double width, double labelWidth,
                              std::optional<Date> until) const {
    const auto [from, to] = span(_days[day], until);
    DayLayout layout(from, to, std::max(width, DayLayout::leastWidth));
    layout._blocks = blocks(_days[day], layout);
    layout.addHours(labelWidth);
    return layout;
}

}  // namespace marquill
