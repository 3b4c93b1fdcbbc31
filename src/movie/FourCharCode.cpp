#include "movie/FourCharCode.h"

namespace marquill {

QString FourCharCode::text() const {
    QString text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const unsigned byte = _value >> shift & 0xFF;
        const bool plain = byte >= 0x20 && byte < 0x7F && byte != '\\';
        text += plain ? QString(QChar(byte)) : QString::asprintf("\\x%02x", byte);
    }
    return text;
}

}  // namespace marquill
