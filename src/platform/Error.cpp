#include "platform/Error.h"

#include <QCoreApplication>

namespace marquill {

QString Error::description() const {
    QString text = path.isEmpty() ? message : path + u": "_s + message;
    if (byteOffset) {
        text =
            QCoreApplication::translate("Error", "%1 (at byte %2)").arg(text, QString::number(*byteOffset));
    }
    return text;
}

}  // namespace marquill
