// The atoms that describe a movie, its tracks and its compression (QuickTime File Format; ISO/IEC 14496-12
// chapters 8.2 to 8.6). One struct per atom, one field per field of the file, one function that reads and
// writes it. Times are seconds since 1904-01-01. Values, any thread.
#pragma once

#include "movie/Atom.h"

#include <array>

namespace marquill {

/// A transformation: a, b, u, c, d, v, x, y, w; all 16.16 fixed-point but u, v and w, which are 2.30.
struct Matrix {
    std::array<qint32, 9> values = {0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000};

    void transfer(AtomStream& stream) { stream.transfer(values); }
    /// How far the picture is turned clockwise, in whole degrees from 0 to 359.
    int rotation() const;
    bool operator==(const Matrix&) const = default;
};

/// 'mvhd'
struct MovieHeaderAtom {
    static constexpr FourCharCode type{"mvhd"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    quint64 creationTime = 0;
    quint64 modificationTime = 0;
    quint32 timeScale = 600;  ///< units per second
    quint64 duration = 0;     ///< all bits set: not known
    quint32 preferredRate = 0x10000;
    quint16 preferredVolume = 0x100;
    std::array<quint8, 10> reserved = {};
    Matrix matrix;
    std::array<quint32, 6> previewAndSelection = {};  ///< times of preview, poster, selection, current time
    quint32 nextTrackId = 1;

    bool isDurationKnown() const;
    void transfer(AtomStream& stream);
    bool operator==(const MovieHeaderAtom&) const = default;
};

/// 'tkhd'
struct TrackHeaderAtom {
    static constexpr FourCharCode type{"tkhd"};
    static constexpr quint32 enabledFlag = 1;
    VersionAndFlags head{.flags = 15};  ///< versions 0 and 1
    quint64 creationTime = 0;
    quint64 modificationTime = 0;
    quint32 trackId = 0;
    quint32 reserved1 = 0;
    quint64 duration = 0;  ///< in the movie's time scale
    std::array<quint32, 2> reserved2 = {};
    quint16 layer = 0;
    quint16 alternateGroup = 0;
    quint16 volume = 0;
    quint16 reserved3 = 0;
    Matrix matrix;
    quint32 width = 0;   ///< 16.16 fixed-point
    quint32 height = 0;  ///< 16.16 fixed-point

    void transfer(AtomStream& stream);
    bool operator==(const TrackHeaderAtom&) const = default;
};

/// 'mdhd'
struct MediaHeaderAtom {
    static constexpr FourCharCode type{"mdhd"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    quint64 creationTime = 0;
    quint64 modificationTime = 0;
    quint32 timeScale = 600;
    quint64 duration = 0;
    quint16 language = 0;
    quint16 quality = 0;

    void transfer(AtomStream& stream);
    bool operator==(const MediaHeaderAtom&) const = default;
};

/// 'hdlr'
struct HandlerAtom {
    static constexpr FourCharCode type{"hdlr"};
    VersionAndFlags head = {};
    FourCharCode componentType;
    FourCharCode handler;  ///< what the media is: 'vide', 'soun', …
    std::array<quint32, 3> reserved = {};
    QByteArray name;  ///< with its length byte (QuickTime) or its final zero (ISO)

    void transfer(AtomStream& stream);
    bool operator==(const HandlerAtom&) const = default;
};

/// One piece of a track on the movie's time line.
struct EditListEntry {
    quint64 duration = 0;   ///< in the movie's time scale
    qint64 mediaTime = 0;   ///< in the media's time scale; -1: nothing is shown
    qint32 rate = 0x10000;  ///< 16.16 fixed-point

    void transfer(AtomStream& stream, quint8 version);
    bool operator==(const EditListEntry&) const = default;
};

/// 'elst'
struct EditListAtom {
    static constexpr FourCharCode type{"elst"};
    VersionAndFlags head = {};  ///< versions 0 and 1
    std::vector<EditListEntry> entries;

    void transfer(AtomStream& stream);
    bool operator==(const EditListAtom&) const = default;
};

/// 'dcom': how a compressed header is compressed.
struct DataCompressionAtom {
    static constexpr FourCharCode type{"dcom"};
    FourCharCode algorithm{"zlib"};

    void transfer(AtomStream& stream) { stream.transfer(algorithm); }
    bool operator==(const DataCompressionAtom&) const = default;
};

/// 'cmvd': the compressed header.
struct CompressedMovieDataAtom {
    static constexpr FourCharCode type{"cmvd"};
    quint32 inflatedSize = 0;
    QByteArray data;

    void transfer(AtomStream& stream);
    bool operator==(const CompressedMovieDataAtom&) const = default;
};

/// 'rdrf': where a reference movie's movie is.
struct DataReferenceAtom {
    static constexpr FourCharCode type{"rdrf"};
    quint32 flags = 0;
    FourCharCode referenceType;
    QByteArray reference;

    void transfer(AtomStream& stream);
    bool operator==(const DataReferenceAtom&) const = default;
};

}  // namespace marquill
