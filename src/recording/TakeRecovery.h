// Takes whose program ended before their clip was written, or whose clip was refused: their journals, and how
// they become clips. No state; any thread. A journal whose owner lives is never touched.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Error.h"
#include "recording/TakeRecord.h"

#include <functional>
#include <optional>
#include <vector>

namespace marquill::TakeRecovery {

/// What the clip of a recovered take says in its comment.
inline const QString comment = u"Recovered take"_s;

struct KeptTake {
    QString journal;  ///< path of its file
    TakeRecord take;
};

struct RecoveredTake {
    ClipInfo clip;
    QString folder;
};

struct Outcome {
    std::vector<RecoveredTake> recovered;
    std::vector<KeptTake> kept;  ///< those that their folders did not take
};

/// The takes whose journals stand in `journalFolder` without an owner, the earliest first. What is no
/// journal, or a later version's, is left alone and logged.
std::vector<KeptTake> keptTakes(const QString& journalFolder);

/// Writes the take of a journal as a placeholder into `folder`, or without one into the take's own, and then
/// removes the journal. A clip that was written before its journal could be removed is found again and not
/// doubled. On any error the journal stays: alreadyExists when its owner lives, notFound when it or the
/// folder is gone, those of TakeJournalFormat::read, and what the folder refused.
Result<RecoveredTake> recover(const QString& journal, const std::optional<QString>& folder = std::nullopt);

/// Recovers each into its own folder, as long as `isWanted`, and removes files that never became journals.
Outcome recoverAll(const QString& journalFolder, const std::function<bool()>& isWanted);

/// Removes the journal, and with it what is known of the take.
Result<void> discard(const QString& journal);

}  // namespace marquill::TakeRecovery
