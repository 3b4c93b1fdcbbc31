// The atoms that list a track's samples (QuickTime File Format; ISO/IEC 14496-12 chapter 8.5 to 8.7). One
// struct per atom, one function that reads and writes it. Values, any thread.
#pragma once

#include "movie/Atom.h"

#include <array>

namespace marquill {

/// What begins each sample description, whatever its media.
struct SampleDescriptionEntry {
    FourCharCode format;  ///< the codec
    std::array<quint8, 6> reserved = {};
    quint16 dataReferenceIndex = 1;
    QByteArray rest;  ///< what the media says of it, see VisualSampleDescription

    void transfer(AtomStream& stream);
    bool operator==(const SampleDescriptionEntry&) const = default;
};

/// 'stsd'
struct SampleDescriptionAtom {
    static constexpr FourCharCode type{"stsd"};
    VersionAndFlags head = {};
    std::vector<SampleDescriptionEntry> entries;

    void transfer(AtomStream& stream);
    bool operator==(const SampleDescriptionAtom&) const = default;
};

/// The rest of a sample description of media that shows pictures.
struct VisualSampleDescription {
    quint16 version = 0;
    quint16 revision = 0;
    FourCharCode vendor;
    quint32 temporalQuality = 0;
    quint32 spatialQuality = 0;
    quint16 width = 0;   ///< pixels
    quint16 height = 0;  ///< pixels
    quint32 horizontalResolution = 72U << 16;
    quint32 verticalResolution = 72U << 16;
    quint32 dataSize = 0;
    quint16 frameCount = 1;
    std::array<quint8, 32> compressorName = {};
    quint16 depth = 24;
    qint16 colorTableId = -1;  ///< 0: the color table follows
    QByteArray colorTable;
    AtomList extensions;  ///< 'clap', 'pasp' and the codec's own

    void transfer(AtomStream& stream);
    bool operator==(const VisualSampleDescription&) const = default;

  private:
    void transferColorTable(AtomStream& stream);
};

/// 'clap': the part of the picture that is meant to be seen. Numerators and denominators, in pixels.
struct CleanApertureAtom {
    static constexpr FourCharCode type{"clap"};
    quint32 widthNumerator = 0;
    quint32 widthDenominator = 1;
    quint32 heightNumerator = 0;
    quint32 heightDenominator = 1;
    qint32 horizontalOffsetNumerator = 0;
    quint32 horizontalOffsetDenominator = 1;
    qint32 verticalOffsetNumerator = 0;
    quint32 verticalOffsetDenominator = 1;

    void transfer(AtomStream& stream);
    bool operator==(const CleanApertureAtom&) const = default;
};

/// 'pasp': the shape of a pixel.
struct PixelAspectRatioAtom {
    static constexpr FourCharCode type{"pasp"};
    quint32 horizontalSpacing = 1;
    quint32 verticalSpacing = 1;

    void transfer(AtomStream& stream);
    bool operator==(const PixelAspectRatioAtom&) const = default;
};

/// `count` samples in a row, each lasting `duration` units of the media's time scale.
struct TimeToSampleEntry {
    quint32 count = 0;
    quint32 duration = 0;

    void transfer(AtomStream& stream);
    bool operator==(const TimeToSampleEntry&) const = default;
};

/// 'stts'
struct TimeToSampleAtom {
    static constexpr FourCharCode type{"stts"};
    VersionAndFlags head = {};
    std::vector<TimeToSampleEntry> entries;

    void transfer(AtomStream& stream);
    bool operator==(const TimeToSampleAtom&) const = default;
};

/// `count` samples in a row that are shown `offset` units after they are decoded.
struct CompositionOffsetEntry {
    quint32 count = 0;
    qint32 offset = 0;  ///< signed in version 0 too, where QuickTime writes negative ones

    void transfer(AtomStream& stream);
    bool operator==(const CompositionOffsetEntry&) const = default;
};

/// 'ctts'
struct CompositionOffsetAtom {
    static constexpr FourCharCode type{"ctts"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    std::vector<CompositionOffsetEntry> entries;

    void transfer(AtomStream& stream);
    bool operator==(const CompositionOffsetAtom&) const = default;
};

/// 'stsz'
struct SampleSizeAtom {
    static constexpr FourCharCode type{"stsz"};
    VersionAndFlags head = {};
    quint32 sampleSize = 0;  ///< bytes, when all samples have one size; else 0
    quint32 sampleCount = 0;
    std::vector<quint32> sizes;  ///< empty when all samples have one size

    void transferCount(AtomStream& stream);  ///< all but the sizes
    void transfer(AtomStream& stream);
    bool operator==(const SampleSizeAtom&) const = default;
};

/// 'stz2'
struct CompactSampleSizeAtom {
    static constexpr FourCharCode type{"stz2"};
    VersionAndFlags head = {};
    std::array<quint8, 3> reserved = {};
    quint8 fieldSize = 16;  ///< bits: 4, 8 or 16
    quint32 sampleCount = 0;
    QByteArray sizes;  ///< packed

    void transferCount(AtomStream& stream);  ///< all but the sizes
    void transfer(AtomStream& stream);
    bool operator==(const CompactSampleSizeAtom&) const = default;
};

}  // namespace marquill
