#include "movie/MovieReader.h"

#include "movie/CompressedHeader.h"
#include "movie/FragmentAtoms.h"
#include "movie/Fragments.h"
#include "movie/TrackReader.h"
#include "platform/Log.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

constexpr FourCharCode movieType("moov");
/// Small headers are fetched in one call; of larger ones mostly tables follow, which are not read.
constexpr qint64 smallHeader = 16384;
constexpr qint64 firstOfLargeHeader = 2048;
/// The largest list of user data that is read: 64 MiB.
constexpr qint64 maximumUserData = qint64{64} << 20;

class MovieReader {
  public:
    MovieReader(ByteSource& source, MovieFacts& facts) : _source(source), _facts(facts) {}

    Result<void> read();

  private:
    Result<AtomHeader> findHeader();
    Result<void> readHeader(ByteSource& source, const AtomHeader& moov);
    Result<void> readHeaderAtom(ByteSource& source, const AtomHeader& atom);
    Result<void> readMovieHeader(ByteSource& source, const AtomHeader& atom);
    Result<void> readCompressedHeader(ByteSource& source, const AtomHeader& cmov);
    Result<void> readUserData(ByteSource& source, const AtomHeader& atom);
    Result<void> readTrackAtom(ByteSource& source, const AtomHeader& atom);
    Result<void> readMovieExtends(ByteSource& source, const AtomHeader& mvex);
    Result<void> readFragments(ByteSource& headerSource, const AtomHeader& moov);
    void addFragments(ByteSource& headerSource);
    quint64 shownDuration(ByteSource& headerSource, const Track& track) const;

    ByteSource& _source;
    MovieFacts& _facts;
    bool _hasMovieHeader = false;
    bool _isCompressed = false;
    quint64 _extendedDuration = 0;
    int _movieRotation = 0;
};

Result<void> MovieReader::read() {
    const Result<AtomHeader> moov = findHeader();
    if (!moov) {
        return std::unexpected(moov.error());
    }
    const qint64 fetched = std::min(moov->size, moov->size <= smallHeader ? smallHeader : firstOfLargeHeader);
    if (const Result<QByteArrayView> bytes = _source.upTo(moov->offset, fetched); !bytes) {
        return std::unexpected(bytes.error());
    }
    if (Result<void> header = readHeader(_source, *moov); !header) {
        return header;
    }
    if (!_hasMovieHeader && !_facts.referenceMovie) {
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate("Movie", "The movie header says neither duration nor time scale."),
            {}, moov->offset);
    }
    for (Track& track : _facts.tracks) {
        track.rotation = (track.rotation + _movieRotation) % 360;
    }
    if (!_facts.fragmented) {
        return {};
    }
    if (_isCompressed) {
        ByteSource inflated(_facts.inflatedHeader, moov->offset);
        return readFragments(inflated, *moov);
    }
    return readFragments(_source, *moov);
}

Result<AtomHeader> MovieReader::findHeader() {
    std::optional<AtomHeader> moov;
    bool mediaSeen = false;
    const Result<void> searched =
        forEachTopLevelAtom(_source, 0, [&](const AtomHeader& atom) -> Result<bool> {
            mediaSeen = mediaSeen || atom.type == FourCharCode("mdat");
            if (atom.type == movieType) {
                moov = atom;
            } else if (atom.size > _source.size() - atom.offset) {
                return failure(
                    ErrorCode::endsEarly,
                    QCoreApplication::translate(
                        "Movie", "The file ends within an atom of type '%1', before the movie header.")
                        .arg(atom.type.text()),
                    {}, atom.offset);
            }
            return !moov;
        });
    if (!searched) {
        return std::unexpected(searched.error());
    }
    if (!moov) {
        return failure(ErrorCode::endsEarly,
                       QCoreApplication::translate("Movie", "The file has no movie header ('moov')."), {},
                       _source.size());
    }
    if (moov->size > _source.size() - moov->offset) {
        return failure(ErrorCode::endsEarly,
                       QCoreApplication::translate("Movie", "The file ends within the movie header."), {},
                       moov->offset);
    }
    _facts.header = {
        .offset = moov->offset, .size = moov->size, .compressed = false, .beforeMedia = !mediaSeen};
    return *moov;
}

