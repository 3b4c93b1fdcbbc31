#include "platform/MovieScrubber.h"

#include "platform/Literals.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace marquill {

namespace {

constexpr double knobRadius = 5;
constexpr double grooveThickness = 3;
constexpr double tickWidth = 1.5;
constexpr double tickHeight = 10;
constexpr double tickReach = 4;  // how far from a tick a click is on it

int milliseconds(double seconds) {
    return static_cast<int>(
        std::clamp(std::round(seconds * 1000), 0.0, double{std::numeric_limits<int>::max()}));
}

bool isDrawn(double markerTime, double duration) {
    return markerTime >= 0 && markerTime <= duration;
}

}  // namespace

MovieScrubber::MovieScrubber(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setAccessibleName(tr("Time"));
    setToolTip(tr("Drag to another moment of the movie, or click a marker's tick"));
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
    _pressedMarker.reset();
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
    show(std::clamp((x - knobRadius - 1) / length, 0.0, 1.0) * _duration);
}

void MovieScrubber::show(double seconds) {
    setValue(milliseconds(seconds));
    Q_EMIT scrubbed(seconds);
}

// The one with the nearest tick within reach; of several at one place the first.
std::optional<int> MovieScrubber::markerAt(double x) const {
    std::optional<int> nearest;
    double distance = tickReach;
    for (qsizetype i = 0; i < _markerTimes.size(); ++i) {
        const double away = std::abs(positionOf(_markerTimes[i]) - x);
        if (isDrawn(_markerTimes[i], _duration) && (nearest ? away < distance : away <= distance)) {
            nearest = static_cast<int>(i);
            distance = away;
        }
    }
    return nearest;
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
        if (isDrawn(seconds, _duration)) {
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
    _pressedAt = event->position().x();
    _pressedMarker = _duration > 0 ? markerAt(_pressedAt) : std::nullopt;
    if (_pressedMarker) {
        show(_markerTimes[*_pressedMarker]);
    } else {
        scrubTo(_pressedAt);
    }
}

void MovieScrubber::mouseMoveEvent(QMouseEvent* event) {
    if (!isSliderDown()) {
        return;
    }
    // A hand that trembles does not leave the tick.
    if (_pressedMarker && std::abs(event->position().x() - _pressedAt) <= tickReach) {
        return;
    }
    _pressedMarker.reset();
    scrubTo(event->position().x());
}

void MovieScrubber::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    setSliderDown(false);
    if (const std::optional<int> marker = std::exchange(_pressedMarker, std::nullopt)) {
        Q_EMIT markerClicked(*marker);
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
