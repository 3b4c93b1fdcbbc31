// The record of one clip: a typed handle over its dictionary. Copying the handle shares the record; its
// identity, not its content, is what lists go by. Keys this version does not know stay as they are. May be
// read from several threads while none changes it.
#pragma once

#include "platform/PropertyList.h"

#include <optional>

namespace marquill {

/// The keys of the record, named as they are.
namespace ClipKey {
inline const QString clipName = u"clipName"_s;
inline const QString clipTake = u"clipTake"_s;
inline const QString clipScene = u"clipScene"_s;
inline const QString clipRating = u"clipRating"_s;
inline const QString clipLabel = u"clipLabel"_s;
inline const QString clipComment = u"clipComment"_s;
inline const QString clipMarkerArray = u"clipMarkerArray"_s;
inline const QString clipDuration = u"clipDuration"_s;
inline const QString clipOldDuration = u"clipOldDuration"_s;
inline const QString clipRecordingStartTime = u"clipRecordingStartTime"_s;
inline const QString clipOldRecordingStartTime = u"clipOldRecordingStartTime"_s;
inline const QString clipCreationDate = u"clipCreationDate"_s;
inline const QString clipProxyType = u"clipProxyType"_s;
inline const QString clipPath = u"clipPath"_s;
inline const QString clipMarkerOffset = u"clipMarkerOffset"_s;
inline const QString clipFileSize = u"clipFileSize"_s;
inline const QString clipFrameDrops = u"clipFrameDrops"_s;
inline const QString clipFrameCorrupts = u"clipFrameCorrupts"_s;
}  // namespace ClipKey

class ClipInfo {
  public:
    /// A new record without any key.
    ClipInfo() = default;
    /// A handle over `record`, which is shared.
    explicit ClipInfo(Dictionary record) : _record(std::move(record)) {}

    const Dictionary& record() const { return _record; }

    // Each is nothing when the record lacks it or holds another type.

    /// File name within its folder, with extension: "Interview#03.xml".
    std::optional<QString> clipName() const;
    /// As the user typed it; "" or absent: the one in `clipName` counts.
    std::optional<QString> clipTake() const;
    /// Scene name.
    std::optional<QString> clipScene() const;
    /// 0 to 5.
    std::optional<qint64> clipRating() const;
    /// Shot title, from the label list.
    std::optional<QString> clipLabel() const;
    /// Free text.
    std::optional<QString> clipComment() const;
    /// Marker records; their in points count from the start of the clip.
    std::optional<Array> clipMarkerArray() const;
    /// Whole seconds, truncated toward zero.
    std::optional<qint64> clipDuration() const;
    /// Seconds: what `clipDuration` was before media were connected.
    std::optional<qint64> clipOldDuration() const;
    /// When recording began; of a connected clip, when the media did.
    std::optional<Date> clipRecordingStartTime() const;
    /// The placeholder's own start, for when media are disconnected.
    std::optional<Date> clipOldRecordingStartTime() const;
    /// When the clip was made.
    std::optional<Date> clipCreationDate() const;
    /// Kind of the connected media: "clipTypeQT", "clipTypeRedH", …
    std::optional<QString> clipProxyType() const;
    /// Full path of the connected media; its presence means connected.
    std::optional<QString> clipPath() const;
    /// Seconds: media start less the recording start of the placeholder.
    std::optional<double> clipMarkerOffset() const;
    /// Bytes; only read here.
    std::optional<qint64> clipFileSize() const;
    /// Numbers of dropped frames; a capturing program writes them.
    std::optional<Array> clipFrameDrops() const;
    /// Numbers of frames dropped as corrupt; of the same origin.
    std::optional<Array> clipFrameCorrupts() const;

    // Nothing removes the key. Each returns false, and changes nothing, when the record is frozen.
    bool setClipName(const std::optional<QString>& value);
    bool setClipTake(const std::optional<QString>& value);
    bool setClipScene(const std::optional<QString>& value);
    bool setClipRating(const std::optional<qint64>& value);
    bool setClipLabel(const std::optional<QString>& value);
    bool setClipComment(const std::optional<QString>& value);
    bool setClipMarkerArray(const std::optional<Array>& value);
    bool setClipDuration(const std::optional<qint64>& value);
    bool setClipOldDuration(const std::optional<qint64>& value);
    bool setClipRecordingStartTime(const std::optional<Date>& value);
    bool setClipOldRecordingStartTime(const std::optional<Date>& value);
    bool setClipCreationDate(const std::optional<Date>& value);
    bool setClipProxyType(const std::optional<QString>& value);
    bool setClipPath(const std::optional<QString>& value);
    bool setClipMarkerOffset(const std::optional<double>& value);
    bool setClipFileSize(const std::optional<qint64>& value);
    bool setClipFrameDrops(const std::optional<Array>& value);
    bool setClipFrameCorrupts(const std::optional<Array>& value);

    /// A clip whose record shares nothing with this one and is mutable all the way down.
    ClipInfo deepCopy() const { return ClipInfo(_record.deepCopy()); }
    /// Whether both are handles over the same record.
    bool isSame(const ClipInfo& other) const { return _record.isSame(other._record); }
    /// Equal for handles over the same record, and for no others while any of them lives.
    const void* identity() const { return _record.identity(); }
    /// Content.
    bool operator==(const ClipInfo& other) const = default;

  private:
    Dictionary _record;
};

}  // namespace marquill
