// A window of its own that plays one clip file, in its natural proportions. Each viewer owns its window and
// goes with it; a file has one viewer. Main thread.
#pragma once

#include "movie/Movie.h"
#include "movie/MovieTime.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QSizeF>
#include <QTimer>

#include <memory>
#include <optional>

class QLabel;
class QWidget;

namespace marquill {

class MovieView;

class ClipViewer : public QObject {
    Q_OBJECT

  public:
    /// The viewer of the file at `path`, in front; null, after an alert, when no path is given or there is no
    /// file. A file that is no movie gets an empty viewer. The viewer lives until its window is closed.
    static ClipViewer* openClipWithFile(const std::optional<QString>& path);
    ~ClipViewer() override;

    QWidget& window() const { return *_window; }
    MovieView& movieView() const { return *_movieView; }
    QLabel& timeCodeField() const { return *_timeCodeField; }
    const QString& path() const { return _path; }
    const std::optional<Movie>& movie() const { return _movie; }

    /// Opens the movie; that there is none is no failure.
    void readFromURL(const QString& path);
    /// The window's size, in logical pixels without its frame, that keeps the picture's proportions when
    /// `proposed` is asked for.
    QSizeF windowWillResize(const QSizeF& proposed) const;
    /// Shows the time code when the time has changed since it was shown last.
    void updateTimeCode();
    /// Stops the movie; the window goes half a second later.
    void close();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ClipViewer() = default;

    Result<void> loadWindow();
    void windowControllerDidLoadNib();
    void frameDisplayed();
    void keepProportions();
    void orderFront();

    QString _path;
    std::optional<Movie> _movie;
    QSizeF _naturalSize;
    std::optional<QString> _failure;  // why the file is no movie that could be opened
    MovieTime _lastTime{-1, -1, 0};
    std::unique_ptr<QWidget> _window;
    MovieView* _movieView = nullptr;
    QLabel* _timeCodeField = nullptr;
    QFileSystemWatcher _watcher;  // of the movie's file
    QTimer _resizing;             // runs while the user changes the window's size
    bool _closing = false;
    bool _quitting = false;
};

}  // namespace marquill
