// The rows and texts of the label list, and what a dragged row carries. It changes nothing on its own
// account: edits and drops are passed on as signals. Owned by LabelTableController. Main thread.
#pragma once

#include "platform/Literals.h"

#include <QAbstractTableModel>
#include <QMimeData>
#include <QPointer>
#include <QStringList>

#include <optional>

namespace marquill {

class LabelTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The type "KVXLabels" under which a row is dragged; it carries no data.
    static const QString labelsMimeType;
    /// The type that promises a file for the dragged row: an XML property list of its possible extensions.
    static const QString promisedFileMimeType;

    using QAbstractTableModel::QAbstractTableModel;

    /// The one column's: "labelitem".
    static QString identifier();

    const QStringList& labels() const { return _labels; }
    void setLabels(const QStringList& labels);
    void insert(int row, const QString& label);  ///< row 0 to rowCount()
    void removeAt(int row);
    void replace(int row, const QString& label);
    /// Puts the label of row `from` before the one that is in row `to` now; `to` is 0 to rowCount().
    void move(int from, int to);

    /// The label of the first row being dragged; nothing when no drag is under way.
    std::optional<QString> draggedLabel() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Passes the edit on; false, as the list's owner decides what comes of it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;
    /// Labels, texts and files may be dropped between rows (with the space below the last one), as copies.
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    /// A text was typed into the row.
    void labelEntered(int row, const QString& text);
    /// Something was dropped before `row`, which may be rowCount().
    void dropped(int row);

  private:
    QStringList _labels;
    // What mimeData(), which views call on a const model, handed out last: a drag lasts as long as its data.
    mutable QPointer<QMimeData> _drag;
    mutable QString _draggedLabel;
};

}  // namespace marquill
