#include "connect/ClipFolderReader.h"

#include "clipstore/ClipStore.h"

#include <algorithm>

namespace marquill {

namespace {

// The first part is what fits on a screen, so that it is there at once; the others spare the table work.
constexpr qsizetype firstPart = 128;
constexpr qsizetype otherParts = 2048;

// Files without a record are left out.
std::vector<ClipInfo> clipsOf(const std::vector<ClipFile>& files) {
    std::vector<ClipInfo> clips;
    clips.reserve(files.size());
    for (const ClipFile& file : files) {
        if (file.clip) {
            clips.push_back(*file.clip);
        }
    }
    return clips;
}

std::vector<ClipFileFacts> factsOf(const std::vector<ClipInfo>& clips, const QString& folder) {
    std::vector<ClipFileFacts> facts;
    facts.reserve(clips.size());
    for (const ClipInfo& clip : clips) {
        facts.push_back(askFiles(filesOfClip(clip, folder)));
    }
    return facts;
}

}  // namespace

void ClipFolderReader::read(const QString& folder) {
    _work.start([this, folder](const BackgroundWork::Post& post) {
        const QStringList names = ClipStore::getClipsForFolder(folder);
        const auto total = static_cast<int>(names.size());
        qsizetype done = 0;
        while (done < names.size() && post.isWanted()) {
            const QStringList part = names.mid(done, done == 0 ? firstPart : otherParts);
            done += part.size();
            std::vector<ClipFile> files = readClipFiles(folder, part);
            std::vector<ClipInfo> clips = clipsOf(files);
            std::vector<ClipFileFacts> facts = factsOf(clips, folder);
            post([this, folder, files = std::move(files), clips = std::move(clips), facts = std::move(facts),
                  done = static_cast<int>(done), total] {
                Q_EMIT filesRead(folder, files);
                Q_EMIT clipsRead(clips, facts, done, total);
            });
        }
        post([this] { Q_EMIT finished(); });
    });
}

}  // namespace marquill
