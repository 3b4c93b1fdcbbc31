#include "clipmanager/MovieImport.h"

#include "clipstore/ClipStore.h"

namespace marquill {

Result<ClipInfo> MovieImport::importMovie(const QString& path, const QString& folder) {
    Result<ClipInfo> clip = ClipStore::proxyClipFromMovieURL(path);
    if (!clip) {
        return clip;
    }
    if (const Result<void> written = ClipStore::createProxyClip(*clip, folder); !written) {
        return std::unexpected(written.error());
    }
    return clip;
}

ImportedMovies MovieImport::importMovies(const QStringList& paths, const QString& folder) {
    ImportedMovies imported;
    for (const QString& path : paths) {
        if (Result<ClipInfo> clip = importMovie(path, folder)) {
            imported.clips.push_back(*std::move(clip));
        } else {
            imported.errors.push_back(std::move(clip.error()));
        }
    }
    return imported;
}

}  // namespace marquill
