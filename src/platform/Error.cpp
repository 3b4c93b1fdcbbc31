#include "platform/Error.h"

namespace marquill {

QString Error::description() const {
    QString text = path.isEmpty() ? message : path + u": "_s + message;
    if (byteOffset) {
        text += u" (at byte %1)"_s.arg(*byteOffset);
    }
    return text;
}

}  // namespace marquill
