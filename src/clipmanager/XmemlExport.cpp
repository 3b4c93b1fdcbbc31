#include "clipmanager/XmemlExport.h"

#include "clipstore/ClipStore.h"
#include "markers/MarkerSetStore.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/XmlWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

#include <algorithm>
#include <array>

namespace marquill::XmemlExport {

namespace {

constexpr FourCharCode avc1("avc1");
constexpr std::array dvOfNtsc = {FourCharCode("dvc "), FourCharCode("dv1n"), FourCharCode("dv5n")};
constexpr std::array dvOfPal = {FourCharCode("dvcp"), FourCharCode("dv1p"), FourCharCode("dv5p"),
                                FourCharCode("dvpp")};
constexpr std::array anamorphic = {FourCharCode("dvh5"), FourCharCode("dvh6"), FourCharCode("dvhp"),
                                   FourCharCode("dv1n"), FourCharCode("dv1p")};

constexpr FrameRate ntsc30{.ntsc = true, .timebase = 30, .factor = 29.97};
constexpr FrameRate pal25{.ntsc = false, .timebase = 25, .factor = 25.0};
constexpr FrameRate film24{.ntsc = true, .timebase = 24, .factor = 23.98};

constexpr qint64 highestRating = 5;

constexpr QByteArrayView documentStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmeml version=\"1\">\n";

/// Type and creator of the file as its first eight bytes of Finder information.
const QByteArray finderInfoName = "user.com.apple.FinderInfo"_ba;
const QByteArray finderInfo = "XML KeyG"_ba.leftJustified(32, '\0');

bool contains(const auto& codes, FourCharCode code) {
    return std::ranges::find(codes, code) != codes.end();
}

const char* trueOrFalse(bool value) {
    return value ? "TRUE" : "FALSE";
}

qint64 frameAt(double seconds, double frameRate) {
    return truncated<int>(seconds * frameRate);
}

/// Where the clip's media stand; none for a placeholder that is not connected, and for what has no name.
std::optional<QString> mediaPath(const ClipInfo& clip, const QString& folder) {
    return ClipStore::isProxyClip(clip) ? clip.clipPath()
                                        : ClipStore::clipPath(folder, clip.clipName().value_or(QString()));
}

/// "file:///…". Only what every reader takes for itself stands unescaped.
QString fileUrl(const QString& path) {
    const QString absolute = path.startsWith(u'/') ? path : QDir::cleanPath(QDir::current().filePath(path));
    return u"file://"_s + QString::fromLatin1(QUrl::toPercentEncoding(absolute, "/!$&'()*+,:=@"));
}

std::vector<Marker> markersOf(const ClipInfo& clip) {
    std::vector<Marker> markers;
    for (const Value& value : clip.clipMarkerArray().value_or(Array()).values()) {
        if (std::optional<Dictionary> record = value.dictionary()) {
            markers.emplace_back(*std::move(record));
        }
    }
    return markers;
}

void writeRate(XmlWriter& xml, const FrameRate& rate) {
    xml.open("rate");
    xml.element("ntsc", QLatin1StringView(trueOrFalse(rate.ntsc)));
    xml.element("timebase", rate.timebase);
    xml.close();
}

void writeIfPresent(XmlWriter& xml, QByteArrayView name, const std::optional<QString>& text) {
    if (text) {
        xml.element(name, *text);
    }
}

void writeMarker(XmlWriter& xml, const Marker& marker, double frameRate) {
    const std::optional<double> in = marker.in();
    const std::optional<double> duration = marker.dur();
    xml.open("marker");
    writeIfPresent(xml, "name", marker.title());
    if (in) {
        xml.element("in", frameAt(*in, frameRate));
    }
    if (duration) {
        xml.element("out", frameAt(in.value_or(0.0) + *duration, frameRate));
    }
    writeIfPresent(xml, "comment", marker.comment());
    xml.close();
}

void writePoint(XmlWriter& xml, QByteArrayView name, const std::optional<Marker>& marker, double frameRate) {
    if (marker) {
        xml.element(name, frameAt(marker->in().value_or(0.0), frameRate));
    }
}

/// The markers in their order, and behind them the in and out points: those that bear the tags.
void writeMarkers(XmlWriter& xml, const ClipInfo& clip, double frameRate) {
    std::optional<Marker> in;
    std::optional<Marker> out;
    for (const Marker& marker : markersOf(clip)) {
        if (MarkerSetStore::markerTag(marker, markerTagIn)) {
            in = marker;
        } else if (MarkerSetStore::markerTag(marker, markerTagOut)) {
            out = marker;
        } else {
            writeMarker(xml, marker, frameRate);
        }
    }
    writePoint(xml, "in", in, frameRate);
    writePoint(xml, "out", out, frameRate);
}

/// The clip's rating as stars, a rating that there is no such number of as the take; none without a rating.
std::optional<QString> ratingNote(const ClipInfo& clip) {
    if (!clip.record().real(ClipKey::clipRating)) {
        return std::nullopt;
    }
    // A number that fits no integer is out of range like any other.
    const qint64 rating = clip.clipRating().value_or(-1);
    if (rating < 0 || rating > highestRating) {
        return ClipStore::takeFromClip(clip);
    }
    return QStringList(rating, u"*"_s).join(u' ');
}

void writeLoggingInfo(XmlWriter& xml, const ClipInfo& clip) {
    const QString take = ClipStore::takeFromClip(clip);
    xml.open("logginginfo");
    writeIfPresent(xml, "scene", clip.clipScene());
    writeIfPresent(xml, "shottake", take.isEmpty() ? std::nullopt : std::optional(take));
    writeIfPresent(xml, "lognote", ratingNote(clip));
    xml.close();
}

void writeLabels(XmlWriter& xml, const ClipInfo& clip, const QStringList& labels) {
    if (labels.isEmpty()) {
        return;
    }
    const std::optional<QString> label = clip.clipLabel();
    xml.open("labels");
    xml.element("label2", label && labels.contains(*label) ? *label : labels.first());
    xml.close();
}

void writeComments(XmlWriter& xml, const ClipInfo& clip) {
    xml.open("comments");
    writeIfPresent(xml, "mastercomment1", clip.clipComment());
    xml.close();
}

void writeFileReference(XmlWriter& xml, const QString& name, const QString& path) {
    xml.open("file");
    xml.element("name", name);
    xml.element("pathurl", fileUrl(path));
    xml.close();
}

QByteArray clipElement(const ClipInfo& clip, const Track& track, const QString& path,
                       const QStringList& labels) {
    const QString name = withoutPathExtension(clip.clipName().value_or(QString()));
    const FrameRate rate = frameRateOf(track.codec, track.timeScale);
    XmlWriter xml(1);
    xml.open("clip");
    xml.element("name", name);
    xml.element("duration", static_cast<qint64>(track.sampleCount));
    xml.element("anamorphic", QLatin1StringView(trueOrFalse(isAnamorphic(track.codec))));
    writeRate(xml, rate);
    writeMarkers(xml, clip, rate.factor);
    writeLoggingInfo(xml, clip);
    writeLabels(xml, clip, labels);
    writeComments(xml, clip);
    writeFileReference(xml, name, path);
    xml.close();
    return xml.xml();
}

/// Ends the root of `document`, which begins with documentStart.
void endDocument(QByteArray& document) {
    if (document.size() == documentStart.size()) {
        document.chop(2);
        document += "/>\n";
    } else {
        document += "</xmeml>\n";
    }
}

void writeFinderInfo(const QString& path) {
    const Result<void> written = FileSystem::current().setExtendedAttribute(path, finderInfoName, finderInfo);
    if (!written) {
        // The document is whole without it.
        qCDebug(logClipManager).noquote() << written.error().description();
    }
}

}  // namespace

FrameRate frameRateOf(FourCharCode codec, quint32 timeScale) {
    if (codec == avc1) {
        return timeScale == 25000 ? pal25 : timeScale == 24000 ? film24 : ntsc30;
    }
    if (contains(dvOfNtsc, codec)) {
        return ntsc30;
    }
    // A time scale of 24 frames counts for H.264 alone; editing programs take other codecs' for 30.
    return contains(dvOfPal, codec) || timeScale == 2500 || timeScale == 25000 ? pal25 : ntsc30;
}

bool isAnamorphic(FourCharCode codec) {
    return contains(anamorphic, codec);
}

QByteArray encodeMarker(const Marker& marker, double frameRate) {
    XmlWriter xml(2);
    writeMarker(xml, marker, frameRate);
    return xml.xml();
}

Result<QByteArray> encodeClip(const ClipInfo& clip, const QString& folder, const QStringList& labels) {
    const std::optional<QString> path = mediaPath(clip, folder);
    if (!path) {
        return failure(
            ErrorCode::notFound,
            QCoreApplication::translate("XmemlExport", "The clip is not connected to media. Connect it."),
            clip.clipName().value_or(QString()));
    }
    const Result<Movie> movie = Movie::open(*path);
    if (!movie) {
        return std::unexpected(movie.error());
    }
    // Editing programs count the frames of that one, also where another is shown.
    const Track* const track = movie->firstVisualTrack();
    if (!track) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("XmemlExport", "The movie has no pictures."), *path);
    }
    return clipElement(clip, *track, *path, labels);
}

Result<void> doExportAsXMLAtPath(const QString& path, std::span<const ClipInfo> clips, const QString& folder,
                                 const QStringList& labels, const ExportProgress& progress) {
    const auto count = static_cast<qsizetype>(clips.size());
    const auto encode = [&](qsizetype index) -> Result<QByteArray> {
        Result<QByteArray> element = encodeClip(clips[static_cast<std::size_t>(index)], folder, labels);
        if (!element) {
            qCDebug(logClipManager).noquote() << "not exported:" << element.error().description();
            return QByteArray();
        }
        return element;
    };
    Result<QByteArray> document = encodeClips(documentStart, count, encode, progress);
    if (!document) {
        return std::unexpected(std::move(document.error()));
    }
    endDocument(*document);
    if (Result<void> written = writeDocument(*document, path, count, progress); !written) {
        return written;
    }
    writeFinderInfo(path);
    return {};
}

}  // namespace marquill::XmemlExport