Result<void> MovieReader::readHeader(ByteSource& source, const AtomHeader& moov) {
    return forEachAtom(source, moov.bodyOffset(), moov.end(),
                       [&](const AtomHeader& atom) { return readHeaderAtom(source, atom); });
}

Result<void> MovieReader::readHeaderAtom(ByteSource& source, const AtomHeader& atom) {
    if (atom.type == MovieHeaderAtom::type) {
        return readMovieHeader(source, atom);
    }
    if (atom.type == FourCharCode("trak")) {
        return readTrackAtom(source, atom);
    }
    if (atom.type == UserData::type && !_facts.userData) {
        return readUserData(source, atom);
    }
    if (atom.type == FourCharCode("mvex")) {
        _facts.fragmented = true;
        return readMovieExtends(source, atom);
    }
    if (atom.type == FourCharCode("cmov") && !_isCompressed) {
        return readCompressedHeader(source, atom);
    }
    _facts.referenceMovie = _facts.referenceMovie || atom.type == FourCharCode("rmra");
    return {};
}

Result<void> MovieReader::readMovieHeader(ByteSource& source, const AtomHeader& atom) {
    const auto header = source.atom<MovieHeaderAtom>(atom, maximumPlainAtom);
    if (!header) {
        return std::unexpected(header.error());
    }
    _hasMovieHeader = true;
    _facts.timeScale = header->timeScale;
    _facts.duration = header->isDurationKnown() ? header->duration : 0;
    _movieRotation = header->matrix.rotation();
    return {};
}

Result<void> MovieReader::readCompressedHeader(ByteSource& source, const AtomHeader& cmov) {
    _isCompressed = true;
    _facts.header.compressed = true;
    Result<QByteArray> plain = inflateHeader(source, cmov);
    if (!plain) {
        return std::unexpected(plain.error());
    }
    _facts.inflatedHeader = *plain;
    ByteSource inflated(*std::move(plain), cmov.offset);
    const Result<AtomHeader> moov = inflated.atomHeader(0, inflated.size());
    if (!moov) {
        return std::unexpected(moov.error());
    }
    if (moov->type != movieType || moov->size > inflated.size()) {
        return failure(ErrorCode::malformed,
                       QCoreApplication::translate("Movie", "The compressed header holds no movie header."),
                       {}, cmov.offset);
    }
    return readHeader(inflated, *moov);
}

Result<void> MovieReader::readUserData(ByteSource& source, const AtomHeader& atom) {
    if (atom.bodySize() > maximumUserData) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("Movie", "The movie's user data are too large (%1 bytes).")
                           .arg(atom.bodySize()),
                       {}, source.fileOffset(atom.offset));
    }
    Result<UserData> userData = source.atom<UserData>(atom, atom.bodySize());
    if (!userData) {
        return std::unexpected(userData.error());
    }
    _facts.userData = *std::move(userData);
    return {};
}

Result<void> MovieReader::readTrackAtom(ByteSource& source, const AtomHeader& atom) {
    Result<Track> track = readTrack(source, atom);
    if (!track) {
        return std::unexpected(track.error());
    }
    _facts.tracks.push_back(*std::move(track));
    return {};
}

