#include "movie/FragmentAtoms.h"

#include <bit>

namespace marquill {

namespace {

constexpr quint32 sampleFieldFlags = 0xF00;

/// A field that is there when its flag is set.
template <class T>
void transferIf(AtomStream& stream, bool isThere, std::optional<T>& field) {
    if (!isThere) {
        field.reset();
        return;
    }
    T value = field.value_or(T{});
    stream.transfer(value);
    field = value;
}

}  // namespace

void MovieExtendsHeaderAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, 1);
    stream.transferUnsigned(duration, head.timeSize());
}

void TrackExtendsAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    stream.transfer(trackId);
    stream.transfer(sampleDescriptionIndex);
    stream.transfer(sampleDuration);
    stream.transfer(sampleSize);
    stream.transfer(sampleFlags);
}

void TrackFragmentHeaderAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    stream.transfer(trackId);
    transferIf(stream, head.flags & 0x1, baseDataOffset);
    transferIf(stream, head.flags & 0x2, sampleDescriptionIndex);
    transferIf(stream, head.flags & 0x8, sampleDuration);
    transferIf(stream, head.flags & 0x10, sampleSize);
    transferIf(stream, head.flags & 0x20, sampleFlags);
}

void TrackFragmentDecodeTimeAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, 1);
    stream.transferUnsigned(baseMediaDecodeTime, head.timeSize());
}

void TrackRunAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, 1);
    stream.transfer(sampleCount);
    transferIf(stream, head.flags & 0x1, dataOffset);
    transferIf(stream, head.flags & 0x4, firstSampleFlags);
    const quint32 fields = head.flags & sampleFieldFlags;
    if (fields == 0) {
        return;
    }
    stream.transferList(samples, sampleCount, qint64{4} * std::popcount(fields),
                        [flags = head.flags](TrackRunSample& sample, AtomStream& s) {
                            transferIf(s, flags & 0x100, sample.duration);
                            transferIf(s, flags & 0x200, sample.size);
                            transferIf(s, flags & 0x400, sample.flags);
                            transferIf(s, flags & 0x800, sample.compositionOffset);
                        });
}

}  // namespace marquill
