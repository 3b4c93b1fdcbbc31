#include "platform/XmlEncoding.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace marquill {

namespace {

struct Detected {
    QStringConverter::Encoding encoding = QStringConverter::Utf8;
    qint64 byteOrderMark = 0;
};

std::optional<Detected> encodingOfMark(QByteArrayView bytes) {
    // UTF-32's little-endian mark begins with UTF-16's and has to be asked for first.
    static constexpr std::array<std::pair<std::string_view, QStringConverter::Encoding>, 5> marks = {{
        {{"\xff\xfe\0\0", 4}, QStringConverter::Utf32LE},
        {{"\0\0\xfe\xff", 4}, QStringConverter::Utf32BE},
        {{"\xff\xfe", 2}, QStringConverter::Utf16LE},
        {{"\xfe\xff", 2}, QStringConverter::Utf16BE},
        {{"\xef\xbb\xbf", 3}, QStringConverter::Utf8},
    }};
    for (const auto& [mark, encoding] : marks) {
        if (bytes.startsWith(QByteArrayView(mark))) {
            return Detected{encoding, static_cast<qint64>(mark.size())};
        }
    }
    return std::nullopt;
}

/// A document begins with "<" or white space, so the NULs among its first bytes tell the width and order.
QStringConverter::Encoding encodingOfFirstBytes(QByteArrayView bytes) {
    if (bytes.size() < 4) {
        return QStringConverter::Utf8;
    }
    const auto isNul = [&bytes](qsizetype index) { return bytes[index] == '\0'; };
    if (isNul(0) && !isNul(1)) {
        return QStringConverter::Utf16BE;
    }
    if (isNul(0) && isNul(1) && isNul(2) && !isNul(3)) {
        return QStringConverter::Utf32BE;
    }
    if (!isNul(0) && isNul(1)) {
        return isNul(2) && isNul(3) ? QStringConverter::Utf32LE : QStringConverter::Utf16LE;
    }
    return QStringConverter::Utf8;
}

Detected detect(QByteArrayView bytes) {
    return encodingOfMark(bytes).value_or(Detected{encodingOfFirstBytes(bytes), 0});
}

/// What the XML declaration of an 8-bit document gives as its encoding, or nothing.
QByteArrayView declaredEncoding(QByteArrayView bytes) {
    const qsizetype end = bytes.startsWith("<?xml") ? bytes.indexOf("?>") : -1;
    const QByteArrayView declaration = bytes.first(std::max<qsizetype>(end, 0));
    const qsizetype attribute = declaration.indexOf("encoding");
    if (attribute < 0) {
        return {};
    }
    qsizetype open = attribute;
    while (open < declaration.size() && declaration[open] != '"' && declaration[open] != '\'') {
        ++open;
    }
    const qsizetype close =
        open < declaration.size() ? declaration.indexOf(declaration[open], open + 1) : qsizetype{-1};
    return close < 0 ? QByteArrayView() : declaration.sliced(open + 1, close - open - 1);
}

bool isOneOf(QByteArrayView name, std::initializer_list<QByteArrayView> names) {
    return std::ranges::any_of(
        names, [name](QByteArrayView other) { return name.compare(other, Qt::CaseInsensitive) == 0; });
}

qint64 utf8Length(char32_t codePoint) {
    if (codePoint < 0x80) {
        return 1;
    }
    if (codePoint < 0x800) {
        return 2;
    }
    return codePoint < 0x10000 ? 3 : 4;
}

struct CodePoint {
    char32_t value = 0;
    qsizetype units = 1;  ///< UTF-16 units it takes
};

CodePoint codePointAt(const QString& text, qsizetype index) {
    const QChar first = text[index];
    if (first.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate()) {
        return {QChar::surrogateToUcs4(first, text[index + 1]), 2};
    }
    return {first.unicode(), 1};
}

/// The offset of the first byte that is no UTF-8, of bytes that have one.
qint64 firstInvalidByte(QByteArrayView bytes) {
    QStringDecoder decoder(QStringConverter::Utf8,
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder.decode(bytes);
    qint64 offset = 0;
    for (qsizetype index = 0; index < text.size();) {
        const CodePoint point = codePointAt(text, index);
        if (point.value == QChar::ReplacementCharacter && !bytes.sliced(offset).startsWith("\xef\xbf\xbd")) {
            return offset;
        }
        offset += utf8Length(point.value);
        index += point.units;
    }
    return offset;
}

std::unexpected<Error> notInItsEncoding(ErrorCode code, qint64 offset) {
    return failure(
        code,
        QCoreApplication::translate("XmlEncoding", "The text is not in the encoding it claims to be in."), {},
        offset);
}

Result<XmlText> copyOfUtf8(QByteArrayView bytes, qint64 byteOrderMark) {
    const QByteArrayView body = bytes.sliced(byteOrderMark);
    if (body.isValidUtf8()) {
        return XmlText{.utf8 = QByteArray(body.data(), body.size()), .byteOrderMark = byteOrderMark};
    }
    const qint64 offset = firstInvalidByte(body);
    const bool cut = body.size() - offset < 4 && (static_cast<uchar>(body.back()) & 0x80U) != 0;
    return notInItsEncoding(cut ? ErrorCode::endsEarly : ErrorCode::malformed, byteOrderMark + offset);
}

template <class Unit>
Unit unitAt(QByteArrayView bytes, qsizetype index, bool bigEndian) {
    const char* const place = bytes.data() + index * static_cast<qsizetype>(sizeof(Unit));
    return bigEndian ? qFromBigEndian<Unit>(place) : qFromLittleEndian<Unit>(place);
}

QString textOfUtf16(QByteArrayView bytes, bool bigEndian) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype index = 0; index < text.size(); ++index) {
        text[index] = QChar(unitAt<quint16>(bytes, index, bigEndian));
    }
    return text;
}

