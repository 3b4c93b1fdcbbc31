// The bytes of an XML document as UTF-8, whatever encoding they come in. Values, any thread.
#pragma once

#include "platform/Error.h"

#include <QByteArray>
#include <QByteArrayView>

namespace marquill {

/// A decoded document, ready to be parsed in place: `utf8` is nobody else's, has no byte order mark and no
/// NUL.
struct XmlText {
    QByteArray utf8 = {};
    qint64 byteOrderMark = 0;  ///< bytes before the text in the source
    qint64 unit = 1;           ///< bytes per unit of `decoded` in the source
    QString decoded = {};      ///< the text, empty when the source is UTF-8 itself
    bool unitsAreCodePoints = false;

    /// The offset in the source that corresponds to an offset in `utf8`.
    qint64 sourceOffset(qint64 utf8Offset) const;
};

/// Decodes `bytes` from UTF-8, UTF-16, UTF-32 (with a byte order mark or without) or, when the XML
/// declaration names it, Latin-1. NULs behind the document are left out: some writers count their string's
/// terminator. Errors: endsEarly and malformed for what is no text in that encoding, unsupported for other
/// encodings.
Result<XmlText> decodeXml(QByteArrayView bytes);

}  // namespace marquill
