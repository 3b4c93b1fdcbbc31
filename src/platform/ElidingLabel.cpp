#include "platform/ElidingLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace marquill {

QSize ElidingLabel::sizeHint() const {
    // Widths have fractions: a place of the rounded one may be too narrow, and shorten what fits.
    return sizeForWidth(fontMetrics().horizontalAdvance(text()) + 1);
}

QSize ElidingLabel::minimumSizeHint() const {
    constexpr int fewestCharacters = 8;
    return sizeForWidth(fontMetrics().averageCharWidth() * fewestCharacters);
}

QSize ElidingLabel::sizeForWidth(int textWidth) const {
    return QSize(textWidth, fontMetrics().height()) + QSize(2 * margin(), 2 * margin());
}

bool ElidingLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && sizeHint().width() > width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidingLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect place = contentsRect().marginsRemoved({margin(), margin(), margin(), margin()});
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width());
    style()->drawItemText(&painter, place, static_cast<int>(alignment() | Qt::TextSingleLine), palette(),
                          isEnabled(), shown, foregroundRole());
}

}  // namespace marquill
