#include "connect/ClipFolderReader.h"

#include "clipstore/ClipStore.h"

#include <algorithm>

namespace marquill {

namespace {

// The first part is what fits on a screen, so that it is there at once; the others spare the table work.
constexpr qsizetype firstPart = 128;
constexpr qsizetype otherParts = 2048;

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
            std::vector<ClipInfo> clips = ClipStore::readClipInfos(folder, part);
            std::vector<ClipFileFacts> facts = factsOf(clips, folder);
            post([this, clips = std::move(clips), facts = std::move(facts), done = static_cast<int>(done),
                  total] { Q_EMIT clipsRead(clips, facts, done, total); });
        }
        post([this] { Q_EMIT finished(); });
    });
}

}  // namespace marquill
