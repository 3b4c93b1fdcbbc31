#include "markers/MarkerSetPopup.h"

#include <QStyle>
#include <QStyleOptionComboBox>

namespace marquill {

void MarkerSetPopup::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    const QRect text =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, text.width() - 2);
}

}  // namespace marquill
