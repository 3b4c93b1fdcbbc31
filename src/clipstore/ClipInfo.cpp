#include "clipstore/ClipInfo.h"

namespace marquill {

namespace {

template <class T>
bool setOrRemove(Dictionary& record, const QString& key, const std::optional<T>& value) {
    return value ? record.set(key, *value) : record.remove(key);
}

}  // namespace

std::optional<QString> ClipInfo::clipName() const {
    return _record.string(ClipKey::clipName);
}

std::optional<QString> ClipInfo::clipTake() const {
    return _record.string(ClipKey::clipTake);
}

std::optional<QString> ClipInfo::clipScene() const {
    return _record.string(ClipKey::clipScene);
}

std::optional<qint64> ClipInfo::clipRating() const {
    return _record.integer(ClipKey::clipRating);
}

std::optional<QString> ClipInfo::clipLabel() const {
    return _record.string(ClipKey::clipLabel);
}

std::optional<QString> ClipInfo::clipComment() const {
    return _record.string(ClipKey::clipComment);
}

std::optional<Array> ClipInfo::clipMarkerArray() const {
    return _record.array(ClipKey::clipMarkerArray);
}

std::optional<qint64> ClipInfo::clipDuration() const {
    return _record.integer(ClipKey::clipDuration);
}

std::optional<qint64> ClipInfo::clipOldDuration() const {
    return _record.integer(ClipKey::clipOldDuration);
}

std::optional<Date> ClipInfo::clipRecordingStartTime() const {
    return _record.date(ClipKey::clipRecordingStartTime);
}

std::optional<Date> ClipInfo::clipOldRecordingStartTime() const {
    return _record.date(ClipKey::clipOldRecordingStartTime);
}

std::optional<Date> ClipInfo::clipCreationDate() const {
    return _record.date(ClipKey::clipCreationDate);
}

std::optional<QString> ClipInfo::clipProxyType() const {
    return _record.string(ClipKey::clipProxyType);
}

std::optional<QString> ClipInfo::clipPath() const {
    return _record.string(ClipKey::clipPath);
}

std::optional<double> ClipInfo::clipMarkerOffset() const {
    return _record.real(ClipKey::clipMarkerOffset);
}

std::optional<qint64> ClipInfo::clipFileSize() const {
    return _record.integer(ClipKey::clipFileSize);
}

std::optional<Array> ClipInfo::clipFrameDrops() const {
    return _record.array(ClipKey::clipFrameDrops);
}

std::optional<Array> ClipInfo::clipFrameCorrupts() const {
    return _record.array(ClipKey::clipFrameCorrupts);
}

bool ClipInfo::setClipName(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipName, value);
}

bool ClipInfo::setClipTake(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipTake, value);
}

bool ClipInfo::setClipScene(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipScene, value);
}

bool ClipInfo::setClipRating(const std::optional<qint64>& value) {
    return setOrRemove(_record, ClipKey::clipRating, value);
}

bool ClipInfo::setClipLabel(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipLabel, value);
}

bool ClipInfo::setClipComment(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipComment, value);
}

bool ClipInfo::setClipMarkerArray(const std::optional<Array>& value) {
    return setOrRemove(_record, ClipKey::clipMarkerArray, value);
}

bool ClipInfo::setClipDuration(const std::optional<qint64>& value) {
    return setOrRemove(_record, ClipKey::clipDuration, value);
}

bool ClipInfo::setClipOldDuration(const std::optional<qint64>& value) {
    return setOrRemove(_record, ClipKey::clipOldDuration, value);
}

bool ClipInfo::setClipRecordingStartTime(const std::optional<Date>& value) {
    return setOrRemove(_record, ClipKey::clipRecordingStartTime, value);
}

bool ClipInfo::setClipOldRecordingStartTime(const std::optional<Date>& value) {
    return setOrRemove(_record, ClipKey::clipOldRecordingStartTime, value);
}

bool ClipInfo::setClipCreationDate(const std::optional<Date>& value) {
    return setOrRemove(_record, ClipKey::clipCreationDate, value);
}

bool ClipInfo::setClipProxyType(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipProxyType, value);
}

bool ClipInfo::setClipPath(const std::optional<QString>& value) {
    return setOrRemove(_record, ClipKey::clipPath, value);
}

bool ClipInfo::setClipMarkerOffset(const std::optional<double>& value) {
    return setOrRemove(_record, ClipKey::clipMarkerOffset, value);
}

bool ClipInfo::setClipFileSize(const std::optional<qint64>& value) {
    return setOrRemove(_record, ClipKey::clipFileSize, value);
}

bool ClipInfo::setClipFrameDrops(const std::optional<Array>& value) {
    return setOrRemove(_record, ClipKey::clipFrameDrops, value);
}

bool ClipInfo::setClipFrameCorrupts(const std::optional<Array>& value) {
    return setOrRemove(_record, ClipKey::clipFrameCorrupts, value);
}

}  // namespace marquill
