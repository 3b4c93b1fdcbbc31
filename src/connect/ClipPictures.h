// The pictures of the clips' movies: in a column of the clip table, and in the tip of a clip's status. They
// are made in the background for the rows on screen, see PosterFrames. Owned by ClipTableController. Main
// thread.
#pragma once

#include "platform/PosterFrames.h"

#include <QPersistentModelIndex>
#include <QTimer>

class QHelpEvent;

namespace marquill {

class ClipRows;
class ClipTableModel;
class TableView;

class ClipPictures : public QObject {
    Q_OBJECT

  public:
    /// For `table`, which shows `rows` of `model`; all must live as long. Rows are the table's.
    ClipPictures(TableView& table, const ClipRows& rows, const ClipTableModel& model,
                 QObject* parent = nullptr);
    ~ClipPictures() override;

    /// Whether the column is there; rows are then high enough for it.
    void setVisible(bool visible);
    bool isVisible() const { return _isVisible; }

    /// The picture of a row's movie; null while there is none, and then it is made soon, if it can be.
    QPixmap pictureAt(int row);
    /// Whether the movie of a row has no picture, or there is no movie.
    bool hasNone(int row) const;
    /// Shows the tip of a clip's status with the picture; false where there is none yet, or no movie. A tip
    /// without it gets it when it comes.
    bool showTip(const QHelpEvent& event, const QModelIndex& index);
    /// Looks again at the movies of the rows on screen, which may have changed.
    void lookAgain();
    /// Another folder is shown.
    void cancel();

    /// What makes them.
    PosterFrames& frames();

  private:
    QString mediaPath(int row) const;
    void askShown();
    void posterChanged(const QString& path);
    QString tipText(const QModelIndex& index, const QPixmap& picture) const;

    TableView& _table;
    const ClipRows& _rows;
    const ClipTableModel& _model;
    std::unique_ptr<PosterFrames> _frames;  // none until a picture is wanted
    bool _isVisible = false;
    int _plainRowHeight = 0;
    QTimer _asking;  // many rows are painted at once
    QPersistentModelIndex _tipIndex;
    QPoint _tipPlace;  // on the screen
};

}  // namespace marquill
