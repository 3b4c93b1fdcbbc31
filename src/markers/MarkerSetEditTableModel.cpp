#include "markers/MarkerSetEditTableModel.h"

#include "platform/Log.h"
#include "platform/PropertyListText.h"
#include "platform/PropertyListWriter.h"

#include <algorithm>

namespace marquill {

const QString MarkerSetEditTableModel::popupItemsMimeType = u"application/x-marquill-POPUPITEMS"_s;
const QString MarkerSetEditTableModel::promisedFileMimeType = u"application/x-marquill-promised-file"_s;

namespace {

// What could be promised of a set: a text file.
QByteArray promisedExtensions() {
    const Result<QByteArray> list = writePropertyList(arrayOfStrings({u"txt"_s}));
    if (!list) {
        qCWarning(logMarkers).noquote() << list.error().description();
    }
    return list.value_or(QByteArray());
}

}  // namespace

QString MarkerSetEditTableModel::identifier(Column column) {
    return column == indexColumn ? u"index"_s : u"menuitem"_s;
}

void MarkerSetEditTableModel::setItems(const Array& items) {
    beginResetModel();
    _items = items;
    endResetModel();
}

std::optional<MarkerSet> MarkerSetEditTableModel::itemAt(int row) const {
    if (row < 0 || row >= rowCount()) {
        return {};
    }
    std::optional<Dictionary> record = _items.at(row).dictionary();
    return record ? std::optional(MarkerSet(*std::move(record))) : std::nullopt;
}

int MarkerSetEditTableModel::rowOf(const MarkerSet& item) const {
    return static_cast<int>(_items.indexOf(item.record()));
}

void MarkerSetEditTableModel::insert(int row, const MarkerSet& item) {
    beginInsertRows({}, row, row);
    _items.insert(row, item.record());
    endInsertRows();
    rowsRenumbered();
}

void MarkerSetEditTableModel::removeAt(int row) {
    beginRemoveRows({}, row, row);
    _items.removeAt(row);
    endRemoveRows();
    rowsRenumbered();
}

void MarkerSetEditTableModel::replace(int row, const MarkerSet& item) {
    _items.replace(row, item.record());
    Q_EMIT dataChanged(index(row, 0), index(row, columnTotal - 1));
}

void MarkerSetEditTableModel::move(int from, int to) {
    if (to == from || to == from + 1) {
        return;
    }
    beginMoveRows({}, from, from, {}, to);
    const Value item = _items.at(from);
    _items.removeAt(from);
    _items.insert(to > from ? to - 1 : to, item);
    endMoveRows();
    rowsRenumbered();
}

void MarkerSetEditTableModel::rowsRenumbered() {
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, indexColumn), index(rowCount() - 1, indexColumn));
    }
}

std::optional<MarkerSet> MarkerSetEditTableModel::dragItem() const {
    return _drag ? _dragItem : std::nullopt;
}

int MarkerSetEditTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_items.size());
}

int MarkerSetEditTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnTotal;
}

QVariant MarkerSetEditTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const bool isIndex = index.column() == indexColumn;
    if (role == Qt::TextAlignmentRole && isIndex) {
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole) {
        return {};
    }
    if (isIndex) {
        return QString::number(index.row() + 1);
    }
    const std::optional<MarkerSet> item = itemAt(index.row());
    return item ? item->title().value_or(QString()) : QString();
}

QVariant MarkerSetEditTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == indexColumn ? u"#"_s : tr("Marker set");
}

// A row takes no drop itself, so that every drop falls between rows; what is dropped there falls on the root.
Qt::ItemFlags MarkerSetEditTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    const Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    return index.column() == menuitemColumn ? flags | Qt::ItemIsEditable : flags;
}

bool MarkerSetEditTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::EditRole && checkIndex(index, CheckIndexOption::IndexIsValid) &&
        index.column() == menuitemColumn) {
        Q_EMIT titleEntered(index.row(), propertyListText(value.toString()));
    }
    return false;
}

QStringList MarkerSetEditTableModel::mimeTypes() const {
    return {popupItemsMimeType, u"text/plain"_s, u"text/uri-list"_s};
}

QMimeData* MarkerSetEditTableModel::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty()) {
        return nullptr;
    }
    _dragItem = itemAt(std::ranges::min_element(indexes, {}, &QModelIndex::row)->row());
    _drag = new QMimeData;
    _drag->setData(popupItemsMimeType, QByteArray());
    _drag->setText(QString());
    _drag->setData(promisedFileMimeType, promisedExtensions());
    return _drag;
}

// Never as a move: the table would take away the row that another program took.
Qt::DropActions MarkerSetEditTableModel::supportedDragActions() const {
    return Qt::CopyAction | Qt::LinkAction;
}

Qt::DropActions MarkerSetEditTableModel::supportedDropActions() const {
    return Qt::CopyAction;
}

bool MarkerSetEditTableModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                              int column, const QModelIndex& parent) const {
    Q_UNUSED(column)
    const bool isAccepted =
        data && (data->hasFormat(popupItemsMimeType) || data->hasText() || data->hasUrls());
    return isAccepted && action == Qt::CopyAction && !parent.isValid() && row <= rowCount();
}

bool MarkerSetEditTableModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                           const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    Q_EMIT dropped(row < 0 ? rowCount() : row);
    return true;
}

}  // namespace marquill
