#include "clipmanager/DayStrip.h"

#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "movie/QTHelper.h"
#include "platform/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QToolButton>

#include <algorithm>

namespace marquill {

namespace {

constexpr int leastTableHeight = 96;  // below it the table has the strip's room too
constexpr std::chrono::milliseconds rebuildingDelay{50};

QToolButton* arrowButton(Qt::ArrowType arrow, const QString& text, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setAccessibleName(text);
    button->setToolTip(text);
    return button;
}

QString timeText(Date date) {
    return localDateText(date).section(u' ', 1);
}

QString durationText(const TimelineTake& take) {
    return QTHelper::timeCodeStringHHMMSS(static_cast<qint64>(take.duration));
}

}  // namespace

DayStrip::DayStrip(QWidget* parent) : QWidget(parent) {
    build();
    wireView();
    _rebuilding.setSingleShot(true);
    connect(&_rebuilding, &QTimer::timeout, this, &DayStrip::rebuild);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    hide();
}

void DayStrip::build() {
    _previousDay = arrowButton(Qt::LeftArrow, tr("Previous day"), this);
    _nextDay = arrowButton(Qt::RightArrow, tr("Next day"), this);
    _dateText = new QLabel(this);
    _dateText->setFont(Theme::timeFont(font().pointSizeF()));
    _takesText = new QLabel(this);
    _takesText->setForegroundRole(QPalette::PlaceholderText);
    for (QLabel* text : {_dateText, _takesText}) {
        text->setAlignment(Qt::AlignCenter);
    }
    _view = new DayTimelineView(this);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(_dateText);
    texts->addWidget(_takesText);
    texts->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::halfGrid, 0, 0, 0);
    layout->setSpacing(Theme::halfGrid);
    layout->addWidget(_previousDay);
    layout->addLayout(texts);
    layout->addWidget(_nextDay);
    layout->addSpacing(Theme::halfGrid);
    layout->addWidget(_view, 1);
}

void DayStrip::wireView() {
    connect(_previousDay, &QToolButton::clicked, this, [this] { showDay(_day - 1); });
    connect(_nextDay, &QToolButton::clicked, this, [this] { showDay(_day + 1); });
    connect(_view, &DayTimelineView::takeClicked, this, &DayStrip::takeClicked);
    connect(_view, &DayTimelineView::stepWanted, this, &DayStrip::step);
    connect(_view, &DayTimelineView::edgeWanted, this, &DayStrip::goToEdge);
    _view->tipOfTake = [this](std::size_t take) { return tipOf(take); };
}

void DayStrip::setClipTable(ClipTableController& table) {
    _table = &table;
    const ClipTableModel& model = table.model();
    connect(&model, &QAbstractItemModel::modelReset, this, &DayStrip::readAllRows);
    connect(&model, &QAbstractItemModel::layoutChanged, this, &DayStrip::readAllRows);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &DayStrip::readAllRows);
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex& /*parent*/, int first, int last) { appendRows(first, last); });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) { readRows(first.row(), last.row()); });
    // Also when a search hides others.
    connect(&table, &ClipTableController::countChanged, this, &DayStrip::showSelection);
    // A take that was clicked can be rated.
    connect(_view, &DayTimelineView::otherKeyPressed, &table, &ClipTableController::keyDown);
    parentWidget()->installEventFilter(this);
    readAllRows();
}

void DayStrip::setWanted(bool wanted) {
    _isWanted = wanted;
    showVisibility();
}

void DayStrip::setTakeInProgress(const std::optional<TimelineTake>& take) {
    _view->setTakeInProgress(take);
}

int DayStrip::datelessClips() const {
    return static_cast<int>(std::ranges::count(_rows, false, &std::optional<TimelineTake>::has_value));
}

bool DayStrip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        showVisibility();
    }
    return QWidget::eventFilter(watched, event);
}

void DayStrip::readAllRows() {
    _rows.clear();
    appendRows(0, _table->model().rowCount() - 1);
}

void DayStrip::appendRows(int first, int last) {
    if (first != static_cast<int>(_rows.size())) {
        readAllRows();
        return;
    }
    for (int row = first; row <= last; ++row) {
        _rows.push_back(timelineTake(_table->model().clipAt(row), row));
    }
    // At first it comes with the rows, so that these do not jump.
    if (!_rebuilding.isActive()) {
        _rebuilding.start(isHidden() ? std::chrono::milliseconds(0) : rebuildingDelay);
    }
}

// Most changes of rows are of no concern to the strip.
void DayStrip::readRows(int first, int last) {
    bool hasChanged = false;
    for (int row = first; row <= last && row < static_cast<int>(_rows.size()); ++row) {
        std::optional<TimelineTake> take = timelineTake(_table->model().clipAt(row), row);
        std::optional<TimelineTake>& known = _rows[static_cast<std::size_t>(row)];
        hasChanged = hasChanged || take != known;
        known = std::move(take);
    }
    if (hasChanged && !_rebuilding.isActive()) {
        _rebuilding.start(rebuildingDelay);
    }
}

