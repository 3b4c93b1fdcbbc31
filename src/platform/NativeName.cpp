#include "platform/NativeName.h"

#include <QStringConverter>

namespace marquill {

std::optional<QByteArray> nativeName(const QString& path) {
    if (path.isEmpty() || path.contains(QChar::Null) || !path.isValidUtf16()) {
        return std::nullopt;
    }
    return path.toUtf8();
}

std::optional<QString> textOfNativeName(QByteArrayView name) {
    // A byte-order mark at the start of a name is a part of the name.
    QStringDecoder decode(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decode(name);
    if (decode.hasError() || text.toUtf8() != name) {
        return std::nullopt;
    }
    return text;
}

}  // namespace marquill
