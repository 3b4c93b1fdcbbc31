#include "movie/HeaderAtoms.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace marquill {

namespace {

constexpr quint8 newestTimedVersion = 1;

void transferTimes(AtomStream& stream, const VersionAndFlags& head, quint64& creation,
                   quint64& modification) {
    stream.transferUnsigned(creation, head.timeSize());
    stream.transferUnsigned(modification, head.timeSize());
}

}  // namespace

int Matrix::rotation() const {
    const double angle = std::atan2(values[1], values[0]) * 180.0 / std::numbers::pi;
    return (static_cast<int>(std::lround(angle)) + 360) % 360;
}

bool MovieHeaderAtom::isDurationKnown() const {
    return duration != (head.version == 1 ? std::numeric_limits<quint64>::max()
                                          : quint64{std::numeric_limits<quint32>::max()});
}

void MovieHeaderAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, newestTimedVersion);
    transferTimes(stream, head, creationTime, modificationTime);
    stream.transfer(timeScale);
    stream.transferUnsigned(duration, head.timeSize());
    stream.transfer(preferredRate);
    stream.transfer(preferredVolume);
    stream.transfer(reserved);
    stream.transfer(matrix);
    stream.transfer(previewAndSelection);
    stream.transfer(nextTrackId);
}

void TrackHeaderAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, newestTimedVersion);
    transferTimes(stream, head, creationTime, modificationTime);
    stream.transfer(trackId);
    stream.transfer(reserved1);
    stream.transferUnsigned(duration, head.timeSize());
    stream.transfer(reserved2);
    stream.transfer(layer);
    stream.transfer(alternateGroup);
    stream.transfer(volume);
    stream.transfer(reserved3);
    stream.transfer(matrix);
    stream.transfer(width);
    stream.transfer(height);
}

void MediaHeaderAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, newestTimedVersion);
    transferTimes(stream, head, creationTime, modificationTime);
    stream.transfer(timeScale);
    stream.transferUnsigned(duration, head.timeSize());
    stream.transfer(language);
    stream.transfer(quality);
}

void HandlerAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    stream.transfer(componentType);
    stream.transfer(handler);
    stream.transfer(reserved);
    stream.transferRest(name);
}

void EditListEntry::transfer(AtomStream& stream, quint8 version) {
    if (version == 1) {
        stream.transfer(duration);
        stream.transfer(mediaTime);
    } else {
        stream.transferUnsigned(duration, 4);
        auto shortTime = static_cast<qint32>(mediaTime);
        stream.transfer(shortTime);
        mediaTime = shortTime;
    }
    stream.transfer(rate);
}

void EditListAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, newestTimedVersion);
    const quint8 version = head.version;
    stream.transferCountedList(
        entries, version == 1 ? 20 : 12,
        [version](EditListEntry& entry, AtomStream& s) { entry.transfer(s, version); });
}

void CompressedMovieDataAtom::transfer(AtomStream& stream) {
    stream.transfer(inflatedSize);
    stream.transferRest(data);
}

void DataReferenceAtom::transfer(AtomStream& stream) {
    stream.transfer(flags);
    stream.transfer(referenceType);
    auto size = static_cast<quint32>(reference.size());
    stream.transfer(size);
    stream.transferBytes(reference, size);
}

}  // namespace marquill
