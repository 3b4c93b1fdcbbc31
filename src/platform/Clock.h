// The present moment. All the program reads it here, so that a test can say what time it is. Any thread.
#pragma once

#include "platform/Date.h"

namespace marquill {

class Clock {
  public:
    virtual ~Clock() = default;

    /// The date now.
    virtual Date now() const = 0;
    /// Microseconds since the system started. Never the same value twice in one run of the program, and each
    /// one larger than those before, so that they serve as identities.
    virtual quint64 microseconds() const = 0;

    /// The one in use: the system's, unless a test has installed its own.
    static Clock& current();
    /// Makes `clock` the one in use until it is called with null; the caller keeps the ownership.
    static void install(Clock* clock);
};

}  // namespace marquill
