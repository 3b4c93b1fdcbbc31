// The rows and texts of the marker set editor, and what a dragged row carries. It changes nothing on its own
// account: edits and drops are passed on as signals. Owned by MarkerSetEditTableController. Main thread.
#pragma once

#include "markers/MarkerSet.h"

#include <QAbstractTableModel>
#include <QMimeData>
#include <QPointer>

#include <optional>

namespace marquill {

class MarkerSetEditTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { indexColumn, menuitemColumn, columnTotal };

    /// The type "POPUPITEMS" under which a row is dragged; it carries no data.
    static const QString popupItemsMimeType;
    /// The type that promises a file for the dragged row: an XML property list of its possible extensions.
    static const QString promisedFileMimeType;

    using QAbstractTableModel::QAbstractTableModel;

    /// "index", the row's number from 1, or "menuitem", the set's title.
    static QString identifier(Column column);

    /// The sets in the order of the rows. The array is the one given to setItems() itself.
    const Array& items() const { return _items; }
    /// Shows and changes `items`, which must not be frozen, from now on.
    void setItems(const Array& items);
    /// The set in the row; nothing when there is no such row, or what is there is no record.
    std::optional<MarkerSet> itemAt(int row) const;
    /// The first row whose set equals `item`, or -1.
    int rowOf(const MarkerSet& item) const;
    void insert(int row, const MarkerSet& item);  ///< row 0 to rowCount()
    void removeAt(int row);
    void replace(int row, const MarkerSet& item);
    /// Puts the set of row `from` before the one that is in row `to` now; `to` is 0 to rowCount().
    void move(int from, int to);

    /// The set in the first row being dragged; nothing when no drag is under way.
    std::optional<MarkerSet> dragItem() const;

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
    /// Sets, texts and files may be dropped between rows (with the space below the last one), as copies.
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    /// A title was typed into the row.
    void titleEntered(int row, const QString& title);
    /// Something was dropped before `row`, which may be rowCount().
    void dropped(int row);

  private:
    void rowsRenumbered();

    Array _items;
    // What mimeData(), which views call on a const model, handed out last: a drag lasts as long as its data.
    mutable QPointer<QMimeData> _drag;
    mutable std::optional<MarkerSet> _dragItem;
};

}  // namespace marquill
