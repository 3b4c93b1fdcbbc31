#include "platform/Terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <optional>

namespace marquill {

namespace {

constexpr char escape = '\x1b';
/// The bytes of one key arrive together; what comes later is another key.
constexpr std::chrono::milliseconds betweenBytesOfAKey(50);

/// Written to by the signal handler; a signal that came just before a wait is not missed.
std::array<int, 2> wakeUp{-1, -1};

extern "C" void stopAsked(int) {
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeUp[1], &byte, 1);
    errno = error;
}

/// Answers a signal in another way than the process began with, until it is destroyed.
class SignalAnswer {
  public:
    SignalAnswer(int signal, void (*answer)(int)) : _signal(signal) {
        sigaction(_signal, nullptr, &_before);
        // What the shell has a command ignore, as behind nohup, stays ignored.
        if (_before.sa_handler == SIG_IGN) {
            return;
        }
        struct sigaction action = {};
        action.sa_handler = answer;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        sigaction(_signal, &action, nullptr);
    }
    SignalAnswer(const SignalAnswer&) = delete;
    SignalAnswer& operator=(const SignalAnswer&) = delete;
    ~SignalAnswer() { sigaction(_signal, &_before, nullptr); }

  private:
    int _signal;
    struct sigaction _before = {};
};

/// The two ends of a pipe that does not block.
class WakeUpPipe {
  public:
    WakeUpPipe() {
        if (pipe(wakeUp.data()) != 0) {
            wakeUp = {-1, -1};
            return;
        }
        for (const int end : wakeUp) {
            fcntl(end, F_SETFL, O_NONBLOCK);
            fcntl(end, F_SETFD, FD_CLOEXEC);
        }
    }
    WakeUpPipe(const WakeUpPipe&) = delete;
    WakeUpPipe& operator=(const WakeUpPipe&) = delete;
    ~WakeUpPipe() {
        for (const int end : wakeUp) {
            close(end);
        }
    }
};

}  // namespace

class Terminal::System {
  public:
    System() {
        if (!isatty(STDIN_FILENO) || tcgetattr(STDIN_FILENO, &_before) != 0) {
            return;
        }
        termios keys = _before;
        // Ctrl-S would hold up what is printed, and with it the keys that follow.
        keys.c_iflag &= ~static_cast<tcflag_t>(IXON);
        keys.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
        keys.c_cc[VMIN] = 1;
        keys.c_cc[VTIME] = 0;
        _hasKeyboard = tcsetattr(STDIN_FILENO, TCSANOW, &keys) == 0;
    }
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    ~System() {
        if (_hasKeyboard) {
            // Digits struck after the end are no command for the shell.
            tcflush(STDIN_FILENO, TCIFLUSH);
            tcsetattr(STDIN_FILENO, TCSANOW, &_before);
        }
    }

    bool hasKeyboard() const { return _hasKeyboard; }

    Input wait(std::chrono::milliseconds patience) {
        std::array<pollfd, 2> waited{pollfd{wakeUp[0], POLLIN, 0}, pollfd{STDIN_FILENO, POLLIN, 0}};
        if (poll(waited.data(), waited.size(), static_cast<int>(patience.count())) <= 0) {
            return {};
        }
        if (waited[0].revents != 0) {
            return {Event::stop};
        }
        const std::optional<char> byte = read();
        if (!byte) {
            return {Event::endOfInput};
        }
        return *byte == escape ? afterEscape() : Input{Event::key, *byte};
    }

  private:
    /// The next byte, or nothing at the end.
    static std::optional<char> read() {
        char byte = 0;
        ssize_t count = -1;
        do {
            count = ::read(STDIN_FILENO, &byte, 1);
        } while (count < 0 && errno == EINTR);
        return count == 1 ? std::optional(byte) : std::nullopt;
    }

    /// The next byte of the same key, or nothing.
    static std::optional<char> readOfSameKey() {
        pollfd waited{STDIN_FILENO, POLLIN, 0};
        const bool isThere = poll(&waited, 1, static_cast<int>(betweenBytesOfAKey.count())) > 0;
        return isThere ? read() : std::nullopt;
    }

    /// Escape begins what other keys send: "ESC [ A" is an arrow, "ESC 3" is Alt-3.
    static Input afterEscape() {
        std::optional<char> byte = readOfSameKey();
        if (!byte || *byte == escape) {
            return {Event::escape};
        }
        if (*byte != '[' && *byte != 'O') {
            return {Event::key, *byte};
        }
        do {
            byte = readOfSameKey();
        } while (byte && (*byte < '@' || *byte > '~'));
        return {};
    }

    WakeUpPipe _wakeUp;
    SignalAnswer _interrupt{SIGINT, stopAsked};
    SignalAnswer _terminate{SIGTERM, stopAsked};
    SignalAnswer _hangUp{SIGHUP, stopAsked};
    SignalAnswer _quit{SIGQUIT, stopAsked};
    // A write to a pipe that nobody reads fails, and no key puts the process to sleep.
    SignalAnswer _brokenPipe{SIGPIPE, SIG_IGN};
    SignalAnswer _suspend{SIGTSTP, SIG_IGN};
    SignalAnswer _background{SIGTTOU, SIG_IGN};
    termios _before = {};
    bool _hasKeyboard = false;
};

Terminal::Terminal() : _system(std::make_unique<System>()) {}

Terminal::~Terminal() = default;

bool Terminal::hasKeyboard() const {
    return _system->hasKeyboard();
}

bool Terminal::hasScreen() const {
    return isatty(STDOUT_FILENO) != 0;
}

Terminal::Input Terminal::wait(std::chrono::milliseconds patience) {
    return _system->wait(patience);
}

}  // namespace marquill
