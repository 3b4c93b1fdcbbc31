#include "markers/MarkerSet.h"

#include <cmath>

namespace marquill {

std::optional<QString> MarkerSet::title() const {
    return _record.string(kMarkerSetTitle);
}

std::optional<Array> MarkerSet::markerArray() const {
    return _record.array(kMarkerArray);
}

std::optional<quint64> MarkerSet::markerID() const {
    const Value* identity = _record.find(kMarkerID);
    return identity ? unsignedNumber(*identity) : std::nullopt;
}

bool MarkerSet::setTitle(const QString& title) {
    return _record.set(kMarkerSetTitle, title);
}

bool MarkerSet::setMarkerArray(const Array& titles) {
    return _record.set(kMarkerArray, titles);
}

bool MarkerSet::setMarkerID(quint64 identity) {
    return _record.set(kMarkerID, identity);
}

std::optional<quint64> unsignedNumber(const Value& value) {
    if (const quint64* large = std::get_if<quint64>(&value.variant())) {
        return *large;
    }
    if (const double* real = std::get_if<double>(&value.variant())) {
        const bool fits = *real >= 0 && *real < 0x1p64 && std::trunc(*real) == *real;
        return fits ? std::optional(static_cast<quint64>(*real)) : std::nullopt;
    }
    const std::optional<qint64> integer = value.integer();
    return integer && *integer >= 0 ? std::optional(static_cast<quint64>(*integer)) : std::nullopt;
}

}  // namespace marquill
