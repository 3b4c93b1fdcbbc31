// Plays a movie at several speeds, forward and backward: what the keys J, K and L do. Owned by the movie
// view. Main thread.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

namespace marquill {

class MoviePlayer;

class MovieShuttle : public QObject {
    Q_OBJECT

  public:
    static constexpr int fastest = 8;  ///< times the movie's own speed

    MovieShuttle(MoviePlayer& player, QObject* parent);

    /// The speed as a multiple of the movie's own, negative backward; 0 when it stands still.
    int rate() const { return _rate; }
    /// Starts at the movie's own speed, or doubles the speed of a movie that runs forward already.
    void forward() { run(_rate > 0 ? std::min(2 * _rate, fastest) : 1); }
    /// The same backward.
    void backward() { run(_rate < 0 ? std::max(2 * _rate, -fastest) : -1); }
    void stop() { run(0); }

    /// Shows the frame at a moment, in seconds; backward running is a row of these. To be set before use.
    std::function<void(double seconds)> showFrameAt;

  private:
    void run(int rate);
    void stepBack();

    MoviePlayer& _player;
    int _rate = 0;
    QTimer _timer;
    QElapsedTimer _running;
    double _start = 0;  // where running backward began, in seconds
};

}  // namespace marquill
