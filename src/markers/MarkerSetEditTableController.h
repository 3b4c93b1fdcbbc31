// The list of the marker set editor: sets are added, duplicated, deleted, renamed and moved, and all of it
// can be undone. Owned by MarkerSetSheet, over widgets that are owned by its window. Main thread.
#pragma once

#include "markers/MarkerSetEditTableModel.h"

#include <QMenu>

#include <optional>

class QAction;
class QPushButton;

namespace marquill {

class TableView;
class UndoManager;

/// What an operation on the list is told, and told again by undo: {"item", "index", "action", "itemTitle"}.
/// `index` is a row, from 0; `action`, the name of the undo step, is there when the user started an add or a
/// delete; `itemTitle` counts for a change of the title only.
struct MarkerSetChange {
    MarkerSet item;
    int index = 0;
    std::optional<QString> action = {};
    QString itemTitle = {};
};

/// The widgets that the list answers to.
struct MarkerSetEditTableWidgets {
    TableView& table;
    QPushButton& addItemButton;
    QPushButton& duplicateItemButton;
    QPushButton& deleteItemButton;
    QPushButton& undoButton;
    QPushButton& redoButton;
};

class MarkerSetEditTableController : public QObject {
    Q_OBJECT

  public:
    /// Makes the widgets show the list and answer to this controller; `undoManager` is their window's.
    MarkerSetEditTableController(const MarkerSetEditTableWidgets& widgets, UndoManager& undoManager,
                                 QObject* parent = nullptr);
    ~MarkerSetEditTableController() override;

    /// The sets in the order of the rows.
    const Array& markerSetArray() const { return _model.items(); }
    /// Edits `sets` itself, no copy of it, and deselects all rows.
    void setMarkerSetArray(const Array& sets);
    /// Selects exactly that row; a row that is not there deselects all.
    void selectIndex(int row);
    /// The first selected row, or -1.
    int selectedIndex() const;
    /// Takes over a title that is still being typed.
    void endEditing();

    /// Appends a new set titled "New Set".
    void addItem();
    /// Appends a copy of the first selected row's set, with the same title and an identity of its own.
    void duplicateItem();
    /// Deletes the first selected row's set; the only one stays, and the user is told.
    void deleteItem();

    // The operations that can be undone. A set is found in the list by its content.

    /// Inserts the set before row `index` and selects it.
    void addItemWithUndo(const MarkerSetChange& change);
    /// Deletes the set, whatever the index, and deselects all rows.
    void deleteItemWithUndo(const MarkerSetChange& change);
    /// Puts a copy of the set, titled `itemTitle`, in its place: whoever else has the set keeps it as it was.
    /// Nothing happens when that is its title already.
    void setItemNameWithUndo(const MarkerSetChange& change);
    /// Moves the set before what is in row `index` now, and selects it.
    void moveItemWithUndo(const MarkerSetChange& change);

    /// Drops what could be undone and redone here.
    void clearActions();

    MarkerSetEditTableModel& model() { return _model; }

  private:
    void wireTable();
    void buildCommands();
    QAction* command(const QString& id) const;
    void undo();
    void redo();
    void editSelected();
    void moveUp();
    void moveDown();
    void moveSelectedTo(int row);
    using Operation = void (MarkerSetEditTableController::*)(const MarkerSetChange&);
    void registerUndo(Operation operation, const MarkerSetChange& inverse,
                      const std::optional<QString>& actionName);
    void tableViewSelectionDidChange();
    void undoManagerDidChange();

    TableView& _tableView;
    UndoManager& _undoManager;
    MarkerSetEditTableModel _model;
    QMenu _contextMenu;
};

}  // namespace marquill
