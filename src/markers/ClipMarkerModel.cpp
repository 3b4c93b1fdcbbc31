#include "markers/ClipMarkerModel.h"

#include "movie/QTHelper.h"
#include "platform/NaturalCollator.h"
#include "platform/Theme.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <compare>
#include <limits>
#include <numeric>

namespace marquill {

namespace {

struct ColumnDescription {
    const char16_t* identifier;
    const char* title;
    const char* spokenTitle;
};

constexpr std::array<ColumnDescription, ClipMarkerModel::columnCountOfTable> columns = {{
    {u"markerIndex", "#", QT_TRANSLATE_NOOP("ClipMarkerModel", "Number")},
    {u"markerName", QT_TRANSLATE_NOOP("ClipMarkerModel", "Name"),
     QT_TRANSLATE_NOOP("ClipMarkerModel", "Name")},
    {u"markerStart", QT_TRANSLATE_NOOP("ClipMarkerModel", "Start"),
     QT_TRANSLATE_NOOP("ClipMarkerModel", "Start")},
    {u"markerDuration", QT_TRANSLATE_NOOP("ClipMarkerModel", "Duration"),
     QT_TRANSLATE_NOOP("ClipMarkerModel", "Duration")},
    {u"markerComment", QT_TRANSLATE_NOOP("ClipMarkerModel", "Comment"),
     QT_TRANSLATE_NOOP("ClipMarkerModel", "Comment")},
}};

// Numbers end in line under each other, texts begin in line.
Qt::Alignment alignment(int column) {
    return Qt::AlignVCenter | (ClipMarkerModel::isEditable(column) ? Qt::AlignLeft : Qt::AlignRight);
}

QString timeText(const Marker& marker, const QString& key) {
    const std::optional<qint64> seconds = marker.record().integer(key);
    return seconds ? QTHelper::timeCodeStringHHMMSS(*seconds) : QString();
}

// Row numbers ordered by their keys; rows with equal keys stay as they are, in both directions.
template <class Key, class Less>
std::vector<int> ordered(const std::vector<Key>& keys, Qt::SortOrder order, Less less) {
    std::vector<int> rows(keys.size());
    std::iota(rows.begin(), rows.end(), 0);
    const auto keyOf = [&keys](int row) -> const Key& { return keys[static_cast<std::size_t>(row)]; };
    std::ranges::stable_sort(rows, [&](int a, int b) {
        return order == Qt::AscendingOrder ? less(keyOf(a), keyOf(b)) : less(keyOf(b), keyOf(a));
    });
    return rows;
}

// Also among values that are no numbers, which a file may hold.
bool isLessTime(double a, double b) {
    return std::weak_order(a, b) < 0;
}

// What is absent comes before what is not.
constexpr double absent = -std::numeric_limits<double>::infinity();

}  // namespace

ClipMarkerModel::ClipMarkerModel(QObject* parent) : QAbstractTableModel(parent) {}

QString ClipMarkerModel::identifier(int column) {
    return QString::fromUtf16(columns.at(static_cast<std::size_t>(column)).identifier);
}

bool ClipMarkerModel::isEditable(int column) {
    return column == markerName || column == markerComment;
}

int ClipMarkerModel::rowOfMarker(const Marker& marker) const {
    const auto isSame = [&marker](const Marker& shown) { return shown.isSame(marker); };
    auto found = std::ranges::find_if(_markers, isSame);
    if (found == _markers.end()) {
        found = std::ranges::find(_markers, marker);
    }
    return found == _markers.end() ? -1 : static_cast<int>(found - _markers.begin());
}

QString ClipMarkerModel::text(int row, int column) const {
    const Marker& marker = markerAt(row);
    switch (column) {
        case markerIndex:
            return QString::number(row + 1);
        case markerName:
            return marker.title().value_or(QString());
        case markerStart:
            return timeText(marker, clipMarkerIn);
        case markerDuration:
            return timeText(marker, clipMarkerDur);
        case markerComment:
            return marker.comment().value_or(QString());
        default:
            return {};
    }
}

void ClipMarkerModel::setMarkerArray(const Array& array) {
    beginResetModel();
    _markers.clear();
    _stowaways.clear();
    for (qsizetype place = 0; place < array.size(); ++place) {
        if (const std::optional<Dictionary> record = array.at(place).dictionary()) {
            _markers.emplace_back(record->isFrozen() ? record->deepCopy() : *record);
        } else {
            _stowaways.push_back({place, array.at(place)});
        }
    }
    _arrivals.resize(_markers.size());
    std::iota(_arrivals.begin(), _arrivals.end(), 0);
    _arrivalCount = static_cast<int>(_arrivals.size());
    makeArray();
    endResetModel();
}

void ClipMarkerModel::append(const std::vector<Marker>& markers) {
    if (markers.empty()) {
        return;
    }
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(markers.size()) - 1);
    for (const Marker& marker : markers) {
        _markers.push_back(marker);
        _arrivals.push_back(_arrivalCount++);
    }
    makeArray();
    endInsertRows();
}

