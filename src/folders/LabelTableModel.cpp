#include "folders/LabelTableModel.h"

#include "platform/Log.h"
#include "platform/PropertyListWriter.h"

#include <algorithm>

namespace marquill {

const QString LabelTableModel::labelsMimeType = u"application/x-marquill-KVXLabels"_s;
const QString LabelTableModel::promisedFileMimeType = u"application/x-marquill-promised-file"_s;

namespace {

// What could be promised of a label: a text file.
QByteArray promisedExtensions() {
    const Result<QByteArray> list = writePropertyList(arrayOfStrings({u"txt"_s}));
    if (!list) {
        qCWarning(logFolders).noquote() << list.error().description();
    }
    return list.value_or(QByteArray());
}

// One line of characters that the settings file can hold; a pasted text may have others.
QString labelText(const QString& text) {
    QString label = QString::fromUtf8(text.toUtf8());  // an unpaired surrogate becomes "?"
    label.removeIf([](QChar unit) {
        return unit.category() == QChar::Other_Control || unit == u'\uFFFE' || unit == u'\uFFFF';
    });
    return label;
}

}  // namespace

QString LabelTableModel::identifier() {
    return u"labelitem"_s;
}

void LabelTableModel::setLabels(const QStringList& labels) {
    beginResetModel();
    _labels = labels;
    endResetModel();
}

void LabelTableModel::insert(int row, const QString& label) {
    beginInsertRows({}, row, row);
    _labels.insert(row, label);
    endInsertRows();
}

void LabelTableModel::removeAt(int row) {
    beginRemoveRows({}, row, row);
    _labels.removeAt(row);
    endRemoveRows();
}

void LabelTableModel::replace(int row, const QString& label) {
    _labels[row] = label;
    const QModelIndex cell = index(row, 0);
    Q_EMIT dataChanged(cell, cell);
}

void LabelTableModel::move(int from, int to) {
    if (to == from || to == from + 1) {
        return;
    }
    beginMoveRows({}, from, from, {}, to);
    _labels.move(from, to > from ? to - 1 : to);
    endMoveRows();
}

std::optional<QString> LabelTableModel::draggedLabel() const {
    return _drag ? std::optional(_draggedLabel) : std::nullopt;
}

int LabelTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_labels.size());
}

int LabelTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant LabelTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) ||
        (role != Qt::DisplayRole && role != Qt::EditRole)) {
        return {};
    }
    return _labels[index.row()];
}

QVariant LabelTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole ? tr("Label")
                                                                                    : QVariant();
}

// A row takes no drop itself, so that every drop falls between rows; what is dropped there falls on the root.
Qt::ItemFlags LabelTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

bool LabelTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::EditRole && checkIndex(index, CheckIndexOption::IndexIsValid)) {
        Q_EMIT labelEntered(index.row(), labelText(value.toString()));
    }
    return false;
}

QStringList LabelTableModel::mimeTypes() const {
    return {labelsMimeType, u"text/plain"_s, u"text/uri-list"_s};
}

QMimeData* LabelTableModel::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty()) {
        return nullptr;
    }
    const QModelIndex first = *std::ranges::min_element(indexes, {}, &QModelIndex::row);
    _draggedLabel = _labels[first.row()];
    _drag = new QMimeData;
    _drag->setData(labelsMimeType, QByteArray());
    _drag->setText(_draggedLabel);
    _drag->setData(promisedFileMimeType, promisedExtensions());
    return _drag;
}

// Never as a move: the table would take away the row that another program took.
Qt::DropActions LabelTableModel::supportedDragActions() const {
    return Qt::CopyAction | Qt::LinkAction;
}

Qt::DropActions LabelTableModel::supportedDropActions() const {
    return Qt::CopyAction;
}

bool LabelTableModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                      const QModelIndex& parent) const {
    Q_UNUSED(column)
    const bool isAccepted = data && (data->hasFormat(labelsMimeType) || data->hasText() || data->hasUrls());
    return isAccepted && action == Qt::CopyAction && !parent.isValid() && row <= rowCount();
}

bool LabelTableModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                   const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    Q_EMIT dropped(row < 0 ? rowCount() : row);
    return true;
}

}  // namespace marquill
