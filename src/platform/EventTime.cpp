#include "platform/EventTime.h"

#include "platform/Clock.h"

#include <QInputEvent>

#include <chrono>
#ifdef Q_OS_WINDOWS
#include <windows.h>
#endif

namespace marquill {

namespace {

// Window systems stamp events with the milliseconds of a clock of their own, cut to 32 bits: Linux with that
// of the monotonic clock, macOS with that of the time since the machine was started, without its sleep, which
// is what the steady clock is there; Windows with its tick count.
quint32 windowSystemMilliseconds() {
#ifdef Q_OS_WINDOWS
    return GetTickCount();
#else
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<quint32>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
#endif
}

// Longer than any event waits; shorter than two machines' clocks are likely to lie apart.
constexpr quint32 longestWait = 30'000;

struct Moment {
    Date date;
    quint32 milliseconds = 0;
};

// Both clocks at one moment: on a busy machine the program may lose its turn between them.
Moment present() {
    constexpr int attempts = 10;
    for (int attempt = 1;; ++attempt) {
        const quint32 before = windowSystemMilliseconds();
        const Date date = Clock::current().now();
        if (windowSystemMilliseconds() - before <= 1 || attempt == attempts) {
            return {date, before};
        }
    }
}

}  // namespace

Date arrivalDate(const QInputEvent& event) {
    const Moment now = present();
    const quint32 age = now.milliseconds - static_cast<quint32>(event.timestamp());
    const bool known = event.timestamp() != 0 && age <= longestWait;
    return known ? dateByAdding(now.date, -double(age) / 1000) : now.date;
}

}  // namespace marquill
