#include "platform/MovieControlBar.h"

#include "platform/Images.h"
#include "platform/MovieScrubber.h"

#include <QHBoxLayout>
#include <QSlider>
#include <QToolButton>

namespace marquill {

namespace {

constexpr int volumeWidth = 48;
constexpr int widthForVolume = 260;  // a narrower bar leaves the room to the scrubber

// Flat and without the themes' margins, which a strip of 16 units has no room for.
constexpr auto barStyle =
    "QToolButton { border: none; padding: 0; margin: 0; background: transparent; border-radius: 2px; }"
    "QToolButton:hover, QToolButton:focus { background: palette(mid); }"_L1;

}  // namespace

MovieControlBar::MovieControlBar(QWidget* parent) : QWidget(parent) {
    setFixedHeight(barHeight);
    setAutoFillBackground(true);
    setStyleSheet(barStyle);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 0, 2, 0);
    layout->setSpacing(2);
    _play = addButton("play", u"MoviePlay"_s, tr("Play"), tr("Play (Space)"), &MovieControlBar::playOrPause);
    _stepBackward = addButton("stepBackward", u"MovieStepBackward"_s, tr("Step Back"),
                              tr("One frame back (Left Arrow)"), &MovieControlBar::stepBackward);
    _stepForward = addButton("stepForward", u"MovieStepForward"_s, tr("Step Forward"),
                             tr("One frame forward (Right Arrow)"), &MovieControlBar::stepForward);
    _scrubber = new MovieScrubber(this);
    _scrubber->setObjectName(u"scrubber"_s);
    connect(_scrubber, &MovieScrubber::scrubbed, this, &MovieControlBar::scrubbed);
    connect(_scrubber, &MovieScrubber::markerClicked, this, &MovieControlBar::markerClicked);
    layout->addWidget(_scrubber, 1);
    _mute = addButton("mute", u"MovieVolume"_s, tr("Mute"), tr("Sound off"), &MovieControlBar::muteOrUnmute);
    _volume = new QSlider(Qt::Horizontal, this);
    _volume->setObjectName(u"volume"_s);
    _volume->setAccessibleName(tr("Volume"));
    _volume->setToolTip(tr("Volume"));
    _volume->setRange(0, 100);
    _volume->setFixedSize(volumeWidth, barHeight);
    _volume->setFocusPolicy(Qt::TabFocus);
    connect(_volume, &QSlider::valueChanged, this, &MovieControlBar::volumeChosen);
    layout->addWidget(_volume);
}

QToolButton* MovieControlBar::addButton(const char* objectName, const QString& symbolName,
                                        const QString& name, const QString& tip,
                                        void (MovieControlBar::*wish)()) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1StringView(objectName));
    button->setIcon(symbol(symbolName));
    button->setIconSize({barHeight, barHeight});
    button->setFixedSize(barHeight + 4, barHeight);
    button->setAccessibleName(name);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, wish);
    layout()->addWidget(button);
    return button;
}

void MovieControlBar::setPlaying(bool playing) {
    if (playing != _playing) {
        _playing = playing;
        _play->setIcon(symbol(playing ? u"MoviePause"_s : u"MoviePlay"_s));
        _play->setAccessibleName(playing ? tr("Pause") : tr("Play"));
        _play->setToolTip(playing ? tr("Pause (Space)") : tr("Play (Space)"));
    }
}

void MovieControlBar::setVolume(int percent, bool muted) {
    const QSignalBlocker blocker(_volume);
    _volume->setValue(percent);
    if (muted != _muted) {
        _muted = muted;
        _mute->setIcon(symbol(muted ? u"MovieVolumeOff"_s : u"MovieVolume"_s));
        _mute->setAccessibleName(muted ? tr("Unmute") : tr("Mute"));
        _mute->setToolTip(muted ? tr("Sound on") : tr("Sound off"));
    }
}

void MovieControlBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    _volume->setVisible(width() >= widthForVolume);
}

}  // namespace marquill
