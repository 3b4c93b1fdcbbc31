// What the exports of a clip list have in common: the clips are encoded one by one, on several threads, and
// the document is put together in their order and written as a whole. Functions, any thread; the clips must
// not change meanwhile.
#pragma once

#include "platform/Error.h"

#include <QByteArray>

#include <cmath>
#include <functional>
#include <limits>

namespace marquill {

/// Told often how many of the clips are done, on the thread that exports; returns whether to go on. The last
/// call, with all of them done, comes right before the file is written. After false nothing is written, and
/// the export fails with ErrorCode::interrupted. May be empty.
using ExportProgress = std::function<bool(qsizetype done, qsizetype total)>;

/// The part of a document that the clip at an index, from 0, makes up; may be empty. Called on several
/// threads.
using ClipEncoder = std::function<Result<QByteArray>(qsizetype index)>;

/// `start` and behind it the parts of `count` clips in order. Of several errors it is the first clip's.
Result<QByteArray> encodeClips(QByteArrayView start, qsizetype count, const ClipEncoder& encode,
                               const ExportProgress& progress);

/// Writes the document of `count` clips to `path`, whole and atomically, unless `progress` cancels it now.
Result<void> writeDocument(QByteArrayView document, const QString& path, qsizetype count,
                           const ExportProgress& progress);

/// `number` truncated toward zero, the nearest integer there is where it is beyond them, and 0 for NaN.
template <class Integer>
Integer truncated(double number) {
    // The lowest integer is a power of two and so exact as a double; the highest is not.
    constexpr auto lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    if (std::isnan(number)) {
        return 0;
    }
    if (number >= -lowest) {
        return std::numeric_limits<Integer>::max();
    }
    return number <= lowest ? std::numeric_limits<Integer>::min() : static_cast<Integer>(number);
}

}  // namespace marquill
