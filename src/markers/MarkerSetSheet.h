// The window of the marker set editor, a sheet on the marker window. It edits a list of its own; OK hands
// that back, Cancel drops it. Owned by MarkerSets, and gone before the marker window is. Main thread.
#pragma once

#include "markers/MarkerSetEditTableController.h"
#include "platform/Error.h"
#include "platform/UndoManager.h"

#include <QDialog>

#include <memory>

class QPushButton;

namespace marquill {

class TableView;

class MarkerSetSheet : public QObject {
    Q_OBJECT

  public:
    /// The sheet of `panel`, not yet shown. Errors: those of its window description.
    static Result<std::unique_ptr<MarkerSetSheet>> create(QWidget& panel);
    ~MarkerSetSheet() override;

    /// Shows the sheet with `sets`, which becomes its own, and the row `index` selected. While it is open
    /// already, it only comes to the front.
    void begin(const Array& sets, int index);
    /// Ends the sheet with return code 1 and hands the list over.
    void editSetOK();
    /// Ends the sheet with return code 0: all that was done in it is dropped.
    void editSetCancel();

    MarkerSetEditTableController& editTableController() { return *_editTableController; }
    UndoManager& undoManager() { return _undoManager; }
    QDialog& window() { return *_markerSetEditor; }

  Q_SIGNALS:
    /// OK was pressed, and the sheet is gone.
    void setsEdited(const marquill::Array& sets);

  private:
    explicit MarkerSetSheet(std::unique_ptr<QDialog> window);
    Result<void> connectOutlets();
    void wireWindow();
    void didEndSheet(int returnCode);

    std::unique_ptr<QDialog> _markerSetEditor;
    UndoManager _undoManager;
    std::unique_ptr<MarkerSetEditTableController> _editTableController;

    // In the window.
    TableView* _tableView = nullptr;
    QPushButton* _okButton = nullptr;
    QPushButton* _cancelButton = nullptr;
};

}  // namespace marquill
