#include "markers/MarkerSetSheet.h"

#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QPushButton>

namespace marquill {

Result<std::unique_ptr<MarkerSetSheet>> MarkerSetSheet::create(QWidget& panel) {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"MarkerSetEditor"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QDialog*>(loaded->get())) {
        return failure(ErrorCode::malformed, tr("the description of the marker set editor is of no dialog"));
    }
    std::unique_ptr<QDialog> window(static_cast<QDialog*>(loaded->release()));
    window->setParent(&panel, window->windowFlags());
    std::unique_ptr<MarkerSetSheet> sheet(new MarkerSetSheet(std::move(window)));
    if (const Result<void> connected = sheet->connectOutlets(); !connected) {
        return std::unexpected(connected.error());
    }
    sheet->wireWindow();
    return sheet;
}

MarkerSetSheet::MarkerSetSheet(std::unique_ptr<QDialog> window) : _markerSetEditor(std::move(window)) {}

MarkerSetSheet::~MarkerSetSheet() {
    // A sheet that is still open hides as it goes, which hands nothing over.
    disconnect(_markerSetEditor.get(), nullptr, this, nullptr);
}

Result<void> MarkerSetSheet::connectOutlets() {
    QPushButton* buttons[5] = {};
    Outlets outlets(*_markerSetEditor);
    outlets.connect(_tableView, u"_tableView"_s);
    outlets.connect(buttons[0], u"_addItemButton"_s);
    outlets.connect(buttons[1], u"_duplicateItemButton"_s);
    outlets.connect(buttons[2], u"_deleteItemButton"_s);
    outlets.connect(buttons[3], u"_undoButton"_s);
    outlets.connect(buttons[4], u"_redoButton"_s);
    outlets.connect(_cancelButton, u"_cancelButton"_s);
    outlets.connect(_okButton, u"_okButton"_s);
    const Result<void> connected = outlets.check();
    if (connected) {
        _editTableController = std::make_unique<MarkerSetEditTableController>(
            MarkerSetEditTableWidgets{*_tableView, *buttons[0], *buttons[1], *buttons[2], *buttons[3],
                                      *buttons[4]},
            _undoManager);
    }
    return connected;
}

void MarkerSetSheet::wireWindow() {
    _markerSetEditor->setWindowModality(Qt::WindowModal);
    connect(_okButton, &QPushButton::clicked, this, &MarkerSetSheet::editSetOK);
    connect(_cancelButton, &QPushButton::clicked, this, &MarkerSetSheet::editSetCancel);
    // Closing the window by its frame ends the sheet too, as Cancel does.
    connect(_markerSetEditor.get(), &QDialog::finished, this, &MarkerSetSheet::didEndSheet);
}

void MarkerSetSheet::begin(const Array& sets, int index) {
    if (!_markerSetEditor->isVisible()) {
        _editTableController->setMarkerSetArray(sets);
        _editTableController->selectIndex(index);
        _tableView->setFocus();
        _markerSetEditor->open();
    }
    _markerSetEditor->raise();
    _markerSetEditor->activateWindow();
}

void MarkerSetSheet::editSetOK() {
    // A title that is still being typed counts.
    _editTableController->endEditing();
    _markerSetEditor->done(QDialog::Accepted);
}

void MarkerSetSheet::editSetCancel() {
    _markerSetEditor->done(QDialog::Rejected);
}

void MarkerSetSheet::didEndSheet(int returnCode) {
    _editTableController->endEditing();
    _editTableController->clearActions();
    if (returnCode == QDialog::Accepted) {
        Q_EMIT setsEdited(_editTableController->markerSetArray());
    }
}

}  // namespace marquill
