#include "connect/ClipTableColumns.h"

#include "connect/ClipTableModel.h"
#include "platform/Log.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <array>

namespace marquill {

namespace {

namespace key {
const QString kClipTable = u"kClipTable"_s;
const QString kColumns = u"kColumns"_s;
const QString kIdentifier = u"kIdentifier"_s;
const QString kWidth = u"kWidth"_s;
const QString kSortColumn = u"kSortColumn"_s;
const QString kSortAscending = u"kSortAscending"_s;
}  // namespace key

constexpr std::chrono::milliseconds savingDelay{500};
constexpr int narrowest = 3 * Theme::grid;
constexpr int widest = 4000;

// A column and a text that it has room for, in the order they are first shown in.
struct FirstColumn {
    ClipTableModel::Column column;
    const char16_t* sample;
};

constexpr std::array firstColumns = {
    FirstColumn{ClipTableModel::number, u"8888"},
    FirstColumn{ClipTableModel::icon, u"88"},
    FirstColumn{ClipTableModel::clip, u"Interview at the harbour"},
    FirstColumn{ClipTableModel::scene, u"Scene 8"},
    FirstColumn{ClipTableModel::take, u"Take 8"},
    FirstColumn{ClipTableModel::duration, u"Duration 8"},
    FirstColumn{ClipTableModel::rating, u"8888888888"},
    FirstColumn{ClipTableModel::label, u"Second Half"},
    FirstColumn{ClipTableModel::file, u"A001_C002_0512AB"},
    FirstColumn{ClipTableModel::creationdate, u"88/88/8888 88:88:88"},
    FirstColumn{ClipTableModel::filesize, u"88888 MB"},
    FirstColumn{ClipTableModel::comment, u"The boat enters from the left"},
};
static_assert(firstColumns.size() == ClipTableModel::columnCountOfTable);

}  // namespace

ClipTableColumns::ClipTableColumns(QTableView& table, QObject* parent)
    : QObject(parent), _header(*table.horizontalHeader()) {
    arrange();
    restore();
    _saving.setSingleShot(true);
    _saving.setInterval(savingDelay);
    connect(&_saving, &QTimer::timeout, this, &ClipTableColumns::save);
    connect(&_header, &QHeaderView::sectionMoved, this, &ClipTableColumns::changed);
    connect(&_header, &QHeaderView::sectionResized, this, &ClipTableColumns::changed);
    connect(&_header, &QHeaderView::sortIndicatorChanged, this, [this] {
        changed();
        Q_EMIT sortDescriptorsDidChange();
    });
}

ClipTableColumns::~ClipTableColumns() {
    if (_saving.isActive()) {
        save();
    }
}

int ClipTableColumns::sortColumn() const {
    return _header.sortIndicatorSection() < _header.count() ? _header.sortIndicatorSection() : -1;
}

Qt::SortOrder ClipTableColumns::sortOrder() const {
    return _header.sortIndicatorOrder();
}

void ClipTableColumns::arrange() {
    constexpr int padding = 2 * Theme::grid;
    _header.setHighlightSections(false);
    _header.setSectionsMovable(true);
    _header.setFirstSectionMovable(true);
    _header.setSectionsClickable(true);
    _header.setMinimumSectionSize(narrowest);
    _header.setStretchLastSection(true);
    _header.setSortIndicatorShown(true);
    // A third click on a title ends the sorting.
    _header.setSortIndicatorClearable(true);
    _header.setSortIndicator(-1, Qt::AscendingOrder);
    int place = 0;
    for (const FirstColumn& first : firstColumns) {
        const QString sample = QString::fromUtf16(first.sample);
        _header.moveSection(_header.visualIndex(first.column), place++);
        _header.resizeSection(first.column, _header.fontMetrics().horizontalAdvance(sample) + padding);
    }
}

void ClipTableColumns::restore() {
    const std::optional<Value> saved = UserDefaults::standard().value(key::kClipTable);
    const Dictionary settings = saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    int place = 0;
    for (const Value& value : settings.array(key::kColumns).value_or(Array()).values()) {
        const Dictionary described = value.dictionary().value_or(Dictionary());
        const int column =
            ClipTableModel::columnOfIdentifier(described.string(key::kIdentifier).value_or(QString()));
        // A name that is there twice would push another column out of its place.
        if (column < 0 || _header.visualIndex(column) < place) {
            continue;
        }
        _header.moveSection(_header.visualIndex(column), place++);
        const qint64 width = described.integer(key::kWidth).value_or(_header.sectionSize(column));
        _header.resizeSection(column, static_cast<int>(std::clamp<qint64>(width, narrowest, widest)));
    }
    // The status belongs beside the clip; at the end of a long row nobody sees it.
    if (_header.visualIndex(ClipTableModel::icon) == _header.count() - 1) {
        _header.moveSection(_header.count() - 1, 1);
    }
    const bool ascends = settings.boolean(key::kSortAscending).value_or(true);
    const QString sorted = settings.string(key::kSortColumn).value_or(QString());
    _header.setSortIndicator(ClipTableModel::columnOfIdentifier(sorted),
                             ascends ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ClipTableColumns::changed() {
    _saving.start();
}

void ClipTableColumns::save() {
    _saving.stop();
    Array columns;
    for (int place = 0; place < _header.count(); ++place) {
        const int column = _header.logicalIndex(place);
        columns.append(Dictionary{{key::kIdentifier, ClipTableModel::identifier(column)},
                                  {key::kWidth, _header.sectionSize(column)}});
    }
    Dictionary settings{{key::kColumns, columns}, {key::kSortAscending, sortOrder() == Qt::AscendingOrder}};
    if (sortColumn() >= 0) {
        settings.set(key::kSortColumn, ClipTableModel::identifier(sortColumn()));
    }
    UserDefaults::standard().setValue(key::kClipTable, settings);
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logConnect).noquote() << saved.error().description();
    }
}

}  // namespace marquill
