#include "clipstore/ClipStore.h"

#include "clipstore/ClipStoreMovies.h"
#include "platform/FileNames.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <functional>

namespace marquill {

namespace {

constexpr auto placeholderExtension = "xml"_L1;

namespace Status {
constexpr int done = 0;
constexpr int missingArgument = -1;
constexpr int movieCannotBeOpened = -2;
}  // namespace Status

ClipInfo infoForPlaceholder(const QString& path) {
    const Result<Dictionary> record = readDictionaryFile(path);
    if (!record) {
        qCWarning(logClipStore).noquote() << record.error().description();
        return {};
    }
    return ClipInfo(*record);
}

/// A folder that others can write may hold links that lead to any file of the user's.
bool isLinkOutOf(const QString& folder, const QString& path) {
    const Result<FileAttributes> attributes = FileSystem::current().attributes(path, Links::keep);
    return attributes && attributes->type == FileType::symbolicLink &&
           !QFileInfo(path).canonicalFilePath().startsWith(QFileInfo(folder).canonicalFilePath() + u'/');
}

Result<FileStamp> updatePlaceholder(const ClipInfo& info, const QString& path,
                                    const std::optional<FileStamp>& expected) {
    if (!fileExists(path)) {
        return failure(ErrorCode::notFound,
                       QCoreApplication::translate("ClipStore", "The clip's file is not there any more."),
                       path);
    }
    if (isLinkOutOf(parentFolder(path), path)) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("ClipStore",
                                                   "The clip's file is a link out of its folder, and what it "
                                                   "leads to is left as it is. Put the file itself into the "
                                                   "folder."),
                       path);
    }
    Result<QByteArray> bytes = writePropertyList(info.record());
    if (!bytes) {
        bytes.error().path = path;
        return std::unexpected(bytes.error());
    }
    return replaceFile(path, *bytes, expected);
}

Result<FileStamp> updateMovie(const ClipInfo& info, const QString& path,
                              const std::optional<FileStamp>& expected) {
    if (expected && fileStamp(path) != *expected) {
        return failure(ErrorCode::changedMeanwhile,
                       QCoreApplication::translate(
                           "ClipStore", "Another program has written the movie meanwhile. Try again."),
                       path);
    }
    if (const auto updated = ClipStoreMovies::update(info, path); !updated) {
        return std::unexpected(updated.error().error);
    }
    return fileStamp(path);
}

/// How many files may wait for the disk at a time: a file system commits what is synced together at once.
constexpr std::size_t mostWriters = 16;
/// Below this many files, starting threads costs more than they spare.
constexpr std::size_t filesPerWriter = 8;

bool haveDifferentNames(std::span<const ClipInfo> infos) {
    QSet<QString> names;
    for (const ClipInfo& info : infos) {
        names.insert(info.clipName().value_or(QString()));
    }
    return static_cast<std::size_t>(names.size()) == infos.size();
}

/// Calls `write` with each number below `count`, from several threads.
void writeSeveralAtATime(std::size_t count, const std::function<void(std::size_t)>& write) {
    std::atomic<std::size_t> next = 0;
    const auto writeRest = [&] {
        for (std::size_t index = next++; index < count; index = next++) {
            write(index);
        }
    };
    const std::size_t writers = std::min(count / filesPerWriter, mostWriters);
    QThreadPool helpers;
    helpers.setMaxThreadCount(static_cast<int>(std::max<std::size_t>(writers, 1)));
    for (std::size_t writer = 1; writer < writers; ++writer) {
        helpers.start(writeRest);
    }
    writeRest();
    helpers.waitForDone();
}

// Placeholders several at a time, since each file waits for its disk; of the same name the last one counts.
void writeAll(std::span<const ClipInfo> infos, const std::function<void(std::size_t)>& write) {
    const bool isParted = haveDifferentNames(infos);
    if (isParted) {
        writeSeveralAtATime(infos.size(), [&](std::size_t index) {
            if (ClipStore::isProxyClip(infos[index])) {
                write(index);
            }
        });
    }
    for (std::size_t index = 0; index < infos.size(); ++index) {
        if (!isParted || !ClipStore::isProxyClip(infos[index])) {
            write(index);
        }
    }
}

Error noClipNamed(const QString& name, const QString& folder) {
    return {ErrorCode::malformed,
            QCoreApplication::translate("ClipStore", "No clip is named “%1”.").arg(name), folder};
}

