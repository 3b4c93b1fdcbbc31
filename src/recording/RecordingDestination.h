// Where the recorder records to, and whom it hands a finished take: all that it knows of the main window,
// which implements it. Main thread.
#pragma once

#include "folders/FolderRecord.h"

#include <QString>

#include <optional>

namespace marquill {

class ClipInfo;

class RecordingDestination {
  public:
    virtual ~RecordingDestination() = default;

    /// The folder that takes are recorded into; nothing when none is chosen. It need not stand on disk any
    /// more.
    virtual std::optional<FolderRecord> recordFolder() = 0;
    /// Takes the clip `info`, whose file has been written into the folder at path `folder`: it is listed when
    /// that folder is the one shown.
    virtual void addClip(const ClipInfo& info, const QString& folder) = 0;
};

}  // namespace marquill
