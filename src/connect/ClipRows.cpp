#include "connect/ClipRows.h"

namespace marquill {

ClipRows::ClipRows(ClipTableModel& model) : _model(model) {
    setSourceModel(&model);
    connect(&model, &ClipTableModel::filterChanged, this, [this] { invalidate(); });
}

bool ClipRows::filterAcceptsRow(int row, const QModelIndex&) const {
    return !_model.isHidden(row);
}

}  // namespace marquill
