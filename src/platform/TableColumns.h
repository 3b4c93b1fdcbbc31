// The columns of a table: their first arrangement, and the user's widths, order and sorting, which are kept
// in the user defaults. Owned by the table's controller. Main thread.
#pragma once

#include "platform/Literals.h"

#include <QObject>
#include <QTimer>

#include <vector>

class QHeaderView;
class QTableView;

namespace marquill {

/// A column of a table's model.
struct TableColumn {
    int column = 0;      ///< the model's
    QString identifier;  ///< its name in the user defaults
    QString sample;      ///< a text that its first width has room for, as it has for its title
    bool grows = false;  ///< shares what room there is with the last one, until the user gives it a width
};

class TableColumns : public QObject {
    Q_OBJECT

  public:
    /// Arranges the columns of `table`, whose model must be set, as the settings of the key `settingsKey` say
    /// they were left; without settings in the order of `columns`, which has all of them.
    TableColumns(QTableView& table, QString settingsKey, std::vector<TableColumn> columns,
                 QObject* parent = nullptr);
    ~TableColumns() override;

    /// The column that the rows are sorted by, or -1.
    int sortColumn() const;
    Qt::SortOrder sortOrder() const;

  Q_SIGNALS:
    /// The user chose another column to sort by, or another direction.
    void sortDescriptorsDidChange();

  protected:
    QHeaderView& header() const { return _header; }
    /// The header's, whose width is the table's.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrange();
    void restore();
    void grow();
    void sectionResized(int column);
    void changed();
    void save();
    int columnOf(const QString& identifier) const;  // or -1
    QString identifierOf(int column) const;

    QHeaderView& _header;
    QString _settingsKey;
    std::vector<TableColumn> _columns;
    int _growing = -1;        // the column that grows with the table
    int _leastOfGrowing = 0;  // its first width
    bool _isGrowing = false;
    QTimer _saving;  // a drag of a column's edge is many changes
};

}  // namespace marquill
