// The clips of the shown folder as plain rows to read. Owned by ClipManager. Main thread.
#pragma once

#include "clipstore/ClipInfo.h"

#include <QAbstractTableModel>

#include <vector>

namespace marquill {

class PlainClipModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { name, take, scene, duration, markers, columnCountOfList };

    using QAbstractTableModel::QAbstractTableModel;

    const std::vector<ClipInfo>& clips() const { return _clips; }
    void setClips(std::vector<ClipInfo> clips);
    void append(const ClipInfo& clip);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<ClipInfo> _clips;
};

}  // namespace marquill
