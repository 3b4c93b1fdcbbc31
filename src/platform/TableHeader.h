// The titles above a table's columns: one that is too narrow ends in an ellipsis, and the mark of the sorted
// column stands at the end that its title leaves free, so that titles keep in line with the cells below them.
// Owned by its table. Main thread.
#pragma once

#include <QHeaderView>

namespace marquill {

class TableHeader : public QHeaderView {
    Q_OBJECT

  public:
    explicit TableHeader(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// What a column needs beside the text of its title or of its cells.
    static constexpr int padding = 17;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;

  private:
    bool isSorted(int logicalIndex) const;
};

}  // namespace marquill
