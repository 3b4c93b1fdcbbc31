// Turns times into the texts that people see. No state, any thread.
#pragma once

#include "movie/Movie.h"
#include "movie/MovieTime.h"

#include <QString>

namespace marquill::QTHelper {

/// Whole seconds as "HH:MM", the seconds cut off. Hours grow beyond two digits and never wrap: 360000 gives
/// "100:00". Negative seconds divide toward zero, as in C: -59 gives "00:00", -3725 gives "-1:-2".
QString timeCodeStringHHMM(qint64 seconds);

/// Whole seconds as "HH:MM:SS", with the same rules: 3725 gives "01:02:05", -1 gives "00:00:-1".
QString timeCodeStringHHMMSS(qint64 seconds);

/// The start of the latest video sample that begins before `time`, or -1 when none does, with the time scale
/// and the flags of `time`. The search starts at the low 32 bits of the value, sign-extended, and takes them
/// as the movie's own time scale whatever the time says of its. In a movie whose sample tables cannot be read
/// no sample is found; the log tells why.
MovieTime previousSampleTimeForTime(const MovieTime& time, const Movie& movie);

/// A position as "HH:MM:SS.FF"; FF counts the video samples since the second began, so that a time on the
/// first sample of a second gives "00", whatever the frame rate. A time without a time scale is taken for 0
/// seconds.
QString timeCodeStringFromQTTime(const MovieTime& time, const Movie& movie);

}  // namespace marquill::QTHelper
