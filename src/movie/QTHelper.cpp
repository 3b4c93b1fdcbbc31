#include "movie/QTHelper.h"

#include "movie/SampleTimes.h"

#include <cmath>

namespace marquill::QTHelper {

QString timeCodeStringHHMM(qint64 seconds) {
    return QString::asprintf("%02lld:%02lld", seconds / 3600, seconds % 3600 / 60);
}

QString timeCodeStringHHMMSS(qint64 seconds) {
    return QString::asprintf("%02lld:%02lld:%02lld", seconds / 3600, seconds % 3600 / 60,
                             seconds % 3600 % 60);
}

MovieTime previousSampleTimeForTime(const MovieTime& time, const Movie& movie) {
    const auto start = static_cast<qint32>(static_cast<quint32>(static_cast<quint64>(time.value)));
    const Result<SampleTimes>& samples = movie.sampleTimes();
    MovieTime found = time;
    found.value = samples ? samples->previousSampleTime(start) : -1;
    return found;
}

QString timeCodeStringFromQTTime(const MovieTime& time, const Movie& movie) {
    const double second = std::floor(time.seconds());
    int frames = -1;
    MovieTime sample = time;
    do {
        sample = previousSampleTimeForTime(sample, movie);
        ++frames;
        // Before the first sample there is none to go on to, also when -1 falls into the same second.
    } while (sample.value != -1 && std::floor(sample.seconds()) == second);
    return timeCodeStringHHMMSS(static_cast<qint64>(second)) + QString::asprintf(".%02d", frames);
}

}  // namespace marquill::QTHelper
