// The atoms of a movie that was recorded in fragments (ISO/IEC 14496-12 chapter 8.8). One struct per atom,
// one function that reads and writes it. Values, any thread.
#pragma once

#include "movie/Atom.h"

namespace marquill {

/// 'mehd'
struct MovieExtendsHeaderAtom {
    static constexpr FourCharCode type{"mehd"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    quint64 duration = 0;       ///< of the movie with all fragments, in its time scale

    void transfer(AtomStream& stream);
    bool operator==(const MovieExtendsHeaderAtom&) const = default;
};

/// 'trex'
struct TrackExtendsAtom {
    static constexpr FourCharCode type{"trex"};
    VersionAndFlags head = {};
    quint32 trackId = 0;
    quint32 sampleDescriptionIndex = 1;
    quint32 sampleDuration = 0;
    quint32 sampleSize = 0;
    quint32 sampleFlags = 0;

    void transfer(AtomStream& stream);
    bool operator==(const TrackExtendsAtom&) const = default;
};

/// 'tfhd'
struct TrackFragmentHeaderAtom {
    static constexpr FourCharCode type{"tfhd"};
    VersionAndFlags head = {};  ///< the flags say which fields are there
    quint32 trackId = 0;
    std::optional<quint64> baseDataOffset = {};          ///< flag 0x1
    std::optional<quint32> sampleDescriptionIndex = {};  ///< flag 0x2
    std::optional<quint32> sampleDuration = {};          ///< flag 0x8
    std::optional<quint32> sampleSize = {};              ///< flag 0x10
    std::optional<quint32> sampleFlags = {};             ///< flag 0x20

    void transfer(AtomStream& stream);
    bool operator==(const TrackFragmentHeaderAtom&) const = default;
};

/// 'tfdt'
struct TrackFragmentDecodeTimeAtom {
    static constexpr FourCharCode type{"tfdt"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    quint64 baseMediaDecodeTime = 0;

    void transfer(AtomStream& stream);
    bool operator==(const TrackFragmentDecodeTimeAtom&) const = default;
};

/// One sample of a run; the run's flags say which fields are there.
struct TrackRunSample {
    std::optional<quint32> duration = {};  ///< flag 0x100
    std::optional<quint32> size = {};      ///< flag 0x200
    std::optional<quint32> flags = {};     ///< flag 0x400
    /// Flag 0x800; signed in version 0 too, as many writers mean it.
    std::optional<qint32> compositionOffset = {};

    bool operator==(const TrackRunSample&) const = default;
};

/// 'trun'
struct TrackRunAtom {
    static constexpr FourCharCode type{"trun"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    quint32 sampleCount = 0;
    std::optional<qint32> dataOffset = {};         ///< flag 0x1
    std::optional<quint32> firstSampleFlags = {};  ///< flag 0x4
    /// As many as sampleCount says; none at all when nothing is said of a single one.
    std::vector<TrackRunSample> samples;

    void transfer(AtomStream& stream);
    bool operator==(const TrackRunAtom&) const = default;
};

}  // namespace marquill
