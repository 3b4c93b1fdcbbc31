// Composes small movies for the tests out of the atoms themselves. Header only.
#pragma once

#include "movie/FragmentAtoms.h"
#include "movie/HeaderAtoms.h"
#include "movie/SampleTableAtoms.h"
#include "movie/UserData.h"

#include <QFile>

#include <zlib.h>

namespace marquill {

/// An atom of that type around `body`.
inline QByteArray atom(FourCharCode type, const QByteArray& body) {
    return atomHeaderBytes(type, static_cast<quint32>(8 + body.size())) + body;
}

/// The same with a 64-bit size.
inline QByteArray longAtom(FourCharCode type, const QByteArray& body) {
    AtomStream stream;
    RawAtom raw{.type = type, .body = body, .hasLongSize = true};
    stream.transfer(raw);
    return stream.written();
}

/// The atom with the size field 0, "to the end of the file".
inline QByteArray atomToEnd(FourCharCode type, const QByteArray& body) {
    return atomHeaderBytes(type, 0) + body;
}

template <class A>
QByteArray written(const A& value) {
    return writeAtom(value).value();
}

/// What a built movie's track is like. Every sample has four bytes.
struct TrackPlan {
    quint32 id = 1;
    FourCharCode handler{"vide"};
    FourCharCode codec{"jpeg"};
    quint32 timeScale = 600;
    std::vector<TimeToSampleEntry> times = {{.count = 10, .duration = 24}};
    std::vector<CompositionOffsetEntry> offsets = {};
    std::vector<EditListEntry> edits = {};
    QByteArray userData = {};  ///< of the track: a whole 'udta' atom
    quint32 flags = 15;
    Matrix matrix = {};
    quint16 width = 320;
    quint16 height = 240;
    AtomList extensions = {};
    bool compactSizes = false;
    quint8 version = 0;

    quint32 sampleCount() const {
        quint32 count = 0;
        for (const TimeToSampleEntry& entry : times) {
            count += entry.count;
        }
        return count;
    }
    quint64 duration() const {
        quint64 duration = 0;
        for (const TimeToSampleEntry& entry : times) {
            duration += quint64{entry.count} * entry.duration;
        }
        return duration;
    }
};

/// A movie that is built; `file()` is the whole of it.
struct MovieBuilder {
    quint32 timeScale = 600;
    quint64 duration = 240;
    quint8 version = 0;
    std::vector<TrackPlan> tracks = {TrackPlan{}};
    std::optional<QByteArray> userData = QByteArray();  ///< the body of the movie's 'udta'
    QByteArray moreHeader = {};                         ///< atoms behind the tracks in the header

    static QByteArray sampleTable(const TrackPlan& track, quint32 chunkOffset) {
        VisualSampleDescription visual;
        visual.width = track.width;
        visual.height = track.height;
        visual.extensions = track.extensions;
        AtomStream stream;
        visual.transfer(stream);
        SampleDescriptionEntry entry;
        entry.format = track.codec;
        entry.rest = stream.written();
        SampleDescriptionAtom descriptions;
        descriptions.entries = {entry};
        TimeToSampleAtom times;
        times.entries = track.times;
        QByteArray bytes = written(descriptions) + written(times);
        if (!track.offsets.empty()) {
            CompositionOffsetAtom offsets;
            offsets.entries = track.offsets;
            bytes += written(offsets);
        }
        const quint32 count = track.sampleCount();
        if (track.compactSizes) {
            CompactSampleSizeAtom sizes;
            sizes.fieldSize = 8;
            sizes.sampleCount = count;
            sizes.sizes = QByteArray(static_cast<qsizetype>(count), '\4');
            bytes += written(sizes);
        } else {
            SampleSizeAtom sizes;
            sizes.sampleSize = 4;
            sizes.sampleCount = count;
            bytes += written(sizes);
        }
        return bytes + atom("stsc", numbers({0, 1, 1, count, 1})) +
               atom("stco", numbers({0, 1, chunkOffset}));
    }

    static QByteArray numbers(std::initializer_list<quint32> values) {
        AtomStream stream;
        for (quint32 value : values) {
            stream.transfer(value);
        }
        return stream.written();
    }

