// The cell of the recording column: the recording symbol in the row of the recording folder, nothing in the
// others. A click on it goes to the model, whatever it shows. Main thread.
#pragma once

#include <QStyledItemDelegate>

namespace marquill {

class RecordIconCell : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where the symbol is drawn in a cell of that place and size, in logical pixels: 3 from the left edge,
    /// vertically centred, the offset rounded up.
    static QRect symbolRect(const QRect& cell);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// A plain cell's size, wider by the symbol and its distance from the edge.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The editor's place leaves the symbol's strip out.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace marquill
