#include "platform/TableHeader.h"

#include "platform/Images.h"

#include <QPainter>

namespace marquill {

namespace {

constexpr int arrowSize = 12;
constexpr int arrowMargin = 4;

}  // namespace

TableHeader::TableHeader(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
    setSectionsClickable(true);
}

bool TableHeader::isSorted(int logicalIndex) const {
    return isSortIndicatorShown() && sortIndicatorSection() == logicalIndex;
}

// The style would elide by a width that knows nothing of the style sheet's padding, and would leave room for
// an arrow in every section.
void TableHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const {
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    option->sortIndicator = QStyleOptionHeader::None;
    const int arrow = isSorted(logicalIndex) ? arrowSize : 0;
    const QString title = model()->headerData(logicalIndex, orientation()).toString();
    option->text = option->fontMetrics.elidedText(title, Qt::ElideRight,
                                                  sectionSize(logicalIndex) - (padding - 1) - arrow);
}

void TableHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    painter->save();  // the style leaves nothing that could be painted on
    QHeaderView::paintSection(painter, rect, logicalIndex);
    painter->restore();
    if (!isSorted(logicalIndex)) {
        return;
    }
    const auto textAlignment =
        model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole).value<Qt::Alignment>();
    QRect arrow(0, 0, arrowSize, arrowSize);
    arrow.moveCenter(rect.center());
    if (textAlignment.testFlag(Qt::AlignRight)) {
        arrow.moveLeft(rect.left() + arrowMargin);
    } else {
        arrow.moveRight(rect.right() - arrowMargin);
    }
    symbol(sortIndicatorOrder() == Qt::AscendingOrder ? u"ArrowUp"_s : u"ArrowDown"_s).paint(painter, arrow);
}

}  // namespace marquill
