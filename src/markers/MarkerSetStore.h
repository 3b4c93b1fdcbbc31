// The operations on markers and marker sets that need no window, without state. MarkerSets, the window's
// controller, derives from this class: they are called by its name wherever a window may be known, and by
// this one elsewhere. Main thread.
#pragma once

#include "markers/Marker.h"
#include "markers/MarkerSet.h"
#include "platform/Error.h"

namespace marquill {

class MarkerSetStore {
  public:
    /// The value of the marker's tag; nothing when it has no such tag, or when there is no marker or no name
    /// (a null text).
    static std::optional<Value> markerTag(const std::optional<Marker>& marker, const QString& tag);
    /// Gives the marker the tag, or takes it away when there is no value. Without marker or name (a null
    /// text) it does nothing.
    static void setMarker(std::optional<Marker> marker, const QString& tag,
                          const std::optional<Value>& value);

    /// The title of the button at `index`, from 0: the set's entry, which may be the empty text, or where the
    /// set has none "untitled (N)", N being the digit on the button's key.
    static QString markerStringAtIndex(int index, const MarkerSet& set);
    /// Makes `title` the set's entry at `index`, from 0. Missing entries before it become empty texts, which
    /// show as blank buttons. Fails with ErrorCode::frozen for a set as it was read from the defaults.
    static Result<void> setMarkerString(const QString& title, MarkerSet set, int index);

    /// A new marker at 0.0 without length. The calls of a film set mark the range that is of use: one titled
    /// "Action" or "In" gets the tag "in", one titled "Cut" or "Out" the tag "out".
    static Marker getMarkerWithTitle(const QString& title, const std::optional<QString>& comment);

    /// A new set without button titles and with an identity of its own.
    static MarkerSet newMarkerSetWithTitle(const QString& title);
    /// A copy that shares nothing with `set`, can be changed, and has an identity of its own.
    static MarkerSet duplicateMarkerSet(const MarkerSet& set, const QString& title);
};

}  // namespace marquill
