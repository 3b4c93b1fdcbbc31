// A movie file as a movie view wants to be told of it. Any thread.
#pragma once

#include "movie/Movie.h"
#include "platform/MovieView.h"

namespace marquill {

/// The size of the box around the movie's picture as it is shown, turned by its matrix, in pixels; empty for
/// a movie without pictures.
QSizeF naturalBounds(const Movie& movie);

/// With the times of its frames where the sample tables can be read; the log tells when they cannot.
MovieSource movieSource(const Movie& movie);

/// Why a movie that was opened and is shown has no file to go on with: it is gone, or another file took its
/// name. Nothing while it is the same file, its record updated in place or not.
std::optional<QString> lossOfFile(const Movie& movie);

}  // namespace marquill
