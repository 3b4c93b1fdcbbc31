#include "connect/MoviePreview.h"

#include "connect/ClipViewer.h"
#include "connect/MovieRect.h"
#include "connect/ShownMovie.h"
#include "movie/QTHelper.h"
#include "platform/DelayedCalls.h"
#include "platform/Log.h"

#include <QContextMenuEvent>
#include <QGraphicsDropShadowEffect>
#include <QPainter>

namespace marquill {

namespace {

constexpr double updateDelay = 0.2;    // seconds from a frame to its time code
constexpr int contextMenuPoints = 10;  // size of the menu's font
constexpr int messageMargin = 8;       // units
const QColor surround = QColor::fromRgbF(0.4F, 0.4F, 0.4F);

static_assert(MovieView::controlBarHeight == static_cast<int>(movieControlBarHeight));

const QFont& messageFont() {
    static const QFont font = [] {
        QFont helvetica(u"Helvetica"_s, 16);
        helvetica.setStyleHint(QFont::SansSerif);
        return helvetica;
    }();
    return font;
}

}  // namespace

MoviePreview::MoviePreview(QWidget* parent) : MovieView(parent), _focusRing(new QFrame(this)) {
    _focusRing->setObjectName(u"_focusRing"_s);
    _focusRing->setAttribute(Qt::WA_TransparentForMouseEvents);
    _focusRing->hide();
    messageLabel().setFont(messageFont());
    messageLabel().setStyleSheet(u"color: white"_s);
    messageLabel().setMargin(messageMargin);
    // White stands out from the surround by itself, from a bright picture by its shadow.
    auto* shadow = new QGraphicsDropShadowEffect(&messageLabel());
    shadow->setOffset(0, 1);
    shadow->setBlurRadius(messageMargin);
    shadow->setColor(Qt::black);
    messageLabel().setGraphicsEffect(shadow);
    connect(this, &MovieView::willDisplayImage, this, &MoviePreview::frameDisplayed);
    connect(this, &MovieView::currentTimeChanged, this, &MoviePreview::frameDisplayed);
    connect(this, &MovieView::movieFailed, this, [this](const QString& message) {
        forgetMovie();
        layOut();
        update();
        updateTimeCode();
        explain(message);
    });
    connect(&_watcher, &QFileSystemWatcher::fileChanged, this, &MoviePreview::fileChanged);
    makeContextMenu();
}

void MoviePreview::focusInEvent(QFocusEvent* event) {
    MovieView::focusInEvent(event);
    _focusRing->show();
    _focusRing->raise();
}

void MoviePreview::focusOutEvent(QFocusEvent* event) {
    MovieView::focusOutEvent(event);
    _focusRing->hide();
}

void MoviePreview::resizeEvent(QResizeEvent* event) {
    MovieView::resizeEvent(event);
    _focusRing->setGeometry(rect());
}

void MoviePreview::makeContextMenu() {
    auto* menu = new QMenu(this);
    auto* item = menu->addAction(tr("Open Clip in Viewer"), this, &MoviePreview::openClipInViewer);
    item->setObjectName(u"openClipInViewer"_s);
    setContextMenu(menu);
}

void MoviePreview::setMovie(const MovieSource& /*source*/) {
    qCWarning(logConnect, "'setMovie' not allowed!");
}

void MoviePreview::setMovieByPath(const std::optional<QString>& path) {
    forgetMovie();
    explain(std::nullopt);
    if (path) {
        if (const Result<Movie> movie = Movie::open(*path)) {
            present(*movie);
        } else {
            qCInfo(logConnect).noquote() << movie.error().description();
        }
    }
    if (!_movie) {
        clearMovie();
    }
    updateTimeCode();
}

void MoviePreview::setOpenMovie(const Movie& movie) {
    forgetMovie();
    explain(std::nullopt);
    present(movie);
    updateTimeCode();
}

void MoviePreview::present(const Movie& movie) {
    _path = movie.path();
    _movie = movie;
    _watcher.addPath(movie.path());
    MovieView::setMovie(movieSource(movie));
}

void MoviePreview::forgetMovie() {
    if (_path) {
        _watcher.removePath(*_path);
    }
    _path.reset();
    _movie.reset();
}

// A change within the file is none of the picture's concern: the clip's record is kept in it.
void MoviePreview::fileChanged() {
    if (!_movie) {
        return;
    }
    const std::optional<QString> loss = lossOfFile(*_movie);
    if (!loss) {
        return;
    }
    const QString path = *_path;
    setMovieByPath(path);
    if (!_movie) {
        explain(loss);
    }
}

void MoviePreview::setString(const std::optional<QString>& text) {
    _string = text;
    setMessage(_string ? _string : _failure);
}

void MoviePreview::explain(const std::optional<QString>& failure) {
    _failure = failure;
    setMessage(_string ? _string : _failure);
}

void MoviePreview::setTimeCodeField(QLabel* field) {
    _timeCodeField = field;
    updateTimeCode();
}

void MoviePreview::updateTimeCode(bool redraw) {
    if (_timeCodeField) {
        _timeCodeField->setText(_movie ? QTHelper::timeCodeStringFromQTTime(currentTime(), *_movie)
                                       : u"--:--:--.--"_s);
    }
    DelayedCalls::cancelAll(this);
    if (redraw && _timeCodeField) {
        _timeCodeField->repaint();
    }
}

void MoviePreview::frameDisplayed() {
    DelayedCalls::performAfterDelay(this, updateDelay, [this] { updateTimeCode(true); });
}

void MoviePreview::update() {
    redraw();
    MovieView::update();
}

QRectF MoviePreview::movieRect() const {
    if (!_movie) {
        return MovieView::movieRect();
    }
    const QSizeF natural = naturalBounds(*_movie);
    const MovieRect rect =
        marquill::movieRect(static_cast<float>(width()), static_cast<float>(height()),
                            static_cast<float>(natural.width()), static_cast<float>(natural.height()));
    return {rect.x, rect.y, rect.width, rect.height};
}

void MoviePreview::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    QRegion outside = event->region();
    if (_movie) {
        // The toolkit measures from the top.
        outside -= movieRect().translated(0, height() - 2 * movieRect().y() - movieRect().height()).toRect();
    }
    for (const QRect& part : outside) {
        painter.fillRect(part, surround);
    }
}

void MoviePreview::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = menuForEvent();
    if (!hasMovie() || !menu) {
        event->ignore();
        return;
    }
    QFont font = menu->font();
    font.setPointSize(contextMenuPoints);
    menu->setFont(font);
    for (QAction* item : menu->actions()) {
        item->setEnabled(validateMenuItem(*item));
    }
    menu->popup(event->globalPos());
}

bool MoviePreview::validateMenuItem(const QAction& item) const {
    return item.objectName() == u"openClipInViewer"_s || isLoaded();
}

void MoviePreview::openClipInViewer() {
    if (_path) {
        ClipViewer::openClipWithFile(_path);
    }
}

}  // namespace marquill
