// Signals by sigaction: the handler, which may do next to nothing, writes a byte into a pipe that the event
// loop reads.
#include "platform/TerminationSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace marquill {

namespace {

constexpr std::array signalNumbers = {SIGTERM, SIGHUP, SIGINT};

std::array<int, 2> pipeEnds = {-1, -1};  // reading, writing
std::array<struct sigaction, signalNumbers.size()> before = {};

void noteSignal(int) {
    const int error = errno;
    const char byte = 0;
    // A pipe that is full has told enough.
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &byte, 1);
    errno = error;
}

void takeSignals() {
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < signalNumbers.size(); ++index) {
        sigaction(signalNumbers.at(index), nullptr, &before.at(index));
        if (before.at(index).sa_handler != SIG_IGN) {
            sigaction(signalNumbers.at(index), &action, nullptr);
        }
    }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> received) : _received(std::move(received)) {
    if (pipe(pipeEnds.data()) != 0) {
        return;
    }
    for (const int end : pipeEnds) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    _notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(), [this] {
        std::array<char, 64> bytes{};
        if (read(pipeEnds[0], bytes.data(), bytes.size()) > 0) {
            _received();
        }
    });
    takeSignals();
}

TerminationSignals::~TerminationSignals() {
    if (!_notifier) {
        return;
    }
    for (std::size_t index = 0; index < signalNumbers.size(); ++index) {
        sigaction(signalNumbers.at(index), &before.at(index), nullptr);
    }
    _notifier.reset();
    for (int& end : pipeEnds) {
        close(end);
        end = -1;
    }
}

}  // namespace marquill
