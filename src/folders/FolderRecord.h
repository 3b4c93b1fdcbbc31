// One folder of the record folder list: a typed handle over its record. Copying the handle shares the record;
// its identity, not its content, is what the list goes by. Main thread.
#pragma once

#include "platform/PropertyList.h"

#include <optional>

namespace marquill {

class FolderRecord {
  public:
    /// A new record without any key.
    FolderRecord() = default;
    /// A handle over `record`, which is shared.
    explicit FolderRecord(Dictionary record) : _record(std::move(record)) {}
    /// A new record for the folder at `path`, named as the folder is.
    static FolderRecord forPath(const QString& path);

    const Dictionary& record() const { return _record; }

    // Each is nothing when the record lacks it or holds another type.
    std::optional<QString> folderPath() const;  ///< absolute; compared exactly, with its case
    std::optional<QString> folderName() const;  ///< shown in the list, which may edit it
    std::optional<qint64> busyCount() const;    ///< kept by whoever works in the folder; only read here

    // Each returns false, and changes nothing, when the record is frozen.
    bool setFolderPath(const QString& path);
    bool setFolderName(const QString& name);
    bool setBusyCount(qint64 count);

    /// Whether someone works in the folder: its `busyCount` is above 0.
    bool isBusy() const { return busyCount().value_or(0) > 0; }
    /// Whether the folder stands on disk now; asks the file system.
    bool exists() const;

    /// Whether both are handles over the same record.
    bool isSame(const FolderRecord& other) const { return _record.isSame(other._record); }
    /// Content.
    bool operator==(const FolderRecord& other) const = default;

  private:
    Dictionary _record;
};

}  // namespace marquill
