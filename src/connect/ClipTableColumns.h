// The columns of the clip table: their first arrangement, and the user's widths, order and sorting, which are
// kept in the user defaults as "kClipTable". Owned by ClipTableController. Main thread.
#pragma once

#include <QObject>
#include <QTimer>

class QHeaderView;
class QTableView;

namespace marquill {

class ClipTableColumns : public QObject {
    Q_OBJECT

  public:
    /// Arranges the columns of `table`, whose model must be set, as they were left.
    explicit ClipTableColumns(QTableView& table, QObject* parent = nullptr);
    ~ClipTableColumns() override;

    /// The column that the rows are sorted by, or -1.
    int sortColumn() const;
    Qt::SortOrder sortOrder() const;

  Q_SIGNALS:
    /// The user chose another column to sort by, or another direction.
    void sortDescriptorsDidChange();

  private:
    void arrange();
    void restore();
    void changed();
    void save();

    QHeaderView& _header;
    QTimer _saving;  // a drag of a column's edge is many changes
};

}  // namespace marquill
