#include "connect/ClipFileFacts.h"

#include "clipstore/ClipStore.h"
#include "platform/FileSystem.h"
#include "platform/ParallelWork.h"

namespace marquill {

namespace {

std::optional<FileAttributes> attributes(const QString& path) {
    if (path.isEmpty()) {
        return std::nullopt;
    }
    const Result<FileAttributes> found = FileSystem::current().attributes(path, Links::follow);
    return found ? std::optional(*found) : std::nullopt;
}

}  // namespace

ClipFiles filesOfClip(const ClipInfo& clip, const QString& folder) {
    ClipFiles files{.media = mediaPathOfClip(clip, folder), .clip = {}};
    if (!clip.clipCreationDate()) {
        files.clip = ClipStore::clipPath(folder, clip.clipName().value_or(QString())).value_or(QString());
    }
    return files;
}

ClipFileFacts askFiles(const ClipFiles& files) {
    ClipFileFacts facts;
    const std::optional<FileAttributes> media = attributes(files.media);
    if (media) {
        facts.mediaExist = true;
        facts.mediaSize = media->size;
    }
    const std::optional<FileAttributes> clip = files.clip == files.media ? media : attributes(files.clip);
    if (clip) {
        facts.creationDate = clip->creationDate();
    }
    return facts;
}

void completeRecord(ClipInfo& clip, const ClipFileFacts& facts) {
    if (!clip.clipCreationDate() && facts.creationDate) {
        clip.setClipCreationDate(facts.creationDate);
    }
    if (facts.mediaSize && clip.clipFileSize() != facts.mediaSize) {
        clip.setClipFileSize(facts.mediaSize);
    }
    if (const QString take = ClipStore::takeFromClip(clip); clip.clipTake() != take) {
        clip.setClipTake(take);
    }
}

bool completeRecords(std::span<ClipInfo> clips, const QString& folder, const Progress& progress) {
    const auto complete = [&](qsizetype index) {
        ClipInfo& clip = clips[static_cast<std::size_t>(index)];
        completeRecord(clip, askFiles(filesOfClip(clip, folder)));
    };
    return forEachInParallel(static_cast<qsizetype>(clips.size()), complete, progress);
}

QString mediaPathOfClip(const ClipInfo& clip, const QString& folder) {
    if (ClipStore::isProxyClip(clip)) {
        return clip.clipPath().value_or(QString());
    }
    return ClipStore::clipPath(folder, clip.clipName().value_or(QString())).value_or(QString());
}

}  // namespace marquill
