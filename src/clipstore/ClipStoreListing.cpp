// What clips a folder holds.
#include "clipstore/ClipStore.h"
#include "clipstore/KnownClips.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/Memory.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace marquill {

namespace {

/// Below this many clips, starting threads costs more than they spare.
constexpr qsizetype clipsPerThread = 32;
/// How many clips a thread takes at a time: enough not to wait for the others, few enough that all end
/// together.
constexpr qsizetype clipsAtATime = 8;

/// Calls `read` with each number below `count`, once, from as many threads as are useful.
template <class Read>
void readInParallel(qsizetype count, Read read) {
    takeMemoryInLargeSteps();
    std::atomic<qsizetype> next = 0;
    const auto readRest = [&] {
        for (qsizetype start = next.fetch_add(clipsAtATime); start < count;
             start = next.fetch_add(clipsAtATime)) {
            const qsizetype end = std::min(start + clipsAtATime, count);
            for (qsizetype index = start; index < end; ++index) {
                read(index);
            }
        }
    };
    const qsizetype useful = count / clipsPerThread;
    const auto helpers = static_cast<int>(std::min<qsizetype>(useful, QThread::idealThreadCount()) - 1);
    if (helpers <= 0) {
        readRest();
        return;
    }
    QThreadPool pool;
    pool.setMaxThreadCount(helpers);
    for (int helper = 0; helper < helpers; ++helper) {
        pool.start(readRest);
    }
    readRest();
    pool.waitForDone();
}

/// A file that was copied, or renamed by a program that ended before it wrote the record, holds another name
/// than its own; what were written under that name would hit another clip.
void nameAsFile(std::optional<ClipInfo>& clip, const QString& name) {
    if (clip && clip->clipName().value_or(name) != name) {
        clip->setClipName(name);
    }
}

}  // namespace

bool ClipStore::isClipFileName(const QString& name) {
    return (name.endsWith(".mov"_L1) || name.endsWith(".xml"_L1)) && !name.startsWith("tmp_"_L1);
}

QStringList ClipStore::getClipsForFolder(const QString& folder) {
    Result<QStringList> names = FileSystem::current().list(folder);
    if (!names) {
        qCWarning(logClipStore).noquote() << names.error().description();
        return {};
    }
    names->removeIf([](const QString& name) { return !isClipFileName(name); });
    return *std::move(names);
}

std::vector<ClipInfo> ClipStore::readClipInfoForFolder(const QString& folder) {
    return readClipInfos(folder, getClipsForFolder(folder));
}

std::vector<ClipInfo> ClipStore::readClipInfos(const QString& folder, const QStringList& names) {
    std::vector<std::optional<ClipInfo>> clips(static_cast<std::size_t>(names.size()));
    readInParallel(names.size(), [&](qsizetype index) {
        std::optional<ClipInfo>& clip = clips[static_cast<std::size_t>(index)];
        clip = infoForClip(joinPath(folder, names.at(index)));
        nameAsFile(clip, names.at(index));
    });
    std::vector<ClipInfo> found;
    found.reserve(clips.size());
    for (std::optional<ClipInfo>& clip : clips) {
        if (clip) {
            found.push_back(*std::move(clip));
        }
    }
    return found;
}

std::vector<ClipFile> readClipFiles(const QString& folder, const QStringList& names) {
    std::vector<ClipFile> files(static_cast<std::size_t>(names.size()));
    readInParallel(names.size(), [&](qsizetype index) {
        ClipFile& file = files[static_cast<std::size_t>(index)];
        const QString path = joinPath(folder, names.at(index));
        file.name = names.at(index);
        file.stamp = fileStamp(path).value_or(FileStamp());
        file.clip = ClipStore::infoForClip(path);
        if (file.clip) {
            file.held = std::make_shared<const ClipPrint>(*file.clip);
        }
        nameAsFile(file.clip, file.name);
    });
    return files;
}

std::optional<ClipInfo> ClipStore::findClipInfoInArray(std::span<const ClipInfo> clips,
                                                       const QString& clipName) {
    const auto found = std::ranges::find(clips, std::optional(clipName), &ClipInfo::clipName);
    return found != clips.end() ? std::optional(*found) : std::nullopt;
}

}  // namespace marquill
