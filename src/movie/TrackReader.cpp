#include "movie/TrackReader.h"

#include <algorithm>
#include <array>

namespace marquill {

namespace {

class TrackReader {
  public:
    TrackReader(ByteSource& source, Track& track) : _source(source), _track(track) {}

    Result<void> read(const AtomHeader& trak);

  private:
    Result<void> visit(FourCharCode parent, const AtomHeader& atom);
    Result<void> readChildren(const AtomHeader& atom);
    Result<void> readTrackHeader(const AtomHeader& atom);
    Result<void> readMediaHeader(const AtomHeader& atom);
    Result<void> readHandler(const AtomHeader& atom);
    Result<void> readSampleDescription();
    Result<void> readVisualDescription(qint64 offset, qint64 size);
    void takeVisualDescription(const VisualSampleDescription& description, qint64 offset);
    template <class A>
    Result<void> readSampleCount(const AtomHeader& atom);
    Result<void> countSamplesByTime();
    template <class A>
    static std::optional<A> extension(const VisualSampleDescription& description, qint64 offset);

    ByteSource& _source;
    Track& _track;
    std::optional<AtomHeader> _description;
    bool _hasSampleCount = false;
};

/// Containers on the way from a track to its tables; none holds itself.
bool isContainer(FourCharCode parent, FourCharCode type) {
    constexpr std::array pairs = {std::pair(FourCharCode("trak"), FourCharCode("edts")),
                                  std::pair(FourCharCode("trak"), FourCharCode("mdia")),
                                  std::pair(FourCharCode("mdia"), FourCharCode("minf")),
                                  std::pair(FourCharCode("minf"), FourCharCode("stbl"))};
    return std::ranges::find(pairs, std::pair(parent, type)) != pairs.end();
}

bool hasPictures(FourCharCode handler) {
    constexpr std::array handlers = {FourCharCode("vide"), FourCharCode("MPEG"), FourCharCode("pict"),
                                     FourCharCode("auxv")};
    return std::ranges::find(handlers, handler) != handlers.end();
}

double fromFixed(quint32 value) {
    return value / 65536.0;
}

Result<void> TrackReader::read(const AtomHeader& trak) {
    if (Result<void> children = readChildren(trak); !children) {
        return children;
    }
    if (!_hasSampleCount && _track.timeToSample) {
        if (Result<void> counted = countSamplesByTime(); !counted) {
            return counted;
        }
    }
    return _description ? readSampleDescription() : Result<void>();
}

Result<void> TrackReader::readChildren(const AtomHeader& atom) {
    return forEachAtom(_source, atom.bodyOffset(), atom.end(),
                       [&](const AtomHeader& child) { return visit(atom.type, child); });
}

Result<void> TrackReader::visit(FourCharCode parent, const AtomHeader& atom) {
    if (isContainer(parent, atom.type)) {
        return readChildren(atom);
    }
    if (atom.type == TrackHeaderAtom::type) {
        return readTrackHeader(atom);
    }
    if (atom.type == MediaHeaderAtom::type) {
        return readMediaHeader(atom);
    }
    // The media information has a handler too, which handles the data and not the media.
    if (atom.type == HandlerAtom::type && parent == FourCharCode("mdia")) {
        return readHandler(atom);
    }
    if (atom.type == SampleSizeAtom::type) {
        return readSampleCount<SampleSizeAtom>(atom);
    }
    if (atom.type == CompactSampleSizeAtom::type) {
        return readSampleCount<CompactSampleSizeAtom>(atom);
    }
    const auto keepPlace = [&](FourCharCode type, std::optional<AtomHeader>& place) {
        if (atom.type == type && !place) {
            place = atom;
        }
    };
    keepPlace(SampleDescriptionAtom::type, _description);
    keepPlace(EditListAtom::type, _track.editList);
    keepPlace(TimeToSampleAtom::type, _track.timeToSample);
    keepPlace(CompositionOffsetAtom::type, _track.compositionOffsets);
    return {};
}

Result<void> TrackReader::readTrackHeader(const AtomHeader& atom) {
    const auto header = _source.atom<TrackHeaderAtom>(atom, maximumPlainAtom);
    if (!header) {
        return std::unexpected(header.error());
    }
    _track.id = header->trackId;
    _track.enabled = header->head.flags & TrackHeaderAtom::enabledFlag;
    _track.naturalWidth = fromFixed(header->width);
    _track.naturalHeight = fromFixed(header->height);
    _track.rotation = header->matrix.rotation();
    return {};
}

Result<void> TrackReader::readMediaHeader(const AtomHeader& atom) {
    const auto header = _source.atom<MediaHeaderAtom>(atom, maximumPlainAtom);
    if (!header) {
        return std::unexpected(header.error());
    }
    _track.timeScale = header->timeScale;
    _track.duration = header->duration;
    return {};
}

Result<void> TrackReader::readHandler(const AtomHeader& atom) {
    const auto handler = _source.atom<HandlerAtom>(atom, maximumPlainAtom);
    if (!handler) {
        return std::unexpected(handler.error());
    }
    _track.handler = handler->handler;
    return {};
}

template <class A>
Result<void> TrackReader::readSampleCount(const AtomHeader& atom) {
    const Result<QByteArrayView> body =
        _source.exactly(atom.bodyOffset(), std::min<qint64>(atom.bodySize(), 12));
    if (!body) {
        return std::unexpected(body.error());
    }
    A sizes;
    AtomStream stream(*body, _source.fileOffset(atom.bodyOffset()));
    sizes.transferCount(stream);
    _track.sampleCount = sizes.sampleCount;
    _hasSampleCount = true;
    return stream.result();
}

Result<void> TrackReader::countSamplesByTime() {
    const auto times = _source.atom<TimeToSampleAtom>(*_track.timeToSample, _track.timeToSample->bodySize());
    if (!times) {
        return std::unexpected(times.error());
    }
    for (const TimeToSampleEntry& entry : times->entries) {
        _track.sampleCount += entry.count;
    }
    return {};
}

Result<void> TrackReader::readSampleDescription() {
    const qint64 offset = _description->bodyOffset();
    const Result<QByteArrayView> head =
        _source.exactly(offset, std::min<qint64>(_description->bodySize(), 16));
    if (!head) {
        return std::unexpected(head.error());
    }
    AtomStream stream(*head, _source.fileOffset(offset));
    VersionAndFlags version;
    quint32 count = 0;
    quint32 size = 0;
    stream.transfer(version);
    stream.transfer(count);
    if (stream.hasFailed() || count == 0) {
        return stream.result();
    }
    stream.transfer(size);
    stream.transfer(_track.codec);
    if (const Result<void> result = stream.result(); !result || !hasPictures(_track.handler)) {
        return result;
    }
    return readVisualDescription(offset + 8, std::min<qint64>(size, _description->end() - offset - 8));
}

Result<void> TrackReader::readVisualDescription(qint64 offset, qint64 size) {
    if (size > maximumPlainAtom) {
        return {};
    }
    const Result<QByteArrayView> bytes = _source.exactly(offset, size);
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    SampleDescriptionEntry entry;
    AtomStream entryStream(*bytes, _source.fileOffset(offset));
    entryStream.transfer(entry);
    VisualSampleDescription description;
    AtomStream stream(entry.rest, _source.fileOffset(offset + 16));
    stream.transfer(description);
    if (entryStream.hasFailed() || stream.hasFailed()) {
        return entryStream.hasFailed() ? entryStream.result() : stream.result();
    }
    takeVisualDescription(description, _source.fileOffset(offset));
    return {};
}

void TrackReader::takeVisualDescription(const VisualSampleDescription& description, qint64 offset) {
    _track.width = description.width;
    _track.height = description.height;
    _track.cleanAperture = extension<CleanApertureAtom>(description, offset);
    _track.pixelAspectRatio = extension<PixelAspectRatioAtom>(description, offset);
    if (_track.naturalWidth == 0 || _track.naturalHeight == 0) {
        _track.naturalWidth = description.width;
        _track.naturalHeight = description.height;
    }
}

/// A faulty extension counts as none: the picture can be shown without it.
template <class A>
std::optional<A> TrackReader::extension(const VisualSampleDescription& description, qint64 offset) {
    const RawAtom* raw = description.extensions.find(A::type);
    if (!raw) {
        return std::nullopt;
    }
    const Result<A> atom = readAtomBody<A>(raw->body, offset);
    return atom ? std::optional(*atom) : std::nullopt;
}

}  // namespace

Result<Track> readTrack(ByteSource& source, const AtomHeader& trak) {
    Track track;
    if (const Result<void> result = TrackReader(source, track).read(trak); !result) {
        return std::unexpected(result.error());
    }
    return track;
}

}  // namespace marquill
