// When an input event arrived, however long it waited in a queue. Main thread.
#pragma once

#include "platform/Date.h"

class QInputEvent;

namespace marquill {

/// The moment at which the window system took `event`, to the millisecond; the present moment for an event
/// whose time stamp is missing or was made by another machine's clock.
Date arrivalDate(const QInputEvent& event);

}  // namespace marquill
