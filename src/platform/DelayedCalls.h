// Calls made later by the event loop, on behalf of a target object and no longer than it lives. Main thread.
#pragma once

#include <functional>

class QObject;

namespace marquill::DelayedCalls {

/// Calls `function` once, `seconds` from now and to the millisecond, unless `target` dies or cancels before.
/// With 0 it is called in the next turn of the event loop. Calls of one target that are due together come in
/// the order in which they were asked for.
void performAfterDelay(QObject* target, double seconds, std::function<void()> function);

/// Drops all calls of `target` that are still to come.
void cancelAll(const QObject* target);

/// How many calls of `target` are still to come.
int pendingCount(const QObject* target);

/// Makes the calls of `target` that come within `seconds` now, in order, those they ask for in turn included,
/// and brings the later ones that much nearer: what a test does instead of waiting.
void elapse(QObject* target, double seconds);

/// While it lives, time stands still for delayed calls: elapse alone makes those that are to come later,
/// however long the test takes. For tests; one at a time, and made before the calls.
class HeldTime {
  public:
    HeldTime();
    ~HeldTime();
    HeldTime(const HeldTime&) = delete;
    HeldTime& operator=(const HeldTime&) = delete;
};

}  // namespace marquill::DelayedCalls
