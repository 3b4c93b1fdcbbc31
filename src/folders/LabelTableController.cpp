#include "folders/LabelTableController.h"

#include "clipstore/Notifications.h"
#include "platform/CommandButton.h"
#include "platform/EmptyHint.h"
#include "platform/TableView.h"
#include "platform/UndoManager.h"

#include <QAction>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>

#include <algorithm>

namespace marquill {

namespace {

namespace id {
const QString addLabelItem = u"addLabelItem"_s;
const QString deleteLabelItem = u"deleteLabelItem"_s;
const QString rename = u"rename"_s;
const QString moveUp = u"moveUp"_s;
const QString moveDown = u"moveDown"_s;
const QString undo = u"undo"_s;
const QString redo = u"redo"_s;
}  // namespace id

}  // namespace

LabelTableController::LabelTableController(const LabelTableWidgets& widgets, UndoManager& undoManager,
                                           QObject* parent)
    : QObject(parent), _table(widgets.table), _undoManager(undoManager) {
    buildCommands();
    wireTable();
    bindButton(widgets.addButton, *command(id::addLabelItem));
    bindButton(widgets.deleteButton, *command(id::deleteLabelItem));
    bindButton(widgets.undoButton, *command(id::undo));
    bindButton(widgets.redoButton, *command(id::redo));
    connect(&_undoManager, &UndoManager::changed, this, &LabelTableController::undoManagerDidChange);
    connect(&_model, &LabelTableModel::labelEntered, this,
            [this](int row, const QString& text) { setItemName({.label = text, .index = row}); });
    connect(&_model, &LabelTableModel::dropped, this, [this](int row) {
        if (const std::optional<QString> label = _model.draggedLabel()) {
            moveItemWithUndo({.label = *label, .index = row});
        }
    });
    tableViewSelectionDidChange();
    undoManagerDidChange();
}

LabelTableController::~LabelTableController() {
    // It tells of the entries that go with this controller, when there is nothing left to show them.
    disconnect(&_undoManager, nullptr, this, nullptr);
    _table.deleteItem = nullptr;
    _table.menuForEvent = nullptr;
}

void LabelTableController::wireTable() {
    _table.setModel(&_model);
    _table.setSelectionMode(QAbstractItemView::SingleSelection);
    _table.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    _table.setDragDropMode(QAbstractItemView::DragDrop);
    _table.setDragDropOverwriteMode(false);
    _table.setDefaultDropAction(Qt::CopyAction);
    _table.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    new EmptyHint(_table, tr("No labels"));
    _table.deleteItem = [this] { deleteLabelItem(); };
    _table.menuForEvent = [this](const QContextMenuEvent&) { return &_contextMenu; };
    connect(_table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LabelTableController::tableViewSelectionDidChange);
}

void LabelTableController::buildCommands() {
    struct Command {
        QString id;
        QString text;
        QKeySequence shortcut;
        Qt::ShortcutContext context;
        void (LabelTableController::*run)();
    };
    using This = LabelTableController;
    const Command commands[] = {
        {id::addLabelItem, tr("Add Label"), {}, Qt::WidgetShortcut, &This::addLabelItem},
        {id::deleteLabelItem, tr("Delete Label"), {}, Qt::WidgetShortcut, &This::deleteLabelItem},
        {id::rename, tr("Rename"), {}, Qt::WidgetShortcut, &This::editSelected},
        {id::moveUp, tr("Move Up"), Qt::CTRL | Qt::Key_Up, Qt::WidgetShortcut, &This::moveUp},
        {id::moveDown, tr("Move Down"), Qt::CTRL | Qt::Key_Down, Qt::WidgetShortcut, &This::moveDown},
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
        _table.addAction(action);
    }
    _contextMenu.insertSeparator(command(id::moveUp));
    _contextMenu.insertSeparator(command(id::undo));
}

QAction* LabelTableController::command(const QString& id) const {
    return findChild<QAction*>(id, Qt::FindDirectChildrenOnly);
}

void LabelTableController::setLabelItems(const QStringList& labels) {
    _undoManager.removeAllActions(this);
    _table.clearSelection();
    _model.setLabels(labels);
    tableViewSelectionDidChange();
}

void LabelTableController::addLabelItem() {
    addItemWithUndo({.label = u"New Label"_s, .index = _model.rowCount(), .action = tr("add Label")});
}

void LabelTableController::deleteLabelItem() {
    const int row = selectedRow();
    if (row >= 0) {
        deleteItemWithUndo({.label = labelItems()[row], .index = row, .action = tr("delete Label")});
    }
}

void LabelTableController::addItemWithUndo(const LabelChange& change) {
    const int row = std::clamp(change.index, 0, _model.rowCount());
    _model.insert(row, change.label);
    selectRow(row);
    postLabelListHasChanged();
    registerUndo(&LabelTableController::deleteItemWithUndo, {.label = change.label, .index = row},
                 change.action.value_or(QString()));
}

void LabelTableController::deleteItemWithUndo(const LabelChange& change) {
    const auto row = static_cast<int>(labelItems().indexOf(change.label));
    if (row < 0) {
        return;
    }
    _model.removeAt(row);
    _table.clearSelection();
    postLabelListHasChanged();
    registerUndo(&LabelTableController::addItemWithUndo, {.label = change.label, .index = row},
                 change.action.value_or(QString()));
}

void LabelTableController::moveItemWithUndo(const LabelChange& change) {
    const auto from = static_cast<int>(labelItems().indexOf(change.label));
    if (from < 0) {
        return;
    }
    const int to = std::clamp(change.index, 0, _model.rowCount());
    const bool isDown = to > from;
    _model.move(from, to);
    selectRow(isDown ? to - 1 : to);
    postLabelListHasChanged();
    registerUndo(&LabelTableController::moveItemWithUndo,
                 {.label = change.label, .index = isDown ? from : from + 1}, tr("move Item"));
}

void LabelTableController::setItemName(const LabelChange& change) {
    if (change.index < 0 || change.index >= _model.rowCount() || labelItems()[change.index] == change.label) {
        return;
    }
    registerUndo(&LabelTableController::setItemName,
                 {.label = labelItems()[change.index], .index = change.index}, tr("change Label Title"));
    _model.replace(change.index, change.label);
    postLabelListHasChanged();
}

void LabelTableController::undo() {
    _undoManager.undo();
}

void LabelTableController::redo() {
    _undoManager.redo();
}

void LabelTableController::editSelected() {
    if (selectedRow() >= 0) {
        _table.edit(_model.index(selectedRow(), 0));
    }
}

void LabelTableController::moveUp() {
    moveSelectedTo(selectedRow() - 1);
}

// Before the row after the next one.
void LabelTableController::moveDown() {
    moveSelectedTo(selectedRow() + 2);
}

void LabelTableController::moveSelectedTo(int index) {
    const int row = selectedRow();
    if (row >= 0 && index >= 0 && index <= _model.rowCount()) {
        moveItemWithUndo({.label = labelItems()[row], .index = index});
    }
}

int LabelTableController::selectedRow() const {
    const QModelIndexList rows = _table.selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : std::ranges::min_element(rows, {}, &QModelIndex::row)->row();
}

void LabelTableController::selectRow(int row) {
    _table.selectRow(row);
    _table.scrollTo(_model.index(row, 0));
}

void LabelTableController::postLabelListHasChanged() {
    tableViewSelectionDidChange();
    Q_EMIT Notifications::centre().labelListHasChanged(this);
}

void LabelTableController::registerUndo(Operation operation, const LabelChange& inverse,
                                        const QString& actionName) {
    _undoManager.registerUndo(this, [this, operation, inverse] { (this->*operation)(inverse); });
    _undoManager.setActionName(actionName);
}

void LabelTableController::tableViewSelectionDidChange() {
    const int row = selectedRow();
    command(id::deleteLabelItem)->setEnabled(row >= 0);
    command(id::rename)->setEnabled(row >= 0);
    command(id::moveUp)->setEnabled(row > 0);
    command(id::moveDown)->setEnabled(row >= 0 && row < _model.rowCount() - 1);
}

void LabelTableController::undoManagerDidChange() {
    QAction* undo = command(id::undo);
    undo->setEnabled(_undoManager.canUndo());
    undo->setText(UndoManager::undoTitle(_undoManager.undoActionName()));
    QAction* redo = command(id::redo);
    redo->setEnabled(_undoManager.canRedo());
    redo->setText(UndoManager::redoTitle(_undoManager.redoActionName()));
}

}  // namespace marquill
