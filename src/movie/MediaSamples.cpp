#include "movie/MediaSamples.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

namespace {

std::unexpected<Error> tooManySamples() {
    return failure(
        ErrorCode::unsupported,
        QCoreApplication::translate("MediaSamples", "The movie has more samples than are handled (%1).")
            .arg(maximumSamples));
}

/// Decode times, to which presentation offsets are added one after the other.
class SampleCollector {
  public:
    bool add(quint64 count, quint64 duration) {
        if (count > maximumSamples - samples.starts.size()) {
            return false;
        }
        for (quint64 index = 0; index < count; ++index) {
            samples.starts.push_back(static_cast<qint64>(time));
            time += duration;
        }
        _lastDuration = duration;
        return true;
    }
    void shift(std::size_t first, std::size_t count, qint64 offset) {
        const std::size_t size = samples.starts.size();
        for (std::size_t index = first; index < size && index - first < count; ++index) {
            samples.starts[index] = static_cast<qint64>(static_cast<quint64>(samples.starts[index]) +
                                                        static_cast<quint64>(offset));
        }
    }
    MediaSamples finish() {
        std::ranges::sort(samples.starts);
        samples.end = samples.starts.empty() ? 0 : samples.starts.back() + static_cast<qint64>(_lastDuration);
        return std::move(samples);
    }

    MediaSamples samples;
    quint64 time = 0;  ///< the decode time of the next sample; wraps around like the file's numbers

  private:
    quint64 _lastDuration = 0;
};

Result<void> addTables(ByteSource& source, const Track& track, SampleCollector& collector) {
    if (!track.timeToSample) {
        return {};
    }
    const auto times = source.atom<TimeToSampleAtom>(*track.timeToSample, track.timeToSample->bodySize());
    if (!times) {
        return std::unexpected(times.error());
    }
    for (const TimeToSampleEntry& entry : times->entries) {
        if (!collector.add(entry.count, entry.duration)) {
            return tooManySamples();
        }
    }
    if (!track.compositionOffsets) {
        return {};
    }
    const auto offsets =
        source.atom<CompositionOffsetAtom>(*track.compositionOffsets, track.compositionOffsets->bodySize());
    if (!offsets) {
        return std::unexpected(offsets.error());
    }
    std::size_t first = 0;
    for (const CompositionOffsetEntry& entry : offsets->entries) {
        collector.shift(first, entry.count, entry.offset);
        first += entry.count;
    }
    return {};
}

Result<void> addFragments(const TrackFragments& fragments, SampleCollector& collector) {
    for (const TrackFragments::Run& run : fragments.runs) {
        collector.time = run.start;
        for (const FragmentSamples& samples : run.samples) {
            const std::size_t first = collector.samples.starts.size();
            if (!collector.add(samples.count, samples.duration)) {
                return tooManySamples();
            }
            collector.shift(first, samples.count, samples.offset);
        }
    }
    return {};
}

}  // namespace

Result<MediaSamples> MediaSamples::load(ByteSource& headerSource, const Track& track,
                                        const TrackFragments* fragments) {
    SampleCollector collector;
    Result<void> added = addTables(headerSource, track, collector);
    if (added && fragments) {
        added = addFragments(*fragments, collector);
    }
    if (!added) {
        return std::unexpected(added.error());
    }
    return collector.finish();
}

}  // namespace marquill