// The status stands beside the error, as the errors of a movie do not tell all of them apart.
std::expected<void, ClipStoreMovies::UpdateFailure> update(const ClipInfo& info, const QString& folder) {
    const QString name = info.clipName().value_or(QString());
    const bool isPlaceholder = ClipStore::isProxyClip(info);
    const std::optional<QString> path = ClipStore::clipPath(folder, name);
    if (!path) {
        return std::unexpected(ClipStoreMovies::UpdateFailure{
            isPlaceholder ? Status::done : Status::movieCannotBeOpened, noClipNamed(name, folder)});
    }
    if (!isPlaceholder) {
        return ClipStoreMovies::update(info, *path);
    }
    if (const Result<FileStamp> updated = updatePlaceholder(info, *path, {}); !updated) {
        return std::unexpected(ClipStoreMovies::UpdateFailure{Status::done, updated.error()});
    }
    return {};
}

}  // namespace

bool ClipStore::isProxyClip(const ClipInfo& info) {
    return pathExtension(info.clipName().value_or(QString())) == placeholderExtension;
}

std::optional<QString> ClipStore::clipPath(const QString& folder, const QString& clipName) {
    if (folder.isEmpty() || !isFileName(clipName)) {
        return std::nullopt;
    }
    return joinPath(folder, clipName);
}

std::optional<ClipInfo> ClipStore::infoForClip(const QString& path) {
    if (path.isEmpty()) {
        return std::nullopt;
    }
    if (pathExtension(path) == placeholderExtension) {
        return infoForPlaceholder(path);
    }
    return ClipStoreMovies::info(path);
}

int ClipStore::updateClipInfo(const std::optional<ClipInfo>& info, const QString& folder) {
    if (!info || folder.isEmpty()) {
        return Status::missingArgument;
    }
    const auto updated = update(*info, folder);
    if (updated) {
        return Status::done;
    }
    // A placeholder that is gone was deleted, which is nobody's failure here.
    if (updated.error().error.code != ErrorCode::notFound) {
        qCWarning(logClipStore).noquote() << updated.error().error.description();
    }
    return updated.error().status;
}

Result<void> ClipStore::writeClipInfo(const ClipInfo& info, const QString& folder) {
    if (const auto updated = update(info, folder); !updated) {
        return std::unexpected(updated.error().error);
    }
    return {};
}

std::vector<Result<void>> ClipStore::writeClipInfos(std::span<const ClipInfo> infos, const QString& folder) {
    std::vector<Result<void>> results(infos.size());
    writeAll(infos, [&](std::size_t index) { results[index] = writeClipInfo(infos[index], folder); });
    return results;
}

std::vector<Result<FileStamp>> ClipStore::writeClipInfos(std::span<const ClipInfo> infos,
                                                         const QString& folder,
                                                         std::span<const std::optional<FileStamp>> expected) {
    std::vector<Result<FileStamp>> results(infos.size());
    writeAll(infos, [&](std::size_t index) {
        const QString name = infos[index].clipName().value_or(QString());
        const std::optional<QString> path = clipPath(folder, name);
        if (!path) {
            results[index] = std::unexpected(noClipNamed(name, folder));
        } else {
            results[index] = isProxyClip(infos[index])
                                 ? updatePlaceholder(infos[index], *path, expected[index])
                                 : updateMovie(infos[index], *path, expected[index]);
        }
    });
    return results;
}

Result<void> ClipStore::createProxyClip(const ClipInfo& info, const QString& folder) {
    const std::optional<QString> path = clipPath(folder, info.clipName().value_or(QString()));
    if (!path || !isProxyClip(info)) {
        return failure(ErrorCode::malformed,
                       QCoreApplication::translate(
                           "ClipStore", "No place holder clip can have this name. Choose another one."),
                       joinPath(folder, info.clipName().value_or(QString())));
    }
    Result<QByteArray> bytes = writePropertyList(info.record());
    if (!bytes) {
        bytes.error().path = *path;
        return std::unexpected(bytes.error());
    }
    return writeNewFile(*path, *bytes);
}

ClipInfo ClipStore::newInfoForProxyClip(const QString& name, const QString& folder) {
    static_cast<void>(folder);
    ClipInfo info;
    info.setClipName(name);
    return info;
}

}  // namespace marquill
