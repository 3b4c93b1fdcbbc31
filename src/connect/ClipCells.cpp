#include "connect/ClipCells.h"

#include "connect/ClipPictures.h"
#include "connect/ClipTableModel.h"
#include "platform/DelayedCalls.h"
#include "platform/RecordTextValidator.h"
#include "platform/Theme.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marquill {

namespace {

constexpr int starSize = 14;

// The style's own cell without text and picture.
void paintEmptyCell(QPainter& painter, const QStyleOptionViewItem& option) {
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, &painter, option.widget);
}

// A five-pointed star standing on two points in a square of `size`, around `centre`.
QPolygonF star(const QPointF& centre, double size) {
    constexpr int corners = 10;
    constexpr double innerShare = 0.42;
    QPolygonF polygon;
    for (int corner = 0; corner < corners; ++corner) {
        const double radius = size / 2 * (corner % 2 == 0 ? 1.0 : innerShare);
        const double angle = std::numbers::pi * (2.0 * corner / corners - 0.5);
        polygon << centre + radius * QPointF(std::cos(angle), std::sin(angle));
    }
    return polygon;
}

QRect starsRect(const QRect& cell) {
    return {cell.left() + Theme::halfGrid, cell.top(), RatingCell::places * starSize, cell.height()};
}

}  // namespace

QWidget* TextCell::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                const QModelIndex& index) const {
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    if (index.column() == ClipTableModel::clip) {
        field->setValidator(new ClipNameValidator(field));
    } else {
        field->setValidator(new RecordTextValidator(field));
    }
    return field;
}

QString TextCell::displayText(const QVariant& value, const QLocale&) const {
    QString text = value.toString();
    return text.replace(u'\n', u' ').replace(u'\r', u' ');
}

void StatusCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QIcon icon = cell.icon;
    cell.features &= ~QStyleOptionViewItem::HasDecoration;
    cell.icon = {};
    cell.text.clear();
    paintEmptyCell(*painter, cell);
    const int size = std::min({Theme::grid * 2, option.rect.width(), option.rect.height()});
    QRect place(0, 0, size, size);
    place.moveCenter(option.rect.center());
    icon.paint(painter, place);
}

bool StatusCell::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                           const QModelIndex& index) {
    return _pictures.showTip(*event, index) || QStyledItemDelegate::helpEvent(event, view, option, index);
}

void PictureCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    constexpr int margin = 3;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    paintEmptyCell(*painter, cell);
    const QRect place = option.rect.adjusted(margin, margin, -margin, -margin);
    const QPixmap picture = _pictures.pictureAt(index.row());
    if (!picture.isNull()) {
        QRect shown(QPoint(), picture.size().scaled(place.size(), Qt::KeepAspectRatio));
        shown.moveCenter(place.center());
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawPixmap(shown, picture);
    } else if (_pictures.hasNone(index.row())) {
        painter->setPen(Theme::colours().mutedText);
        painter->drawText(place, Qt::AlignCenter, u"-"_s);
    }
}

float RatingCell::ratingAt(const QRect& cell, int x) {
    const QRect stars = starsRect(cell);
    const float place = static_cast<float>(x - stars.left()) / static_cast<float>(starSize);
    return std::clamp(place, 0.0F, static_cast<float>(places));
}

void RatingCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.text.clear();
    paintEmptyCell(*painter, cell);
    const qint64 rating = index.data(Qt::EditRole).toLongLong();
    const QRect stars = starsRect(option.rect);
    const ThemeColours& colours = Theme::colours();
    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    for (int place = 0; place < places; ++place) {
        const QPointF centre(stars.left() + (place + 0.5) * starSize,
                             option.rect.top() + option.rect.height() / 2.0);
        if (place < rating) {
            painter->setBrush(colours.text);
            painter->drawPolygon(star(centre, starSize));
        } else if ((option.state & QStyle::State_Selected) != 0 ||
                   (option.state & QStyle::State_MouseOver) != 0) {
            // Where a star could be, only where it could be clicked.
            painter->setBrush(colours.mutedText);
            painter->drawEllipse(centre, 1.5, 1.5);
        }
    }
    painter->restore();
}

QSize RatingCell::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {places * starSize + Theme::grid, size.height()};
}

QWidget* RatingCell::createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const {
    return nullptr;
}

bool RatingCell::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    const auto* table = qobject_cast<const QTableView*>(option.widget);
    if (!table ||
        (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonRelease)) {
        return false;
    }
    const auto* click = static_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseButtonPress) {
        // The click that selects a row does not rate it.
        const bool isOnly = table->selectionModel()->selectedRows().size() == 1 &&
                            table->selectionModel()->isRowSelected(index.row());
        const bool isPlain = click->button() == Qt::LeftButton && click->modifiers() == Qt::NoModifier;
        _pressed = isOnly && isPlain ? QPersistentModelIndex(index) : QPersistentModelIndex();
        return false;
    }
    const bool rates = _pressed == index && option.rect.contains(click->position().toPoint());
    _pressed = QPersistentModelIndex();
    if (rates) {
        model->setData(index, ratingAt(option.rect, click->position().toPoint().x()), Qt::EditRole);
    }
    return rates;
}

QWidget* LabelCell::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* popup = new QComboBox(parent);
    popup->setAccessibleName(tr("Label"));
    popup->addItems(_model.labels());
    auto* cell = const_cast<LabelCell*>(
        this);  // NOLINT(cppcoreguidelines-pro-type-const-cast): signals of a const delegate
    connect(popup, &QComboBox::activated, cell, [cell, popup] {
        Q_EMIT cell->commitData(popup);
        Q_EMIT cell->closeEditor(popup, NoHint);
    });
    DelayedCalls::performAfterDelay(popup, 0, [popup] { popup->showPopup(); });
    return popup;
}

void LabelCell::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* popup = qobject_cast<QComboBox*>(editor)) {
        popup->setCurrentIndex(index.data(Qt::EditRole).toInt());
    }
}

void LabelCell::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    if (const auto* popup = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, popup->currentIndex(), Qt::EditRole);
    }
}

}  // namespace marquill
