#include "connect/ClipTableModel.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <ranges>

namespace marquill {

namespace {

struct ColumnDescription {
    const char16_t* identifier;
    const char* title;
    const char* spokenTitle;
};

constexpr std::array<ColumnDescription, ClipTableModel::columnCountOfTable> columns = {{
    {u"number", "#", QT_TRANSLATE_NOOP("ClipTableModel", "Number")},
    {u"icon", "", QT_TRANSLATE_NOOP("ClipTableModel", "Status")},
    {u"clip", QT_TRANSLATE_NOOP("ClipTableModel", "Clip"), QT_TRANSLATE_NOOP("ClipTableModel", "Clip")},
    {u"file", QT_TRANSLATE_NOOP("ClipTableModel", "File"), QT_TRANSLATE_NOOP("ClipTableModel", "File")},
    {u"duration", QT_TRANSLATE_NOOP("ClipTableModel", "Duration"),
     QT_TRANSLATE_NOOP("ClipTableModel", "Duration")},
    {u"creationdate", QT_TRANSLATE_NOOP("ClipTableModel", "Creation Date"),
     QT_TRANSLATE_NOOP("ClipTableModel", "Creation Date")},
    {u"filesize", QT_TRANSLATE_NOOP("ClipTableModel", "File Size"),
     QT_TRANSLATE_NOOP("ClipTableModel", "File Size")},
    {u"rating", QT_TRANSLATE_NOOP("ClipTableModel", "Rating"), QT_TRANSLATE_NOOP("ClipTableModel", "Rating")},
    {u"label", QT_TRANSLATE_NOOP("ClipTableModel", "Label"), QT_TRANSLATE_NOOP("ClipTableModel", "Label")},
    {u"comment", QT_TRANSLATE_NOOP("ClipTableModel", "Comment"),
     QT_TRANSLATE_NOOP("ClipTableModel", "Comment")},
    {u"scene", QT_TRANSLATE_NOOP("ClipTableModel", "Scene"), QT_TRANSLATE_NOOP("ClipTableModel", "Scene")},
    {u"take", QT_TRANSLATE_NOOP("ClipTableModel", "Take"), QT_TRANSLATE_NOOP("ClipTableModel", "Take")},
    {u"picture", QT_TRANSLATE_NOOP("ClipTableModel", "Picture"),
     QT_TRANSLATE_NOOP("ClipTableModel", "Picture")},
}};

// Numbers end in line under each other, texts begin in line.
Qt::Alignment alignment(int column) {
    switch (column) {
        case ClipTableModel::number:
        case ClipTableModel::duration:
        case ClipTableModel::filesize:
            return Qt::AlignRight | Qt::AlignVCenter;
        default:
            return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

// Fewer ranges than this are removed one by one; more are one reset.
constexpr std::size_t mostRangesRemoved = 64;

struct RowRange {
    int first;
    int last;
};

// Neighbouring rows joined.
std::vector<RowRange> rangesOf(const std::vector<int>& rows) {
    std::vector<RowRange> ranges;
    for (const int row : rows) {
        if (!ranges.empty() && ranges.back().last + 1 == row) {
            ranges.back().last = row;
        } else {
            ranges.push_back({row, row});
        }
    }
    return ranges;
}

template <class Item>
void eraseRange(std::vector<Item>& items, RowRange range) {
    items.erase(items.begin() + range.first, items.begin() + range.last + 1);
}

}  // namespace

ClipTableModel::ClipTableModel(QObject* parent) : QAbstractTableModel(parent) {}

QString ClipTableModel::identifier(int column) {
    return QString::fromUtf16(columns.at(static_cast<std::size_t>(column)).identifier);
}

int ClipTableModel::columnOfIdentifier(const QString& identifier) {
    const auto found = std::ranges::find_if(columns, [&identifier](const ColumnDescription& column) {
        return identifier == QStringView(column.identifier);
    });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

int ClipTableModel::rowOfClip(const ClipInfo& clip) const {
    if (_rowsOfClips.isEmpty()) {
        _rowsOfClips.reserve(static_cast<qsizetype>(_clips.size()));
        for (int row = 0; row < rowCount(); ++row) {
            _rowsOfClips.insert(clipAt(row).identity(), row);
        }
    }
    return _rowsOfClips.value(clip.identity(), -1);
}

int ClipTableModel::rowOfName(const QString& clipName) const {
    const auto found = std::ranges::find(_clips, std::optional(clipName), &ClipInfo::clipName);
    return found == _clips.end() ? -1 : static_cast<int>(found - _clips.begin());
}

void ClipTableModel::setClips(std::vector<ClipInfo> clips, std::optional<QString> folder) {
    beginResetModel();
    _clips = std::move(clips);
    _folder = std::move(folder);
    _arrivals = 0;
    _rows = std::vector<Row>();
    _rows.reserve(_clips.size());
    addRows({});
    matchNew(0, ClipArrival::read);
    forgetRows();
    endResetModel();
}

void ClipTableModel::setFolder(const QString& folder) {
    _folder = folder;
    reload();
}

// What is known of the clips that are not among the rows yet: of the last of them, `facts` is.
void ClipTableModel::addRows(const std::vector<ClipFileFacts>& facts) {
    const std::size_t first = _rows.size();
    for (std::size_t row = first; row < _clips.size(); ++row) {
        Row& added = _rows.emplace_back();
        added.arrival = _arrivals++;
        added.isKnown = !facts.empty();
        added.facts = added.isKnown ? facts[row - first] : ClipFileFacts();
    }
}

void ClipTableModel::append(const std::vector<ClipInfo>& clips, const std::vector<ClipFileFacts>& facts,
                            ClipArrival arrival) {
    if (clips.empty()) {
        return;
    }
    const bool isKnown = facts.size() == clips.size();
    // Now, and not when a row is painted: what is written of a clip must not depend on how far was scrolled.
    for (std::size_t i = 0; isKnown && i < clips.size(); ++i) {
        ClipInfo clip = clips[i];
        completeRecord(clip, facts[i]);
    }
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(clips.size()) - 1);
    _clips.insert(_clips.end(), clips.begin(), clips.end());
    addRows(isKnown ? facts : std::vector<ClipFileFacts>());
    matchNew(first, arrival);
    forgetRows();
    endInsertRows();
}

void ClipTableModel::removeRowsAt(const std::vector<int>& rows) {
    const std::vector<RowRange> ranges = rangesOf(rows);
    const bool isReset = ranges.size() > mostRangesRemoved;
    if (isReset) {
        beginResetModel();
        std::size_t kept = 0;
        for (std::size_t row = 0; row < _clips.size(); ++row) {
            if (!std::ranges::binary_search(rows, static_cast<int>(row))) {
                _clips[kept] = _clips[row];
                std::swap(_rows[kept++], _rows[row]);
            }
        }
        _clips.resize(kept);
        _rows.resize(kept);
        forgetRows();
        endResetModel();
        return;
    }
    for (const RowRange range : ranges | std::views::reverse) {
        beginRemoveRows({}, range.first, range.last);
        eraseRange(_clips, range);
        eraseRange(_rows, range);
        forgetRows();
        endRemoveRows();
    }
    if (!rows.empty()) {
        rowsChanged(rows.front(), rowCount() - 1);  // their numbers
    }
}

void ClipTableModel::sort(int column, Qt::SortOrder order) {
    const std::vector<int> rows = sortedRows(column, order);
    if (!std::ranges::is_sorted(rows)) {
        applyOrder(rows);
    }
}

// Row i shows what row rows[i] has shown.
void ClipTableModel::applyOrder(const std::vector<int>& rows) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<ClipInfo> clips;
    std::vector<Row> known;
    std::vector<int> places(rows.size());
    clips.reserve(rows.size());
    known.reserve(rows.size());
    for (const int row : rows) {
        places[static_cast<std::size_t>(row)] = static_cast<int>(clips.size());
        clips.push_back(clipAt(row));
        known.push_back(std::move(_rows[static_cast<std::size_t>(row)]));
    }
    _clips = std::move(clips);
    _rows = std::move(known);
    forgetRows();
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& old : from) {
        to.append(index(places[static_cast<std::size_t>(old.row())], old.column()));
    }
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void ClipTableModel::clipChanged(const ClipInfo& clip) {
    const int row = rowOfClip(clip);
    if (row >= 0) {
        _rows[static_cast<std::size_t>(row)].isKnown = false;
        recordChanged(row);
        rowsChanged(row, row);
    }
}

void ClipTableModel::attributesChanged(const ClipInfo& clip) {
    const int row = rowOfClip(clip);
    if (row >= 0) {
        recordChanged(row);
        rowsChanged(row, row);
    }
}

void ClipTableModel::reload() {
    for (Row& row : _rows) {
        row.isKnown = false;
    }
    rowsChanged(0, rowCount() - 1);
}

void ClipTableModel::setFacts(const ClipInfo& clip, const ClipFileFacts& facts) {
    const int row = rowOfClip(clip);
    if (row < 0) {
        return;
    }
    Row& known = _rows[static_cast<std::size_t>(row)];
    const bool changed = !known.isKnown || known.facts != facts;
    known.facts = facts;
    known.isKnown = true;
    if (changed) {
        matchAgain(row);
        rowsChanged(row, row);
    }
}

void ClipTableModel::setLabels(const QStringList& labels) {
    _labels = labels;
    rowsChanged(0, rowCount() - 1);
}

const ClipFileFacts& ClipTableModel::facts(int row) const {
    Row& known = _rows[static_cast<std::size_t>(row)];
    if (!known.isKnown) {
        known.facts = askFiles(filesOfClip(clipAt(row), _folder.value_or(QString())));
        known.isKnown = true;
    }
    return known.facts;
}

int ClipTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_clips.size());
}

int ClipTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfTable;
}

QVariant ClipTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCountOfTable) {
        return {};
    }
    const ColumnDescription& column = columns.at(static_cast<std::size_t>(section));
    switch (role) {
        case Qt::DisplayRole:
            return QCoreApplication::translate("ClipTableModel", column.title);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return QCoreApplication::translate("ClipTableModel", column.spokenTitle);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(alignment(section));
        default:
            return {};
    }
}

bool ClipTableModel::isEditable(int column) {
    return column == clip || (column >= rating && column != picture);
}

Qt::ItemFlags ClipTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return isEditable(index.column()) ? common | Qt::ItemIsEditable : common;
}

bool ClipTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::EditRole && checkIndex(index, CheckIndexOption::IndexIsValid) &&
        isEditable(index.column())) {
        Q_EMIT valueEntered(value, index.column(), index.row());
    }
    return false;
}

void ClipTableModel::rowsChanged(int first, int last) {
    if (first <= last) {
        Q_EMIT dataChanged(index(first, 0), index(last, columnCountOfTable - 1));
    }
}

void ClipTableModel::forgetRows() {
    _rowsOfClips.clear();
}

}  // namespace marquill
