// Turns times into the texts that people see. No state, any thread.
#pragma once

#include <QString>

namespace marquill::QTHelper {

/// Whole seconds as "HH:MM", the seconds cut off. Hours grow beyond two digits and never wrap: 360000 gives
/// "100:00". Negative seconds divide toward zero, as in C: -59 gives "00:00", -3725 gives "-1:-2".
QString timeCodeStringHHMM(qint64 seconds);

/// Whole seconds as "HH:MM:SS", with the same rules: 3725 gives "01:02:05", -1 gives "00:00:-1".
QString timeCodeStringHHMMSS(qint64 seconds);

}  // namespace marquill::QTHelper
