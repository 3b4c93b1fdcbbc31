#include "platform/DelayedCalls.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace marquill::DelayedCalls {

namespace {

using Moment = std::chrono::steady_clock::time_point;
using Duration = Moment::duration;

std::optional<Moment> heldMoment;

Moment now() {
    return heldMoment.value_or(std::chrono::steady_clock::now());
}

Duration durationOf(double seconds) {
    constexpr double aboutThreeWeeks = 2'000'000;  // What the timers' 32-bit milliseconds hold.
    return std::chrono::duration_cast<Duration>(
        std::chrono::duration<double>(std::clamp(seconds, 0.0, aboutThreeWeeks)));
}

/// A child of its target, so that it dies with it.
class Call final : public QTimer {
  public:
    Call(QObject* target, Duration delay, std::function<void()> function)
        : QTimer(target), _due(now() + delay), _function(std::move(function)) {
        setSingleShot(true);
        setTimerType(Qt::PreciseTimer);
        QObject::connect(this, &QTimer::timeout, this, [this] { perform(); });
        startTimer();
    }

    Moment due() const { return _due; }

    void bringNearer(Duration time) {
        _due -= time;
        startTimer();
    }

    void drop() {
        stop();
        setParent(nullptr);
        deleteLater();
    }

    /// The function may cancel this call or destroy its target, so nothing of either is touched after it.
    void perform() {
        const std::function<void()> function = std::move(_function);
        drop();
        function();
    }

  private:
    void startTimer() {
        const Duration left = std::max(_due - now(), Duration::zero());
        if (heldMoment && left > Duration::zero()) {
            stop();
            return;
        }
        start(std::chrono::round<std::chrono::milliseconds>(left));
    }

    Moment _due;
    std::function<void()> _function;
};

std::vector<Call*> callsOf(const QObject* target) {
    std::vector<Call*> calls;
    for (QObject* child : target->children()) {
        if (auto* call = dynamic_cast<Call*>(child)) {
            calls.push_back(call);
        }
    }
    return calls;
}

void bringAllNearer(const QObject* target, Duration time) {
    for (Call* call : callsOf(target)) {
        call->bringNearer(time);
    }
}

}  // namespace

void performAfterDelay(QObject* target, double seconds, std::function<void()> function) {
    new Call(target, durationOf(seconds), std::move(function));
}

void cancelAll(const QObject* target) {
    for (Call* call : callsOf(target)) {
        call->drop();
    }
}

int pendingCount(const QObject* target) {
    return static_cast<int>(callsOf(target).size());
}

void elapse(QObject* target, double seconds) {
    const QPointer<QObject> guard(target);
    Duration left = durationOf(seconds);
    while (guard) {
        const std::vector<Call*> calls = callsOf(target);
        const auto next = std::ranges::min_element(calls, {}, &Call::due);
        const Duration wait =
            next == calls.end() ? Duration::max() : std::max((*next)->due() - now(), Duration::zero());
        const Duration step = std::min(wait, left);
        Call* const call = wait <= left ? *next : nullptr;
        bringAllNearer(target, step);
        if (!call) {
            return;
        }
        left -= step;
        call->perform();
    }
}

HeldTime::HeldTime() {
    heldMoment = std::chrono::steady_clock::now();
}

HeldTime::~HeldTime() {
    heldMoment.reset();
}

}  // namespace marquill::DelayedCalls
