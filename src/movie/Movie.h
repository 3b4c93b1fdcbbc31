// A QuickTime or ISO (mp4) movie file, known by its header alone: nothing of the media is read, and sample
// tables only when they are asked for. What was read belongs to the Movie; the file is not held open. A value
// that shares what was read with its copies; one thread at a time.
#pragma once

#include "movie/Fragments.h"
#include "movie/HeaderAtoms.h"
#include "movie/SampleTableAtoms.h"
#include "movie/UserData.h"
#include "platform/FileSystem.h"

#include <memory>

namespace marquill {

class SampleTimes;

/// Tells whether a file is still what it was.
struct FileIdentity {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;  ///< bytes
    Date modificationDate;

    static FileIdentity of(const FileAttributes& attributes) {
        return {attributes.device, attributes.inode, attributes.size, attributes.modificationDate};
    }
    bool operator==(const FileIdentity&) const = default;
};

struct Track {
    quint32 id = 0;
    bool enabled = false;
    FourCharCode handler;     ///< 'vide', 'soun', 'tmcd', …
    quint32 timeScale = 0;    ///< of the media, units per second
    quint64 duration = 0;     ///< of the media, in its time scale; fragments included
    quint64 sampleCount = 0;  ///< fragments included
    FourCharCode codec;       ///< the format of the first sample description; zeros when there is none
    int width = 0;            ///< of the picture as it is stored, in pixels; 0 where nothing is shown
    int height = 0;
    double naturalWidth = 0;  ///< of the picture as it is meant to be shown, before it is turned
    double naturalHeight = 0;
    std::optional<CleanApertureAtom> cleanAperture;
    std::optional<PixelAspectRatioAtom> pixelAspectRatio;
    int rotation = 0;  ///< degrees clockwise, 0 to 359; the movie's own included

    // Where the tables stand that are only read when they are asked for: in the file, or in an inflated
    // header.
    std::optional<AtomHeader> editList;            ///< 'elst'
    std::optional<AtomHeader> timeToSample;        ///< 'stts'
    std::optional<AtomHeader> compositionOffsets;  ///< 'ctts'
};

/// Where the movie header stands in the file.
struct MovieHeaderPlace {
    qint64 offset = 0;  ///< of the atom 'moov', in bytes
    qint64 size = 0;    ///< with its own 8 or 16 bytes
    bool compressed = false;
    bool beforeMedia = false;  ///< no media data stand before it
};

/// What the header says; see Movie.
struct MovieFacts {
    QString path;
    FileIdentity identity;
    MovieHeaderPlace header;
    quint32 timeScale = 0;
    quint64 duration = 0;
    bool fragmented = false;
    bool referenceMovie = false;
    std::vector<Track> tracks;
    std::optional<UserData> userData;
    QByteArray inflatedHeader;  ///< of a compressed header, else empty
    Fragments fragments;        ///< of a fragmented movie, else empty
};

class Movie {
  public:
    /// Reads the header of the movie at `path`. Where an update was cut short and left two headers, the first
    /// counts. Errors: those of the file system; endsEarly when the file ends before its header does, or has
    /// none; malformed; unsupported for a header that is compressed in a foreign way. Parse errors carry the
    /// byte offset.
    static Result<Movie> open(const QString& path);

    const QString& path() const { return _facts->path; }
    const FileIdentity& identity() const { return _facts->identity; }
    const MovieHeaderPlace& header() const { return _facts->header; }
    /// Units per second; 0 when the movie says so, as a reference movie may.
    quint32 timeScale() const { return _facts->timeScale; }
    /// In the time scale, with all fragments.
    quint64 duration() const { return _facts->duration; }
    /// duration / timeScale; 0 for a movie without a time scale.
    double seconds() const;
    bool isFragmented() const { return _facts->fragmented; }
    /// Whether the file only names the movies that could be played, and has no media of its own.
    bool isReferenceMovie() const { return _facts->referenceMovie; }
    /// In the order of the header.
    const std::vector<Track>& tracks() const { return _facts->tracks; }
    /// The first track that shows pictures, or null: a video track, an enabled one before a disabled one;
    /// only in a movie without video another one that draws.
    const Track* visualTrack() const;
    /// The first track in the header's order that shows pictures, whatever its kind and be it disabled, or
    /// null.
    const Track* firstVisualTrack() const;
    /// All tracks that are shown together with visualTrack().
    std::vector<const Track*> visualTracks() const;
    /// The movie's list of user data; none when it has no such list.
    const std::optional<UserData>& userData() const { return _facts->userData; }
    /// When the samples of visualTracks() begin. Read from the file at the first call, from a fresh header if
    /// the file has changed since; kept from then on, as is a failure.
    const Result<SampleTimes>& sampleTimes() const;

    const MovieFacts& facts() const { return *_facts; }

  private:
    explicit Movie(std::shared_ptr<const MovieFacts> facts) : _facts(std::move(facts)) {}

    std::shared_ptr<const MovieFacts> _facts;
    mutable std::shared_ptr<const Result<SampleTimes>> _sampleTimes;
};

}  // namespace marquill
