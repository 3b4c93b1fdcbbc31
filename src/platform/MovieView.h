// Shows a movie and lets the user play it: the picture, and a control bar below it. Owns the player and what
// draws its frames. Main thread; decoding and, where there is no graphics processor, drawing have threads of
// their own.
#pragma once

#include "platform/FrameTimes.h"
#include "platform/MovieControlBar.h"

#include <QElapsedTimer>
#include <QRectF>
#include <QWidget>

#include <memory>
#include <optional>

class QLabel;

namespace marquill {

class MoviePlayer;
class MovieRenderer;
class MovieShuttle;

/// A movie to show, and what its owner knows of it.
struct MovieSource {
    QString path;
    FrameTimes frameTimes = {};                ///< with the movie's own time scale
    double duration = 0;                       ///< seconds; 0: as long as the player finds it to be
    QSizeF naturalSize = {};                   ///< turned as the movie is; empty: what the player finds
    std::optional<QRectF> cleanAperture = {};  ///< pixels from the top left; none: the whole picture
};

class MovieView : public QWidget {
    Q_OBJECT

  public:
    static constexpr int controlBarHeight = MovieControlBar::barHeight;

    explicit MovieView(QWidget* parent = nullptr);
    MovieView(const MovieView&) = delete;
    MovieView& operator=(const MovieView&) = delete;
    ~MovieView() override;

    /// Shows another movie, paused at its start. It is loaded while the program goes on; `movieLoaded` or
    /// `movieFailed` tells how that went.
    virtual void setMovie(const MovieSource& source);
    void clearMovie();
    /// Whether a movie was set and has not failed.
    bool hasMovie() const { return _source.has_value(); }
    bool isLoaded() const;

    bool isPlaying() const;
    void play();
    void pause();
    void stepForward() { stepByFrames(1); }
    void stepBackward() { stepByFrames(-1); }
    void stepByFrames(int count);
    void gotoBeginning();
    void gotoEnd();

    /// The time of the frame on show in units of timeScale(); 0 without a movie.
    qint64 currentTimeValue() const;
    qint32 timeScale() const;
    /// The presentation time of the frame on show, in seconds.
    double currentSeconds() const;
    /// Shows the frame that is on show at the moment `seconds`, exactly.
    void setCurrentSeconds(double seconds);
    /// In seconds; 0 while it is not known.
    double duration() const;

    int volume() const;  ///< percent
    void setVolume(int percent);

    /// The clip's markers, in seconds from its start, to be drawn as ticks.
    void setMarkerTimes(const QList<double>& seconds);
    /// A text over the picture; none to take it away.
    void setMessage(const std::optional<QString>& message);
    /// Draws the frame on show once more.
    void redraw();

    /// The size of the picture as the movie means it, turned, with square pixels; empty while it is not
    /// known.
    QSizeF naturalSize() const;
    /// The rectangle that the picture and the control bar take; units, origin at the bottom left of the view.
    virtual QRectF movieRect() const;

  Q_SIGNALS:
    /// A frame is about to be shown; its time may follow a little later.
    void willDisplayImage();
    void currentTimeChanged();
    void movieLoaded();
    /// `message` is for a person.
    void movieFailed(const QString& message);
    void playingChanged(bool playing);
    void volumeChanged(int percent);
    /// The user clicked the tick of the marker time `index`, from 0, of those that were set; the movie goes
    /// there.
    void markerClicked(int index);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    /// Places the picture and the control bar into movieRect().
    void layOut();
    QLabel& messageLabel() const { return *_message; }

  private:
    void connectPlayer();
    void connectControlBar();
    void stepKnownFrames(int count);
    void showFrame(qsizetype index);
    void shuttle(int direction);
    bool handleKey(int key);
    void updateDuration();

    std::unique_ptr<MoviePlayer> _player;
    std::unique_ptr<MovieRenderer> _renderer;
    std::unique_ptr<MovieShuttle> _shuttle;
    MovieControlBar* _controlBar;
    QLabel* _message;
    std::optional<MovieSource> _source;
    std::optional<qsizetype> _wanted;  // the frame that the latest step goes to, until it is shown
    bool _decodesOn = false;           // it goes there without a seek
    QElapsedTimer _sinceStep;
    bool _pauseKeyIsDown = false;
};

}  // namespace marquill
