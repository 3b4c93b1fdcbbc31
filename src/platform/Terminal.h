// The terminal that a command runs in: its keys one by one as they are struck, and the wish to stop. Input
// and output may be pipes or files instead. One at a time in a process; main thread.
#pragma once

#include <chrono>
#include <memory>

namespace marquill {

/// While it lives, keys are neither echoed nor kept back until a line ends, and what else would end the
/// process (Ctrl-C, its system's call to end, a terminal that is closed, a pipe that nobody reads any more)
/// is told instead. Destroying it gives the terminal back as it was.
class Terminal {
  public:
    enum class Event {
        key,         ///< a key was struck
        escape,      ///< the Escape key alone
        nothing,     ///< nothing happened in the time
        endOfInput,  ///< there will be no more keys
        stop,        ///< the process is asked to end
    };
    struct Input {
        Event event = Event::nothing;
        char key = 0;  ///< of a key: the character, or a byte of it
    };

    Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    /// Whether keys come from a keyboard, and whether what is printed appears on a screen.
    bool hasKeyboard() const;
    bool hasScreen() const;

    /// The next thing that happens, waited for no longer than `patience`. Keys that no character belongs to,
    /// such as the arrows, are nothing; a character with Alt is that character.
    Input wait(std::chrono::milliseconds patience);

  private:
    class System;
    std::unique_ptr<System> _system;
};

}  // namespace marquill
