// The clip store: operations on clip files, without state; every call reads or writes the files it names.
// "folder" is the path of a record folder. Main thread; readClipInfoForFolder and writeClipInfos
// fan their work out and join before they return.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Error.h"
#include "platform/FileStamp.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

namespace marquill {

/// The name of the next take.
struct NewClipName {
    QString name;    ///< "Interview#03": without extension
    int takeNo = 0;  ///< from 1

    bool operator==(const NewClipName&) const = default;
};

class ClipStore {
  public:
    // Kinds and places

    /// Whether the clip is a placeholder: the extension of its `clipName` is exactly "xml".
    static bool isProxyClip(const ClipInfo& info);
    /// Whether a placeholder is connected to media: it has a `clipPath`.
    static bool isConnected(const ClipInfo& info) { return info.clipPath().has_value(); }
    /// Where the clip of that name stands in `folder`; none when there is no folder, or when the name is no
    /// name of a file in it ("", ".", "..", or with a "/"): records come from strangers too, and no operation
    /// follows one out of its folder.
    static std::optional<QString> clipPath(const QString& folder, const QString& clipName);

    // Reading

    /// The record of the clip file at `path`; none when there is no path, the file is no movie, the movie has
    /// no user data, or its record cannot be parsed. A placeholder that is missing or cannot be read yields
    /// an empty record, and a line in the log. `clipName` and `clipDuration` of a movie are its file's own.
    static std::optional<ClipInfo> infoForClip(const QString& path);
    /// Whether a file of that name in a record folder is a clip: it ends in ".mov" or ".xml" and does not
    /// begin with "tmp_".
    static bool isClipFileName(const QString& name);
    /// The names of the clip files in `folder`, in the order the file system lists them: what ends in ".mov"
    /// or ".xml" and does not begin with "tmp_". Case counts; subfolders are not entered.
    static QStringList getClipsForFolder(const QString& folder);
    /// The records of those clips, in that order, under their files' names; those without one are left out.
    static std::vector<ClipInfo> readClipInfoForFolder(const QString& folder);
    /// The records of the clips of these names in `folder`, in that order: a part of a large folder, for
    /// lists that show what is read so far.
    static std::vector<ClipInfo> readClipInfos(const QString& folder, const QStringList& names);
    /// The first of `clips` with exactly this `clipName`.
    static std::optional<ClipInfo> findClipInfoInArray(std::span<const ClipInfo> clips,
                                                       const QString& clipName);

    // Writing

    /// Writes the record back to its clip. A placeholder is written only while its file exists, so that one
    /// that was deleted or moved is never made anew; whatever comes of it, the result is 0. A movie is left
    /// untouched when its record is the same already. Results: 0 done; -1 no info or no folder; -2 the movie
    /// does not open; -3 it has no user data; -4 the record cannot be written as a property list; -5 it was
    /// written with an error; an ErrorCode for what the system or the movie file refused.
    static int updateClipInfo(const std::optional<ClipInfo>& info, const QString& folder);
    /// Writes the record as updateClipInfo does, and tells of a placeholder too what kept it from being
    /// written: notFound when its file is not there, and malformed when `clipName` is no name of a file.
    static Result<void> writeClipInfo(const ClipInfo& info, const QString& folder);
    /// The same for many records, with their results. Several placeholders are written at a time, since each
    /// file waits for its disk; of records with the same name the last one counts.
    static std::vector<Result<void>> writeClipInfos(std::span<const ClipInfo> infos, const QString& folder);
    /// The same for clips that others write too: each only if its file still has the stamp expected of it, if
    /// one is. Results: the stamps of what was written; changedMeanwhile, and nothing changed, where the file
    /// has another one. Of a movie, which is written in place, it is compared before anything is written.
    static std::vector<Result<FileStamp>> writeClipInfos(std::span<const ClipInfo> infos,
                                                         const QString& folder,
                                                         std::span<const std::optional<FileStamp>> expected);
    /// Writes the record of a placeholder as a new file. Errors: alreadyExists, and nothing changed, when
    /// something has the name, also when another program takes it at the same moment; malformed when
    /// `clipName` is no name of a placeholder.
    static Result<void> createProxyClip(const ClipInfo& info, const QString& folder);

    // New records

    /// A record with `clipName`, and with `clipDuration` if the movie of that name in `folder` opens.
    static ClipInfo newInfoForClip(const QString& name, const QString& folder);
    /// A record with `clipName` alone; nothing is read or written.
    static ClipInfo newInfoForProxyClip(const QString& name, const QString& folder);
    /// A placeholder's record for the movie at `path`, named and dated as the movie and connected to it. A
    /// file whose creation and modification date are the same was written at the end of the recording, which
    /// then began its duration earlier. Errors: those of opening the movie and of the file system.
    static Result<ClipInfo> proxyClipFromMovieURL(const QString& path);

    // Names and takes

    /// The lowest free take of `name` in `folder`: neither "name#NN.mov" nor "name#NN.xml" stands there by
    /// the file system's own rules for letter case. None when there is no folder, or no name that a file can
    /// have.
    static std::optional<NewClipName> getNewClipNameForFolder(const QString& folder, const QString& name);
    /// `clipTake` if the user typed one, else what follows the last "#" of `clipName` up to its extension,
    /// else "".
    static QString takeFromClip(const ClipInfo& info);
    /// What stands before the last "#" of `clipName`, or all of it without its extension where there is none.
    static QString clipDisplayNameFromClip(const ClipInfo& info);

    // Texts about a clip

    /// The frames that were dropped, or were corrupt, while it was captured.
    static QString logForClipInfo(const ClipInfo& info);
    /// Duration, file size and creation date of its media. The line "Modified" shows the creation date too.
    static QString attrForClipInfo(const ClipInfo& info, const QString& folder);
    /// The path of its media; "" for a placeholder that is not connected.
    static QString pathAttrForClipInfo(const ClipInfo& info, const QString& folder);

  protected:
    ClipStore() = default;
    ~ClipStore() = default;
};

}  // namespace marquill
