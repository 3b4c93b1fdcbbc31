// Connects many place holder clips to their media at once, by dates. No window, and nothing is written: the
// result is a change set for the clip table, or for whoever writes records. Any thread; the clips must not be
// changed meanwhile.
#pragma once

#include "connect/ClipChangeSet.h"
#include "connect/MediaFiles.h"
#include "connect/PanaP2.h"
#include "platform/Dialogs.h"

#include <span>

namespace marquill {

/// One clip that was connected.
struct BatchPair {
    std::size_t placeholder = 0;  ///< its index in the list that was given
    ClipInfo clip;                ///< the new record
    QString media;                ///< path of what it is connected to
    double seconds = 0;           ///< between the clip's date and the media's, never negative
};

struct BatchResult {
    std::vector<BatchPair> pairs;   ///< those connected, in the order of the media
    int of = 0;                     ///< place holders that were to be connected
    int lackingR3D = 0;             ///< RED proxies that were left out, as they have no R3D file beside them
    std::optional<Date> startDate;  ///< which all connected clips begin at: that of the last of the media
    bool lastResult = true;         ///< of the last attempt to connect a clip; true when there was none
    bool isCancelled = false;       ///< then there are no pairs
    bool hadInput = false;          ///< whether there were place holders and media at all

    int connected() const { return static_cast<int>(pairs.size()); }
    /// What the batch says of itself: false also when proxies were left out, or there was nothing to do.
    bool succeeded() const { return hadInput && !isCancelled && lackingR3D == 0 && lastResult; }
    /// The change, titled "connect Clips", of `placeholders`: those that were given, or in the same order the
    /// records of which those were copies. What else has changed in them since stays.
    ClipChangeSet changeSet(std::span<const ClipInfo> placeholders) const;
    /// What the user is to be told, in this order.
    std::vector<Alert> alerts() const;
};

namespace BatchConnect {

/// Gives each of `fileClips`, media of the kind `clipType`, to the place holder whose `clipCreationDate` is
/// nearest (matchMedia, both in the order of their dates), and connects what was matched: to the file itself,
/// or to the movie in `fcpClipFolder` that has its name (findMatchingFileName). All connected clips get the
/// date of the latest of the media as `clipRecordingStartTime`.
BatchResult doBatchConnect(std::span<const ClipInfo> placeholders, const QStringList& fileClips,
                           const QString& clipType, const std::optional<QString>& fcpClipFolder,
                           const Progress& progress = {});

/// The same for the clips of a P2 card, both lists in the order in which they are given; the start date is
/// that of the last one in the list.
BatchResult doP2BatchConnect(std::span<const ClipInfo> placeholders, std::span<const P2Clip> xmlClips,
                             const QString& clipType, const std::optional<QString>& fcpClipFolder,
                             const Progress& progress = {});

}  // namespace BatchConnect

}  // namespace marquill
