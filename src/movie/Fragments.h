// The samples that a movie's fragments ('moof', ISO/IEC 14496-12 chapter 8.8) add to those of its header.
// Owned by whoever reads one movie, used by one thread.
#pragma once

#include "movie/ByteSource.h"

#include <map>

namespace marquill {

/// Samples in a row, in the media's time scale.
struct FragmentSamples {
    quint64 count = 0;
    quint64 duration = 0;  ///< of each
    qint64 offset = 0;     ///< of presentation against decoding
};

/// One track's part of all fragments.
struct TrackFragments {
    struct Run {
        quint64 start = 0;  ///< the decode time of its first sample
        std::vector<FragmentSamples> samples;
    };
    quint32 defaultDuration = 0;  ///< of a sample, as 'trex' says
    quint64 sampleCount = 0;
    quint64 end = 0;  ///< the decode time where the next sample would begin
    std::vector<Run> runs;
};

class Fragments {
  public:
    /// What is known before the first fragment: the sample duration of 'trex' and where the header's samples
    /// end.
    void setDefaults(quint32 trackId, quint32 sampleDuration) {
        _tracks[trackId].defaultDuration = sampleDuration;
    }
    void setStart(quint32 trackId, quint64 end) { _tracks[trackId].end = end; }
    /// Adds the fragment of that 'moof' atom. Errors as of the atoms in it; what was read of it stays.
    Result<void> add(ByteSource& source, const AtomHeader& moof);
    /// What the fragments hold of that track, or null.
    const TrackFragments* find(quint32 trackId) const;

  private:
    Result<void> addTrack(ByteSource& source, const AtomHeader& traf);

    std::map<quint32, TrackFragments> _tracks;
};

}  // namespace marquill
