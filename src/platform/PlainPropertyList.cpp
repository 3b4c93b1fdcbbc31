#include "platform/PlainPropertyList.h"

#include "platform/PropertyListKeys.h"
#include "platform/PropertyListText.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace marquill {

namespace {

using namespace std::string_view_literals;

constexpr int deepest = 32;  ///< deeper ones are left to the full reader

/// How many values the last array or dictionary of each depth held: those of a file, and of all files of a
/// folder, are much alike, so that most get room for just what they hold.
class SizeGuess {
  public:
    std::size_t at(int depth) const { return _sizes[static_cast<std::size_t>(depth)]; }
    void learn(int depth, std::size_t size) {
        _sizes[static_cast<std::size_t>(depth)] = static_cast<quint8>(std::min(size, largest));
    }

  private:
    static constexpr std::size_t largest = 24;
    std::array<quint8, deepest + 1> _sizes{};
};

struct Memory {
    KeyCache& keys = keyCache();
    SizeGuess dictionarySizes;
    SizeGuess arraySizes;
};

Memory& memoryOfThread() {
    thread_local Memory memory;
    return memory;
}

// Functions return false as soon as something is not plain.
class PlainReader {
  public:
    explicit PlainReader(std::string_view xml) : _rest(xml), _mayHaveEntities(xml.contains('&')) {}

    bool document(Value& out) {
        return skip("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") && documentType() &&
               skip("<plist version=\"1.0\">") && value(0, out) && skipBehindSpace("</plist>") && isAtEnd();
    }

  private:
    bool skip(std::string_view expected) {
        if (!_rest.starts_with(expected)) {
            return false;
        }
        _rest.remove_prefix(expected.size());
        return true;
    }

    void skipSpace() {
        const char* at = _rest.data();
        const char* const end = at + _rest.size();
        while (at != end && (*at == '\t' || *at == '\n' || *at == ' ')) {
            ++at;
        }
        _rest.remove_prefix(static_cast<std::size_t>(at - _rest.data()));
    }

    bool skipBehindSpace(std::string_view expected) {
        skipSpace();
        return skip(expected);
    }

    bool isAtEnd() {
        skipSpace();
        return _rest.empty();
    }

    bool documentType();
    bool value(int depth, Value& out);
    bool dictionary(int depth, Value& out);
    bool array(int depth, Value& out);
    bool text(std::string_view endTag, std::string_view& out);
    bool unescape(std::string_view raw, std::string_view& out);

    template <class Parsed>
    bool parsed(std::string_view endTag, Parsed (*parse)(std::string_view), Value& out) {
        std::string_view content;
        if (!text(endTag, content)) {
            return false;
        }
        Parsed result = parse(content);
        if (!result) {
            return false;
        }
        out = *std::move(result);
        return true;
    }

    std::string_view _rest;
    bool _mayHaveEntities;
    std::string _unescaped;
    Memory& _memory = memoryOfThread();
};

bool PlainReader::documentType() {
    skipSpace();
    skip(
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">");
    skipSpace();
    return true;
}

bool PlainReader::value(int depth, Value& out) {
    skipSpace();
    if (skip("<string>")) {
        std::string_view content;
        if (!text("</string>", content)) {
            return false;
        }
        out = content.empty() ? u""_s : textOfUtf8(content);
        return true;
    }
    if (skip("<integer>")) {
        return parsed("</integer>", integerFromText, out);
    }
    if (skip("<real>")) {
        return parsed("</real>", realFromText, out);
    }
    if (skip("<dict>")) {
        return depth < deepest && dictionary(depth + 1, out);
    }
    if (skip("<array>")) {
        return depth < deepest && array(depth + 1, out);
    }
    if (skip("<date>")) {
        return parsed("</date>", dateFromText, out);
    }
    if (skip("<data>")) {
        return parsed("</data>", dataFromText, out);
    }
    if (skip("<true/>")) {
        out = true;
        return true;
    }
    if (skip("<false/>")) {
        out = false;
        return true;
    }
    if (skip("<dict/>")) {
        out = Dictionary();
        return true;
    }
    if (skip("<array/>")) {
        out = Array();
        return true;
    }
    return false;
}

bool PlainReader::dictionary(int depth, Value& out) {
    std::vector<Dictionary::Entry> entries;
    entries.reserve(_memory.dictionarySizes.at(depth));
    while (skipBehindSpace("<key>")) {
        std::string_view key;
        if (!text("</key>", key)) {
            return false;
        }
        Dictionary::Entry& entry = entries.emplace_back(_memory.keys.text(key), Value());
        if (!value(depth, entry.value)) {
            return false;
        }
    }
    _memory.dictionarySizes.learn(depth, entries.size());
    out = Dictionary::fromEntries(std::move(entries));
    return skip("</dict>");
}

bool PlainReader::array(int depth, Value& out) {
    std::vector<Value> values;
    values.reserve(_memory.arraySizes.at(depth));
    while (!skipBehindSpace("</array>")) {
        if (!value(depth, values.emplace_back())) {
            return false;
        }
    }
    _memory.arraySizes.learn(depth, values.size());
    out = Array::fromValues(std::move(values));
    return true;
}

/// What stands before the next tag, which must be `endTag`.
bool PlainReader::text(std::string_view endTag, std::string_view& out) {
    const std::size_t size = _rest.find('<');
    if (size == std::string_view::npos) {
        return false;
    }
    out = _rest.substr(0, size);
    _rest.remove_prefix(size);
    return skip(endTag) && (!_mayHaveEntities || !out.contains('&') || unescape(out, out));
}

bool PlainReader::unescape(std::string_view raw, std::string_view& out) {
    static constexpr std::array entities{std::pair("&amp;"sv, '&'), std::pair("&lt;"sv, '<'),
                                         std::pair("&gt;"sv, '>')};
    _unescaped.clear();
    for (std::size_t at = raw.find('&'); at != std::string_view::npos; at = raw.find('&')) {
        const auto isHere = [&](const auto& entity) { return raw.substr(at).starts_with(entity.first); };
        const auto* const entity = std::ranges::find_if(entities, isHere);
        if (entity == entities.end()) {
            return false;
        }
        _unescaped.append(raw.substr(0, at)).append(1, entity->second);
        raw.remove_prefix(at + entity->first.size());
    }
    out = _unescaped.append(raw);
    return true;
}

}  // namespace

std::optional<Value> readPlainPropertyList(QByteArrayView xml) {
    const std::string_view text(xml.data(), static_cast<std::size_t>(xml.size()));
    if (text.contains('\r') || text.contains('\0') || !xml.isValidUtf8()) {
        return std::nullopt;
    }
    Value value;
    return PlainReader(text).document(value) ? std::optional(std::move(value)) : std::nullopt;
}

}  // namespace marquill
