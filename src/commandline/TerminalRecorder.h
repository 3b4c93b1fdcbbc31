// One take in a terminal: digits fire markers, Enter or Escape stops it, and it is written as a placeholder.
// Until then a journal stands for it, as for a take of the window's. Main thread.
#pragma once

#include "markers/MarkerSet.h"
#include "platform/Error.h"
#include "platform/Terminal.h"
#include "recording/TakeJournal.h"
#include "recording/TakeRecord.h"

namespace marquill {

class TerminalRecorder {
  public:
    /// Records a take with the name, scene and folder of `take`; the digits fire the markers of `set`.
    TerminalRecorder(TakeRecord take, MarkerSet set);

    /// Starts the take at once, returns when it is stopped, by whatever event, and is written: the path of
    /// its clip. Errors: those of TakeWriter::write.
    Result<QString> record();

  private:
    void tellStart() const;
    bool isStopped();
    void fire(int digit, Date fired);
    void goOn();
    void showClock() const;
    Result<QString> write();

    TakeJournal _journal;
    Terminal _terminal;
    TakeRecord _take;
    MarkerSet _set;
    double _journalled = 0;  // elapsed seconds when the journal was last told of them
};

}  // namespace marquill
