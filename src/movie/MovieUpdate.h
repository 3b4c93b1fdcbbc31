// Changes a movie's user data in its file. The movie is never copied and its media never moved; whenever the
// writing stops, by a crash or a pulled cable, every reader finds the old record or the new one. Costs the
// header's size, whatever the media's. One thread at a time per file.
#pragma once

#include "movie/Movie.h"

namespace marquill {

/// Sets the item of the movie's user-data list as UserData::setItem does and writes the header anew, plain
/// when it was compressed. An item that has these bytes already is not written. The header may stand
/// elsewhere afterwards: open the movie again. Errors: those of the file system; notFound for a movie without
/// a user-data list or an index that is too high; changedMeanwhile when the file is not the one that was
/// opened; unsupported for a reference movie, for two different headers, and where the change cannot be made
/// safely. After an error the movie holds the old record or the new one, as after a crash.
Result<void> setUserDataItem(const Movie& movie, FourCharCode type, int index, const QByteArray& bytes);

/// The same for the movie at `path`; errors also as of Movie::open.
Result<void> setUserDataItem(const QString& path, FourCharCode type, int index, const QByteArray& bytes);

/// Gives a movie without a user-data list an empty one, in the same safe way; one that has a list is left
/// untouched. Errors as above, but for notFound.
Result<void> addUserData(const Movie& movie);

}  // namespace marquill
