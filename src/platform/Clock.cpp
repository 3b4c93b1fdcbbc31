#include "platform/Clock.h"

#include <algorithm>
#include <atomic>
#ifdef Q_OS_WINDOWS
#include <windows.h>
#else
#include <ctime>
#endif

namespace marquill {

namespace {

// A clock that goes on while the machine sleeps, so that no value comes again.
#ifdef Q_OS_WINDOWS
quint64 microsecondsSinceStart() {
    return GetTickCount64() * 1'000;
}
#else
#ifdef Q_OS_MACOS
constexpr clockid_t bootClock = CLOCK_MONOTONIC;
#else
constexpr clockid_t bootClock = CLOCK_BOOTTIME;
#endif

quint64 microsecondsSinceStart() {
    timespec time = {};
    clock_gettime(bootClock, &time);
    return static_cast<quint64>(time.tv_sec) * 1'000'000 + static_cast<quint64>(time.tv_nsec) / 1'000;
}
#endif

class SystemClock final : public Clock {
  public:
    Date now() const override { return std::chrono::system_clock::now(); }

    quint64 microseconds() const override {
        const quint64 present = microsecondsSinceStart();
        quint64 last = _last.load();
        quint64 next = 0;
        do {
            next = std::max(present, last + 1);
        } while (!_last.compare_exchange_weak(last, next));
        return next;
    }

  private:
    mutable std::atomic<quint64> _last = 0;
};

std::atomic<Clock*> installed = nullptr;

}  // namespace

Clock& Clock::current() {
    static SystemClock system;
    Clock* const clock = installed.load(std::memory_order_acquire);
    return clock ? *clock : system;
}

void Clock::install(Clock* clock) {
    installed.store(clock, std::memory_order_release);
}

}  // namespace marquill
