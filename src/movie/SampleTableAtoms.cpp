#include "movie/SampleTableAtoms.h"

#include <QCoreApplication>

namespace marquill {

void SampleDescriptionEntry::transfer(AtomStream& stream) {
    constexpr quint32 headSize = 16;
    auto size = static_cast<quint32>(headSize + rest.size());
    stream.transfer(size);
    stream.transfer(format);
    stream.transfer(reserved);
    stream.transfer(dataReferenceIndex);
    if (size < headSize) {
        stream.fail(ErrorCode::malformed,
                    QCoreApplication::translate("SampleTableAtoms",
                                                "A sample description has the impossible size %1.")
                        .arg(size));
        return;
    }
    stream.transferBytes(rest, size - headSize);
}

void SampleDescriptionAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    stream.transferCountedList(entries, 16);
}

void VisualSampleDescription::transfer(AtomStream& stream) {
    stream.transfer(version);
    stream.transfer(revision);
    stream.transfer(vendor);
    stream.transfer(temporalQuality);
    stream.transfer(spatialQuality);
    stream.transfer(width);
    stream.transfer(height);
    stream.transfer(horizontalResolution);
    stream.transfer(verticalResolution);
    stream.transfer(dataSize);
    stream.transfer(frameCount);
    stream.transfer(compressorName);
    stream.transfer(depth);
    stream.transfer(colorTableId);
    transferColorTable(stream);
    stream.transfer(extensions);
}

void VisualSampleDescription::transferColorTable(AtomStream& stream) {
    if (!stream.isReading()) {
        stream.transferRest(colorTable);
        return;
    }
    // Seed, flags, index of the last color; then four 16-bit numbers for each. ISO writers leave the id 0
    // without a table; what is no table of depth 8 or less is then left to the extensions.
    const quint16 colorDepth = depth & 0x1F;
    if (colorTableId == 0 && colorDepth <= 8 && stream.remaining() >= 8) {
        const qint64 colors = qint64{1} << colorDepth;
        stream.transferBytes(colorTable, std::min<qint64>(8 + 8 * colors, stream.remaining()));
    }
}

void CleanApertureAtom::transfer(AtomStream& stream) {
    stream.transfer(widthNumerator);
    stream.transfer(widthDenominator);
    stream.transfer(heightNumerator);
    stream.transfer(heightDenominator);
    stream.transfer(horizontalOffsetNumerator);
    stream.transfer(horizontalOffsetDenominator);
    stream.transfer(verticalOffsetNumerator);
    stream.transfer(verticalOffsetDenominator);
}

void PixelAspectRatioAtom::transfer(AtomStream& stream) {
    stream.transfer(horizontalSpacing);
    stream.transfer(verticalSpacing);
}

void TimeToSampleEntry::transfer(AtomStream& stream) {
    stream.transfer(count);
    stream.transfer(duration);
}

void TimeToSampleAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    stream.transferCountedList(entries, 8);
}

void CompositionOffsetEntry::transfer(AtomStream& stream) {
    stream.transfer(count);
    stream.transfer(offset);
}

void CompositionOffsetAtom::transfer(AtomStream& stream) {
    stream.transfer(head);
    head.check(stream, 1);
    stream.transferCountedList(entries, 8);
}

void SampleSizeAtom::transferCount(AtomStream& stream) {
    stream.transfer(head);
    stream.transfer(sampleSize);
    stream.transfer(sampleCount);
}

void SampleSizeAtom::transfer(AtomStream& stream) {
    transferCount(stream);
    if (sampleSize == 0) {
        stream.transferList(sizes, sampleCount, 4);
    }
}

void CompactSampleSizeAtom::transferCount(AtomStream& stream) {
    stream.transfer(head);
    stream.transfer(reserved);
    stream.transfer(fieldSize);
    stream.transfer(sampleCount);
}

void CompactSampleSizeAtom::transfer(AtomStream& stream) {
    transferCount(stream);
    stream.transferBytes(sizes, (qint64{sampleCount} * fieldSize + 7) / 8);
}

}  // namespace marquill
