// A set of titles for the ten marker buttons: a typed handle over its record, which lies in the user
// defaults. Copying the handle shares the record. What was read from the defaults is frozen. Main thread.
#pragma once

#include "platform/PropertyList.h"

#include <optional>

namespace marquill {

// The keys of a marker set record.
inline const QString kMarkerSetTitle = u"kMarkerSetTitle"_s;  ///< text
inline const QString kMarkerArray = u"kMarkerArray"_s;        ///< array of texts, by button index
inline const QString kMarkerID = u"kMarkerID"_s;              ///< unsigned 64-bit integer

class MarkerSet {
  public:
    /// A new record without any key.
    MarkerSet() = default;
    /// A handle over `record`, which is shared.
    explicit MarkerSet(Dictionary record) : _record(std::move(record)) {}

    const Dictionary& record() const { return _record; }

    // Each is nothing when the record lacks it or holds another type.
    std::optional<QString> title() const;
    /// The buttons' titles by index, 0 to 9; may be shorter, and an entry may be the empty text.
    std::optional<Array> markerArray() const;
    /// The identity by which the current set is found again; of a real number only when it is whole.
    std::optional<quint64> markerID() const;

    // Each returns false, and changes nothing, when the record is frozen.
    bool setTitle(const QString& title);
    bool setMarkerArray(const Array& titles);
    bool setMarkerID(quint64 identity);

    /// Whether both are handles over the same record.
    bool isSame(const MarkerSet& other) const { return _record.isSame(other._record); }
    /// Content.
    bool operator==(const MarkerSet& other) const = default;

  private:
    Dictionary _record;
};

/// The number as an unsigned 64-bit integer; nothing when it is no number, negative, or not whole.
std::optional<quint64> unsignedNumber(const Value& value);

}  // namespace marquill
