#include "platform/PropertyListReader.h"

#include "platform/PlainPropertyList.h"
#include "platform/PropertyListKeys.h"
#include "platform/PropertyListText.h"
#include "platform/XmlEncoding.h"

#include <QCoreApplication>

#include <pugixml.hpp>

#include <array>
#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace marquill {

namespace {

enum class Element { plist, dict, array, key, string, integer, real, date, data, yes, no, unknown };

template <size_t size>
bool equal(const char* text, const char (&other)[size]) {
    size_t index = 0;
    while (index < size && text[index] == other[index]) {
        ++index;
    }
    return index == size;
}

/// Asked for every element, so the first letter leaves at most two names to compare with.
Element elementNamed(const char* name) {
    switch (name[0]) {
        case 'k':
            return equal(name, "key") ? Element::key : Element::unknown;
        case 's':
            return equal(name, "string") ? Element::string : Element::unknown;
        case 'i':
            return equal(name, "integer") ? Element::integer : Element::unknown;
        case 'r':
            return equal(name, "real") ? Element::real : Element::unknown;
        case 't':
            return equal(name, "true") ? Element::yes : Element::unknown;
        case 'f':
            return equal(name, "false") ? Element::no : Element::unknown;
        case 'a':
            return equal(name, "array") ? Element::array : Element::unknown;
        case 'p':
            return equal(name, "plist") ? Element::plist : Element::unknown;
        case 'd':
            if (equal(name, "dict")) {
                return Element::dict;
            }
            if (equal(name, "date")) {
                return Element::date;
            }
            return equal(name, "data") ? Element::data : Element::unknown;
        default:
            return Element::unknown;
    }
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// The code point of "#20" or "#x14", what stands between "&" and ";"; 0 when XML has no such character.
char32_t characterReference(std::string_view name) {
    const bool hexadecimal = name.starts_with("#x");
    name.remove_prefix(hexadecimal ? 2 : 1);
    quint32 code = 0;
    const auto [end, error] =
        std::from_chars(name.data(), name.data() + name.size(), code, hexadecimal ? 16 : 10);
    const bool isCharacter = error == std::errc() && end == name.data() + name.size() && code <= 0x10FFFF &&
                             (code < 0xD800 || code > 0xDFFF);
    return isCharacter ? code : 0;
}

char32_t characterOfEntity(std::string_view name) {
    if (name.starts_with('#')) {
        return characterReference(name);
    }
    if (name == "amp") {
        return '&';
    }
    if (name == "lt") {
        return '<';
    }
    if (name == "gt") {
        return '>';
    }
    if (name == "quot") {
        return '"';
    }
    return name == "apos" ? '\'' : 0;
}

void appendUtf8(std::string& text, char32_t code) {
    const auto continuation = [code](unsigned shift) {
        return static_cast<char>(0x80U | (static_cast<unsigned>(code) >> shift & 0x3FU));
    };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += {static_cast<char>(0xC0U | code >> 6U), continuation(0)};
    } else if (code < 0x10000) {
        text += {static_cast<char>(0xE0U | code >> 12U), continuation(6), continuation(0)};
    } else {
        text += {static_cast<char>(0xF0U | code >> 18U), continuation(12), continuation(6), continuation(0)};
    }
}

// Turns a parsed document into a value. Functions that can fail return false and leave the reason in `error`:
// a Result per element would cost more than the parsing. Recursion ends at maximumPropertyListDepth.
class Converter {
  public:
    explicit Converter(const char* utf8) : _utf8(utf8) {}

    bool document(pugi::xml_node document, Value& out) { return onlyChild(document, 0, out); }

    std::optional<Error> error;  ///< its offset is in the UTF-8 text

  private:
    bool value(pugi::xml_node node, int depth, Value& out);
    bool scalar(pugi::xml_node node, Element element, Value& out);
    bool array(pugi::xml_node node, int depth, Value& out);
    bool dictionary(pugi::xml_node node, int depth, Value& out);
    bool onlyChild(pugi::xml_node node, int depth, Value& out);
    bool firstElement(pugi::xml_node parent, pugi::xml_node& node);
    bool elementFrom(pugi::xml_node& node);
    bool text(pugi::xml_node node, std::string_view& out);
    bool appendUnescaped(std::string_view raw);
    bool fail(pugi::xml_node node, ErrorCode code, const QString& message);

