// The slider of a movie's time, with a tick for each of its markers. Main thread.
#pragma once

#include <QList>
#include <QSlider>

#include <optional>

namespace marquill {

/// Its value is the time in milliseconds. Keys are left to the movie view around it.
class MovieScrubber : public QSlider {
    Q_OBJECT

  public:
    explicit MovieScrubber(QWidget* parent = nullptr);

    /// In seconds; 0 for no movie.
    void setDuration(double seconds);
    /// Moves the knob, except while it is being dragged.
    void setSeconds(double seconds);
    /// In seconds from the movie's start; those beyond its end are not drawn.
    void setMarkerTimes(const QList<double>& seconds);
    const QList<double>& markerTimes() const { return _markerTimes; }

    /// Where the moment `seconds` is drawn, in the widget's logical pixels from its left edge.
    double positionOf(double seconds) const;

    QSize sizeHint() const override { return {160, 16}; }
    QSize minimumSizeHint() const override { return {32, 16}; }

  Q_SIGNALS:
    /// The user wants to see the moment `seconds`.
    void scrubbed(double seconds);
    /// The user clicked the tick of markerTimes()[index]; `scrubbed` has told its time already.
    void markerClicked(int index);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void scrubTo(double x);
    void show(double seconds);
    std::optional<int> markerAt(double x) const;
    void drawMarkers(QPainter& painter) const;

    double _duration = 0;
    QList<double> _markerTimes;
    std::optional<int> _pressedMarker;  // while the mouse button is down on its tick
    double _pressedAt = 0;              // logical pixels
};

}  // namespace marquill
