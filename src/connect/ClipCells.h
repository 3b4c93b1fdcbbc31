// The cells of the clip table: status, rating, label and texts. Owned by the table. Main thread.
#pragma once

#include "platform/CellDelegate.h"

#include <QStyledItemDelegate>

namespace marquill {

class ClipPictures;
class ClipTableModel;

/// A text; what could not be written into the record, or be a file's name, cannot be typed.
class TextCell : public CellDelegate {
    Q_OBJECT

  public:
    using CellDelegate::CellDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Line breaks of a text are shown as spaces.
    QString displayText(const QVariant& value, const QLocale& locale) const override;
};

/// The status picture, in the middle of its cell; its tip shows the movie's.
class StatusCell : public QStyledItemDelegate {
    Q_OBJECT

  public:
    StatusCell(ClipPictures& pictures, QObject* parent) : QStyledItemDelegate(parent), _pictures(pictures) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    ClipPictures& _pictures;
};

/// A picture of the clip's movie.
class PictureCell : public QStyledItemDelegate {
    Q_OBJECT

  public:
    PictureCell(ClipPictures& pictures, QObject* parent) : QStyledItemDelegate(parent), _pictures(pictures) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    ClipPictures& _pictures;
};

/// Five places for stars. A click into the cell of a selected row rates the clip.
class RatingCell : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int places = 5;

    /// The rating that a click at `x` of a cell stands for, in stars: 2.3 in the third one. From 0 to 5.
    static float ratingAt(const QRect& cell, int x);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// None: a rating is entered by a click or a digit key.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

  private:
    QPersistentModelIndex _pressed;  // the cell that a click began in while its row was selected
};

/// The label, edited by a pop-up of the label menu's items.
class LabelCell : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit LabelCell(const ClipTableModel& model, QObject* parent)
        : QStyledItemDelegate(parent), _model(model) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  private:
    const ClipTableModel& _model;
};

}  // namespace marquill