    QByteArray trackAtom(const TrackPlan& track, quint32 chunkOffset) const {
        TrackHeaderAtom header;
        header.head = {.version = track.version, .flags = track.flags};
        header.trackId = track.id;
        header.duration = duration;
        header.matrix = track.matrix;
        header.width = quint32{track.width} << 16;
        header.height = quint32{track.height} << 16;
        MediaHeaderAtom media;
        media.head.version = track.version;
        media.timeScale = track.timeScale;
        media.duration = track.duration();
        HandlerAtom handler;
        handler.componentType = FourCharCode("mhlr");
        handler.handler = track.handler;
        HandlerAtom dataHandler;
        dataHandler.componentType = FourCharCode("dhlr");
        dataHandler.handler = FourCharCode("alis");
        QByteArray bytes = written(header);
        if (!track.edits.empty()) {
            EditListAtom edits;
            edits.head.version = track.version;
            edits.entries = track.edits;
            bytes += atom("edts", written(edits));
        }
        const QByteArray references = atom("dinf", atom("dref", numbers({0, 1, 12, 0x75726C20, 1})));
        const QByteArray vmhd = atom("vmhd", numbers({1, 0, 0}));
        bytes += atom("mdia", written(media) + written(handler) +
                                  atom("minf", vmhd + written(dataHandler) + references +
                                                   atom("stbl", sampleTable(track, chunkOffset))));
        return atom("trak", bytes + track.userData);
    }

    /// The body of 'moov' for media that begin at `mediaOffset` of the file.
    QByteArray headerBody(qint64 mediaOffset) const {
        MovieHeaderAtom header;
        header.head.version = version;
        header.timeScale = timeScale;
        header.duration = duration;
        header.nextTrackId = static_cast<quint32>(tracks.size() + 1);
        QByteArray bytes = written(header);
        qint64 offset = mediaOffset;
        for (const TrackPlan& track : tracks) {
            bytes += trackAtom(track, static_cast<quint32>(offset));
            offset += 4 * track.sampleCount();
        }
        if (userData) {
            bytes += atom(UserData::type, *userData);
        }
        return bytes + moreHeader;
    }

    QByteArray media() const {
        QByteArray bytes;
        for (const TrackPlan& track : tracks) {
            for (quint32 index = 0; index < track.sampleCount(); ++index) {
                bytes += numbers({0xABCD0000U + index});
            }
        }
        return bytes;
    }

    static QByteArray fileType() { return atom("ftyp", QByteArray("qt  \0\0\2\0qt  ", 12)); }

    /// 'ftyp', the header, `between`, 'mdat'.
    QByteArray headerFirst(const QByteArray& between = {}) const {
        const qint64 before = fileType().size() + 8 + headerBody(0).size() + between.size();
        return fileType() + atom("moov", headerBody(before + 8)) + between + atom("mdat", media());
    }

    /// 'ftyp', 'wide', 'mdat', `between`, the header.
    QByteArray headerLast(const QByteArray& between = {}) const {
        const QByteArray before = fileType() + atom("wide", {});
        return before + atom("mdat", media()) + between + atom("moov", headerBody(before.size() + 8));
    }

    /// 'ftyp', 'wide', 'mdat', the compressed header.
    QByteArray headerCompressed(FourCharCode algorithm = FourCharCode("zlib")) const {
        const QByteArray before = fileType() + atom("wide", {});
        return before + atom("mdat", media()) +
               atom("moov", compressed(atom("moov", headerBody(before.size() + 8)), algorithm));
    }

    /// The 'cmov' atom that holds `plain`.
    static QByteArray compressed(const QByteArray& plain, FourCharCode algorithm = FourCharCode("zlib")) {
        auto size = compressBound(static_cast<uLong>(plain.size()));
        CompressedMovieDataAtom data;
        data.inflatedSize = static_cast<quint32>(plain.size());
        data.data.resize(static_cast<qsizetype>(size));
        compress(reinterpret_cast<Bytef*>(data.data.data()), &size,
                 reinterpret_cast<const Bytef*>(plain.constData()), static_cast<uLong>(plain.size()));
        data.data.truncate(static_cast<qsizetype>(size));
        DataCompressionAtom how;
        how.algorithm = algorithm;
        return atom("cmov", written(how) + written(data));
    }
};

inline bool writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray readBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace marquill
