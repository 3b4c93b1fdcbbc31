// One marker of a clip, a named point or span: a typed handle over its record, which lies in the clip's
// clipMarkerArray. Copying the handle shares the record. Main thread.
#pragma once

#include "platform/PropertyList.h"

#include <optional>

namespace marquill {

// The keys of a marker record.
inline const QString clipMarkerTitle = u"clipMarkerTitle"_s;      ///< text
inline const QString clipMarkerIn = u"clipMarkerIn"_s;            ///< real, seconds from the clip's start
inline const QString clipMarkerDur = u"clipMarkerDur"_s;          ///< real, seconds; 0.0 is a point
inline const QString clipMarkerComment = u"clipMarkerComment"_s;  ///< text
inline const QString clipMarkerTags = u"clipMarkerTags"_s;        ///< dictionary, values by the tags' names
inline const QString clipMarkerOldIn = u"clipMarkerOldIn"_s;      ///< real, seconds; see Marker::oldIn

// The tags that the program knows; each is true where it is set.
inline const QString markerTagIn = u"in"_s;    ///< the marker is the clip's in point
inline const QString markerTagOut = u"out"_s;  ///< the marker is the clip's out point

class Marker {
  public:
    /// A new record without any key.
    Marker() = default;
    /// A handle over `record`, which is shared.
    explicit Marker(Dictionary record) : _record(std::move(record)) {}

    const Dictionary& record() const { return _record; }

    // Each is nothing when the record lacks it or holds another type. Times are seconds from the clip's start
    // and may be negative.
    std::optional<QString> title() const;
    std::optional<double> in() const;
    std::optional<double> dur() const;  ///< length of the marked span in seconds; 0.0 is a point
    std::optional<QString> comment() const;
    std::optional<Dictionary> tags() const;
    /// The in point as first set against the preview; a marker fired during a take has none.
    std::optional<double> oldIn() const;

    // Each returns false, and changes nothing, when the record is frozen.
    bool setTitle(const QString& title);
    bool setIn(double seconds);
    bool setDur(double seconds);
    bool setComment(const QString& comment);
    bool setTags(const Dictionary& tags);
    bool setOldIn(double seconds);

    /// The value of the tag called `name`, or nothing when the marker does not bear it.
    std::optional<Value> tag(const QString& name) const;
    /// Gives the marker the tag, or takes it away when there is no value. False when the record is frozen.
    bool setTag(const QString& name, const std::optional<Value>& value);

    /// Whether both are handles over the same record.
    bool isSame(const Marker& other) const { return _record.isSame(other._record); }
    /// Content.
    bool operator==(const Marker& other) const = default;

  private:
    Dictionary _record;
};

}  // namespace marquill
