// Reads what a movie's header says of one track. Any thread.
#pragma once

#include "movie/ByteSource.h"
#include "movie/Movie.h"

namespace marquill {

/// The largest part of an atom without tables that is looked at, in bytes.
inline constexpr qint64 maximumPlainAtom = 65536;

/// The track of that 'trak' atom. Tables are left unread, but for the number of samples.
Result<Track> readTrack(ByteSource& source, const AtomHeader& trak);

}  // namespace marquill
