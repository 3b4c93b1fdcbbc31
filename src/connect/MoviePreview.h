// The movie area of the Clip Manager window: the selected clip's movie on a grey surround, its time code in a
// field beside it, and a message where there is nothing to show. Belongs to the window; main thread.
#pragma once

#include "movie/Movie.h"
#include "movie/MovieTime.h"
#include "platform/MovieView.h"

#include <QFileSystemWatcher>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QPointer>

class QAction;

namespace marquill {

class MoviePreview : public MovieView {
    Q_OBJECT

  public:
    explicit MoviePreview(QWidget* parent = nullptr);

    /// Shows the movie at `path`, or nothing. A file that is no movie leaves the preview empty; one that
    /// opens and turns out not to play, vanishes or is replaced by such a file leaves a message.
    void setMovieByPath(const std::optional<QString>& path);
    /// Shows a movie that has been opened already, so that its file is not read twice.
    void setOpenMovie(const Movie& movie);
    /// Refused: the preview would not know the file.
    void setMovie(const MovieSource& source) override;
    /// Of the movie shown, or nothing.
    const std::optional<QString>& path() const { return _path; }
    /// The movie shown, or nothing.
    const std::optional<Movie>& movie() const { return _movie; }
    /// The time of the frame on show, in the movie's time scale.
    MovieTime currentTime() const { return {currentTimeValue(), timeScale(), 0}; }

    /// Draws `text` over the view; nothing takes it away.
    void setString(const std::optional<QString>& text);

    /// The field that shows the time code; it is filled at once. The preview does not own it.
    void setTimeCodeField(QLabel* field);
    /// Writes the time code of the frame on show into its field and drops the updates that are pending; with
    /// `redraw` the field is drawn at once.
    void updateTimeCode(bool redraw = false);

    using MovieView::update;
    /// Draws the surround and the movie anew.
    void update();

    QRectF movieRect() const override;

    /// The menu of a right click; the preview's own has "Open Clip in Viewer". The preview does not own it.
    void setContextMenu(QMenu* menu) { _contextMenu = menu; }
    QMenu* menuForEvent() const { return _contextMenu; }
    /// Whether the menu's item can be chosen now.
    bool validateMenuItem(const QAction& item) const;
    void openClipInViewer();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void forgetMovie();
    void present(const Movie& movie);
    void frameDisplayed();
    /// The file's folder entry changed: it may be gone, or another file.
    void fileChanged();
    void explain(const std::optional<QString>& failure);
    void makeContextMenu();

    std::optional<QString> _path;
    std::optional<Movie> _movie;
    std::optional<QString> _string;   // what the owner has to say
    std::optional<QString> _failure;  // what the preview has to say where the owner says nothing
    QPointer<QLabel> _timeCodeField;
    QPointer<QMenu> _contextMenu;
    QFileSystemWatcher _watcher;
    QFrame* _focusRing;  // around everything while keys go to the movie
};

}  // namespace marquill
