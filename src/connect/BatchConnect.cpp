#include "connect/BatchConnect.h"

#include "connect/ClipConnection.h"
#include "connect/MediaMatching.h"
#include "platform/Files.h"
#include "platform/ParallelWork.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

namespace {

/// Where the movies are that the media were converted to, if they were.
class Conversions {
  public:
    explicit Conversions(const std::optional<QString>& folder) : _folder(folder) {
        if (_folder) {
            _names = MediaFiles::namesWithExtension(*_folder, u"mov"_s);
        }
    }

    /// What to connect for the media at `path`. Of media that were not converted that is the folder, which
    /// opens as no movie.
    QString movieFor(const QString& path) const {
        if (!_folder) {
            return path;
        }
        const auto name = MediaFiles::findMatchingFileName(lastPathComponent(path), _names);
        return name ? joinPath(*_folder, *name) : *_folder;
    }

  private:
    std::optional<QString> _folder;
    QStringList _names;
};

std::vector<std::optional<Date>> creationDates(std::span<const ClipInfo> placeholders) {
    std::vector<std::optional<Date>> dates(placeholders.size());
    std::ranges::transform(placeholders, dates.begin(), &ClipInfo::clipCreationDate);
    return dates;
}

std::vector<Date> creationDates(std::span<const MediaCandidate> candidates) {
    std::vector<Date> dates(candidates.size());
    std::ranges::transform(candidates, dates.begin(), &MediaCandidate::creationDate);
    return dates;
}

/// matchMedia with the place holders in the order of their dates, numbered as they are given.
MediaMatching matchInOrderOfDates(std::span<const ClipInfo> placeholders,
                                  std::span<const MediaCandidate> candidates) {
    const std::vector<std::optional<Date>> dates = creationDates(placeholders);
    const std::vector<std::size_t> order = orderByDate(dates);
    std::vector<std::optional<Date>> sorted(dates.size());
    std::ranges::transform(order, sorted.begin(), [&](std::size_t index) { return dates[index]; });
    MediaMatching matching = matchMedia(sorted, creationDates(candidates));
    for (MediaMatch& match : matching.pairs) {
        match.placeholder = order[match.placeholder];
    }
    return matching;
}

/// Connects what was matched, each clip in its place, from any number of threads.
void connectPairs(const MediaMatching& matching, std::span<const ClipInfo> placeholders,
                  std::span<const MediaCandidate> candidates, const QString& clipType,
                  const std::optional<QString>& fcpClipFolder, const Progress& progress,
                  BatchResult& result) {
    const Conversions conversions(fcpClipFolder);
    std::vector<std::optional<BatchPair>> pairs(matching.pairs.size());
    const auto connect = [&](qsizetype index) {
        const auto place = static_cast<std::size_t>(index);
        const MediaMatch& match = matching.pairs[place];
        BatchPair pair{.placeholder = match.placeholder,
                       .clip = placeholders[match.placeholder].deepCopy(),
                       .media = conversions.movieFor(candidates[match.candidate].path),
                       .seconds = match.seconds};
        if (ClipConnection::doConnectToClip(pair.clip, clipType, pair.media, result.startDate)) {
            pairs[place] = std::move(pair);
        }
    };
    if (!forEachInParallel(static_cast<qsizetype>(pairs.size()), connect, progress)) {
        result.isCancelled = true;
        return;
    }
    result.lastResult = pairs.empty() || pairs.back().has_value();
    for (std::optional<BatchPair>& pair : pairs) {
        if (pair) {
            result.pairs.push_back(*std::move(pair));
        }
    }
}

BatchResult emptyResult(std::span<const ClipInfo> placeholders, bool hasMedia) {
    BatchResult result;
    result.of = static_cast<int>(placeholders.size());
    result.hadInput = !placeholders.empty() && hasMedia;
    return result;
}

}  // namespace

BatchResult BatchConnect::doBatchConnect(std::span<const ClipInfo> placeholders, const QStringList& fileClips,
                                         const QString& clipType, const std::optional<QString>& fcpClipFolder,
                                         const Progress& progress) {
    BatchResult result = emptyResult(placeholders, !fileClips.isEmpty());
    if (!result.hadInput) {
        return result;
    }
    auto candidates = MediaFiles::candidates(fileClips, clipType, progress);
    if (!candidates) {
        result.isCancelled = true;
        return result;
    }
    result.lackingR3D = candidates->lackingR3D;
    std::ranges::stable_sort(candidates->found, {}, &MediaCandidate::creationDate);
    const MediaMatching matching = matchInOrderOfDates(placeholders, candidates->found);
    if (matching.startDate) {
        result.startDate = candidates->found[*matching.startDate].creationDate;
    }
    connectPairs(matching, placeholders, candidates->found, clipType, fcpClipFolder, progress, result);
    return result;
}

BatchResult BatchConnect::doP2BatchConnect(std::span<const ClipInfo> placeholders,
                                           std::span<const P2Clip> xmlClips, const QString& clipType,
                                           const std::optional<QString>& fcpClipFolder,
                                           const Progress& progress) {
    BatchResult result = emptyResult(placeholders, !xmlClips.empty());
    if (!result.hadInput) {
        return result;
    }
    std::vector<MediaCandidate> candidates(xmlClips.size());
    std::ranges::transform(xmlClips, candidates.begin(), [](const P2Clip& clip) {
        return MediaCandidate{.path = clip.p2_fileName, .creationDate = clip.p2_creationDate};
    });
    const MediaMatching matching = matchMedia(creationDates(placeholders), creationDates(candidates));
    result.startDate = candidates.back().creationDate;
    connectPairs(matching, placeholders, candidates, clipType, fcpClipFolder, progress, result);
    return result;
}

ClipChangeSet BatchResult::changeSet(std::span<const ClipInfo> placeholders) const {
    ClipChangeSet set{.oldClips = {},
                      .newClips = {},
                      .actionName = QCoreApplication::translate("BatchConnect", "connect Clips")};
    for (const BatchPair& pair : pairs) {
        const ClipInfo& placeholder = placeholders[pair.placeholder];
        ClipInfo connected = placeholder.deepCopy();
        ClipConnection::takeConnection(pair.clip, connected);
        set.oldClips.push_back(placeholder);
        set.newClips.push_back(connected);
    }
    return set;
}

std::vector<Alert> BatchResult::alerts() const {
    std::vector<Alert> alerts;
    if (!hadInput || isCancelled) {
        return alerts;
    }
    if (connected() != of) {
        alerts.push_back(
            {.title = QCoreApplication::translate("BatchConnect", "Could not connect all clips"),
             .text = QCoreApplication::translate("BatchConnect", "Only %1 of %2 clips could be connected.")
                         .arg(connected())
                         .arg(of)});
    }
    if (lackingR3D > 0) {
        alerts.push_back({.title = QCoreApplication::translate("BatchConnect", "Red files not found"),
                          .text = QCoreApplication::translate(
                              "BatchConnect",
                              "For one or more clips the original '.r3d' clip could not be found. As a "
                              "result the matching result might be incorrect.")});
    }
    return alerts;
}

}  // namespace marquill
