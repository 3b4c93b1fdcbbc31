// The takes of the demo: one morning of a short film. Fixed data, any thread.
#pragma once

#include "platform/Literals.h"

#include <QStringList>

#include <vector>

namespace marquill {

struct DemoMarker {
    QString title;  ///< "Action" and "Cut" are the in and the out point
    double in = 0;  ///< seconds from the take's start
    QString comment = {};
};

/// What became of the picture of a take.
enum class DemoMedia {
    connected,  ///< its movie is on the camera card, and connected
    offline,    ///< it is connected to a movie of another card, which is not there
    onCard,     ///< its movie is on the camera card, for "Connect"
    none,       ///< no movie at all
    recorded,   ///< it is no placeholder: a movie that lies in the record folder itself
};

struct DemoTake {
    QString name;      ///< "Harbour wide#01": file name without extension
    QString scene;     ///< "12A"
    int start = 0;     ///< seconds after the first take of the morning
    int duration = 0;  ///< seconds; of its movie too
    int rating = 0;    ///< 0 to 5
    QString label;     ///< one of demoLabels(), or ""
    QString comment;
    std::vector<DemoMarker> markers;
    DemoMedia media = DemoMedia::none;
    QString movie = {};    ///< the movie's file name, where there is one
    QString picture = {};  ///< what its movie shows: a source of ffmpeg's
};

/// In the order in which they were shot: ten placeholders and one movie.
const std::vector<DemoTake>& demoTakes();

/// The labels that the takes bear, and some more.
QStringList demoLabels();

/// The titles of the ten marker buttons.
QStringList demoMarkerTitles();

}  // namespace marquill
