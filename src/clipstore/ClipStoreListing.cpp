// What clips a folder holds.
#include "clipstore/ClipStore.h"
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

bool isClipName(const QString& name) {
    return (name.endsWith(".mov"_L1) || name.endsWith(".xml"_L1)) && !name.startsWith("tmp_"_L1);
}

/// Reads the clips of a folder, each into its own place, from any number of threads.
class FolderReading {
  public:
    FolderReading(const QString& folder, const QStringList& names)
        : _folder(folder), _names(names), _clips(static_cast<std::size_t>(names.size())) {}

    /// Takes clips until none is left.
    void run() {
        for (qsizetype start = take(); start < _names.size(); start = take()) {
            const qsizetype end = std::min(start + clipsAtATime, _names.size());
            for (qsizetype index = start; index < end; ++index) {
                _clips[static_cast<std::size_t>(index)] =
                    ClipStore::infoForClip(joinPath(_folder, _names.at(index)));
            }
        }
    }

    std::vector<ClipInfo> found() && {
        std::vector<ClipInfo> result;
        result.reserve(_clips.size());
        for (std::optional<ClipInfo>& clip : _clips) {
            if (clip) {
                result.push_back(*std::move(clip));
            }
        }
        return result;
    }

  private:
    qsizetype take() { return _next.fetch_add(clipsAtATime); }

    const QString& _folder;
    const QStringList& _names;
    std::vector<std::optional<ClipInfo>> _clips;
    std::atomic<qsizetype> _next = 0;
};

}  // namespace

QStringList ClipStore::getClipsForFolder(const QString& folder) {
    Result<QStringList> names = FileSystem::current().list(folder);
    if (!names) {
        qCWarning(logClipStore).noquote() << names.error().description();
        return {};
    }
    names->removeIf([](const QString& name) { return !isClipName(name); });
    return *std::move(names);
}

std::vector<ClipInfo> ClipStore::readClipInfoForFolder(const QString& folder) {
    return readClipInfos(folder, getClipsForFolder(folder));
}

std::vector<ClipInfo> ClipStore::readClipInfos(const QString& folder, const QStringList& names) {
    takeMemoryInLargeSteps();
    FolderReading reading(folder, names);
    const qsizetype useful = names.size() / clipsPerThread;
    const auto helpers = static_cast<int>(std::min<qsizetype>(useful, QThread::idealThreadCount()) - 1);
    if (helpers > 0) {
        QThreadPool pool;
        pool.setMaxThreadCount(helpers);
        for (int helper = 0; helper < helpers; ++helper) {
            pool.start([&reading] { reading.run(); });
        }
        reading.run();
        pool.waitForDone();
    } else {
        reading.run();
    }
    return std::move(reading).found();
}

std::optional<ClipInfo> ClipStore::findClipInfoInArray(std::span<const ClipInfo> clips,
                                                       const QString& clipName) {
    const auto found = std::ranges::find(clips, std::optional(clipName), &ClipInfo::clipName);
    return found != clips.end() ? std::optional(*found) : std::nullopt;
}

}  // namespace marquill
