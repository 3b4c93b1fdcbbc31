// The format is that of the platform's own tools byte for byte, because clip files are compared and exchanged
// with theirs. pugixml's writer cannot give it: it escapes quotes, puts a blank into "<dict />" and breaks
// data differently, so the few elements there are are put together here.
#include "platform/PropertyListWriter.h"

#include "platform/PropertyListText.h"

#include <QCoreApplication>

#include <array>
#include <charconv>

namespace marquill {

namespace {

constexpr int columnsOfData = 76;
constexpr int columnsOfTab = 8;

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

// Appends a value and what it holds. False means that it cannot be written, and `path` tells where.
class Serializer {
  public:
    bool value(const Value& value);

    QByteArray xml;
    QStringList path;  ///< keys and indexes from the root down to the value in hand

  private:
    bool write(std::monostate) { return false; }
    bool write(bool boolean);
    bool write(qint64 integer) { return writeInteger(integer); }
    bool write(quint64 integer) { return writeInteger(integer); }
    bool write(double real);
    bool write(Date date);
    bool write(const QString& text) { return writeText("string", text); }
    bool write(const QByteArray& data);
    bool write(const Array& array);
    bool write(const Dictionary& dictionary);
    template <class Integer>
    bool writeInteger(Integer integer);
    bool writeText(QByteArrayView element, const QString& text);
    void appendEscaped(QByteArrayView utf8);
    void indent() { xml.append(_depth, '\t'); }

    qsizetype _depth = 0;
};

bool Serializer::value(const Value& value) {
    return std::visit([this](const auto& held) { return write(held); }, value.variant());
}

bool Serializer::write(bool boolean) {
    indent();
    xml += boolean ? "<true/>\n" : "<false/>\n";
    return true;
}

template <class Integer>
bool Serializer::writeInteger(Integer integer) {
    std::array<char, 24> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), integer);
    indent();
    xml.append("<integer>").append(digits.data(), end - digits.data()).append("</integer>\n");
    return true;
}

bool Serializer::write(double real) {
    indent();
    xml += "<real>";
    appendReal(xml, real);
    xml += "</real>\n";
    return true;
}

bool Serializer::write(Date date) {
    indent();
    xml += "<date>";
    const bool fits = appendDate(xml, date);
    xml += "</date>\n";
    return fits;
}

void Serializer::appendEscaped(QByteArrayView utf8) {
    qsizetype written = 0;
    for (qsizetype at = 0; at < utf8.size(); ++at) {
        const QByteArrayView escape = escapeOf(utf8[at]);
        if (!escape.isEmpty()) {
            xml.append(utf8.sliced(written, at - written)).append(escape);
            written = at + 1;
        }
    }
    xml.append(utf8.sliced(written));
}

bool Serializer::writeText(QByteArrayView element, const QString& text) {
    if (!isPropertyListText(text)) {
        return false;
    }
    indent();
    xml.append('<').append(element).append('>');
    appendEscaped(text.toUtf8());
    xml.append("</").append(element).append(">\n");
    return true;
}

bool Serializer::write(const QByteArray& data) {
    const QByteArray base64 = data.toBase64();
    const qsizetype room = columnsOfData - columnsOfTab * std::min<qsizetype>(_depth, 8);
    const qsizetype columns = std::max<qsizetype>(4, room / 4 * 4);
    indent();
    xml += "<data>\n";
    for (qsizetype start = 0; start < base64.size(); start += columns) {
        indent();
        xml.append(QByteArrayView(base64).sliced(start, std::min(columns, base64.size() - start)))
            .append('\n');
    }
    indent();
    xml += "</data>\n";
    return true;
}

bool Serializer::write(const Array& array) {
    indent();
    xml += array.isEmpty() ? "<array/>\n" : "<array>\n";
    ++_depth;
    for (qsizetype index = 0; index < array.size(); ++index) {
        path.append(QString::number(index));
        if (!value(array.at(index))) {
            return false;
        }
        path.removeLast();
    }
    --_depth;
    if (!array.isEmpty()) {
        indent();
        xml += "</array>\n";
    }
    return true;
}

bool Serializer::write(const Dictionary& dictionary) {
    indent();
    xml += dictionary.isEmpty() ? "<dict/>\n" : "<dict>\n";
    ++_depth;
    for (const Dictionary::Entry& entry : dictionary.entries()) {
        path.append(entry.key);
        if (!writeText("key", entry.key) || !value(entry.value)) {
            return false;
        }
        path.removeLast();
    }
    --_depth;
    if (!dictionary.isEmpty()) {
        indent();
        xml += "</dict>\n";
    }
    return true;
}

}  // namespace

Result<QByteArray> writePropertyList(const Value& value) {
    Serializer serializer;
    serializer.xml.reserve(4096);
    serializer.xml +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\">\n";
    if (!serializer.value(value)) {
        const QString where = serializer.path.isEmpty()
                                  ? QCoreApplication::translate("PropertyList", "the root")
                                  : serializer.path.join(u'/');
        return failure(
            ErrorCode::malformed,
            QCoreApplication::translate(
                "PropertyList",
                "The value at %1 cannot be written: it is missing, or holds a character or date that a "
                "property list has no way to write.")
                .arg(where));
    }
    serializer.xml += "</plist>\n";
    return std::move(serializer.xml);
}

}  // namespace marquill
