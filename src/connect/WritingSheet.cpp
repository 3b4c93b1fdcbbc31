#include "connect/WritingSheet.h"

#include "connect/ClipWriter.h"
#include "platform/DelayedCalls.h"

#include <utility>

namespace marquill {

WritingSheet::WritingSheet(QWidget& table, ClipWriter& writer) : _table(table), _writer(writer) {
    connect(&writer, &ClipWriter::progressed, this, &WritingSheet::show);
}

void WritingSheet::show(qsizetype done, qsizetype total) {
    if (!_progress.isRunning() && done < total) {
        _progress.follow(*_table.window(), tr("Saving clips…"));
    }
    if (_progress.isRunning()) {
        _progress.followed(done, total);
    }
    if (done == total) {
        for (std::function<void()>& then : std::exchange(_afterwards, {})) {
            DelayedCalls::performAfterDelay(this, 0, std::move(then));
        }
    }
}

void WritingSheet::afterwards(std::function<void()> then) {
    if (_writer.isWriting()) {
        _afterwards.push_back(std::move(then));
    } else {
        then();
    }
}

void WritingSheet::waitForEnd() {
    _progress.waitForEnd();
}

}  // namespace marquill
