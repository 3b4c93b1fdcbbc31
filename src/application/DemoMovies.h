// Little movies for the demo, made at that moment by ffmpeg. Main thread.
#pragma once

#include "platform/Date.h"

#include <QString>

#include <vector>

namespace marquill {

struct DemoMovie {
    QString path;
    QString picture;   ///< a source of ffmpeg's
    QString title;     ///< written into the picture, with a running time
    int duration = 0;  ///< seconds
};

/// Makes the movies, all at once, and returns how many there are then; where ffmpeg cannot write into the
/// picture or does not know its source, with its test picture. The log tells when ffmpeg is missing.
int makeDemoMovies(const std::vector<DemoMovie>& movies);

/// Dates a movie as a camera does that writes it in one go while it records: it ends at `end`.
void dateDemoMovie(const QString& path, Date end);

}  // namespace marquill
