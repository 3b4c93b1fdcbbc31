// When the takes of a folder were shot: the days there are, and where each take of a day stands along its
// hours. Knows no window: pixels are whatever unit the caller measures its width in. Values, any thread.
#pragma once

#include "platform/Date.h"

#include <QDate>

#include <optional>
#include <vector>

namespace marquill {

class ClipInfo;
struct TakeRecord;

struct TimelineTake {
    Date start;
    double duration = 0;          ///< seconds, from 0 to a day
    std::vector<double> markers;  ///< seconds from the start
    int rating = 0;               ///< 0 to 5
    int clip = 0;                 ///< which clip it is, by the caller's count

    Date end() const { return dateByAdding(start, duration); }
    bool operator==(const TimelineTake&) const = default;
};

/// The take of a clip, `clip` its number; none when the record has no creation date, or one that no calendar
/// has. A longer take than a day is cut to one.
std::optional<TimelineTake> timelineTake(const ClipInfo& info, int clip);
/// The take that is being recorded; it has no clip yet.
TimelineTake timelineTake(const TakeRecord& take);

/// The takes that began on one date by the local clock: those from `first` on, in DayTimeline::takes.
struct TimelineDay {
    QDate date;
    std::size_t first = 0;
    std::size_t count = 0;

    bool operator==(const TimelineDay&) const = default;
};

/// Where a take stands. Takes that were shot at the same time share the height between them.
struct TimelineBlock {
    std::size_t take = 0;  ///< in DayTimeline::takes
    double left = 0;       ///< pixels
    double width = 0;      ///< pixels; never less than DayLayout::leastWidth
    int lane = 0;          ///< 0 is the uppermost
    int lanes = 1;         ///< how many share the height here, at most DayLayout::mostLanes
};

struct TimelineHour {
    double x = 0;   ///< pixels
    QString label;  ///< "14:30", by the local clock
};

/// A day along its hours: from shortly before its first take to shortly after its last one, at least an hour.
/// Time runs evenly, so the day on which clocks are set back has an hour twice.
class DayLayout {
  public:
    static constexpr double leastWidth = 3;
    static constexpr int mostLanes = 3;

    DayLayout() = default;
    DayLayout(Date from, Date to, double width) : _from(from), _to(to), _width(width) {}

    Date from() const { return _from; }
    Date to() const { return _to; }
    double width() const { return _width; }
    double xOf(Date date) const;

    /// In the order of the takes.
    const std::vector<TimelineBlock>& blocks() const { return _blocks; }
    /// Full hours, or parts and multiples of one, as far apart as labels of a given width need.
    const std::vector<TimelineHour>& hours() const { return _hours; }
    /// The block at `x`, or within `reach` of it; `y` from 0, the top, to 1 chooses among those beside one
    /// another in time. Nothing where there is a gap.
    std::optional<std::size_t> blockAt(double x, double y, double reach) const;

  private:
    friend class DayTimeline;

    void addHours(double labelWidth);

    Date _from;
    Date _to;
    double _width = 0;
    std::vector<TimelineBlock> _blocks;
    std::vector<TimelineHour> _hours;
};

class DayTimeline {
  public:
    DayTimeline() = default;
    explicit DayTimeline(std::vector<TimelineTake> takes);

    /// By their start.
    const std::vector<TimelineTake>& takes() const { return _takes; }
    /// Only those that have takes, in their order.
    const std::vector<TimelineDay>& days() const { return _days; }
    /// The index of the day that the take with that index is of.
    std::size_t dayOf(std::size_t take) const;

    /// The day with that index on a line of `width` pixels, its labels at least `labelWidth` apart. With
    /// `until` the line reaches that moment too, when it is of the same day.
    DayLayout layOut(std::size_t day, double width, double labelWidth,
                     std::optional<Date> until = std::nullopt) const;

  private:
    void findDays();
    std::pair<Date, Date> span(const TimelineDay& day, std::optional<Date> until) const;
    std::vector<TimelineBlock> blocks(const TimelineDay& day, const DayLayout& layout) const;

    std::vector<TimelineTake> _takes;
    std::vector<TimelineDay> _days;
};

}  // namespace marquill
