#include "clipmanager/ClipMedia.h"

#include "clipstore/ClipStore.h"
#include "connect/ClipFileFacts.h"
#include "platform/Files.h"
#include "platform/Literals.h"

#include <QCoreApplication>

namespace marquill {

namespace {

void openMovie(ClipMedia& media, bool isPlaceholder) {
    if (media.path.isEmpty()) {
        media.message = isPlaceholder ? QCoreApplication::translate("ClipMedia", "Clip not connected")
                                      : QCoreApplication::translate("ClipMedia", "Clip not found");
        return;
    }
    if (isPlaceholder && !fileExists(media.path)) {
        media.message = QCoreApplication::translate("ClipMedia", "Clip not found");
        return;
    }
    const Result<Movie> movie = Movie::open(media.path);
    if (movie) {
        media.movie = *movie;
    } else {
        media.message = movie.error().message.isEmpty()
                            ? QCoreApplication::translate("ClipMedia", "Clip not found")
                            : movie.error().message;
    }
}

}  // namespace

ClipMedia readClipMedia(const ClipInfo& info, const QString& folder) {
    ClipInfo clip = info.deepCopy();
    ClipMedia media;
    media.path = mediaPathOfClip(clip, folder);
    openMovie(media, ClipStore::isProxyClip(clip));
    if (media.movie) {
        clip.setClipDuration(static_cast<qint64>(media.movie->seconds()));
        media.duration = clip.clipDuration();
    }
    media.attributes = ClipStore::attrForClipInfo(clip, folder);
    media.pathAttribute = ClipStore::pathAttrForClipInfo(clip, folder);
    return media;
}

void ClipMediaReader::start(const ClipInfo& clip, const QString& folder) {
    // A copy, as the record may be edited meanwhile.
    _work.start([this, clip = clip.deepCopy(), folder](const BackgroundWork::Post& post) {
        post([this, media = readClipMedia(clip, folder)] { Q_EMIT read(media); });
    });
}

}  // namespace marquill
