#include "application/FocusedText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace marquill::FocusedText {

namespace {

bool clipboardHasText() {
    return !QApplication::clipboard()->text().isEmpty();
}

bool canEdit(const QLineEdit& field, Command command) {
    const bool editable = !field.isReadOnly() && field.isEnabled();
    switch (command) {
        case Command::undo:
            return editable && field.isUndoAvailable();
        case Command::redo:
            return editable && field.isRedoAvailable();
        case Command::cut:
            return editable && field.hasSelectedText();
        case Command::copy:
            return field.hasSelectedText();
        case Command::paste:
            return editable && clipboardHasText();
        case Command::selectAll:
            return !field.text().isEmpty();
    }
    return false;
}

bool canEdit(const QPlainTextEdit& field, Command command) {
    const bool editable = !field.isReadOnly() && field.isEnabled();
    switch (command) {
        case Command::undo:
            return editable && field.document()->isUndoAvailable();
        case Command::redo:
            return editable && field.document()->isRedoAvailable();
        case Command::cut:
            return editable && field.textCursor().hasSelection();
        case Command::copy:
            return field.textCursor().hasSelection();
        case Command::paste:
            return editable && clipboardHasText();
        case Command::selectAll:
            return !field.document()->isEmpty();
    }
    return false;
}

bool canSelectAll(const QAbstractItemView& list) {
    return list.isEnabled() && list.selectionMode() == QAbstractItemView::ExtendedSelection && list.model() &&
           list.model()->rowCount(list.rootIndex()) > 0;
}

// The controls' own slot of that name.
const char* slotName(Command command) {
    switch (command) {
        case Command::undo:
            return "undo";
        case Command::redo:
            return "redo";
        case Command::cut:
            return "cut";
        case Command::copy:
            return "copy";
        case Command::paste:
            return "paste";
        case Command::selectAll:
            return "selectAll";
    }
    return "";
}

}  // namespace

bool can(Command command) {
    const QWidget* focused = QApplication::focusWidget();
    if (const auto* field = qobject_cast<const QLineEdit*>(focused)) {
        return canEdit(*field, command);
    }
    if (const auto* field = qobject_cast<const QPlainTextEdit*>(focused)) {
        return canEdit(*field, command);
    }
    const auto* list = qobject_cast<const QAbstractItemView*>(focused);
    return list && command == Command::selectAll && canSelectAll(*list);
}

void perform(Command command) {
    if (can(command)) {
        QMetaObject::invokeMethod(QApplication::focusWidget(), slotName(command));
    }
}

}  // namespace marquill::FocusedText
