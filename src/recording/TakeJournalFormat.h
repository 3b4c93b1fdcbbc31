// The bytes of a take's journal: one JSON object a line, as docs/formats/journal.md tells. No state, any
// thread.
#pragma once

#include "platform/Error.h"
#include "recording/TakeRecord.h"

#include <QByteArrayView>

namespace marquill::TakeJournalFormat {

constexpr int version = 1;
constexpr qint64 mostBytes = qint64{64} << 20;         ///< of a journal; what follows is not read
constexpr qsizetype longestLine = qsizetype{1} << 20;  ///< bytes; a longer one ends the reading
constexpr double longestTake = 1e7;                    ///< seconds, some hundred days

// Lines, each with its LF. Text that no file can hold is replaced by U+FFFD.

/// The first line: name, scene, folder and start of the take.
QByteArray startLine(const TakeRecord& take);
/// A marker that was fired `at` seconds after the start.
QByteArray markerLine(const Dictionary& marker, double at);
/// The take went on `elapsed` seconds after its start.
QByteArray aliveLine(double elapsed);
/// The name, scene and folder in `now` that are not those in `before`; empty when all are.
QByteArray changeLine(const TakeRecord& before, const TakeRecord& now);
/// The take was stopped `elapsed` seconds after its start.
QByteArray stopLine(double elapsed);

struct Journal {
    TakeRecord take;  ///< its `elapsed` is the stop, or else the last moment that any line tells of
    bool isStopped = false;
};

/// What the journal in `bytes` tells. Reading ends at the first line that is torn (without LF), too long or
/// no JSON object, and keeps what stands before it; keys and values that mean nothing here are passed over.
/// The clip times of a marker are reals; other whole numbers are integers. Errors, all about the first line:
/// endsEarly when it is torn, malformed when it is none, unsupported when it is a later version's.
Result<Journal> read(QByteArrayView bytes);

}  // namespace marquill::TakeJournalFormat
