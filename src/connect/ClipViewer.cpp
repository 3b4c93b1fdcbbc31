#include "connect/ClipViewer.h"

#include "connect/MovieRect.h"
#include "connect/ShownMovie.h"
#include "movie/QTHelper.h"
#include "platform/DelayedCalls.h"
#include "platform/Dialogs.h"
#include "platform/Log.h"
#include "platform/Theme.h"
#include "platform/WindowDescription.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QShortcut>

#include <chrono>

namespace marquill {

namespace {

constexpr double updateDelay = 0.2;  // seconds from a frame to its time code
constexpr double closeDelay = 0.5;   // seconds
constexpr QSizeF proposedSize(640, 480);
constexpr double timeCodePoints = 13;
// A window manager tells sizes while the edge is dragged; the proportions are put right when it comes to
// rest.
constexpr std::chrono::milliseconds resizeRest(150);

QList<ClipViewer*>& openViewers() {
    static QList<ClipViewer*> viewers;
    return viewers;
}

void tell(const QString& title, const QString& text) {
    Dialogs::current().alert(QApplication::activeWindow(),
                             {.title = title, .text = text, .buttons = {ClipViewer::tr("OK")}});
}

}  // namespace

ClipViewer* ClipViewer::openClipWithFile(const std::optional<QString>& path) {
    if (!path) {
        tell(tr("Clip file not specified"), QString());
        return nullptr;
    }
    if (!FileSystem::current().attributes(*path, Links::follow)) {
        tell(tr("Could not find Clip"),
             tr("Please connect to clip again or mount the volume where the clip resides."));
        return nullptr;
    }
    for (ClipViewer* viewer : openViewers()) {
        if (viewer->path() == *path && !viewer->_closing) {
            viewer->orderFront();
            return viewer;
        }
    }
    std::unique_ptr<ClipViewer> viewer(new ClipViewer);
    viewer->readFromURL(*path);
    if (const Result<void> loaded = viewer->loadWindow(); !loaded) {
        qCWarning(logConnect).noquote() << loaded.error().description();
        return nullptr;
    }
    viewer->windowControllerDidLoadNib();
    openViewers().append(viewer.get());
    return viewer.release();
}

ClipViewer::~ClipViewer() {
    openViewers().removeAll(this);
}

void ClipViewer::readFromURL(const QString& path) {
    _path = path;
    if (Result<Movie> movie = Movie::open(path)) {
        _movie = std::move(*movie);
        _naturalSize = naturalBounds(*_movie);
    } else {
        qCInfo(logConnect).noquote() << movie.error().description();
        _failure = movie.error().message;
    }
}

Result<void> ClipViewer::loadWindow() {
    WindowDescription::registerWidget<MovieView>(u"MovieView"_s);
    Result<std::unique_ptr<QWidget>> window = WindowDescription::load(u"ClipViewer"_s);
    if (!window) {
        return std::unexpected(window.error());
    }
    _window = std::move(*window);
    Outlets outlets(*_window);
    outlets.connect(_movieView, u"movieView"_s);
    outlets.connect(_timeCodeField, u"timeCodeField"_s);
    return outlets.check();
}

void ClipViewer::windowControllerDidLoadNib() {
    _timeCodeField->setFont(Theme::timeFont(timeCodePoints));
    _window->setWindowFilePath(_path);
    _window->installEventFilter(this);
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
    connect(new QShortcut(QKeySequence::Close, _window.get()), &QShortcut::activated, this,
            &ClipViewer::close);
    connect(_movieView, &MovieView::willDisplayImage, this, &ClipViewer::frameDisplayed);
    connect(_movieView, &MovieView::currentTimeChanged, this, &ClipViewer::frameDisplayed);
    connect(_movieView, &MovieView::movieFailed, _movieView, &MovieView::setMessage);
    _movieView->setMessage(_failure);
    _resizing.setSingleShot(true);
    _resizing.setInterval(resizeRest);
    connect(&_resizing, &QTimer::timeout, this, &ClipViewer::keepProportions);
    if (_movie) {
        _movieView->setMovie(movieSource(*_movie));
        _watcher.addPath(_path);
        connect(&_watcher, &QFileSystemWatcher::fileChanged, this,
                [this] { _movieView->setMessage(lossOfFile(*_movie)); });
        _window->layout()->activate();
        _window->resize(windowWillResize(proposedSize).toSize());
        updateTimeCode();
    }
    orderFront();
}

void ClipViewer::orderFront() {
    _window->show();
    _window->raise();
    _window->activateWindow();
    _movieView->setFocus();
}

QSizeF ClipViewer::windowWillResize(const QSizeF& proposed) const {
    const QSizeF room(_movieView->width(), _movieView->height() - MovieView::controlBarHeight);
    return viewerWindowSize(proposed, _naturalSize, _window->height(), _movie ? room : QSizeF());
}

void ClipViewer::keepProportions() {
    if ((_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0) {
        _window->resize(windowWillResize(_window->size()).toSize());
    }
}

void ClipViewer::frameDisplayed() {
    DelayedCalls::performAfterDelay(this, updateDelay, [this] { updateTimeCode(); });
}

void ClipViewer::updateTimeCode() {
    const MovieTime time{_movieView->currentTimeValue(), _movieView->timeScale(), 0};
    if (!_movie || !_movieView->hasMovie() || time == _lastTime) {
        return;
    }
    _lastTime = time;
    _timeCodeField->setText(QTHelper::timeCodeStringFromQTTime(time, *_movie));
    _timeCodeField->repaint();
}

void ClipViewer::close() {
    if (_closing) {
        return;
    }
    _closing = true;
    _resizing.stop();
    _movieView->pause();
    DelayedCalls::performAfterDelay(this, closeDelay, [this] {
        _window->hide();
        deleteLater();
    });
}

bool ClipViewer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Quit) {
        _quitting = true;
    } else if (watched == _window.get() && event->type() == QEvent::Resize && event->spontaneous()) {
        _resizing.start();
    } else if (watched == _window.get() && event->type() == QEvent::Close && !_quitting) {
        // The window of a program that quits goes at once; else quitting would be refused.
        event->ignore();
        close();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace marquill
