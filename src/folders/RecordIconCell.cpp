#include "folders/RecordIconCell.h"

#include "platform/Images.h"

#include <QAbstractItemModel>
#include <QMouseEvent>
#include <QPainter>

namespace marquill {

namespace {

constexpr int leftMargin = 3;

// Loaded once, shared by all cells.
const QIcon& recordingSymbol() {
    static const QIcon symbol = image(u"RecordingSymbol"_s);
    return symbol;
}

QSize symbolSize() {
    static const QSize size = imagePixmap(u"RecordingSymbol"_s).size();
    return size;
}

int strip() {
    return symbolSize().width() + leftMargin;
}

}  // namespace

QRect RecordIconCell::symbolRect(const QRect& cell) {
    const int slack = cell.height() - symbolSize().height();
    const int offset = slack > 0 ? (slack + 1) / 2 : slack / 2;
    return {QPoint(cell.left() + leftMargin, cell.top() + offset), symbolSize()};
}

void RecordIconCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(Qt::EditRole).toInt() == 1) {
        recordingSymbol().paint(painter, symbolRect(option.rect));
    }
}

QSize RecordIconCell::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return {strip() + leftMargin, QStyledItemDelegate::sizeHint(option, index).height()};
}

void RecordIconCell::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex&) const {
    editor->setGeometry(option.rect.adjusted(strip(), 0, 0, 0));
}

bool RecordIconCell::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) {
    if (event->type() != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto* click = static_cast<QMouseEvent*>(event);
    if (click->button() != Qt::LeftButton || !option.rect.contains(click->position().toPoint())) {
        return false;
    }
    model->setData(index, Qt::Checked, Qt::CheckStateRole);
    return true;
}

void RecordIconCell::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // The check state is for screen readers; the eye gets the symbol, and only the symbol.
    option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
    option->features &= ~QStyleOptionViewItem::HasDisplay;
    option->text.clear();
}

}  // namespace marquill