void DayStrip::rebuild() {
    const bool isSameFolder = _folder == _table->clipFolder();
    const QDate shown = _timeline.days().empty() ? QDate() : _timeline.days()[_day].date;
    std::vector<TimelineTake> takes;
    for (const std::optional<TimelineTake>& row : _rows) {
        if (row) {
            takes.push_back(*row);
        }
    }
    _timeline = DayTimeline(std::move(takes));
    _folder = _table->clipFolder();
    _clips = _table->clipArray();
    _takesOfRows.assign(_rows.size(), none);
    for (std::size_t take = 0; take < _timeline.takes().size(); ++take) {
        _takesOfRows[static_cast<std::size_t>(_timeline.takes()[take].clip)] = take;
    }
    const std::vector<TimelineDay>& days = _timeline.days();
    const auto kept = std::ranges::find(days, shown, &TimelineDay::date);
    const bool isKept = isSameFolder && kept != days.end();
    showDay(isKept ? static_cast<std::size_t>(kept - days.begin()) : days.size() - 1);
    showVisibility();
}

// Without takes there is no day, and nothing to be seen.
void DayStrip::showDay(std::size_t day) {
    const std::vector<TimelineDay>& days = _timeline.days();
    _day = days.empty() ? 0 : std::min(day, days.size() - 1);
    _view->setDay(&_timeline, _day);
    if (days.empty()) {
        return;
    }
    const bool isAlone = days.size() == 1;
    _previousDay->setVisible(!isAlone);
    _nextDay->setVisible(!isAlone);
    _previousDay->setEnabled(_day > 0);
    _nextDay->setEnabled(_day + 1 < days.size());
    _dateText->setText(days[_day].date.toString(u"MM/dd/yyyy"_s));
    _takesText->setText(days[_day].count == 1 ? tr("1 take") : tr("%1 takes").arg(days[_day].count));
    for (QLabel* text : {_dateText, _takesText}) {
        text->setToolTip(dayTip());
    }
    showLooks();
}

void DayStrip::showSelection() {
    // With other rows meanwhile, the takes are not known yet.
    if (_rebuilding.isActive() || _timeline.takes().empty()) {
        return;
    }
    const std::vector<std::size_t> selected = selectedTakes();
    if (selected.size() == 1 && _timeline.dayOf(selected.front()) != _day) {
        showDay(_timeline.dayOf(selected.front()));
    } else {
        showLooks();
    }
}

void DayStrip::showLooks() {
    using Look = DayTimelineView::Look;
    std::vector<Look> looks(_timeline.takes().size(), Look::plain);
    for (std::size_t take = 0; take < looks.size(); ++take) {
        looks[take] = isTakeHidden(take) ? Look::hidden : Look::plain;
    }
    const std::vector<std::size_t> selected = selectedTakes();
    for (const std::size_t take : selected) {
        looks[take] = Look::selected;
    }
    const std::optional<std::size_t> current =
        selected.size() == 1 ? std::optional(selected.front()) : std::nullopt;
    if (current) {
        _anchor = clipOf(*current);
    }
    _view->setLooks(std::move(looks), current);
    tellValue(current);
}

void DayStrip::showVisibility() {
    const int room = parentWidget() ? parentWidget()->height() : 0;
    const bool hasRoom = room >= sizeHint().height() + leastTableHeight;
    setVisible(_isWanted && !_timeline.takes().empty() && hasRoom);
}

void DayStrip::tellValue(std::optional<std::size_t> current) {
    const TimelineDay& day = _timeline.days()[_day];
    const auto count = static_cast<int>(day.count);
    if (!current || _timeline.dayOf(*current) != _day) {
        _view->setSpokenValue(0, count, tr("No take selected"));
        return;
    }
    const TimelineTake& take = _timeline.takes()[*current];
    const auto place = static_cast<int>(*current - day.first) + 1;
    _view->setSpokenValue(
        place, count,
        tr("Take %1 of %2, %3, %4").arg(place).arg(count).arg(timeText(take.start), durationText(take)));
}

const ClipInfo& DayStrip::clipOf(std::size_t take) const {
    return _clips[static_cast<std::size_t>(_timeline.takes()[take].clip)];
}

std::size_t DayStrip::takeOfRow(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < _takesOfRows.size() ? _takesOfRows[index] : none;
}

bool DayStrip::isTakeHidden(std::size_t take) const {
    const int row = _timeline.takes()[take].clip;
    return row < _table->model().rowCount() && _table->model().isHidden(row);
}

