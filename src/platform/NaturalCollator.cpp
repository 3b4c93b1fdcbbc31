#include "platform/NaturalCollator.h"

namespace marquill {

QCollator naturalCollator() {
    const QLocale locale = QLocale().collation();
    // The plain locale compares bytes, so another one stands in for it.
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

}  // namespace marquill
