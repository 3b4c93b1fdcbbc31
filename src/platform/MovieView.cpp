#include "platform/MovieView.h"

#include "platform/AccessibleRole.h"
#include "platform/MoviePlayer.h"
#include "platform/MovieRenderer.h"
#include "platform/MovieScrubber.h"
#include "platform/MovieShuttle.h"

#include <QKeyEvent>
#include <QLabel>

#include <cmath>

namespace marquill {

namespace {

// A step whose frame has not come by then will not come: the movie lacks it.
constexpr qint64 stepPatience = 1000;     // milliseconds
constexpr int narrowestControlBar = 160;  // units

}  // namespace

MovieView::MovieView(QWidget* parent)
    : QWidget(parent),
      _player(std::make_unique<MoviePlayer>()),
      _renderer(MovieRenderer::create(*_player, this)),
      _shuttle(std::make_unique<MovieShuttle>(*_player, nullptr)),
      _controlBar(new MovieControlBar(this)),
      _message(new QLabel(this)) {
    installAccessibleRoles();
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Movie"));
    setMinimumSize(64, 64);
    _renderer->widget().hide();
    _message->setObjectName(u"message"_s);
    _message->setTextFormat(Qt::PlainText);
    _message->setWordWrap(true);
    _message->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    _message->setAttribute(Qt::WA_TransparentForMouseEvents);
    _message->hide();
    _controlBar->setEnabled(false);
    connectPlayer();
    connectControlBar();
}

// The renderer goes first: libmpv wants nothing drawn when the player ends.
MovieView::~MovieView() {
    _renderer.reset();
}

void MovieView::connectPlayer() {
    _renderer->willDisplayImage = [this] { Q_EMIT willDisplayImage(); };
    _shuttle->showFrameAt = [this](double seconds) { setCurrentSeconds(seconds); };
    connect(_player.get(), &MoviePlayer::loaded, this, [this] {
        _controlBar->setEnabled(true);
        Q_EMIT movieLoaded();
    });
    connect(_player.get(), &MoviePlayer::failed, this, [this](const QString& message) {
        clearMovie();
        Q_EMIT movieFailed(message);
    });
    connect(_player.get(), &MoviePlayer::secondsChanged, this, [this](double seconds) {
        if (_wanted && _source && _source->frameTimes.indexOfFrame(seconds) == _wanted) {
            _wanted.reset();
        }
        _controlBar->scrubber().setSeconds(seconds);
        Q_EMIT currentTimeChanged();
    });
    connect(_player.get(), &MoviePlayer::playingChanged, this, [this](bool playing) {
        _controlBar->setPlaying(playing);
        Q_EMIT playingChanged(playing);
    });
    connect(_player.get(), &MoviePlayer::displaySizeChanged, this, &MovieView::layOut);
    connect(_player.get(), &MoviePlayer::durationChanged, this, &MovieView::updateDuration);
    connect(_player.get(), &MoviePlayer::volumeChanged, this, [this] {
        _controlBar->setVolume(_player->volume(), _player->isMuted());
        Q_EMIT volumeChanged(_player->volume());
    });
}

void MovieView::connectControlBar() {
    connect(_controlBar, &MovieControlBar::playOrPause, this, [this] { isPlaying() ? pause() : play(); });
    connect(_controlBar, &MovieControlBar::stepBackward, this, &MovieView::stepBackward);
    connect(_controlBar, &MovieControlBar::stepForward, this, &MovieView::stepForward);
    connect(_controlBar, &MovieControlBar::scrubbed, this, [this](double seconds) {
        _shuttle->stop();
        setCurrentSeconds(seconds);
    });
    connect(_controlBar, &MovieControlBar::markerClicked, this, &MovieView::markerClicked);
    connect(_controlBar, &MovieControlBar::volumeChosen, this, &MovieView::setVolume);
    connect(_controlBar, &MovieControlBar::muteOrUnmute, this,
            [this] { _player->setMuted(!_player->isMuted()); });
}

void MovieView::setMovie(const MovieSource& source) {
    clearMovie();
    _source = source;
    updateDuration();
    // Visible first: some renderers have nothing to draw on before.
    _renderer->widget().show();
    layOut();
    _player->load(source.path, source.cleanAperture);
}

void MovieView::clearMovie() {
    _shuttle->stop();
    _player->unload();
    _source.reset();
    _wanted.reset();
    _renderer->widget().hide();
    _controlBar->setEnabled(false);
    _controlBar->scrubber().setMarkerTimes({});
    updateDuration();
    layOut();
    update();
}

bool MovieView::isLoaded() const {
    return _player->isLoaded();
}

bool MovieView::isPlaying() const {
    return _player->isPlaying();
}

void MovieView::play() {
    if (_shuttle->rate() <= 0) {
        _wanted.reset();
        _shuttle->forward();
    }
}

void MovieView::pause() {
    _shuttle->stop();
}

void MovieView::stepByFrames(int count) {
    if (!isLoaded() || count == 0) {
        return;
    }
    if (_shuttle->rate() != 0) {
        pause();
    }
    if (_source->frameTimes.areKnown()) {
        stepKnownFrames(count);
        return;
    }
    for (int i = 0; i < std::abs(count); ++i) {
        count > 0 ? _player->stepForward() : _player->stepBackward();
    }
}

// Forward libmpv decodes on from where it is, frame by frame; backward it has to seek, and what is asked for
// while a seek is under way seeks as well.
void MovieView::stepKnownFrames(int count) {
    if (!_sinceStep.isValid() || _sinceStep.elapsed() > stepPatience) {
        _wanted.reset();
    }
    const auto current = _source->frameTimes.indexOfFrame(_player->seconds());
    const qsizetype from = _wanted.value_or(*current);
    const qsizetype to = std::clamp<qsizetype>(from + count, 0, _source->frameTimes.count() - 1);
    const bool canDecodeOn = _wanted ? _decodesOn : !_player->isSeeking();
    _decodesOn = to > from && canDecodeOn;
    _wanted = to;
    _sinceStep.start();
    if (!_decodesOn) {
        showFrame(to);
        return;
    }
    for (qsizetype i = from; i < to; ++i) {
        _player->stepForward();
    }
}

void MovieView::showFrame(qsizetype index) {
    _player->seek(_source->frameTimes.seekPoint(index));
}

void MovieView::gotoBeginning() {
    if (_shuttle->rate() < 0) {
        pause();
    }
    setCurrentSeconds(0);
}

void MovieView::gotoEnd() {
    if (_shuttle->rate() < 0) {
        pause();
    }
    if (_source && _source->frameTimes.areKnown()) {
        _wanted.reset();
        showFrame(_source->frameTimes.count() - 1);
    } else {
        _player->seekToEnd();
    }
}

qint64 MovieView::currentTimeValue() const {
    return isLoaded() && _source ? _source->frameTimes.valueOfFrame(_player->seconds()) : 0;
}

qint32 MovieView::timeScale() const {
    return _source ? _source->frameTimes.timeScale() : 0;
}

double MovieView::currentSeconds() const {
    return _player->seconds();
}

void MovieView::setCurrentSeconds(double seconds) {
    _wanted.reset();
    if (!_source) {
        return;
    }
    const auto index = _source->frameTimes.indexAt(seconds);
    if (index) {
        showFrame(*index);
    } else {
        _player->seek(seconds);
    }
}

double MovieView::duration() const {
    if (!_source) {
        return 0;
    }
    return _source->duration > 0 ? _source->duration : _player->duration();
}

void MovieView::updateDuration() {
    _controlBar->scrubber().setDuration(duration());
}

int MovieView::volume() const {
    return _player->volume();
}

void MovieView::setVolume(int percent) {
    _player->setVolume(percent);
}

void MovieView::setMarkerTimes(const QList<double>& seconds) {
    _controlBar->scrubber().setMarkerTimes(seconds);
}

void MovieView::setMessage(const std::optional<QString>& message) {
    _message->setText(message.value_or(QString()));
    _message->setVisible(message.has_value());
    _message->raise();
}

void MovieView::redraw() {
    _renderer->redraw();
}

QSizeF MovieView::naturalSize() const {
    return _source && !_source->naturalSize.isEmpty() ? _source->naturalSize : _player->displaySize();
}

QRectF MovieView::movieRect() const {
    const QSizeF room(width(), height() - controlBarHeight);
    const QSizeF picture = hasMovie() ? naturalSize().scaled(room, Qt::KeepAspectRatio) : QSizeF();
    if (picture.isEmpty()) {
        return {0, 0, static_cast<qreal>(width()), controlBarHeight};
    }
    return {(width() - picture.width()) / 2, 0, picture.width(), picture.height() + controlBarHeight};
}

void MovieView::layOut() {
    const QRectF rect = movieRect();
    const double top = height() - rect.y() - rect.height();
    const QRectF picture(rect.x(), top, rect.width(), rect.height() - controlBarHeight);
    _renderer->widget().setGeometry(picture.toRect());
    const double barWidth = std::max<double>(rect.width(), std::min(width(), narrowestControlBar));
    const double barTop = height() - rect.y() - controlBarHeight;
    _controlBar->setGeometry(QRectF((width() - barWidth) / 2, barTop, barWidth, controlBarHeight).toRect());
    _message->setGeometry(0, 0, width(), height() - controlBarHeight);
}

void MovieView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void MovieView::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    QWidget::mousePressEvent(event);
}

void MovieView::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (!plain || !handleKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void MovieView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_K && !event->isAutoRepeat()) {
        _pauseKeyIsDown = false;
    }
    QWidget::keyReleaseEvent(event);
}

bool MovieView::handleKey(int key) {
    switch (key) {
        case Qt::Key_Space:
            _shuttle->rate() != 0 ? pause() : play();
            return true;
        case Qt::Key_K:
            _pauseKeyIsDown = true;
            pause();
            return true;
        case Qt::Key_J:
            shuttle(-1);
            return true;
        case Qt::Key_L:
            shuttle(1);
            return true;
        case Qt::Key_Left:
            stepBackward();
            return true;
        case Qt::Key_Right:
            stepForward();
            return true;
        case Qt::Key_Home:
            gotoBeginning();
            return true;
        case Qt::Key_End:
            gotoEnd();
            return true;
        default:
            return false;
    }
}

// With K held down, J and L step.
void MovieView::shuttle(int direction) {
    if (_pauseKeyIsDown) {
        stepByFrames(direction);
    } else if (direction > 0) {
        _shuttle->forward();
    } else {
        _shuttle->backward();
    }
}

}  // namespace marquill
