// Windows closes a program's windows, or asks them, before it ends it.
#include "platform/TerminationSignals.h"

#include <QSocketNotifier>

namespace marquill {

TerminationSignals::TerminationSignals(std::function<void()> received) : _received(std::move(received)) {}
TerminationSignals::~TerminationSignals() = default;

}  // namespace marquill
