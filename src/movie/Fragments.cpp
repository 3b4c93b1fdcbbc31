#include "movie/Fragments.h"

#include "movie/FragmentAtoms.h"

namespace marquill {

namespace {

/// The samples of a run, those alike and next to each other taken together.
TrackFragments::Run runOf(const TrackRunAtom& atom, quint64 start, quint32 defaultDuration) {
    TrackFragments::Run run{.start = start, .samples = {}};
    if (atom.samples.empty()) {
        run.samples.push_back({.count = atom.sampleCount, .duration = defaultDuration, .offset = 0});
        return run;
    }
    for (const TrackRunSample& sample : atom.samples) {
        const quint64 duration = sample.duration.value_or(defaultDuration);
        const qint64 offset = sample.compositionOffset.value_or(0);
        if (run.samples.empty() || run.samples.back().duration != duration ||
            run.samples.back().offset != offset) {
            run.samples.push_back({.count = 0, .duration = duration, .offset = offset});
        }
        ++run.samples.back().count;
    }
    return run;
}

template <class A>
Result<void> take(ByteSource& source, const AtomHeader& header, A& atom) {
    Result<A> read = source.atom<A>(header, header.bodySize());
    if (!read) {
        return std::unexpected(read.error());
    }
    atom = *std::move(read);
    return {};
}

}  // namespace

Result<void> Fragments::add(ByteSource& source, const AtomHeader& moof) {
    return forEachAtom(source, moof.bodyOffset(), moof.end(), [&](const AtomHeader& atom) {
        return atom.type == FourCharCode("traf") ? addTrack(source, atom) : Result<void>();
    });
}

Result<void> Fragments::addTrack(ByteSource& source, const AtomHeader& traf) {
    TrackFragments* track = nullptr;
    quint32 defaultDuration = 0;
    return forEachAtom(source, traf.bodyOffset(), traf.end(), [&](const AtomHeader& atom) {
        Result<void> result;
        if (atom.type == TrackFragmentHeaderAtom::type) {
            TrackFragmentHeaderAtom header;
            result = take(source, atom, header);
            track = &_tracks[header.trackId];
            defaultDuration = header.sampleDuration.value_or(track->defaultDuration);
        } else if (atom.type == TrackFragmentDecodeTimeAtom::type && track) {
            TrackFragmentDecodeTimeAtom time;
            result = take(source, atom, time);
            track->end = time.baseMediaDecodeTime;
        } else if (atom.type == TrackRunAtom::type && track) {
            TrackRunAtom atomOfRun;
            result = take(source, atom, atomOfRun);
            track->sampleCount += atomOfRun.sampleCount;
            track->runs.push_back(runOf(atomOfRun, track->end, defaultDuration));
            for (const FragmentSamples& samples : track->runs.back().samples) {
                track->end += samples.count * samples.duration;
            }
        }
        return result;
    });
}

const TrackFragments* Fragments::find(quint32 trackId) const {
    const auto found = _tracks.find(trackId);
    return found == _tracks.end() ? nullptr : &found->second;
}

}  // namespace marquill
