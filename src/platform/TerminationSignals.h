// Tells of the signals by which a system that shuts down, a session that ends or a terminal asks the program
// to end (SIGTERM, SIGHUP, SIGINT). One at a time; main thread. Other systems tell by closing the windows.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace marquill {

class TerminationSignals {
  public:
    /// Takes the signals, but those that whoever started the program has had ignored, until it is destroyed,
    /// and calls `received` when one came: from the event loop, also that of a dialog.
    explicit TerminationSignals(std::function<void()> received);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

  private:
    std::function<void()> _received;
    std::unique_ptr<QSocketNotifier> _notifier;
};

}  // namespace marquill
