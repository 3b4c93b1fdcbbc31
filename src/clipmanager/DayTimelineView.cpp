#include "clipmanager/DayTimelineView.h"

#include "platform/Literals.h"
#include "platform/Theme.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

constexpr double margin = Theme::grid;  // left and right of the line
constexpr double tickHeight = 5;
constexpr double ticksTop = Theme::halfGrid;
constexpr double barsHeight = 22;
constexpr double currentMark = 4;  // below the current take's block
constexpr double reach = 3;        // how far from a block a click is on it
constexpr double blurred = 0.3;    // what a hidden take is painted with

double labelPointSize(const QWidget& widget) {
    constexpr double lessThanText = 1;
    return std::max(widget.font().pointSizeF() - lessThanText, 6.0);
}

// A slider over the day's takes, to assistive programs.
class SpokenTimeline : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit SpokenTimeline(DayTimelineView& view) : QAccessibleWidget(&view, QAccessible::Slider) {}

    QString text(QAccessible::Text kind) const override {
        const bool isValue = kind == QAccessible::Value || kind == QAccessible::Description;
        return isValue ? view().spokenText() : QAccessibleWidget::text(kind);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return view().spokenPlace(); }
    void setCurrentValue(const QVariant& value) override {
        Q_EMIT view().stepWanted(value.toInt() - view().spokenPlace());
    }
    QVariant minimumValue() const override { return std::min(view().spokenCount(), 1); }
    QVariant maximumValue() const override { return view().spokenCount(); }
    QVariant minimumStepSize() const override { return 1; }

  private:
    DayTimelineView& view() const { return *static_cast<DayTimelineView*>(widget()); }
};

QAccessibleInterface* spokenTimeline(const QString& className, QObject* object) {
    auto* view = qobject_cast<DayTimelineView*>(object);
    const bool isAsked = className == QLatin1StringView(DayTimelineView::staticMetaObject.className());
    return view && isAsked ? new SpokenTimeline(*view) : nullptr;
}

