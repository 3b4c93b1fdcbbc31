// A track's samples in the order of their presentation, in the media's time scale. Any thread.
#pragma once

#include "movie/ByteSource.h"
#include "movie/Fragments.h"
#include "movie/Movie.h"

namespace marquill {

/// The most samples a movie's sample times are made of.
inline constexpr quint64 maximumSamples = quint64{1} << 24;

struct MediaSamples {
    std::vector<qint64> starts;  ///< ascending
    qint64 end = 0;              ///< where the last of them ends

    /// From the tables of the header and from the fragments, where there are any. Errors: those of the source
    /// and of parsing; unsupported when there are too many.
    static Result<MediaSamples> load(ByteSource& headerSource, const Track& track,
                                     const TrackFragments* fragments);
};

}  // namespace marquill
