#include "platform/TableView.h"

#include "platform/CellDelegate.h"
#include "platform/TableHeader.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

namespace marquill {

TableView::TableView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTabKeyNavigation(false);
    setItemDelegate(new CellDelegate(this));
    setHorizontalHeader(new TableHeader(Qt::Horizontal, this));
}

// Tab is offered here: the toolkit would move the focus before it let anyone see the key.
bool TableView::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && keyDown) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier) {
            key->ignore();
            keyDown(*key);
            if (key->isAccepted()) {
                return true;
            }
            key->accept();
        }
    }
    return QTableView::event(event);
}

void TableView::keyPressEvent(QKeyEvent* event) {
    const bool isDelete = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    if (isDelete && deleteItem) {
        deleteItem();
        return;
    }
    const bool isTab = event->key() == Qt::Key_Tab;  // offered before
    if (!isDelete && !isTab && keyDown && event->text().size() == 1) {
        event->ignore();
        keyDown(*event);
        if (event->isAccepted()) {
            return;
        }
        event->accept();
    }
    QTableView::keyPressEvent(event);
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
    if (QMenu* menu = menuForEvent ? menuForEvent(*event) : nullptr) {
        menu->popup(event->globalPos());
    }
}

QModelIndex TableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (!model() || (action != MoveHome && action != MoveEnd)) {
        return QTableView::moveCursor(action, modifiers);
    }
    const int column = currentIndex().isValid() ? currentIndex().column() : 0;
    return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1, column);
}

void TableView::endEditing() {
    const QPointer<QWidget> editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (editor) {
        commitData(editor);
    }
    if (editor && indexWidget(currentIndex()) == editor) {
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void TableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const bool reverts = hint == QAbstractItemDelegate::RevertModelCache;
    QTableView::closeEditor(editor, reverts ? hint : QAbstractItemDelegate::NoHint);
    setFocus(Qt::OtherFocusReason);
}

}  // namespace marquill