void installSpokenTimeline() {
    static const bool installed = [] {
        QAccessible::installFactory(&spokenTimeline);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

// One painting of a view. What falls on the same pixels is painted once: of ten thousand takes of a day most
// do.
class DayTimelineView::Painting {
  public:
    Painting(DayTimelineView& view, QPainter& painter)
        : _view(view),
          _painter(painter),
          _colours(Theme::colours()),
          _scale(view.devicePixelRatioF()),
          _ticked(static_cast<std::size_t>(std::ceil(view.width() * _scale))) {}

    void paintGround() {
        _painter.fillRect(_view.rect(), _colours.base);
        _painter.fillRect(QRect(0, _view.height() - 1, _view.width(), 1), _colours.border);
    }

    void paintHours() {
        const QFont font = Theme::timeFont(labelPointSize(_view));
        _painter.setFont(font);
        const QFontMetricsF metrics(font);
        const double top = ticksTop + tickHeight;
        const double bottom = _view.blocksTop() + _view.blocksHeight() + currentMark;
        for (const TimelineHour& hour : _view.dayLayout().hours()) {
            const double x = onPixel(_view.lineLeft() + hour.x);
            _painter.fillRect(QRectF(x, top, 1, _view.height() - top), _colours.separator);
            const double width = metrics.horizontalAdvance(hour.label);
            if (x + Theme::halfGrid + width <= _view.width()) {
                _painter.setPen(_colours.mutedText);
                _painter.drawText(QPointF(x + Theme::halfGrid, bottom + metrics.ascent()), hour.label);
            }
        }
    }

    // Those that stand out last, upon the others.
    void paintTakes() {
        for (const Look look : {Look::hidden, Look::plain, Look::selected}) {
            if (look != Look::plain && std::ranges::find(_view._looks, look) == _view._looks.end()) {
                continue;
            }
            for (const TimelineBlock& block : _view.dayLayout().blocks()) {
                if (_view.lookOf(block.take) == look) {
                    paintBlock(block);
                }
            }
        }
        for (const TimelineBlock& block : _view.dayLayout().blocks()) {
            if (_view.lookOf(block.take) != Look::hidden) {
                paintTicks(_view._timeline->takes()[block.take]);
            }
        }
    }

    void paintCurrent(std::size_t take) {
        const QRectF rect = _view.blockRect(take);
        const double middle = onPixel(rect.center().x());
        const double top = _view.blocksTop() + _view.blocksHeight() + 1;
        _painter.setRenderHint(QPainter::Antialiasing);
        _painter.setPen(Qt::NoPen);
        _painter.setBrush(_colours.accent);
        _painter.drawPolygon(QPolygonF({QPointF(middle, top), QPointF(middle + 4, top + currentMark),
                                        QPointF(middle - 4, top + currentMark)}));
        _painter.setRenderHint(QPainter::Antialiasing, false);
    }

    void paintProgress(const QRectF& rect) {
        _painter.fillRect(onPixels(rect), _colours.recording);
        paintTicks(*_view._inProgress);
    }

    void paintFocus() {
        constexpr int ring = 2;
        _painter.setPen(QPen(_colours.focus, ring));
        _painter.setBrush(Qt::NoBrush);
        _painter.drawRect(QRectF(_view.rect()).adjusted(1, 1, -1, -1));
    }

  private:
    double onPixel(double x) const { return std::round(x * _scale) / _scale; }

    QRectF onPixels(const QRectF& rect) const {
        const double left = onPixel(rect.left());
        return {left, onPixel(rect.top()), onPixel(rect.right()) - left, rect.height()};
    }

    QColor colourOf(std::size_t take) const {
        QColor colour = _view._hovered == take ? _colours.text : _colours.mutedText;
        switch (_view.lookOf(take)) {
            case Look::selected:
                return _colours.accent;
            case Look::hidden:
                colour.setAlphaF(static_cast<float>(blurred));
                return colour;
            default:
                return colour;
        }
    }

    void paintBlock(const TimelineBlock& block) {
        QRectF rect = onPixels(_view.rectOf(block, _view._timeline->takes()[block.take]));
        // Neighbours that meet stay two.
        if (rect.width() > DayLayout::leastWidth + 1) {
            rect.setWidth(rect.width() - 1);
        }
        const QColor colour = colourOf(block.take);
        if (rect != _lastRect || colour != _lastColour) {
            _painter.fillRect(rect, colour);
            _lastRect = rect;
            _lastColour = colour;
        }
    }

    void paintTicks(const TimelineTake& take) {
        const DayLayout& day = _view.dayLayout();
        for (const double seconds : take.markers) {
            const double place = _view.lineLeft() + day.xOf(dateByAdding(take.start, seconds));
            const double pixels = std::round(place * _scale);
            const auto pixel = static_cast<std::size_t>(std::max(pixels, 0.0));
            if (pixels >= 0 && pixel < _ticked.size() && !_ticked[pixel]) {
                _ticked[pixel] = true;
                _painter.fillRect(QRectF(onPixel(place), ticksTop, 1, tickHeight), _colours.mutedText);
            }
        }
    }

    DayTimelineView& _view;
    QPainter& _painter;
    const ThemeColours& _colours;
    double _scale;
    QRectF _lastRect;
    QColor _lastColour;
    std::vector<bool> _ticked;  // by pixel
};

DayTimelineView::DayTimelineView(QWidget* parent) : QWidget(parent) {
    installSpokenTimeline();
    setAccessibleName(tr("Day timeline"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DayTimelineView::setDay(const DayTimeline* timeline, std::size_t day) {
    _timeline = timeline;
    _day = day;
    _hovered.reset();
    _looks.clear();
    _current.reset();
    const bool isThere = timeline && day < timeline->days().size();
    if (const QDate date = isThere ? timeline->days()[day].date : QDate(); date != _date) {
        _date = date;
        _zoom = {};
    }
    forgetLayout();
}

void DayTimelineView::setLooks(std::vector<Look> looks, std::optional<std::size_t> current) {
    _looks = std::move(looks);
    if (std::exchange(_current, current) != current) {
        showCurrent();
    }
    update();
}

void DayTimelineView::setTakeInProgress(const std::optional<TimelineTake>& take) {
    const bool outgrows = take && take->end() > dayLayout().to();
    if (take.has_value() != _inProgress.has_value() || outgrows) {
        forgetLayout();
    }
    _inProgress = take;
    update();
}

void DayTimelineView::setSpokenValue(int place, int count, const QString& text) {
    _spokenPlace = place;
    _spokenCount = count;
    if (text != _spokenText) {
        _spokenText = text;
        QAccessibleValueChangeEvent changed(this, place);
        QAccessible::updateAccessibility(&changed);
    }
}

const DayLayout& DayTimelineView::dayLayout() {
    if (!_layout && _timeline && _day < _timeline->days().size()) {
        const std::optional<Date> until = _inProgress ? std::optional(_inProgress->end()) : std::nullopt;
        _layout = _timeline->layOut(_day, lineWidth() * _zoom.factor(), labelWidth(), until);
    }
    static const DayLayout none;
    return _layout ? *_layout : none;
}

void DayTimelineView::forgetLayout() {
    _layout.reset();
    update();
}

double DayTimelineView::blocksTop() const {
    return ticksTop + tickHeight + 1;
}

double DayTimelineView::blocksHeight() const {
    return barsHeight;
}

double DayTimelineView::labelWidth() const {
    constexpr double distance = 3 * Theme::grid;
    return QFontMetricsF(Theme::timeFont(labelPointSize(*this))).horizontalAdvance(u"00:00"_s) + distance;
}

// What of the line is seen at a time.
double DayTimelineView::lineWidth() const {
    return width() - 2 * margin;
}

double DayTimelineView::lineLeft() const {
    return margin - _zoom.offset();
}

void DayTimelineView::zoomAt(double times, double x) {
    _zoom.zoom(times, x - margin, lineWidth());
    forgetLayout();
}

void DayTimelineView::showCurrent() {
    if (_zoom.factor() > 1 && _current && isOfDay(*_current)) {
        const QRectF block = blockRect(*_current).translated(-lineLeft(), 0);
        _zoom.show(block.left(), block.right(), lineWidth());
    }
}

QSize DayTimelineView::sizeHint() const {
    const double label = QFontMetricsF(Theme::timeFont(labelPointSize(*this))).height();
    return {480, static_cast<int>(std::ceil(blocksTop() + blocksHeight() + currentMark + label + 3))};
}

// A take of no stars fills three fifths of its lane, one of five all of it, and so does a selected one.
QRectF DayTimelineView::rectOf(const TimelineBlock& block, const TimelineTake& take) const {
    constexpr double leastShare = 0.6;
    constexpr double mostStars = 5;
    const double lane = blocksHeight() / block.lanes;
    const double gap = block.lanes > 1 ? 1 : 0;
    const bool isWhole = lookOf(block.take) == Look::selected;
    const double share = isWhole ? 1 : leastShare + (1 - leastShare) * take.rating / mostStars;
    const double height = std::round((lane - gap) * share);
    const double bottom = blocksTop() + std::round(lane * (block.lane + 1));
    return {lineLeft() + block.left, bottom - height, block.width, height};
}

DayTimelineView::Look DayTimelineView::lookOf(std::size_t take) const {
    return take < _looks.size() ? _looks[take] : Look::plain;
}

bool DayTimelineView::isOfDay(std::size_t take) const {
    const std::vector<TimelineDay>& days = _timeline->days();
    return take >= days[_day].first && take < days[_day].first + days[_day].count;
}

QRectF DayTimelineView::blockRect(std::size_t take) {
    const std::vector<TimelineBlock>& blocks = dayLayout().blocks();
    if (blocks.empty() || !isOfDay(take)) {
        return {};
    }
    return rectOf(blocks[take - blocks.front().take], _timeline->takes()[take]);
}

QRectF DayTimelineView::progressRect() {
    const DayLayout& day = dayLayout();
    if (!_inProgress || day.blocks().empty() || _inProgress->start < day.from() ||
        _inProgress->start > day.to()) {
        return {};
    }
    const double left = day.xOf(_inProgress->start);
    const double width = std::max(day.xOf(_inProgress->end()) - left, DayLayout::leastWidth);
    return {lineLeft() + left, blocksTop(), width, blocksHeight()};
}

std::vector<double> DayTimelineView::tickPlaces(const TimelineTake& take) {
    std::vector<double> places;
    places.reserve(take.markers.size());
    for (const double seconds : take.markers) {
        places.push_back(lineLeft() + dayLayout().xOf(dateByAdding(take.start, seconds)));
    }
    return places;
}

std::optional<std::size_t> DayTimelineView::blockAt(const QPointF& point) {
    const double y = (point.y() - blocksTop()) / blocksHeight();
    const std::optional<std::size_t> found = dayLayout().blockAt(point.x() - lineLeft(), y, reach);
    return found ? std::optional(dayLayout().blocks()[*found].take) : std::nullopt;
}

std::optional<std::size_t> DayTimelineView::takeAt(const QPointF& point) {
    const std::optional<std::size_t> take = blockAt(point);
    return take && lookOf(*take) != Look::hidden ? take : std::nullopt;
}

bool DayTimelineView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<const QHelpEvent*>(event);
    const std::optional<std::size_t> take = blockAt(help->pos());
    if (take && tipOfTake) {
        QToolTip::showText(help->globalPos(), tipOfTake(*take), this, blockRect(*take).toAlignedRect());
    } else {
        QToolTip::hideText();
    }
    return true;
}

void DayTimelineView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    Painting painting(*this, painter);
    painting.paintGround();
    painting.paintHours();
    painting.paintTakes();
    if (_current && isOfDay(*_current)) {
        painting.paintCurrent(*_current);
    }
    if (const QRectF progress = progressRect(); !progress.isEmpty()) {
        painting.paintProgress(progress);
    }
    if (hasFocus()) {
        painting.paintFocus();
    }
}

void DayTimelineView::resizeEvent(QResizeEvent* /*event*/) {
    _zoom.scroll(0, lineWidth());
    forgetLayout();
}

void DayTimelineView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        forgetLayout();
    }
    QWidget::changeEvent(event);
}

void DayTimelineView::mousePressEvent(QMouseEvent* event) {
    const std::optional<std::size_t> take = takeAt(event->position());
    if (event->button() == Qt::LeftButton && take) {
        Q_EMIT takeClicked(*take, event->modifiers());
    }
}

void DayTimelineView::mouseMoveEvent(QMouseEvent* event) {
    setHovered(takeAt(event->position()));
}

void DayTimelineView::leaveEvent(QEvent* /*event*/) {
    setHovered(std::nullopt);
}

// As in time lines elsewhere: what the pointer is on stays under it. All of a day has nothing to scroll.
void DayTimelineView::wheelEvent(QWheelEvent* event) {
    constexpr double timesPerNotch = 1.25;
    constexpr double notch = 120;  // eighths of a degree
    const QPointF turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        zoomAt(std::pow(timesPerNotch, turned.y() / notch), event->position().x());
    } else if (_zoom.factor() > 1) {
        _zoom.scroll(-(turned.x() + turned.y()), lineWidth());
        update();
    } else {
        event->ignore();
        return;
    }
    setHovered(takeAt(event->position()));
    event->accept();
}

void DayTimelineView::setHovered(std::optional<std::size_t> take) {
    if (take != _hovered) {
        _hovered = take;
        update();
    }
}

void DayTimelineView::keyPressEvent(QKeyEvent* event) {
    constexpr double timesPerKey = 2;
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const double middle = _current && isOfDay(*_current) ? blockRect(*_current).center().x() : width() / 2.0;
    if (isPlain && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        Q_EMIT stepWanted(event->key() == Qt::Key_Left ? -1 : 1);
    } else if (isPlain && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)) {
        Q_EMIT edgeWanted(event->key() == Qt::Key_End);
    } else if (event->text() == u"+"_s || event->text() == u"-"_s) {
        zoomAt(event->text() == u"+"_s ? timesPerKey : 1 / timesPerKey, middle);
    } else {
        event->ignore();
        Q_EMIT otherKeyPressed(*event);
    }
}

}  // namespace marquill
