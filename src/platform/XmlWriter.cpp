#include "platform/XmlWriter.h"

#include "platform/PropertyListText.h"

#include <array>
#include <charconv>

namespace marquill {

namespace {

QByteArrayView escapeOf(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':  // written as it is, readers would have to take it for a line end
            return "&#13;";
        default:
            return {};
    }
}

}  // namespace

QByteArray xmlText(const QString& text) {
    const QByteArray utf8 = (isPropertyListText(text) ? text : propertyListText(text)).toUtf8();
    QByteArray escaped;
    qsizetype written = 0;
    for (qsizetype at = 0; at < utf8.size(); ++at) {
        const QByteArrayView escape = escapeOf(utf8[at]);
        if (!escape.isEmpty()) {
            escaped.append(QByteArrayView(utf8).sliced(written, at - written)).append(escape);
            written = at + 1;
        }
    }
    return written == 0 ? utf8 : escaped.append(QByteArrayView(utf8).sliced(written));
}

void XmlWriter::open(QByteArrayView name) {
    indent();
    _xml.append('<').append(name).append(">\n");
    _open.push_back({name, _xml.size()});
    ++_depth;
}

void XmlWriter::close() {
    const Open element = _open.back();
    _open.pop_back();
    --_depth;
    if (_xml.size() == element.contentStart) {
        _xml.chop(2);
        _xml.append("/>\n");
        return;
    }
    indent();
    _xml.append("</").append(element.name).append(">\n");
}

void XmlWriter::element(QByteArrayView name, const QString& text) {
    indent();
    _xml.append('<').append(name);
    if (text.isEmpty()) {
        _xml.append("/>\n");
        return;
    }
    _xml.append('>').append(xmlText(text)).append("</").append(name).append(">\n");
}

void XmlWriter::element(QByteArrayView name, qint64 number) {
    std::array<char, 24> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    indent();
    _xml.append('<').append(name).append('>').append(digits.data(), end - digits.data());
    _xml.append("</").append(name).append(">\n");
}

}  // namespace marquill
