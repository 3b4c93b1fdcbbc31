// A clock that stands still until a test moves it. It is the one in use while it lives. Main thread.
#pragma once

#include "platform/Clock.h"

namespace marquill {

class FakeClock final : public Clock {
  public:
    /// It shows `date`; without one, 2026-11-21 08:05:00 UTC.
    explicit FakeClock(Date date = Date(std::chrono::duration<double>(1'795'248'300))) : _now(date) {
        Clock::install(this);
    }
    ~FakeClock() override { Clock::install(nullptr); }
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    void setNow(Date date) { _now = date; }
    void advance(double seconds) {
        _now = dateByAdding(_now, seconds);
        _microseconds += static_cast<quint64>(seconds * 1e6);
    }

    Date now() const override { return _now; }
    quint64 microseconds() const override { return ++_microseconds; }

  private:
    Date _now;
    mutable quint64 _microseconds = 1'000'000;
};

}  // namespace marquill