    const char* _utf8;
    KeyCache& _keys = keyCache();
    std::string _text;  ///< the text of the element in hand when it does not stand in one piece
};

bool Converter::fail(pugi::xml_node node, ErrorCode code, const QString& message) {
    // An element is placed by its name; one back is its "<".
    const ptrdiff_t offset = node.offset_debug() - (node.type() == pugi::node_element ? 1 : 0);
    error = Error{.code = code, .message = message, .byteOffset = std::max<ptrdiff_t>(0, offset)};
    return false;
}

/// Moves `node` on to the next element, itself included; to null behind the last.
bool Converter::elementFrom(pugi::xml_node& node) {
    for (; node && node.type() != pugi::node_element; node = node.next_sibling()) {
        if (!isBlank(node.value())) {
            return fail(
                node, ErrorCode::malformed,
                QCoreApplication::translate("PropertyList", "There is text where only elements may stand."));
        }
    }
    return true;
}

bool Converter::firstElement(pugi::xml_node parent, pugi::xml_node& node) {
    if (!isBlank(parent.value())) {
        return fail(
            parent, ErrorCode::malformed,
            QCoreApplication::translate("PropertyList", "There is text where only elements may stand."));
    }
    node = parent.first_child();
    return elementFrom(node);
}

/// The value of the one element that <plist> or the document holds. Some writers wrap <plist> in <plist>.
bool Converter::onlyChild(pugi::xml_node node, int depth, Value& out) {
    pugi::xml_node child = node;
    do {
        const pugi::xml_node parent = child;
        if (!firstElement(parent, child)) {
            return false;
        }
        if (!child) {
            return fail(parent, ErrorCode::malformed,
                        QCoreApplication::translate("PropertyList", "The property list holds no value."));
        }
        pugi::xml_node next = child.next_sibling();
        if (!elementFrom(next)) {
            return false;
        }
        if (next) {
            return fail(
                next, ErrorCode::malformed,
                QCoreApplication::translate("PropertyList", "The property list holds more than one value."));
        }
    } while (elementNamed(child.name()) == Element::plist);
    return value(child, depth, out);
}

bool Converter::value(pugi::xml_node node, int depth, Value& out) {
    const Element element = elementNamed(node.name());
    switch (element) {
        case Element::plist:
            return onlyChild(node, depth, out);
        case Element::dict:
        case Element::array:
            if (depth == maximumPropertyListDepth) {
                return fail(
                    node, ErrorCode::unsupported,
                    QCoreApplication::translate("PropertyList", "The property list is nested too deeply."));
            }
            return element == Element::dict ? dictionary(node, depth + 1, out) : array(node, depth + 1, out);
        case Element::key:
            return fail(
                node, ErrorCode::malformed,
                QCoreApplication::translate("PropertyList", "A key stands where a value is expected."));
        case Element::unknown:
            return fail(node, ErrorCode::malformed,
                        QCoreApplication::translate("PropertyList", "A property list has no element <%1>.")
                            .arg(QString::fromUtf8(node.name())));
        default:
            return scalar(node, element, out);
    }
}

bool Converter::scalar(pugi::xml_node node, Element element, Value& out) {
    std::string_view content;
    if (!text(node, content)) {
        return false;
    }
    bool isRight = true;
    const auto take = [&](auto&& parsed) {
        isRight = parsed.has_value();
        out = isRight ? Value(*std::forward<decltype(parsed)>(parsed)) : Value();
    };
    switch (element) {
        case Element::string:
            out = textOfUtf8(content);
            break;
        case Element::integer:
            take(integerFromText(content));
            break;
        case Element::real:
            take(realFromText(content));
            break;
        case Element::date:
            take(dateFromText(content));
            break;
        case Element::data:
            take(dataFromText(content));
            break;
        default:
            isRight = isBlank(content);
            out = element == Element::yes;
    }
    return isRight || fail(node, ErrorCode::malformed,
                           QCoreApplication::translate("PropertyList", "The content of <%1> is wrong.")
                               .arg(QString::fromUtf8(node.name())));
}

bool Converter::array(pugi::xml_node node, int depth, Value& out) {
    std::vector<Value> values;
    pugi::xml_node child;
    if (!firstElement(node, child)) {
        return false;
    }
    while (child) {
        if (!value(child, depth, values.emplace_back())) {
            return false;
        }
        child = child.next_sibling();
        if (!elementFrom(child)) {
            return false;
        }
    }
    out = Array::fromValues(std::move(values));
    return true;
}

bool Converter::dictionary(pugi::xml_node node, int depth, Value& out) {
    std::vector<Dictionary::Entry> entries;
    pugi::xml_node child;
    if (!firstElement(node, child)) {
        return false;
    }
    entries.reserve(child ? 8 : 0);
    while (child) {
        const pugi::xml_node keyNode = child;
        if (elementNamed(keyNode.name()) != Element::key) {
            return fail(keyNode, ErrorCode::malformed,
                        QCoreApplication::translate("PropertyList", "A value of the dictionary has no key."));
        }
        std::string_view key;
        child = child.next_sibling();
        if (!text(keyNode, key) || !elementFrom(child)) {
            return false;
        }
        if (!child) {
            return fail(keyNode, ErrorCode::malformed,
                        QCoreApplication::translate("PropertyList", "A key of the dictionary has no value."));
        }
        Dictionary::Entry& entry = entries.emplace_back(_keys.text(key), Value());
        if (!value(child, depth, entry.value)) {
            return false;
        }
        child = child.next_sibling();
        if (!elementFrom(child)) {
            return false;
        }
    }
    out = Dictionary::fromEntries(std::move(entries));
    return true;
}

/// The whole text of an element; comments and CDATA sections may part it into several nodes.
bool Converter::text(pugi::xml_node node, std::string_view& out) {
    out = node.value();
    const pugi::xml_node first = node.first_child();
    if (!first && out.find('&') == std::string_view::npos) [[likely]] {
        return true;
    }
    _text.clear();
    if (!appendUnescaped(out)) {
        return false;
    }
    for (pugi::xml_node piece = first; piece; piece = piece.next_sibling()) {
        if (piece.type() == pugi::node_element) {
            return fail(piece, ErrorCode::malformed,
                        QCoreApplication::translate("PropertyList",
                                                    "There is an element where only text may stand."));
        }
        if (piece.type() == pugi::node_cdata) {
            _text += piece.value();
        } else if (!appendUnescaped(piece.value())) {
            return false;
        }
    }
    out = _text;
    return true;
}

bool Converter::appendUnescaped(std::string_view raw) {
    while (true) {
        const size_t ampersand = raw.find('&');
        _text += raw.substr(0, ampersand);
        if (ampersand == std::string_view::npos) {
            return true;
        }
        raw.remove_prefix(ampersand);
        const size_t end = raw.find(';');
        const char32_t code = end == std::string_view::npos ? 0 : characterOfEntity(raw.substr(1, end - 1));
        if (code == 0) {
            error = Error{.code = ErrorCode::malformed,
                          .message = QCoreApplication::translate(
                              "PropertyList", "An entity is wrong or not one of XML's own."),
                          .byteOffset = raw.data() - _utf8};
            return false;
        }
        appendUtf8(_text, code);
        raw.remove_prefix(end + 1);
    }
}

/// Whether comments, CDATA sections or processing instructions may part a text; the DOCTYPE cannot.
bool mayPartTexts(const QByteArray& utf8) {
    for (qsizetype at = utf8.indexOf('!', 1); at > 0; at = utf8.indexOf('!', at + 1)) {
        if (utf8[at - 1] == '<' && at + 1 < utf8.size() && (utf8[at + 1] == '-' || utf8[at + 1] == '[')) {
            return true;
        }
    }
    for (qsizetype at = utf8.indexOf('?', 2); at > 0; at = utf8.indexOf('?', at + 1)) {
        if (utf8[at - 1] == '<') {
            return true;
        }
    }
    return false;
}

/// Only what a property list needs: entities are told apart from their errors here, not by the parser. White
/// space between elements makes nodes only when it could be a piece of a parted text.
unsigned parserFlags(const QByteArray& utf8) {
    const unsigned space = mayPartTexts(utf8) ? pugi::parse_ws_pcdata : pugi::parse_ws_pcdata_single;
    return pugi::parse_cdata | pugi::parse_eol | pugi::parse_embed_pcdata | pugi::parse_fragment | space;
}

/// Whether the text behind a parser's error ends before the tag or section that it is about does.
bool endsEarly(const pugi::xml_parse_result& parsed, const QByteArray& utf8) {
    return parsed.status == pugi::status_bad_cdata || parsed.offset >= utf8.size() - 1 ||
           utf8.indexOf('>', parsed.offset) < 0;
}

Error parserError(const pugi::xml_parse_result& parsed, const XmlText& text) {
    const qint64 size = text.utf8.size();
    if (parsed.status == pugi::status_out_of_memory) {
        return {
            .code = ErrorCode::unsupported,
            .message = QCoreApplication::translate("PropertyList", "There is not enough memory to read it.")};
    }
    if (endsEarly(parsed, text.utf8)) {
        return {.code = ErrorCode::endsEarly,
                .message = QCoreApplication::translate("PropertyList",
                                                       "The property list ends before it is complete."),
                .byteOffset = text.sourceOffset(size)};
    }
    return {.code = ErrorCode::malformed,
            .message = QCoreApplication::translate("PropertyList", "The XML is damaged: %1.")
                           .arg(QString::fromLatin1(parsed.description())),
            .byteOffset = text.sourceOffset(parsed.offset)};
}

}  // namespace

