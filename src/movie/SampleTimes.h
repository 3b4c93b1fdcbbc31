// When a movie's video samples begin. A value, any thread.
#pragma once

#include "movie/Movie.h"

namespace marquill {

/// The moments at which another picture comes up, in the movie's time scale and through the tracks' edit
/// lists. A sample begins at the first movie time value at which it is shown: with 30000/1001 frames a second
/// and 600 units a second, at 0, 21, 41, 61 (0, 20.02, 40.04, 60.06), …. Samples in the order of their
/// presentation; one that an edit cuts into begins with the edit; samples that begin at the same value count
/// once.
class SampleTimes {
  public:
    /// Those of movie.visualTracks(), all taken together; none in a movie without pictures. Errors: those of
    /// the file system and of parsing, with the byte offset; unsupported beyond 16 million samples.
    static Result<SampleTimes> load(const Movie& movie);

    /// The start of the latest sample that begins before the movie time `value`; -1 when none does. O(log n).
    qint64 previousSampleTime(qint64 value) const;
    /// All starts, ascending.
    const std::vector<qint64>& starts() const { return _starts; }

  private:
    std::vector<qint64> _starts;
};

}  // namespace marquill
