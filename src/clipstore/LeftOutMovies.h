// The movies of a record folder that are in no list of its clips, why, and what can be done about it. No
// state, any thread; one thread at a time per movie.
#pragma once

#include "platform/Error.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace marquill {

struct LeftOutMovie {
    enum class Cause { noUserData, cannotBeOpened, recordCannotBeRead };

    QString path;
    Cause cause = Cause::noUserData;
    QString reason;  ///< a sentence for the user

    /// File name with extension.
    QString name() const;
    /// Whether LeftOutMovies::giveUserData makes a clip of it.
    bool canBeListed() const { return cause == Cause::noUserData; }
    /// Whether ClipStore::proxyClipFromMovieURL makes a placeholder for it.
    bool canBeImported() const { return cause != Cause::cannotBeOpened; }

    bool operator==(const LeftOutMovie&) const = default;
};

class LeftOutMovies {
  public:
    /// The names of all movies of `folder` that could be clips, in the order the file system lists them.
    static QStringList moviesOfFolder(const QString& folder);
    /// Why the movie at `path` is left out; nothing when it is a clip.
    static std::optional<LeftOutMovie> examine(const QString& path);
    /// Those of moviesOfFolder that are left out, in that order. Opens every movie.
    static std::vector<LeftOutMovie> find(const QString& folder);

    /// Gives the movie at `path` an empty list of user data, so that it is a clip from then on. A movie that
    /// has one is left untouched. Errors: those of Movie::open and of addUserData.
    static Result<void> giveUserData(const QString& path);
};

}  // namespace marquill
