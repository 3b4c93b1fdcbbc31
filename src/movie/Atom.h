// What every atom of a movie file has (QuickTime File Format; ISO/IEC 14496-12 calls them boxes): a size, a
// type, a body; and how one struct per type is read and written. Values, any thread.
#pragma once

#include "movie/AtomStream.h"

namespace marquill {

/// Where an atom stands. Offsets are the file's, or those within an inflated header.
struct AtomHeader {
    FourCharCode type;
    qint64 offset = 0;
    qint64 size = 0;            ///< bytes, these of the header included; 8 at least
    int headerSize = 8;         ///< 8, or 16 where the size has 64 bits
    bool reachesToEnd = false;  ///< the size field is 0: the atom ends where the file does

    qint64 bodyOffset() const { return offset + headerSize; }
    qint64 bodySize() const { return size - headerSize; }
    qint64 end() const { return offset + size; }
    bool operator==(const AtomHeader&) const = default;
};

/// The longest header an atom can have.
inline constexpr qint64 maximumAtomHeaderSize = 16;

/// The atom header that `bytes` begin with, for an atom at `offset` of what ends at `end`. A size field of 0
/// means "to the end". The atom may reach beyond the end, which its reader decides upon. Errors: endsEarly,
/// when fewer bytes than a header are there; malformed, when the size is smaller than the header or no file
/// can be as large.
Result<AtomHeader> readAtomHeader(QByteArrayView bytes, qint64 offset, qint64 end);

/// The 8 bytes that begin an atom of `size` bytes in all.
QByteArray atomHeaderBytes(FourCharCode type, quint32 size);

/// The error text of an atom that holds what is wrong.
QString inAtom(FourCharCode type, const QString& message);

/// The atom of type A whose body is `body`; its first byte stands at `bodyOffset` of the file.
template <class A>
Result<A> readAtomBody(QByteArrayView body, qint64 bodyOffset) {
    A atom;
    AtomStream stream(body, bodyOffset);
    atom.transfer(stream);
    if (auto result = stream.result(); !result) {
        result.error().message = inAtom(A::type, result.error().message);
        return std::unexpected(result.error());
    }
    return atom;
}

/// The whole atom with its header. Errors: malformed, when the struct contradicts itself.
template <class A>
Result<QByteArray> writeAtom(A atom) {
    AtomStream stream;
    atom.transfer(stream);
    if (const auto result = stream.result(); !result) {
        return std::unexpected(result.error());
    }
    return atomHeaderBytes(A::type, static_cast<quint32>(8 + stream.written().size())) + stream.written();
}

/// Version and flags, with which many an atom begins.
struct VersionAndFlags {
    quint8 version = 0;
    quint32 flags = 0;  ///< 24 bits

    void transfer(AtomStream& stream) {
        stream.transfer(version);
        stream.transferUnsigned(flags, 3);
    }
    /// Reading on would misunderstand a version that is newer than `newest`.
    void check(AtomStream& stream, quint8 newest) const;
    /// The width of times and durations: 8 bytes in version 1, 4 in version 0.
    int timeSize() const { return version == 1 ? 8 : 4; }
    bool operator==(const VersionAndFlags&) const = default;
};

/// An atom that is kept as it is.
struct RawAtom {
    FourCharCode type;
    QByteArray body;
    bool hasLongSize = false;  ///< written with a 64-bit size

    qint64 size() const { return (hasLongSize ? 16 : 8) + body.size(); }
    void transfer(AtomStream& stream);
    bool operator==(const RawAtom&) const = default;
};

/// Atoms one after the other, as a container holds them, and what stands behind the last: nothing, the 32-bit
/// zero that may end a QuickTime list, or bytes that are no atom. All of it survives a read and a write.
struct AtomList {
    std::vector<RawAtom> atoms;
    QByteArray tail;

    /// The first atom of that type, or null.
    const RawAtom* find(FourCharCode type) const;
    qint64 size() const;
    void transfer(AtomStream& stream);
    bool operator==(const AtomList&) const = default;
};

}  // namespace marquill
