// The sheet that shows how far the writing of very many clips is. Owned by the clip table's controller. Main
// thread.
#pragma once

#include "platform/ProgressSheet.h"

#include <vector>

namespace marquill {

class ClipWriter;

class WritingSheet : public QObject {
    Q_OBJECT

  public:
    /// Shows on the window of `table` what `writer` writes.
    WritingSheet(QWidget& table, ClipWriter& writer);

    /// Calls `then` when all is written: at once where nothing waits, else on a later turn of the event loop.
    void afterwards(std::function<void()> then);
    /// Runs the event loop until all is written.
    void waitForEnd();
    /// The sheet while it is shown, or null.
    QDialog* sheet() const { return _progress.sheet(); }

  private:
    void show(qsizetype done, qsizetype total);

    QWidget& _table;
    ClipWriter& _writer;
    ProgressSheet _progress;
    std::vector<std::function<void()>> _afterwards;
};

}  // namespace marquill
