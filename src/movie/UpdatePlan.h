// How a new movie header comes into a file so that every reader finds the old one or the new one, whole,
// whenever the writing stops. Pure reckoning: reads and writes nothing. Any thread.
//
// What makes it safe: bytes are only written where nothing reads (within free atoms, or behind the end); an
// atom gets another size only by a single byte of its size field, which cannot be written by half; and the
// switches from 'free' to 'moov' and back leave, when cut, a type that no reader knows and all skip.
#pragma once

#include "movie/Atom.h"

namespace marquill {

/// The atoms of a file, as an update finds them.
struct FileLayout {
    std::vector<AtomHeader> atoms;        ///< at the top level, in their order
    qint64 fileSize = 0;                  ///< bytes
    QByteArray rest;                      ///< fewer than 8 bytes behind the last atom
    AtomHeader header;                    ///< the movie header in force
    std::optional<AtomHeader> second;     ///< one more that an interrupted update left
    std::optional<qint64> firstFragment;  ///< the header must stand before it
};

/// The new movie header: the atoms of its body, and what must stay at its very end.
struct HeaderContent {
    QByteArray atoms;
    QByteArray tail;

    /// The size of its atom without room to grow, in bytes.
    qint64 size() const { return 8 + atoms.size() + tail.size(); }
};

struct PlannedWrite {
    qint64 offset = 0;
    QByteArray bytes;
};

/// Steps in their order; what one step writes must be on the device before the next begins.
struct UpdatePlan {
    std::vector<std::vector<PlannedWrite>> steps;
};

/// Finds room for the header: a free atom, or a part of one; else behind the last atom, where then room for
/// the following update is made too, so that the file grows once: by two headers. Errors: unsupported, when
/// it cannot be done safely; the message says why.
Result<UpdatePlan> planUpdate(const FileLayout& layout, const HeaderContent& content);

}  // namespace marquill
