#include "connect/ClipConnection.h"

#include "movie/Movie.h"
#include "movie/RecordingStart.h"
#include "platform/Log.h"

#include <algorithm>

namespace marquill {

namespace {

/// Truncated toward zero.
qint64 wholeSeconds(double seconds) {
    constexpr double mostThatFits = 0x1p62;
    return static_cast<qint64>(std::min(seconds, mostThatFits));
}

std::optional<Date> startByFile(const Movie& movie) {
    const Result<FileAttributes> attributes = FileSystem::current().attributes(movie.path(), Links::follow);
    if (!attributes) {
        qCWarning(logConnect).noquote() << attributes.error().description();
        return std::nullopt;
    }
    return recordingStart(*attributes, movie.seconds());
}

std::optional<double> offsetBetween(const std::optional<Date>& from, Date to) {
    return from ? std::optional(secondsBetween(*from, to)) : std::nullopt;
}

}  // namespace

bool ClipConnection::doConnectToClip(ClipInfo& info, const QString& clipType, const QString& path,
                                     const std::optional<Date>& creationDate) {
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return false;
    }
    const std::optional<Date> start = creationDate ? creationDate : startByFile(*movie);
    if (!start) {
        return false;
    }
    const std::optional<double> offset = offsetBetween(info.clipRecordingStartTime(), *start);
    return info.setClipDuration(wholeSeconds(movie->seconds())) && info.setClipPath(path) &&
           info.setClipRecordingStartTime(start) && info.setClipMarkerOffset(offset) &&
           info.setClipProxyType(clipType);
}

void ClipConnection::takeConnection(const ClipInfo& from, ClipInfo& to) {
    to.setClipDuration(from.clipDuration());
    to.setClipPath(from.clipPath());
    to.setClipRecordingStartTime(from.clipRecordingStartTime());
    to.setClipMarkerOffset(from.clipMarkerOffset());
    to.setClipProxyType(from.clipProxyType());
}

bool ClipConnection::unConnectClip(ClipInfo& info) {
    if (!info.clipPath()) {
        return false;
    }
    if (const std::optional<qint64> duration = info.clipOldDuration()) {
        info.setClipDuration(duration);
    }
    if (const std::optional<Date> start = info.clipOldRecordingStartTime()) {
        info.setClipRecordingStartTime(start);
    }
    return info.setClipPath({}) && info.setClipFileSize({}) && info.setClipProxyType({}) &&
           info.setClipMarkerOffset({});
}

}  // namespace marquill
