#include "markers/MarkerSetEditTableController.h"

#include "markers/MarkerSetStore.h"
#include "platform/CommandButton.h"
#include "platform/Dialogs.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAction>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

namespace marquill {

namespace {

namespace id {
const QString addItem = u"addItem"_s;
const QString duplicateItem = u"duplicateItem"_s;
const QString deleteItem = u"deleteItem"_s;
const QString rename = u"rename"_s;
const QString moveUp = u"moveUp"_s;
const QString moveDown = u"moveDown"_s;
const QString undo = u"undo"_s;
const QString redo = u"redo"_s;
}  // namespace id

}  // namespace

MarkerSetEditTableController::MarkerSetEditTableController(const MarkerSetEditTableWidgets& widgets,
                                                           UndoManager& undoManager, QObject* parent)
    : QObject(parent), _tableView(widgets.table), _undoManager(undoManager) {
    buildCommands();
    wireTable();
    bindButton(widgets.addItemButton, *command(id::addItem));
    bindButton(widgets.duplicateItemButton, *command(id::duplicateItem));
    bindButton(widgets.deleteItemButton, *command(id::deleteItem));
    bindButton(widgets.undoButton, *command(id::undo));
    bindButton(widgets.redoButton, *command(id::redo));
    connect(&_undoManager, &UndoManager::changed, this, &MarkerSetEditTableController::undoManagerDidChange);
    connect(&_model, &MarkerSetEditTableModel::titleEntered, this, [this](int row, const QString& title) {
        if (const std::optional<MarkerSet> item = _model.itemAt(row)) {
            setItemNameWithUndo({.item = *item, .itemTitle = title});
        }
    });
    connect(&_model, &MarkerSetEditTableModel::dropped, this, [this](int row) {
        if (const std::optional<MarkerSet> item = _model.dragItem()) {
            moveItemWithUndo({.item = *item, .index = row});
        }
    });
    tableViewSelectionDidChange();
    undoManagerDidChange();
}

MarkerSetEditTableController::~MarkerSetEditTableController() {
    // It tells of the entries that go with this controller, when there is nothing left to show them.
    disconnect(&_undoManager, nullptr, this, nullptr);
    _tableView.deleteItem = nullptr;
    _tableView.menuForEvent = nullptr;
}

void MarkerSetEditTableController::wireTable() {
    _tableView.setModel(&_model);
    _tableView.setSelectionMode(QAbstractItemView::SingleSelection);
    _tableView.setEditTriggers(QAbstractItemView::DoubleClicked);
    _tableView.setDragDropMode(QAbstractItemView::DragDrop);
    _tableView.setDragDropOverwriteMode(false);
    _tableView.setDefaultDropAction(Qt::CopyAction);
    QHeaderView& columns = *_tableView.horizontalHeader();
    columns.setSectionResizeMode(MarkerSetEditTableModel::indexColumn, QHeaderView::ResizeToContents);
    columns.setSectionResizeMode(MarkerSetEditTableModel::menuitemColumn, QHeaderView::Stretch);
    _tableView.deleteItem = [this] { deleteItem(); };
    _tableView.menuForEvent = [this](const QContextMenuEvent&) { return &_contextMenu; };
    connect(_tableView.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MarkerSetEditTableController::tableViewSelectionDidChange);
}

void MarkerSetEditTableController::buildCommands() {
    struct Command {
        QString id;
        QString text;
        QKeySequence shortcut;
        Qt::ShortcutContext context;
        void (MarkerSetEditTableController::*run)();
    };
    using This = MarkerSetEditTableController;
    const Command commands[] = {
        {id::addItem, tr("Add Set"), {}, Qt::WidgetShortcut, &This::addItem},
        {id::duplicateItem, tr("Duplicate Set"), {}, Qt::WidgetShortcut, &This::duplicateItem},
        {id::deleteItem, tr("Delete Set"), {}, Qt::WidgetShortcut, &This::deleteItem},
        // The key opens the title, whichever of the row's cells was clicked.
        {id::rename, tr("Rename"), Qt::Key_F2, Qt::WidgetShortcut, &This::editSelected},
        {id::moveUp, tr("Move Up"), Qt::ALT | Qt::Key_Up, Qt::WidgetShortcut, &This::moveUp},
        {id::moveDown, tr("Move Down"), Qt::ALT | Qt::Key_Down, Qt::WidgetShortcut, &This::moveDown},
        {id::undo, tr("Undo"), Qt::CTRL | Qt::Key_Z, Qt::WindowShortcut, &This::undo},
        {id::redo, tr("Redo"), Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::WindowShortcut, &This::redo},
    };
    for (const Command& command : commands) {
        auto* action = new QAction(command.text, this);
        action->setObjectName(command.id);
        action->setShortcut(command.shortcut);
        action->setShortcutContext(command.context);
        connect(action, &QAction::triggered, this, command.run);
        _contextMenu.addAction(action);
        _tableView.addAction(action);
    }
    _contextMenu.insertSeparator(command(id::moveUp));
    _contextMenu.insertSeparator(command(id::undo));
}

QAction* MarkerSetEditTableController::command(const QString& id) const {
    return findChild<QAction*>(id, Qt::FindDirectChildrenOnly);
}

void MarkerSetEditTableController::setMarkerSetArray(const Array& sets) {
    _tableView.clearSelection();
    _model.setItems(sets);
    tableViewSelectionDidChange();
}

// The title's cell becomes the current one, so that typing finds sets by their titles. The selection changes
// at once: a button that was disabled between would lose the focus.
void MarkerSetEditTableController::selectIndex(int row) {
    if (row < 0 || row >= _model.rowCount()) {
        _tableView.clearSelection();
        return;
    }
    const QModelIndex title = _model.index(row, MarkerSetEditTableModel::menuitemColumn);
    _tableView.selectionModel()->setCurrentIndex(
        title, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    _tableView.scrollTo(title);
}

int MarkerSetEditTableController::selectedIndex() const {
    const QModelIndexList rows = _tableView.selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : std::ranges::min_element(rows, {}, &QModelIndex::row)->row();
}

// Whatever has the focus: a table takes over what is typed into a cell that it leaves.
void MarkerSetEditTableController::endEditing() {
    _tableView.selectionModel()->clearCurrentIndex();
}

// What the user starts

void MarkerSetEditTableController::addItem() {
    addItemWithUndo({.item = MarkerSetStore::newMarkerSetWithTitle(u"New Set"_s),
                     .index = _model.rowCount(),
                     .action = tr("add New Set")});
}

void MarkerSetEditTableController::duplicateItem() {
    if (const std::optional<MarkerSet> source = _model.itemAt(selectedIndex())) {
        const QString title = source->title().value_or(QString());
        addItemWithUndo({.item = MarkerSetStore::duplicateMarkerSet(*source, title),
                         .index = _model.rowCount(),
                         .action = tr("duplicate Set")});
    }
}

void MarkerSetEditTableController::deleteItem() {
    if (_model.rowCount() < 2) {
        Dialogs::current().alert(
            _tableView.window(),
            {.title = tr("Not allowed"),
             .text = tr("At least one marker set is required. You cannot delete the only one.")});
        return;
    }
    const QPointer<QWidget> focus = _tableView.window()->focusWidget();
    const int row = selectedIndex();
    if (const std::optional<MarkerSet> item = _model.itemAt(row)) {
        deleteItemWithUndo({.item = *item, .index = row, .action = tr("delete Set")});
    }
    if (selectedIndex() < 0) {
        selectIndex(_model.rowCount() - 1);
    }
    // The button that was pressed lost it while nothing was selected.
    if (focus) {
        focus->setFocus();
    }
}

// What can be undone

void MarkerSetEditTableController::addItemWithUndo(const MarkerSetChange& change) {
    const int row = std::clamp(change.index, 0, _model.rowCount());
    _model.insert(row, change.item);
    selectIndex(row);
    registerUndo(&MarkerSetEditTableController::deleteItemWithUndo, {.item = change.item, .index = row},
                 change.action);
}

void MarkerSetEditTableController::deleteItemWithUndo(const MarkerSetChange& change) {
    const int row = _model.rowOf(change.item);
    if (row < 0) {
        return;
    }
    _model.removeAt(row);
    _tableView.clearSelection();
    registerUndo(&MarkerSetEditTableController::addItemWithUndo, {.item = change.item, .index = row},
                 change.action);
}

void MarkerSetEditTableController::setItemNameWithUndo(const MarkerSetChange& change) {
    const int row = _model.rowOf(change.item);
    const QString oldTitle = change.item.title().value_or(QString());
    if (row < 0 || oldTitle == change.itemTitle) {
        return;
    }
    MarkerSet renamed(change.item.record().copy());
    renamed.setTitle(change.itemTitle);
    registerUndo(&MarkerSetEditTableController::setItemNameWithUndo, {.item = renamed, .itemTitle = oldTitle},
                 tr("change Set Title"));
    _model.replace(row, renamed);
}

// The inverse is told the row that the same rule takes back to where the set was.
void MarkerSetEditTableController::moveItemWithUndo(const MarkerSetChange& change) {
    const int current = _model.rowOf(change.item);
    if (current < 0) {
        return;
    }
    const int target = std::clamp(change.index, 0, _model.rowCount());
    const bool isDown = target > current;
    _model.move(current, target);
    selectIndex(isDown ? target - 1 : target);
    tableViewSelectionDidChange();
    registerUndo(&MarkerSetEditTableController::moveItemWithUndo,
                 {.item = change.item, .index = isDown ? current : current + 1}, tr("move Set"));
}

void MarkerSetEditTableController::clearActions() {
    _undoManager.removeAllActions(this);
}

// A step without a name of its own, as undo and redo make them, keeps the one it reverses.
void MarkerSetEditTableController::registerUndo(Operation operation, const MarkerSetChange& inverse,
                                                const std::optional<QString>& actionName) {
    _undoManager.registerUndo(this, [this, operation, inverse] { (this->*operation)(inverse); });
    if (actionName) {
        _undoManager.setActionName(*actionName);
    }
}

// Commands

void MarkerSetEditTableController::undo() {
    _undoManager.undo();
}

void MarkerSetEditTableController::redo() {
    _undoManager.redo();
}

void MarkerSetEditTableController::editSelected() {
    if (selectedIndex() >= 0) {
        selectIndex(selectedIndex());
        _tableView.edit(_tableView.currentIndex());
    }
}

void MarkerSetEditTableController::moveUp() {
    moveSelectedTo(selectedIndex() - 1);
}

// Before the row after the next one.
void MarkerSetEditTableController::moveDown() {
    moveSelectedTo(selectedIndex() + 2);
}

void MarkerSetEditTableController::moveSelectedTo(int row) {
    const std::optional<MarkerSet> item = _model.itemAt(selectedIndex());
    if (item && row >= 0 && row <= _model.rowCount()) {
        moveItemWithUndo({.item = *item, .index = row});
    }
}

void MarkerSetEditTableController::tableViewSelectionDidChange() {
    const int row = selectedIndex();
    command(id::duplicateItem)->setEnabled(row >= 0);
    command(id::deleteItem)->setEnabled(row >= 0);
    command(id::rename)->setEnabled(row >= 0);
    command(id::moveUp)->setEnabled(row > 0);
    command(id::moveDown)->setEnabled(row >= 0 && row < _model.rowCount() - 1);
}

void MarkerSetEditTableController::undoManagerDidChange() {
    QAction* undo = command(id::undo);
    undo->setEnabled(_undoManager.canUndo());
    undo->setText(UndoManager::undoTitle(_undoManager.undoActionName()));
    QAction* redo = command(id::redo);
    redo->setEnabled(_undoManager.canRedo());
    redo->setText(UndoManager::redoTitle(_undoManager.redoActionName()));
}

}  // namespace marquill