Result<Value> readPropertyList(QByteArrayView xml) {
    if (std::optional<Value> plain = readPlainPropertyList(xml)) {
        return *std::move(plain);
    }
    return readAnyPropertyList(xml);
}

Result<Value> readAnyPropertyList(QByteArrayView xml) {
    if (xml.startsWith("bplist")) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate("PropertyList", "Binary property lists are not supported."), {}, 0);
    }
    Result<XmlText> text = decodeXml(xml);
    if (!text) {
        return std::unexpected(std::move(text).error());
    }
    if (text->utf8.isEmpty()) {
        return failure(ErrorCode::endsEarly,
                       QCoreApplication::translate("PropertyList", "The property list is empty."), {}, 0);
    }
    const unsigned flags = parserFlags(text->utf8);
    char* const utf8 = text->utf8.data();
    pugi::xml_document document;
    // The terminator belongs to the buffer: the parser would overwrite the last character with one otherwise.
    const pugi::xml_parse_result parsed = document.load_buffer_inplace(
        utf8, static_cast<size_t>(text->utf8.size()) + 1, flags, pugi::encoding_utf8);
    if (!parsed) {
        return std::unexpected(parserError(parsed, *text));
    }
    if (!document.first_child()) {
        return failure(ErrorCode::endsEarly,
                       QCoreApplication::translate("PropertyList", "The property list is empty."), {},
                       xml.size());
    }
    Converter converter(utf8);
    Value value;
    if (!converter.document(document.root(), value)) {
        converter.error->byteOffset = text->sourceOffset(*converter.error->byteOffset);
        return std::unexpected(*std::move(converter.error));
    }
    return value;
}

Result<Dictionary> readDictionary(QByteArrayView xml) {
    const Result<Value> value = readPropertyList(xml);
    if (!value) {
        return std::unexpected(value.error());
    }
    if (std::optional<Dictionary> dictionary = value->dictionary()) {
        return *std::move(dictionary);
    }
    return failure(ErrorCode::malformed,
                   QCoreApplication::translate("PropertyList", "The property list holds no dictionary."), {},
                   0);
}

}  // namespace marquill
