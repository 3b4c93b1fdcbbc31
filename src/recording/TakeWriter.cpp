#include "recording/TakeWriter.h"

#include "clipstore/ClipStore.h"
#include "clipstore/Utils.h"

#include <QCoreApplication>

#include <cmath>

namespace marquill::TakeWriter {

namespace {

// A name that other programs keep taking would be tried for ever.
constexpr int mostNamesTried = 1000;

// Creates the clip's file. Text that no file can hold costs its characters, not the take.
Result<void> createClip(ClipInfo& clip, const QString& folder) {
    Result<void> created = ClipStore::createProxyClip(clip, folder);
    if (created || created.error().code != ErrorCode::malformed) {
        return created;
    }
    clip = ClipInfo(Utils::writableCopy(clip.record()).dictionary().value_or(Dictionary()));
    return ClipStore::createProxyClip(clip, folder);
}

ClipInfo newClip(const QString& clipName, const TakeRecord& take) {
    ClipInfo clip = ClipStore::newInfoForProxyClip(clipName, take.folder);
    const auto duration = static_cast<qint64>(std::trunc(take.elapsed));
    clip.setClipCreationDate(take.start);
    clip.setClipRecordingStartTime(take.start);
    clip.setClipOldRecordingStartTime(take.start);
    clip.setClipScene(take.scene);
    clip.setClipDuration(duration);
    clip.setClipOldDuration(duration);
    clip.setClipMarkerArray(take.markers.copy());
    if (!take.comment.isEmpty()) {
        clip.setClipComment(take.comment);
    }
    return clip;
}

// Writes the take under the next free name of `name`. A name that another program takes at the same moment is
// left to it, and the next free one is taken.
Result<ClipInfo> writeAs(const QString& name, const TakeRecord& take) {
    for (int tries = 0; tries < mostNamesTried; ++tries) {
        const std::optional<NewClipName> base = ClipStore::getNewClipNameForFolder(take.folder, name);
        if (!base) {
            return failure(
                ErrorCode::notFound,
                QCoreApplication::translate("TakeWriter", "No file of that name can stand in the folder."),
                take.folder);
        }
        ClipInfo clip = newClip(base->name + u".xml"_s, take);
        const Result<void> written = createClip(clip, take.folder);
        if (written) {
            return clip;
        }
        if (written.error().code != ErrorCode::alreadyExists) {
            return std::unexpected(written.error());
        }
    }
    return failure(
        ErrorCode::alreadyExists,
        QCoreApplication::translate("TakeWriter", "Other programs keep taking the names of clips."),
        take.folder);
}

}  // namespace

Result<ClipInfo> write(const TakeRecord& take) {
    if (!take.name.isEmpty()) {
        if (Result<ClipInfo> clip = writeAs(take.name, take)) {
            return clip;
        }
    }
    return writeAs(untitled, take);
}

}  // namespace marquill::TakeWriter