std::vector<Marker> ClipMarkerModel::remove(const std::vector<Marker>& markers) {
    std::vector<Marker> removed;
    for (const Marker& marker : markers) {
        if (const std::optional<Marker> gone = removeEqual(marker)) {
            removed.push_back(*gone);
        }
    }
    makeArray();
    if (!removed.empty() && !_markers.empty()) {
        Q_EMIT dataChanged(index(0, markerIndex), index(rowCount() - 1, markerIndex));
    }
    return removed;
}

// Among equal markers nobody can tell which one is which, save what undo remembers of each record: the record
// that is asked for must be the one that goes.
std::optional<Marker> ClipMarkerModel::removeEqual(const Marker& marker) {
    const auto isSame = [&marker](const Marker& shown) { return shown.isSame(marker); };
    // A time that is no number is unequal even to itself.
    const auto first =
        std::ranges::find_if(_markers, [&](const Marker& shown) { return isSame(shown) || shown == marker; });
    if (first == _markers.end()) {
        return std::nullopt;
    }
    const auto itself = std::find_if(first, _markers.end(), isSame);
    if (itself != _markers.end()) {
        std::iter_swap(first, itself);
    }
    const auto row = first - _markers.begin();
    std::optional<Marker> gone(*first);
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    _markers.erase(first);
    _arrivals.erase(_arrivals.begin() + row);
    endRemoveRows();
    return gone;
}

std::vector<int> ClipMarkerModel::sortedRows(int column, Qt::SortOrder order) const {
    const auto times = [this](std::optional<double> (Marker::*time)() const) {
        std::vector<double> keys;
        std::ranges::transform(_markers, std::back_inserter(keys),
                               [time](const Marker& marker) { return (marker.*time)().value_or(absent); });
        return keys;
    };
    switch (column) {
        case markerIndex:
            return ordered(_arrivals, order, std::less<>());
        case markerStart:
            return ordered(times(&Marker::in), order, isLessTime);
        case markerDuration:
            return ordered(times(&Marker::dur), order, isLessTime);
        default: {
            const QCollator collator = naturalCollator();
            std::vector<QCollatorSortKey> keys;
            for (int row = 0; row < rowCount(); ++row) {
                keys.push_back(collator.sortKey(text(row, column)));
            }
            return ordered(keys, order, std::less<>());
        }
    }
}

void ClipMarkerModel::sort(int column, Qt::SortOrder order) {
    const std::vector<int> rows = sortedRows(column, order);
    if (!std::ranges::is_sorted(rows)) {
        applyOrder(rows);
    }
}

// Row i shows what row rows[i] has shown.
void ClipMarkerModel::applyOrder(const std::vector<int>& rows) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<Marker> markers;
    std::vector<int> arrivals;
    std::vector<int> places(rows.size());
    for (const int row : rows) {
        places[static_cast<std::size_t>(row)] = static_cast<int>(markers.size());
        markers.push_back(markerAt(row));
        arrivals.push_back(_arrivals[static_cast<std::size_t>(row)]);
    }
    _markers = std::move(markers);
    _arrivals = std::move(arrivals);
    makeArray();
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    for (const QModelIndex& old : from) {
        to.append(index(places[static_cast<std::size_t>(old.row())], old.column()));
    }
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void ClipMarkerModel::makeArray() {
    std::vector<Value> values;
    values.reserve(_markers.size() + _stowaways.size());
    for (const Marker& marker : _markers) {
        values.emplace_back(marker.record());
    }
    for (const Stowaway& stowaway : _stowaways) {
        const auto place = std::min(stowaway.place, static_cast<qsizetype>(values.size()));
        values.insert(values.begin() + place, stowaway.value);
    }
    _array = Array::fromValues(std::move(values));
}

void ClipMarkerModel::markerChanged(const Marker& marker) {
    const int row = rowOfMarker(marker);
    if (row >= 0) {
        Q_EMIT dataChanged(index(row, 0), index(row, columnCountOfTable - 1));
    }
}

int ClipMarkerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_markers.size());
}

int ClipMarkerModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfTable;
}

QVariant ClipMarkerModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCountOfTable) {
        return {};
    }
    const ColumnDescription& column = columns.at(static_cast<std::size_t>(section));
    switch (role) {
        case Qt::DisplayRole:
            return QCoreApplication::translate("ClipMarkerModel", column.title);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return QCoreApplication::translate("ClipMarkerModel", column.spokenTitle);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(alignment(section));
        default:
            return {};
    }
}

Qt::ItemFlags ClipMarkerModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return isEditable(index.column()) ? common | Qt::ItemIsEditable : common;
}

QVariant ClipMarkerModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return text(index.row(), index.column());
        case Qt::TextAlignmentRole:
            return headerData(index.column(), Qt::Horizontal, role);
        case Qt::FontRole:
            return isEditable(index.column()) ? QVariant()
                                              : QVariant(Theme::timeFont(QApplication::font().pointSizeF()));
        case Qt::ToolTipRole: {
            // A cell may be too narrow for it.
            const QString tip = isEditable(index.column()) ? text(index.row(), index.column()) : QString();
            return tip.isEmpty() ? QVariant() : QVariant(tip);
        }
        default:
            return {};
    }
}

bool ClipMarkerModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::EditRole && checkIndex(index, CheckIndexOption::IndexIsValid) &&
        isEditable(index.column())) {
        Q_EMIT valueEntered(value, index.column(), index.row());
    }
    return false;
}

}  // namespace marquill