Result<void> MovieReader::readMovieExtends(ByteSource& source, const AtomHeader& mvex) {
    return forEachAtom(source, mvex.bodyOffset(), mvex.end(), [&](const AtomHeader& atom) -> Result<void> {
        if (atom.type == MovieExtendsHeaderAtom::type) {
            const auto header = source.atom<MovieExtendsHeaderAtom>(atom, maximumPlainAtom);
            if (!header) {
                return std::unexpected(header.error());
            }
            _extendedDuration = header->duration;
        } else if (atom.type == TrackExtendsAtom::type) {
            const auto defaults = source.atom<TrackExtendsAtom>(atom, maximumPlainAtom);
            if (!defaults) {
                return std::unexpected(defaults.error());
            }
            _facts.fragments.setDefaults(defaults->trackId, defaults->sampleDuration);
        }
        return {};
    });
}

/// A recording that was cut off ends within a fragment; it counts as far as it goes.
Result<void> MovieReader::readFragments(ByteSource& headerSource, const AtomHeader& moov) {
    for (const Track& track : _facts.tracks) {
        _facts.fragments.setStart(track.id, track.duration);
    }
    const Result<void> result =
        forEachTopLevelAtom(_source, moov.end(), [&](const AtomHeader& atom) -> Result<bool> {
            const bool isWhole = atom.size <= _source.size() - atom.offset;
            if (atom.type != FourCharCode("moof") || !isWhole) {
                return isWhole;
            }
            if (const Result<void> added = _facts.fragments.add(_source, atom); !added) {
                return std::unexpected(added.error());
            }
            return true;
        });
    if (!result && result.error().code == ErrorCode::inputOutput) {
        return result;
    }
    if (!result) {
        qCInfo(logMovie).noquote() << _facts.path + u": the rest of the fragments is left out: "_s +
                                          result.error().description();
    }
    addFragments(headerSource);
    return {};
}

void MovieReader::addFragments(ByteSource& headerSource) {
    quint64 duration = _extendedDuration;
    for (Track& track : _facts.tracks) {
        const TrackFragments* added = _facts.fragments.find(track.id);
        if (!added || added->sampleCount == 0) {
            continue;
        }
        track.sampleCount += added->sampleCount;
        track.duration = std::max(track.duration, added->end);
        if (_extendedDuration == 0) {
            duration = std::max(duration, shownDuration(headerSource, track));
        }
    }
    _facts.duration = std::max(_facts.duration, duration);
}

/// How long a fragmented track is shown, in the movie's time scale: from where its edit list begins the
/// media.
quint64 MovieReader::shownDuration(ByteSource& headerSource, const Track& track) const {
    qint64 begin = 0;
    quint64 wait = 0;
    if (track.editList) {
        const auto edits = headerSource.atom<EditListAtom>(*track.editList, maximumPlainAtom);
        for (const EditListEntry& edit : edits ? edits->entries : std::vector<EditListEntry>()) {
            wait += edit.mediaTime < 0 ? edit.duration : 0;
            begin = std::max(begin, edit.mediaTime);
        }
    }
    if (track.timeScale == 0 || track.duration <= static_cast<quint64>(begin)) {
        return wait;
    }
    const double seconds =
        static_cast<double>(track.duration - static_cast<quint64>(begin)) / track.timeScale;
    return wait + static_cast<quint64>(std::llround(std::min(seconds * _facts.timeScale, 1e18)));
}

}  // namespace

Result<MovieFacts> readMovieFacts(OpenFile& file, const QString& path) {
    const auto fail = [&](Error error) {
        error.path = path;
        return std::unexpected(std::move(error));
    };
    const Result<FileAttributes> attributes = file.attributesAtOpening();
    if (!attributes) {
        return fail(attributes.error());
    }
    MovieFacts facts;
    facts.tracks.reserve(4);
    facts.path = path;
    facts.identity = FileIdentity::of(*attributes);
    ByteSource source(file, attributes->size);
    if (const Result<void> result = MovieReader(source, facts).read(); !result) {
        return fail(result.error());
    }
    return facts;
}

Result<MovieFacts> readMovieFacts(const QString& path) {
    const auto file = FileSystem::current().open(path, OpenMode::read);
    if (!file) {
        return std::unexpected(file.error());
    }
    return readMovieFacts(**file, path);
}

}  // namespace marquill
