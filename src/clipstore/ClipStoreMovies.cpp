#include "clipstore/ClipStoreMovies.h"

#include "clipstore/ClipStore.h"

namespace marquill {

namespace {

constexpr int movieCannotBeOpened = -2;

}  // namespace

std::optional<ClipInfo> ClipStoreMovies::info(const QString& path) {
    static_cast<void>(path);
    return std::nullopt;
}

int ClipStoreMovies::update(const ClipInfo& info, const QString& path) {
    static_cast<void>(info);
    static_cast<void>(path);
    return movieCannotBeOpened;
}

ClipInfo ClipStore::newInfoForClip(const QString& name, const QString& folder) {
    static_cast<void>(folder);
    ClipInfo info;
    info.setClipName(name);
    return info;
}

Result<ClipInfo> ClipStore::proxyClipFromMovieURL(const QString& path) {
    return failure(ErrorCode::unsupported, u"The file cannot be opened as a movie."_s, path);
}

}  // namespace marquill
