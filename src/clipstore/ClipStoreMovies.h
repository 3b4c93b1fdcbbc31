// The clip record inside a movie file: the item 'KVXN', index 1, of its user data, an XML property list. For
// the clip store only. Any thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "movie/Movie.h"

namespace marquill::ClipStoreMovies {

/// The record of the movie at `path`, with the `clipName` and `clipDuration` of the file itself. None when it
/// does not open or has no user data, or when its record cannot be parsed; without a record, only those two
/// keys.
std::optional<ClipInfo> info(const QString& path);

/// The record as `movie`, which has user data, stores it: an empty one where there is none. Errors:
/// malformed, endsEarly or unsupported when it cannot be parsed.
Result<ClipInfo> storedInfo(const Movie& movie);

/// What kept a record from being written: the result of ClipStore::updateClipInfo, and the error behind it.
struct UpdateFailure {
    int status = 0;
    Error error;
};

/// Writes the record into the movie at `path` unless it holds it already.
std::expected<void, UpdateFailure> update(const ClipInfo& info, const QString& path);

}  // namespace marquill::ClipStoreMovies
