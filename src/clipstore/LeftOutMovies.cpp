#include "clipstore/LeftOutMovies.h"

#include "clipstore/ClipStore.h"
#include "clipstore/ClipStoreMovies.h"
#include "movie/MovieUpdate.h"
#include "platform/Files.h"

#include <QCoreApplication>

namespace marquill {

QString LeftOutMovie::name() const {
    return lastPathComponent(path);
}

QStringList LeftOutMovies::moviesOfFolder(const QString& folder) {
    QStringList names = ClipStore::getClipsForFolder(folder);
    names.removeIf([](const QString& name) { return !name.endsWith(".mov"_L1); });
    return names;
}

std::optional<LeftOutMovie> LeftOutMovies::examine(const QString& path) {
    using Cause = LeftOutMovie::Cause;
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return LeftOutMovie{path, Cause::cannotBeOpened,
                            QCoreApplication::translate("LeftOutMovies", "It cannot be opened: %1")
                                .arg(movie.error().message)};
    }
    if (!movie->userData()) {
        return LeftOutMovie{path, Cause::noUserData,
                            QCoreApplication::translate("LeftOutMovies",
                                                        "It has no user data to keep the clip’s record in.")};
    }
    if (const Result<ClipInfo> record = ClipStoreMovies::storedInfo(*movie); !record) {
        return LeftOutMovie{path, Cause::recordCannotBeRead,
                            QCoreApplication::translate("LeftOutMovies", "Its record cannot be read: %1")
                                .arg(record.error().message)};
    }
    return std::nullopt;
}

std::vector<LeftOutMovie> LeftOutMovies::find(const QString& folder) {
    std::vector<LeftOutMovie> found;
    for (const QString& name : moviesOfFolder(folder)) {
        if (std::optional<LeftOutMovie> movie = examine(joinPath(folder, name))) {
            found.push_back(*std::move(movie));
        }
    }
    return found;
}

Result<void> LeftOutMovies::giveUserData(const QString& path) {
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return std::unexpected(movie.error());
    }
    return addUserData(*movie);
}

}  // namespace marquill
