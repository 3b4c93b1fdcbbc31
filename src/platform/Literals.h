// Texts in the code are written u"…"_s (QString) and "…"_L1 (Latin-1 view).
#pragma once

#include <QString>

namespace marquill {
using namespace Qt::StringLiterals;
}  // namespace marquill
