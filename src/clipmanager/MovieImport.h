// Placeholders for movies that exist already: what "Import" does, without the chooser and the table. No
// state; main thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Error.h"

#include <QStringList>

#include <vector>

namespace marquill {

/// What came of an import.
struct ImportedMovies {
    std::vector<ClipInfo> clips;  ///< the placeholders' records, in the order of the movies
    std::vector<Error> errors;    ///< one for each movie that has none; the last one is what the alert tells
};

class MovieImport {
  public:
    /// Writes a placeholder into `folder` that stands for the movie at `path`, is named as it is and
    /// connected to it. Errors, each with its file: those of ClipStore::proxyClipFromMovieURL, and of
    /// ClipStore::createProxyClip: alreadyExists, and nothing changed, where a placeholder has that name.
    static Result<ClipInfo> importMovie(const QString& path, const QString& folder);

    /// The same for each movie in order; one that fails does not stop the others.
    static ImportedMovies importMovies(const QStringList& paths, const QString& folder);
};

}  // namespace marquill
