#include "clipstore/ClipStoreMovies.h"

#include "clipstore/ClipStore.h"
#include "movie/MovieUpdate.h"
#include "movie/RecordingStart.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

namespace {

constexpr FourCharCode recordType("KVXN");
constexpr int recordIndex = 1;

namespace Status {
constexpr int movieCannotBeOpened = -2;
constexpr int noUserData = -3;
constexpr int noPropertyList = -4;
}  // namespace Status

void logFailure(Error error, const QString& path) {
    error.path = path;
    qCWarning(logClipStore).noquote() << error.description();
}

/// Truncated toward zero.
qint64 wholeSeconds(const Movie& movie) {
    constexpr double mostThatFits = 0x1p62;
    return static_cast<qint64>(std::min(movie.seconds(), mostThatFits));
}

}  // namespace

std::optional<ClipInfo> ClipStoreMovies::info(const QString& path) {
    const Result<Movie> movie = Movie::open(path);
    if (!movie || !movie->userData()) {
        return std::nullopt;
    }
    Result<ClipInfo> info = storedInfo(*movie);
    if (!info) {
        logFailure(info.error(), path);
        return std::nullopt;
    }
    info->setClipName(lastPathComponent(path));
    info->setClipDuration(wholeSeconds(*movie));
    return *std::move(info);
}

Result<ClipInfo> ClipStoreMovies::storedInfo(const Movie& movie) {
    const std::optional<QByteArray> bytes = movie.userData()->item(recordType, recordIndex);
    if (!bytes) {
        return ClipInfo();
    }
    const Result<Dictionary> record = readDictionary(*bytes);
    if (!record) {
        return std::unexpected(record.error());
    }
    return ClipInfo(*record);
}

std::expected<void, ClipStoreMovies::UpdateFailure> ClipStoreMovies::update(const ClipInfo& info,
                                                                            const QString& path) {
    const auto failed = [&path](int status, Error error) {
        error.path = path;
        return std::unexpected(UpdateFailure{status, std::move(error)});
    };
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return failed(Status::movieCannotBeOpened, movie.error());
    }
    if (!movie->userData()) {
        return failed(Status::noUserData,
                      Error{ErrorCode::unsupported,
                            QCoreApplication::translate("ClipStore",
                                                        "The movie has no user data to keep a record in.")});
    }
    const Result<QByteArray> bytes = writePropertyList(info.record());
    if (!bytes) {
        return failed(Status::noPropertyList, bytes.error());
    }
    if (const Result<void> written = setUserDataItem(*movie, recordType, recordIndex, *bytes); !written) {
        return failed(static_cast<int>(written.error().code), written.error());
    }
    return {};
}

ClipInfo ClipStore::newInfoForClip(const QString& name, const QString& folder) {
    ClipInfo info;
    info.setClipName(name);
    const std::optional<QString> path = clipPath(folder, name);
    if (!path) {
        return info;
    }
    if (const Result<Movie> movie = Movie::open(*path)) {
        info.setClipDuration(wholeSeconds(*movie));
    }
    return info;
}

Result<ClipInfo> ClipStore::proxyClipFromMovieURL(const QString& path) {
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return std::unexpected(movie.error());
    }
    const Result<FileAttributes> attributes = FileSystem::current().attributes(path, Links::keep);
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    const Date start = recordingStart(*attributes, movie->seconds());
    ClipInfo info;
    info.setClipCreationDate(start);
    info.setClipRecordingStartTime(start);
    info.setClipOldRecordingStartTime(start);
    info.setClipName(withoutPathExtension(lastPathComponent(path)) + u".xml"_s);
    info.setClipPath(path);
    info.setClipProxyType(u"clipTypeQT"_s);
    info.setClipDuration(wholeSeconds(*movie));
    info.setClipOldDuration(wholeSeconds(*movie));
    info.setClipMarkerArray(Array());
    return info;
}

}  // namespace marquill