/// What is no character becomes an unpaired surrogate, as it would be in UTF-16.
QString textOfUtf32(QByteArrayView bytes, bool bigEndian) {
    QString text;
    text.reserve(bytes.size() / 4);
    for (qsizetype index = 0; index < bytes.size() / 4; ++index) {
        const auto code = unitAt<quint32>(bytes, index, bigEndian);
        if (code <= 0x10FFFF && !QChar::isSurrogate(code)) {
            text += QChar::fromUcs4(code);
        } else {
            text += QChar(u'\xDFFF');
        }
    }
    return text;
}

/// The index of the first surrogate without its other half, or -1.
qsizetype firstUnpairedSurrogate(const QString& text) {
    if (text.isValidUtf16()) {
        return -1;
    }
    qsizetype index = 0;
    for (CodePoint point = codePointAt(text, 0); !QChar::isSurrogate(point.value);) {
        index += point.units;
        point = codePointAt(text, index);
    }
    return index;
}

Result<XmlText> converted(QByteArrayView bytes, Detected detected, qint64 unit) {
    const QByteArrayView body = bytes.sliced(detected.byteOrderMark);
    if (body.size() % unit != 0) {
        return notInItsEncoding(ErrorCode::endsEarly, bytes.size());
    }
    const bool bigEndian =
        detected.encoding == QStringConverter::Utf16BE || detected.encoding == QStringConverter::Utf32BE;
    XmlText text{.byteOrderMark = detected.byteOrderMark, .unit = unit, .unitsAreCodePoints = unit == 4};
    text.decoded = unit == 1   ? QString::fromLatin1(body)
                   : unit == 2 ? textOfUtf16(body, bigEndian)
                               : textOfUtf32(body, bigEndian);
    const qsizetype wrong = firstUnpairedSurrogate(text.decoded);
    if (wrong >= 0) {
        const qint64 offset = text.sourceOffset(text.decoded.first(wrong).toUtf8().size());
        return notInItsEncoding(ErrorCode::malformed, offset);
    }
    text.utf8 = text.decoded.toUtf8();
    return text;
}

Result<XmlText> decoded(QByteArrayView bytes) {
    const Detected detected = detect(bytes);
    switch (detected.encoding) {
        case QStringConverter::Utf16LE:
        case QStringConverter::Utf16BE:
            return converted(bytes, detected, 2);
        case QStringConverter::Utf32LE:
        case QStringConverter::Utf32BE:
            return converted(bytes, detected, 4);
        default:
            break;
    }
    const QByteArrayView name = declaredEncoding(bytes.sliced(detected.byteOrderMark));
    if (isOneOf(name, {"ISO-8859-1", "ISO_8859-1", "latin1", "latin-1", "l1"})) {
        return converted(bytes, {QStringConverter::Latin1, detected.byteOrderMark}, 1);
    }
    // A name of a wider encoding over 8-bit text is a leftover of a conversion; the bytes know better.
    if (name.isEmpty() || isOneOf(name, {"US-ASCII", "ASCII"}) ||
        name.first(std::min<qsizetype>(4, name.size())).compare("UTF-", Qt::CaseInsensitive) == 0 ||
        isOneOf(name, {"UTF8", "UTF16"})) {
        return copyOfUtf8(bytes, detected.byteOrderMark);
    }
    return failure(ErrorCode::unsupported,
                   QCoreApplication::translate("XmlEncoding", "The encoding \"%1\" is not supported.")
                       .arg(QString::fromLatin1(name)),
                   {}, bytes.indexOf(name));
}

}  // namespace

qint64 XmlText::sourceOffset(qint64 utf8Offset) const {
    if (decoded.isEmpty()) {
        return byteOrderMark + utf8Offset;
    }
    qint64 units = 0;
    qint64 passed = 0;
    for (qsizetype index = 0; index < decoded.size() && passed < utf8Offset;) {
        const CodePoint point = codePointAt(decoded, index);
        passed += utf8Length(point.value);
        index += point.units;
        units += unitsAreCodePoints ? 1 : point.units;
    }
    return byteOrderMark + units * unit;
}

Result<XmlText> decodeXml(QByteArrayView bytes) {
    Result<XmlText> text = decoded(bytes);
    if (!text) {
        return text;
    }
    while (text->utf8.endsWith('\0')) {
        text->utf8.chop(1);
    }
    const char* nul = static_cast<const char*>(
        std::memchr(text->utf8.constData(), 0, static_cast<size_t>(text->utf8.size())));
    if (nul != nullptr) {
        return failure(ErrorCode::malformed,
                       QCoreApplication::translate("XmlEncoding", "A NUL character stands in the text."), {},
                       text->sourceOffset(nul - text->utf8.constData()));
    }
    return text;
}

}  // namespace marquill
