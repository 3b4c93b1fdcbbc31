// Clips that others write too: what is known of their files, and the merging of what another program wrote
// into the records that stand for them here. Owned by ClipWriter, or by a command that changes clips. Main
// thread.
#pragma once

#include "clipstore/ClipMerge.h"
#include "clipstore/KnownClips.h"
#include "platform/Error.h"

#include <QObject>

namespace marquill {

/// A clip that was changed here and by others: it is not written until somebody says how it shall be.
struct ClipInConflict {
    ClipInfo clip;
    QString folder;
    std::vector<ClipConflict> keys;
};

class SharedClips : public QObject {
    Q_OBJECT

  public:
    KnownClips& known() { return _known; }

    /// The folder's files were read; those that came to be known meanwhile stay as they are known.
    void noteRead(const QString& folder, const std::vector<ClipFile>& files);
    /// The file of the clip holds just this record: it was made, or written, at this moment.
    void noteOnDisk(const ClipInfo& clip, const QString& folder);
    void noteWritten(const ClipInfo& clip, const QString& folder, const FileStamp& stamp);
    /// `held` was written for it, which may have changed meanwhile.
    void noteWritten(const ClipInfo& clip, const QString& folder, const FileStamp& stamp,
                     std::shared_ptr<const ClipPrint> held);
    /// The stamp that the clip's file is known to have; none where nothing is known of what it holds.
    std::optional<FileStamp> knownStamp(const ClipInfo& clip, const QString& folder) const;
    /// From here on `clip` stands for its file.
    void adopt(const ClipInfo& clip, const QString& folder);

    /// What is to be known before a clip is written.
    struct Preparation {
        std::optional<FileStamp> expected = {};    ///< that its file has; none: nothing is expected
        bool isWritten = false;                    ///< the file holds the record already
        std::vector<ClipConflict> conflicts = {};  ///< it must not be written
    };
    /// An answer to what was asked about a conflict.
    struct Answer {
        ClipPreference preference = ClipPreference::ask;
        std::vector<ClipConflict> to = {};  ///< what was asked; it answers nothing else
    };
    /// Looks at the clip's file, and merges what others have written into it since into `clip`.
    Preparation prepare(const ClipInfo& clip, const QString& folder, const Answer& answer);

    /// What became of a record that was to be written: it is in its file, or there is an error, or it is in
    /// conflict.
    struct Outcome {
        Result<void> written = {};
        std::vector<ClipConflict> conflicts = {};
    };
    /// Merges into `clips` what others have written into their files since, and writes them, several at a
    /// time.
    std::vector<Outcome> write(const std::vector<ClipInfo>& clips, const QString& folder);
    std::vector<Outcome> write(const std::vector<ClipInfo>& clips, const QString& folder,
                               const Answer& answer);

    enum class Taken { all, withConflicts };
    /// Merges what was read from a changed file into the record that stands for it. What cannot be read is as
    /// it was.
    Taken take(const QString& folder, const ClipFile& file);

  Q_SIGNALS:
    /// The clip's record is about to be merged: what is not yet stored in it should be.
    void aboutToMerge(const marquill::ClipInfo& clip);
    /// The record has what others wrote; its file holds `theirs`.
    void merged(const marquill::ClipInfo& clip, const marquill::ClipInfo& theirs);

  private:
    void writePrepared(const std::vector<ClipInfo>& clips, const QString& folder, const Answer& answer,
                       std::vector<std::size_t>& waiting, std::vector<Outcome>& outcomes);
    std::vector<ClipConflict> merge(const ClipInfo& clip, const QString& folder, const ClipFile& file,
                                    const Answer& answer);

    KnownClips _known;
};

}  // namespace marquill
