#include "markers/Marker.h"

namespace marquill {

std::optional<QString> Marker::title() const {
    return _record.string(clipMarkerTitle);
}

std::optional<double> Marker::in() const {
    return _record.real(clipMarkerIn);
}

std::optional<double> Marker::dur() const {
    return _record.real(clipMarkerDur);
}

std::optional<QString> Marker::comment() const {
    return _record.string(clipMarkerComment);
}

std::optional<Dictionary> Marker::tags() const {
    return _record.dictionary(clipMarkerTags);
}

std::optional<double> Marker::oldIn() const {
    return _record.real(clipMarkerOldIn);
}

bool Marker::setTitle(const QString& title) {
    return _record.set(clipMarkerTitle, title);
}

bool Marker::setIn(double seconds) {
    return _record.set(clipMarkerIn, seconds);
}

bool Marker::setDur(double seconds) {
    return _record.set(clipMarkerDur, seconds);
}

bool Marker::setComment(const QString& comment) {
    return _record.set(clipMarkerComment, comment);
}

bool Marker::setTags(const Dictionary& tags) {
    return _record.set(clipMarkerTags, tags);
}

bool Marker::setOldIn(double seconds) {
    return _record.set(clipMarkerOldIn, seconds);
}

std::optional<Value> Marker::tag(const QString& name) const {
    const std::optional<Dictionary> all = tags();
    const Value* value = all ? all->find(name) : nullptr;
    return value ? std::optional(*value) : std::nullopt;
}

bool Marker::setTag(const QString& name, const std::optional<Value>& value) {
    std::optional<Dictionary> all = tags();
    if (!value) {
        return !all || all->remove(name);
    }
    if (all) {
        return all->set(name, *value);
    }
    return setTags(Dictionary{{name, *value}});
}

}  // namespace marquill
