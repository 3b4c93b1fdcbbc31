// Shows the cells of a table: an editor fills its cell, or a text that just fits would be cut off while it is
// edited. Owned by its table. Main thread.
#pragma once

#include <QStyledItemDelegate>
#include <QWidget>

namespace marquill {

class CellDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& /*index*/) const override {
        editor->setGeometry(option.rect);
    }
};

}  // namespace marquill
