#include "movie/SampleTimes.h"

#include "movie/MediaSamples.h"
#include "movie/MovieReader.h"
#include "platform/Log.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace marquill {

namespace {

__extension__ using Wide = __int128;

constexpr qint64 endless = std::numeric_limits<qint64>::max();
constexpr qint32 normalRate = 0x10000;

/// `number` * `multiplier` / `divisor`, rounded up; what no movie can reach is as far as it can.
qint64 scaledUp(qint64 number, Wide multiplier, Wide divisor) {
    const Wide product = number * multiplier;
    const Wide quotient = product / divisor + (product % divisor > 0 ? 1 : 0);
    return static_cast<qint64>(std::clamp<Wide>(quotient, -endless, endless));
}

/// Where one track's samples begin in the movie, gathered edit by edit.
class TrackTimeLine {
  public:
    TrackTimeLine(const MediaSamples& samples, quint32 mediaScale, quint32 movieScale,
                  std::vector<qint64>& starts)
        : _samples(samples), _mediaScale(mediaScale), _movieScale(movieScale), _starts(starts) {}

    Result<void> add(const std::vector<EditListEntry>& edits) {
        qint64 movieTime = 0;
        for (const EditListEntry& edit : edits) {
            if (edit.mediaTime >= 0 && !addEdit(edit, movieTime)) {
                return failure(
                    ErrorCode::unsupported,
                    QCoreApplication::translate("SampleTimes", "The edit list shows too many samples."));
            }
            const auto duration = static_cast<qint64>(std::min<quint64>(edit.duration, endless));
            movieTime = duration > endless - movieTime ? endless : movieTime + duration;
        }
        return {};
    }

  private:
    bool addEdit(const EditListEntry& edit, qint64 movieTime);

    const MediaSamples& _samples;
    quint32 _mediaScale;
    quint32 _movieScale;
    std::vector<qint64>& _starts;
};

bool TrackTimeLine::addEdit(const EditListEntry& edit, qint64 movieTime) {
    if (edit.mediaTime >= _samples.end || _samples.starts.empty()) {
        return true;
    }
    // A rate of 0 holds one picture; of what runs backwards, the first counts.
    const bool holds = edit.rate <= 0;
    const qint64 rate = holds ? normalRate : edit.rate;
    const qint64 movieEnd = edit.duration == 0 || edit.duration > static_cast<quint64>(endless - movieTime)
                                ? endless
                                : movieTime + static_cast<qint64>(edit.duration);
    auto sample = std::ranges::upper_bound(_samples.starts, edit.mediaTime);
    if (sample != _samples.starts.begin()) {
        _starts.push_back(movieTime);
    }
    for (; !holds && sample != _samples.starts.end(); ++sample) {
        const qint64 sinceEdit =
            scaledUp(*sample - edit.mediaTime, Wide{_movieScale} * normalRate, Wide{_mediaScale} * rate);
        if (sinceEdit >= movieEnd - movieTime) {
            break;
        }
        if (_starts.size() == maximumSamples) {
            return false;
        }
        if (_starts.empty() || _starts.back() != movieTime + sinceEdit) {
            _starts.push_back(movieTime + sinceEdit);
        }
    }
    return true;
}

/// The whole media from the movie's beginning.
std::vector<EditListEntry> wholeMedia() {
    return {EditListEntry{}};
}

Result<std::vector<EditListEntry>> editsOf(ByteSource& source, const Track& track) {
    if (!track.editList) {
        return wholeMedia();
    }
    Result<EditListAtom> list = source.atom<EditListAtom>(*track.editList, track.editList->bodySize());
    if (!list) {
        return std::unexpected(std::move(list.error()));
    }
    return list->entries.empty() ? wholeMedia() : std::move(list->entries);
}

Result<void> addTrack(ByteSource& source, const Track& track, const TrackFragments* fragments,
                      quint32 movieScale, std::vector<qint64>& starts) {
    if (track.timeScale == 0 || movieScale == 0) {
        return failure(ErrorCode::malformed, QCoreApplication::translate(
                                                 "SampleTimes", "The movie or its video has no time scale."));
    }
    const Result<MediaSamples> samples = MediaSamples::load(source, track, fragments);
    if (!samples) {
        return std::unexpected(samples.error());
    }
    const Result<std::vector<EditListEntry>> edits = editsOf(source, track);
    if (!edits) {
        return std::unexpected(edits.error());
    }
    return TrackTimeLine(*samples, track.timeScale, movieScale, starts).add(*edits);
}

Result<std::vector<qint64>> loadStarts(const Movie& movie, OpenFile& file) {
    ByteSource fileSource(file, movie.identity().size);
    ByteSource inflated(movie.facts().inflatedHeader, movie.header().offset);
    ByteSource& source = movie.header().compressed ? inflated : fileSource;
    std::vector<qint64> starts;
    for (const Track* track : movie.visualTracks()) {
        const TrackFragments* fragments = movie.facts().fragments.find(track->id);
        if (Result<void> added = addTrack(source, *track, fragments, movie.timeScale(), starts); !added) {
            return std::unexpected(std::move(added.error()));
        }
    }
    std::ranges::sort(starts);
    const auto repeated = std::ranges::unique(starts);
    starts.erase(repeated.begin(), repeated.end());
    return starts;
}

Result<std::vector<qint64>> loadStarts(const Movie& movie) {
    const auto file = FileSystem::current().open(movie.path(), OpenMode::read);
    if (!file) {
        return std::unexpected(file.error());
    }
    const Result<FileAttributes> attributes = (*file)->attributes();
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    if (FileIdentity::of(*attributes) == movie.identity()) {
        return loadStarts(movie, **file);
    }
    const Result<Movie> fresh = Movie::open(movie.path());
    if (!fresh) {
        return std::unexpected(fresh.error());
    }
    return loadStarts(*fresh, **file);
}

}  // namespace

Result<SampleTimes> SampleTimes::load(const Movie& movie) {
    Result<std::vector<qint64>> starts = loadStarts(movie);
    if (!starts) {
        starts.error().path = movie.path();
        qCWarning(logMovie).noquote() << starts.error().description();
        return std::unexpected(std::move(starts.error()));
    }
    SampleTimes times;
    times._starts = *std::move(starts);
    return times;
}

qint64 SampleTimes::previousSampleTime(qint64 value) const {
    const auto next = std::ranges::lower_bound(_starts, value);
    return next == _starts.begin() ? -1 : *std::prev(next);
}

}  // namespace marquill
