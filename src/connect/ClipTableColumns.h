// The columns of the clip table, which the user defaults keep as "kClipTable". Owned by ClipTableController.
// Main thread.
#pragma once

#include "platform/TableColumns.h"

namespace marquill {

class ClipTableColumns : public TableColumns {
    Q_OBJECT

  public:
    /// Arranges the columns of `table`, whose model must be set, as they were left.
    explicit ClipTableColumns(QTableView& table, QObject* parent = nullptr);
};

}  // namespace marquill
