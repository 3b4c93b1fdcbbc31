// Reads the clips of a record folder without holding up the window, part by part in the order of the listing,
// with what the disk knows of their files. Main thread.
#pragma once

#include "clipstore/KnownClips.h"
#include "connect/ClipFileFacts.h"
#include "platform/BackgroundWork.h"

#include <vector>

namespace marquill {

class ClipFolderReader : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Reads `folder`; what was being read before is given up.
    void read(const QString& folder);
    /// Gives up what is being read: no signal comes any more.
    void cancel() { _work.cancel(); }
    bool isReading() const { return _work.isRunning(); }

  Q_SIGNALS:
    /// The files of the next clips, and those that are no clips, as they were read; clipsRead follows.
    void filesRead(const QString& folder, const std::vector<marquill::ClipFile>& files);
    /// The next clips, with one facts for each; `done` of `total` names of the folder were read.
    void clipsRead(const std::vector<marquill::ClipInfo>& clips,
                   const std::vector<marquill::ClipFileFacts>& facts, int done, int total);
    void finished();

  private:
    BackgroundWork _work;
};

}  // namespace marquill
