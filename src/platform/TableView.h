// The table of the program's lists: it routes the Delete keys, context menus and key presses to the list's
// controller, and ending a cell edit never moves on to another cell. Main thread.
#pragma once

#include <QTableView>

#include <functional>

class QMenu;

namespace marquill {

class TableView : public QTableView {
    Q_OBJECT

  public:
    explicit TableView(QWidget* parent = nullptr);

    // What the controller answers to; each may be left unset.
    std::function<void()> deleteItem;  ///< Delete and Forward Delete; the key goes no further
    /// Other keys of one character, Tab among them; accepted: goes no further. A Tab that is not accepted
    /// moves the focus on.
    std::function<void(QKeyEvent&)> keyDown;
    std::function<QMenu*(const QContextMenuEvent&)> menuForEvent;  ///< the menu for a right click, or null

    /// Takes over what stands in a cell's open editor, and closes it. What replaces the rows otherwise drops
    /// it.
    void endEditing();
    /// Whether an editor is open in the current cell.
    bool isEditing() const { return state() == EditingState && indexWidget(currentIndex()) != nullptr; }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Home and End go to the first and the last row, as rows are what is selected.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
};

}  // namespace marquill
