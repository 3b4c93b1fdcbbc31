#include "movie/QTHelper.h"

namespace marquill::QTHelper {

QString timeCodeStringHHMM(qint64 seconds) {
    return QString::asprintf("%02lld:%02lld", seconds / 3600, seconds % 3600 / 60);
}

QString timeCodeStringHHMMSS(qint64 seconds) {
    return QString::asprintf("%02lld:%02lld:%02lld", seconds / 3600, seconds % 3600 / 60,
                             seconds % 3600 % 60);
}

}  // namespace marquill::QTHelper
