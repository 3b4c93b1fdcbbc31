#include "platform/MovieShuttle.h"

#include "platform/MoviePlayer.h"

#include <chrono>

namespace marquill {

MovieShuttle::MovieShuttle(MoviePlayer& player, QObject* parent) : QObject(parent), _player(player) {
    _timer.setInterval(std::chrono::milliseconds(40));
    connect(&_timer, &QTimer::timeout, this, &MovieShuttle::stepBack);
    connect(&_player, &MoviePlayer::playingChanged, this, [this](bool playing) {
        if (playing != (_rate > 0)) {
            _rate = playing ? 1 : std::min(_rate, 0);
        }
    });
}

void MovieShuttle::run(int rate) {
    const int before = std::exchange(_rate, rate);
    if (rate < 0 && before == rate) {
        return;
    }
    _player.setSpeed(std::max(rate, 1));
    _player.setPlaying(rate > 0);
    if (rate < 0) {
        _start = _player.seconds();
        _running.start();
        _timer.start();
    } else {
        _timer.stop();
    }
}

// A frame that takes long to decode makes for a longer step, not for a slower run.
void MovieShuttle::stepBack() {
    if (_player.isSeeking()) {
        return;
    }
    const double moment = _start + _rate * static_cast<double>(_running.elapsed()) / 1000;
    showFrameAt(std::max(moment, 0.0));
    if (moment <= 0) {
        stop();
    }
}

}  // namespace marquill
