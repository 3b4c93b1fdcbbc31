#include "movie/Movie.h"

#include "movie/MovieReader.h"
#include "movie/SampleTimes.h"

#include <algorithm>
#include <array>

namespace marquill {

namespace {

constexpr FourCharCode video("vide");
/// Media that draw without being video: text, subtitles, captions, sprites, Flash, MPEG, QuickDraw 3D,
/// QuickTime VR, pictures and auxiliary pictures.
constexpr std::array drawing = {FourCharCode("text"), FourCharCode("sbtl"), FourCharCode("subt"),
                                FourCharCode("subp"), FourCharCode("clcp"), FourCharCode("sprt"),
                                FourCharCode("flsh"), FourCharCode("MPEG"), FourCharCode("qd3d"),
                                FourCharCode("qtvr"), FourCharCode("pict"), FourCharCode("auxv")};

bool isVideo(const Track& track) {
    return track.handler == video;
}

bool draws(const Track& track) {
    return std::ranges::find(drawing, track.handler) != drawing.end();
}

}  // namespace

Result<Movie> Movie::open(const QString& path) {
    Result<MovieFacts> facts = readMovieFacts(path);
    if (!facts) {
        return std::unexpected(std::move(facts.error()));
    }
    return Movie(std::make_shared<const MovieFacts>(std::move(*facts)));
}

double Movie::seconds() const {
    return timeScale() == 0 ? 0.0 : static_cast<double>(duration()) / timeScale();
}

const Track* Movie::visualTrack() const {
    const std::vector<const Track*> visual = visualTracks();
    return visual.empty() ? nullptr : visual.front();
}

const Track* Movie::firstVisualTrack() const {
    const auto found =
        std::ranges::find_if(tracks(), [](const Track& track) { return isVideo(track) || draws(track); });
    return found == tracks().end() ? nullptr : &*found;
}

std::vector<const Track*> Movie::visualTracks() const {
    for (const auto& shows : {isVideo, draws}) {
        for (const bool mustBeEnabled : {true, false}) {
            std::vector<const Track*> found;
            for (const Track& track : tracks()) {
                if (shows(track) && (track.enabled || !mustBeEnabled)) {
                    found.push_back(&track);
                }
            }
            if (!found.empty()) {
                return found;
            }
        }
    }
    return {};
}

const Result<SampleTimes>& Movie::sampleTimes() const {
    if (!_sampleTimes) {
        _sampleTimes = std::make_shared<const Result<SampleTimes>>(SampleTimes::load(*this));
    }
    return *_sampleTimes;
}

}  // namespace marquill
