#include "platform/MovieScrubber.h"

#include "platform/Literals.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

constexpr double knobRadius = 5;
constexpr double grooveThickness = 3;
constexpr double tickWidth = 1.5;
constexpr double tickHeight = 10;

int milliseconds(double seconds) {
    return static_cast<int>(
        std::clamp(std::round(seconds * 1000), 0.0, double{std::numeric_limits<int>::max()}));
}

}  // namespace

MovieScrubber::MovieScrubber(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setAccessibleName(tr("Time"));
    setToolTip(tr("Drag to another moment of the movie"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
    setRange(0, 0);
}

void MovieScrubber::setDuration(double seconds) {
    _duration = std::max(seconds, 0.0);
    setRange(0, milliseconds(_duration));
    update();
}

void MovieScrubber::setSeconds(double seconds) {
    if (!isSliderDown()) {
        setValue(milliseconds(seconds));
    }
}

void MovieScrubber::setMarkerTimes(const QList<double>& seconds) {
    _markerTimes = seconds;
    update();
}

double MovieScrubber::positionOf(double seconds) const {
    const double share = _duration > 0 ? std::clamp(seconds / _duration, 0.0, 1.0) : 0;
    return knobRadius + 1 + share * (width() - 2 * (knobRadius + 1));
}

void MovieScrubber::scrubTo(double x) {
    const double length = width() - 2 * (knobRadius + 1);
    if (_duration <= 0 || length <= 0) {
        return;
    }
    const double seconds = std::clamp((x - knobRadius - 1) / length, 0.0, 1.0) * _duration;
    setValue(milliseconds(seconds));
    Q_EMIT scrubbed(seconds);
}

void MovieScrubber::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double middle = height() / 2.0;
    const double knob = positionOf(value() / 1000.0);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::ButtonText);
    QColor groove = ink;
    groove.setAlphaF(0.25F);
    painter.setPen(Qt::NoPen);
    const QRectF track(1, middle - grooveThickness / 2, width() - 2, grooveThickness);
    painter.setBrush(groove);
    painter.drawRoundedRect(track, grooveThickness / 2, grooveThickness / 2);
    if (!isEnabled()) {
        return;
    }
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(QRectF(track.topLeft(), QPointF(knob, track.bottom())), grooveThickness / 2,
                            grooveThickness / 2);
    drawMarkers(painter);
    painter.setBrush(ink);
    // The knob of a focused scrubber wears a ring.
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(Qt::NoPen));
    painter.drawEllipse(QPointF(knob, middle), knobRadius, knobRadius);
}

void MovieScrubber::drawMarkers(QPainter& painter) const {
    painter.setBrush(palette().color(QPalette::ButtonText));
    for (const double seconds : _markerTimes) {
        if (seconds >= 0 && seconds <= _duration) {
            painter.drawRect(QRectF(positionOf(seconds) - tickWidth / 2, (height() - tickHeight) / 2,
                                    tickWidth, tickHeight));
        }
    }
}

void MovieScrubber::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    scrubTo(event->position().x());
}

void MovieScrubber::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown()) {
        scrubTo(event->position().x());
    }
}

void MovieScrubber::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
    }
}

void MovieScrubber::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

// A slip of the wheel would lose the frame that is being looked at.
void MovieScrubber::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace marquill
