// The label list: the labels a clip can be given, in the order of the label menus. Adding, deleting, renaming
// and moving can be undone. Owned by Preferences, over widgets that are owned by its window. Main thread.
#pragma once

#include "folders/LabelTableModel.h"

#include <QMenu>

#include <optional>

class QAction;
class QPushButton;

namespace marquill {

class TableView;
class UndoManager;

/// What an operation on the list is told, and told again by undo: {"label", "index"} and, when the user
/// started an add or a delete, "action", the name of the undo step. `index` is a row, from 0.
struct LabelChange {
    QString label;
    int index = 0;
    std::optional<QString> action = {};
};

/// The widgets that the list answers to.
struct LabelTableWidgets {
    TableView& table;
    QPushButton& addButton;
    QPushButton& deleteButton;
    QPushButton& undoButton;
    QPushButton& redoButton;
};

class LabelTableController : public QObject {
    Q_OBJECT

  public:
    /// Makes the widgets show the list and answer to this controller; `undoManager` is their window's.
    LabelTableController(const LabelTableWidgets& widgets, UndoManager& undoManager,
                         QObject* parent = nullptr);
    ~LabelTableController() override;

    /// The labels in the order of the rows. The same one may be there several times.
    const QStringList& labelItems() const { return _model.labels(); }
    /// Replaces the list by a copy of `labels` and deselects all rows; what could be undone in the former
    /// list is forgotten. Posts nothing: it is for the start, before anyone shows labels.
    void setLabelItems(const QStringList& labels);

    /// Appends "New Label".
    void addLabelItem();
    /// Deletes the first selected row's label; of several equal labels the first one goes.
    void deleteLabelItem();

    // The operations that can be undone. Each posts LabelListHasChanged when it has changed the list.

    /// Inserts the label before row `index` and selects it.
    void addItemWithUndo(const LabelChange& change);
    /// Deletes the first label equal to `label`, whatever the index, and deselects all rows.
    void deleteItemWithUndo(const LabelChange& change);
    /// Moves the first label equal to `label` before what is in row `index` now, and selects it.
    void moveItemWithUndo(const LabelChange& change);
    /// Renames the label in row `index`; nothing happens when that is its name already.
    void setItemName(const LabelChange& change);

    LabelTableModel& model() { return _model; }

  private:
    void wireTable();
    void buildCommands();
    QAction* command(const QString& id) const;
    void undo();
    void redo();
    void editSelected();
    void moveUp();
    void moveDown();
    void moveSelectedTo(int index);
    int selectedRow() const;
    void selectRow(int row);
    void postLabelListHasChanged();
    using Operation = void (LabelTableController::*)(const LabelChange&);
    void registerUndo(Operation operation, const LabelChange& inverse, const QString& actionName);
    void tableViewSelectionDidChange();
    void undoManagerDidChange();

    TableView& _table;
    UndoManager& _undoManager;
    LabelTableModel _model;
    QMenu _contextMenu;
};

}  // namespace marquill
