// A position in a movie. A value, any thread.
#pragma once

#include <QtGlobal>

namespace marquill {

struct MovieTime {
    qint64 value = 0;      ///< in units of the time scale; negative before the movie's start
    qint32 timeScale = 0;  ///< units per second
    qint32 flags = 0;      ///< whoever made the time keeps notes here; they are handed on as they are

    /// value / timeScale; 0 for a time without a time scale.
    double seconds() const {
        return timeScale == 0 ? 0.0 : static_cast<double>(value) / static_cast<double>(timeScale);
    }
    bool operator==(const MovieTime&) const = default;
};

}  // namespace marquill