// In the order of their time; of clips without a date there is no take.
std::vector<std::size_t> DayStrip::selectedTakes() const {
    std::vector<std::size_t> takes;
    for (const ClipInfo& clip : _table->selectedClipArray()) {
        takes.push_back(takeOfRow(_table->model().rowOfClip(clip)));
    }
    std::ranges::sort(takes);
    const auto repeated = std::ranges::unique(takes);
    takes.erase(repeated.begin(), repeated.end());
    if (!takes.empty() && takes.back() == none) {
        takes.pop_back();
    }
    return takes;
}

// Selects just these; `first` is scrolled to.
void DayStrip::select(const std::vector<std::size_t>& takes, std::size_t first) {
    std::vector<ClipInfo> clips = {clipOf(first)};
    for (const std::size_t take : takes) {
        if (take != first && !isTakeHidden(take)) {
            clips.push_back(clipOf(take));
        }
    }
    _table->selectClips(clips);
}

void DayStrip::takeClicked(std::size_t take, Qt::KeyboardModifiers modifiers) {
    std::vector<std::size_t> selected = selectedTakes();
    if (modifiers.testFlag(Qt::ShiftModifier) && _anchor) {
        selectRange(take);
        return;
    }
    if (!modifiers.testFlag(Qt::ControlModifier)) {
        select({}, take);
    } else if (const auto found = std::ranges::find(selected, take); found == selected.end()) {
        select(selected, take);
    } else {
        selected.erase(found);
        selected.empty() ? _table->deselectAll() : select(selected, selected.front());
    }
    _anchor = clipOf(take);
}

// From the clip that was chosen last to `take`, in time.
void DayStrip::selectRange(std::size_t take) {
    const std::size_t known = takeOfRow(_table->model().rowOfClip(*_anchor));
    const std::size_t begin = known == none ? take : known;
    std::vector<std::size_t> takes;
    for (std::size_t each = std::min(begin, take); each <= std::max(begin, take); ++each) {
        takes.push_back(each);
    }
    const ClipInfo anchor = clipOf(begin);
    select(takes, take);
    _anchor = anchor;
}

void DayStrip::step(int step) {
    const std::vector<std::size_t> selected = selectedTakes();
    if (selected.empty()) {
        goToEdge(step < 0);
        return;
    }
    const auto from = static_cast<qsizetype>(step < 0 ? selected.front() : selected.back());
    const auto count = static_cast<qsizetype>(_timeline.takes().size());
    const int direction = step < 0 ? -1 : 1;
    for (qsizetype take = from + step; take >= 0 && take < count; take += direction) {
        if (!isTakeHidden(static_cast<std::size_t>(take))) {
            select({}, static_cast<std::size_t>(take));
            return;
        }
    }
}

// The first take of the day that can be seen, or the last one.
void DayStrip::goToEdge(bool last) {
    const TimelineDay& day = _timeline.days()[_day];
    for (std::size_t i = 0; i < day.count; ++i) {
        const std::size_t take = last ? day.first + day.count - 1 - i : day.first + i;
        if (!isTakeHidden(take)) {
            select({}, take);
            return;
        }
    }
}

QString DayStrip::tipOf(std::size_t take) const {
    const ClipInfo& clip = clipOf(take);
    const TimelineTake& shown = _timeline.takes()[take];
    QStringList lines = {
        tr("%1, take %2").arg(ClipStore::clipDisplayNameFromClip(clip), ClipStore::takeFromClip(clip)),
        tr("%1, duration %2").arg(timeText(shown.start), durationText(shown))};
    QStringList entered;
    if (const QString scene = clip.clipScene().value_or(QString()); !scene.isEmpty()) {
        entered.append(tr("Scene %1").arg(scene));
    }
    if (shown.rating > 0) {
        entered.append(QString(shown.rating, u'★'));
    }
    if (const QString label = clip.clipLabel().value_or(QString()); !label.isEmpty()) {
        entered.append(label);
    }
    if (!entered.isEmpty()) {
        lines.append(entered.join(u" · "_s));
    }
    if (shown.markers.size() == 1) {
        lines.append(tr("1 marker"));
    } else if (!shown.markers.empty()) {
        lines.append(tr("%1 markers").arg(shown.markers.size()));
    }
    if (isTakeHidden(take)) {
        lines.append(tr("Not among the clips found"));
    }
    return lines.join(u'\n');
}

QString DayStrip::dayTip() const {
    const TimelineDay& day = _timeline.days()[_day];
    QStringList lines = {QLocale().toString(day.date, QLocale::LongFormat)};
    if (_timeline.days().size() > 1) {
        lines.append(tr("Day %1 of %2").arg(_day + 1).arg(_timeline.days().size()));
    }
    if (const int dateless = datelessClips(); dateless > 0) {
        lines.append(dateless == 1 ? tr("1 clip without a date is not shown")
                                   : tr("%1 clips without a date are not shown").arg(dateless));
    }
    return lines.join(u'\n');
}

}  // namespace marquill
