// The strip below a movie: play, step, scrub, volume. It only tells what the user wants; the movie view does
// it. Main thread.
#pragma once

#include <QWidget>

class QSlider;
class QToolButton;

namespace marquill {

class MovieScrubber;

class MovieControlBar : public QWidget {
    Q_OBJECT

  public:
    static constexpr int barHeight = 16;  ///< logical pixels

    explicit MovieControlBar(QWidget* parent = nullptr);

    MovieScrubber& scrubber() const { return *_scrubber; }
    void setPlaying(bool playing);
    void setVolume(int percent, bool muted);

  Q_SIGNALS:
    void playOrPause();
    void stepBackward();
    void stepForward();
    void scrubbed(double seconds);
    /// The tick of that one of the scrubber's marker times was clicked.
    void markerClicked(int index);
    void muteOrUnmute();
    void volumeChosen(int percent);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QToolButton* addButton(const char* objectName, const QString& symbolName, const QString& name,
                           const QString& tip, void (MovieControlBar::*wish)());

    bool _playing = false;
    bool _muted = false;
    QToolButton* _play = nullptr;
    QToolButton* _stepBackward = nullptr;
    QToolButton* _stepForward = nullptr;
    MovieScrubber* _scrubber = nullptr;
    QToolButton* _mute = nullptr;
    QSlider* _volume = nullptr;
};

}  // namespace marquill
