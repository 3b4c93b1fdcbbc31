// A clip table without the texts of its first column, for QAbstractItemModelTester: it takes for a fault that
// the rows below a removed one get another number.
#pragma once

#include "connect/ClipTableModel.h"

#include <QIdentityProxyModel>

namespace marquill {

class UnnumberedRows : public QIdentityProxyModel {
  public:
    explicit UnnumberedRows(QAbstractItemModel& model) { setSourceModel(&model); }

    QVariant data(const QModelIndex& index, int role) const override {
        const bool isNumber = index.column() == ClipTableModel::number && role == Qt::DisplayRole;
        return isNumber ? QVariant() : QIdentityProxyModel::data(index, role);
    }
};

}  // namespace marquill
