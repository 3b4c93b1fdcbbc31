// What a clip's record held once, in little room: enough to say later what has changed, and not what it was.
// A folder of a hundred thousand clips keeps one of each. Values that never change, any thread.
#pragma once

#include "clipstore/ClipInfo.h"

#include <span>
#include <vector>

namespace marquill {

/// The same for one marker. Numbers of 64 bits that are equal for equal content.
struct MarkerPrint {
    quint64 whole = 0;
    quint64 in = 0;     ///< of its start; 0: none
    quint64 title = 0;  ///< of its name; 0: none

    static MarkerPrint of(const Value& marker);
    bool operator==(const MarkerPrint&) const = default;
};

class ClipPrint {
  public:
    explicit ClipPrint(const ClipInfo& clip);

    /// Whether the record held this value of the key; nothing: it held none.
    bool held(const QString& key, const Value& value) const;
    /// Of the markers of its list, in their order.
    std::span<const MarkerPrint> markers() const { return _markers; }
    /// Whether both records held the same but for these keys.
    bool isSame(const ClipPrint& other, const QStringList& butFor) const;

    /// The value of a key as it counts for a comparison: the take is that of the name where none was entered.
    static Value valueOf(const ClipInfo& clip, const QString& key);

  private:
    struct Key {
        quint64 key = 0;
        quint64 value = 0;

        bool operator==(const Key&) const = default;
    };

    std::vector<Key> _keys;  // by key
    std::vector<MarkerPrint> _markers;
};

}  // namespace marquill
