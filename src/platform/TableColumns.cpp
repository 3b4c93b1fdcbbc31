#include "platform/TableColumns.h"

#include "platform/Log.h"
#include "platform/PropertyList.h"
#include "platform/TableHeader.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

namespace marquill {

namespace {

namespace key {
const QString kColumns = u"kColumns"_s;
const QString kIdentifier = u"kIdentifier"_s;
const QString kWidth = u"kWidth"_s;
const QString kSortColumn = u"kSortColumn"_s;
const QString kSortAscending = u"kSortAscending"_s;
}  // namespace key

constexpr std::chrono::milliseconds savingDelay{500};
constexpr int narrowest = 3 * Theme::grid;
constexpr int widest = 4000;

}  // namespace

TableColumns::TableColumns(QTableView& table, QString settingsKey, std::vector<TableColumn> columns,
                           QObject* parent)
    : QObject(parent),
      _header(*table.horizontalHeader()),
      _settingsKey(std::move(settingsKey)),
      _columns(std::move(columns)) {
    arrange();
    restore();
    _header.installEventFilter(this);
    _saving.setSingleShot(true);
    _saving.setInterval(savingDelay);
    connect(&_saving, &QTimer::timeout, this, &TableColumns::save);
    connect(&_header, &QHeaderView::sectionMoved, this, &TableColumns::changed);
    connect(&_header, &QHeaderView::sectionResized, this, &TableColumns::sectionResized);
    connect(&_header, &QHeaderView::sortIndicatorChanged, this, [this] {
        changed();
        Q_EMIT sortDescriptorsDidChange();
    });
}

TableColumns::~TableColumns() {
    if (_saving.isActive()) {
        save();
    }
}

int TableColumns::sortColumn() const {
    return _header.sortIndicatorSection() < _header.count() ? _header.sortIndicatorSection() : -1;
}

Qt::SortOrder TableColumns::sortOrder() const {
    return _header.sortIndicatorOrder();
}

int TableColumns::columnOf(const QString& identifier) const {
    const auto found = std::ranges::find(_columns, identifier, &TableColumn::identifier);
    return found == _columns.end() ? -1 : found->column;
}

QString TableColumns::identifierOf(int column) const {
    const auto found = std::ranges::find(_columns, column, &TableColumn::column);
    return found == _columns.end() ? QString() : found->identifier;
}

void TableColumns::arrange() {
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
    for (const TableColumn& first : _columns) {
        _header.moveSection(_header.visualIndex(first.column), place++);
        // The last column has what the others leave, and no more, or the table would have to be scrolled.
        const bool isLast = place == static_cast<int>(_columns.size());
        const QString title =
            isLast ? QString() : _header.model()->headerData(first.column, Qt::Horizontal).toString();
        const int width = std::max(_header.fontMetrics().horizontalAdvance(first.sample),
                                   _header.fontMetrics().horizontalAdvance(title));
        _header.resizeSection(first.column, width + TableHeader::padding);
        if (first.grows) {
            _growing = first.column;
            _leastOfGrowing = width + TableHeader::padding;
        }
    }
}

void TableColumns::restore() {
    const std::optional<Value> saved = UserDefaults::standard().value(_settingsKey);
    const Dictionary settings = saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    int place = 0;
    for (const Value& value : settings.array(key::kColumns).value_or(Array()).values()) {
        const Dictionary described = value.dictionary().value_or(Dictionary());
        const int column = columnOf(described.string(key::kIdentifier).value_or(QString()));
        // A name that is there twice would push another column out of its place.
        if (column < 0 || _header.visualIndex(column) < place) {
            continue;
        }
        _header.moveSection(_header.visualIndex(column), place++);
        if (const std::optional<qint64> width = described.integer(key::kWidth)) {
            _header.resizeSection(column, static_cast<int>(std::clamp<qint64>(*width, narrowest, widest)));
            _growing = column == _growing ? -1 : _growing;
        }
    }
    const bool ascends = settings.boolean(key::kSortAscending).value_or(true);
    const QString sorted = settings.string(key::kSortColumn).value_or(QString());
    _header.setSortIndicator(columnOf(sorted), ascends ? Qt::AscendingOrder : Qt::DescendingOrder);
}

bool TableColumns::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        grow();
    }
    return QObject::eventFilter(watched, event);
}

// Half of what the other columns leave, as the last one has the rest.
void TableColumns::grow() {
    if (_growing < 0 || _header.visualIndex(_growing) == _header.count() - 1) {
        return;
    }
    int others = 0;
    for (int place = 0; place < _header.count() - 1; ++place) {
        const int column = _header.logicalIndex(place);
        others += column == _growing ? 0 : _header.sectionSize(column);
    }
    const QScopedValueRollback growing(_isGrowing, true);
    _header.resizeSection(_growing, std::max(_leastOfGrowing, (_header.width() - others) / 2));
}

void TableColumns::sectionResized(int column) {
    if (column == _growing && !_isGrowing) {
        _growing = -1;
    }
    changed();
}

void TableColumns::changed() {
    _saving.start();
}

void TableColumns::save() {
    _saving.stop();
    Array columns;
    for (int place = 0; place < _header.count(); ++place) {
        const int column = _header.logicalIndex(place);
        Dictionary described{{key::kIdentifier, identifierOf(column)}};
        // A hidden one has no width; shown again it has its first one. One that grows has none of its own.
        if (!_header.isSectionHidden(column) && column != _growing) {
            described.set(key::kWidth, _header.sectionSize(column));
        }
        columns.append(described);
    }
    Dictionary settings{{key::kColumns, columns}, {key::kSortAscending, sortOrder() == Qt::AscendingOrder}};
    if (sortColumn() >= 0) {
        settings.set(key::kSortColumn, identifierOf(sortColumn()));
    }
    UserDefaults::standard().setValue(_settingsKey, settings);
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logPlatform).noquote() << saved.error().description();
    }
}

}  // namespace marquill
