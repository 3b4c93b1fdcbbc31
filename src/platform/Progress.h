// How long work tells how far it is, and is told to end.
#pragma once

#include <QtGlobal>

#include <functional>

namespace marquill {

/// Called again and again, on the thread that does the work: `done` of `total` steps are done; `total` is 0
/// while nobody knows, and begins anew with each phase of the work. Returns whether to go on. May be empty.
using Progress = std::function<bool(qsizetype done, qsizetype total)>;

/// Tells `progress`, if there is one; whether to go on.
inline bool goesOn(const Progress& progress, qsizetype done, qsizetype total) {
    return !progress || progress(done, total);
}

}  // namespace marquill
