#include "markers/MarkerSetStore.h"

#include "platform/Clock.h"

#include <QCoreApplication>

namespace marquill {

namespace {

QString defaultTitle(int index) {
    return u"untitled (%1)"_s.arg(index + 1 < 10 ? index + 1 : 0);
}

}  // namespace

std::optional<Value> MarkerSetStore::markerTag(const std::optional<Marker>& marker, const QString& tag) {
    return marker && !tag.isNull() ? marker->tag(tag) : std::nullopt;
}

void MarkerSetStore::setMarker(std::optional<Marker> marker, const QString& tag,
                               const std::optional<Value>& value) {
    if (marker && !tag.isNull()) {
        marker->setTag(tag, value);
    }
}

QString MarkerSetStore::markerStringAtIndex(int index, const MarkerSet& set) {
    const Array titles = set.markerArray().value_or(Array());
    const std::optional<QString> title =
        index >= 0 && index < titles.size() ? titles.at(index).string() : std::nullopt;
    return title.value_or(defaultTitle(index));
}

Result<void> MarkerSetStore::setMarkerString(const QString& title, MarkerSet set, int index) {
    if (index < 0) {
        return failure(
            ErrorCode::notFound,
            QCoreApplication::translate("MarkerSetStore", "there is no marker button %1").arg(index));
    }
    std::optional<Array> titles = set.markerArray();
    if (!titles && set.setMarkerArray(Array())) {
        titles = set.markerArray();
    }
    if (!titles || titles->isFrozen()) {
        return failure(
            ErrorCode::frozen,
            QCoreApplication::translate(
                "MarkerSetStore", "the marker set \"%1\" is read-only; duplicate it to change its titles")
                .arg(set.title().value_or(QString())));
    }
    while (titles->size() <= index) {
        titles->append(QString());
    }
    titles->replace(index, title);
    return {};
}

Marker MarkerSetStore::getMarkerWithTitle(const QString& title, const std::optional<QString>& comment) {
    Marker marker;
    marker.setTitle(title);
    marker.setIn(0.0);
    marker.setDur(0.0);
    marker.setComment(comment.value_or(QString()));
    marker.setTags(Dictionary());
    if (title == "Action"_L1 || title == "In"_L1) {
        marker.setTag(markerTagIn, true);
    } else if (title == "Cut"_L1 || title == "Out"_L1) {
        marker.setTag(markerTagOut, true);
    }
    return marker;
}

MarkerSet MarkerSetStore::newMarkerSetWithTitle(const QString& title) {
    MarkerSet set;
    set.setTitle(title);
    set.setMarkerArray(Array());
    set.setMarkerID(Clock::current().microseconds());
    return set;
}

MarkerSet MarkerSetStore::duplicateMarkerSet(const MarkerSet& set, const QString& title) {
    MarkerSet copy(set.record().deepCopy());
    copy.setTitle(title);
    copy.setMarkerID(Clock::current().microseconds());
    return copy;
}

}  // namespace marquill
