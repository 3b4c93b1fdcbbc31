// The rows that the clip table shows: those of its model that no search hides, in the model's order. Owned by
// ClipTableController. Main thread.
#pragma once

#include "connect/ClipTableModel.h"

#include <QSortFilterProxyModel>

namespace marquill {

class ClipRows : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    /// Follows `model`, which must live as long.
    explicit ClipRows(ClipTableModel& model);

    /// The model's row that is shown at `row`.
    int modelRow(int row) const { return mapToSource(index(row, 0)).row(); }
    /// Where the model's row is shown, or -1.
    int rowOf(int modelRow) const { return mapFromSource(_model.index(modelRow, 0)).row(); }

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    ClipTableModel& _model;
};

}  // namespace marquill
