#include "connect/ClipSearchText.h"

#include "clipstore/ClipStore.h"
#include "platform/Files.h"
#include "platform/FoldedText.h"

namespace marquill {

namespace {

// The keys of a marker's record; its typed handle stands in a folder above.
const QString markerTitle = u"clipMarkerTitle"_s;
const QString markerComment = u"clipMarkerComment"_s;

std::optional<QString> fileName(const ClipInfo& clip) {
    const std::optional<QString> path = clip.clipPath();
    return path ? std::optional(withoutPathExtension(lastPathComponent(*path))) : std::nullopt;
}

}  // namespace

ClipSearchText::ClipSearchText(const ClipInfo& clip)
    : _rating(clip.clipRating().value_or(0)), _isPlaceholder(ClipStore::isProxyClip(clip)) {
    _isConnected = _isPlaceholder && ClipStore::isConnected(clip);
    append(ClipStore::clipDisplayNameFromClip(clip));
    endField(ClipField::name);
    append(_isConnected ? fileName(clip) : std::nullopt);
    endField(ClipField::file);
    append(clip.clipScene());
    endField(ClipField::scene);
    append(ClipStore::takeFromClip(clip));
    endField(ClipField::take);
    append(clip.clipLabel());
    endField(ClipField::label);
    append(clip.clipComment());
    endField(ClipField::comment);
    if (const std::optional<Array> markers = clip.clipMarkerArray()) {
        for (const Value& value : markers->values()) {
            const Dictionary marker = value.dictionary().value_or(Dictionary());
            append(marker.string(markerTitle));
            append(marker.string(markerComment));
        }
    }
    endField(ClipField::marker);
    _text.shrink_to_fit();
}

std::string_view ClipSearchText::text(ClipField field) const {
    const auto place = static_cast<std::size_t>(field);
    const std::size_t begin = place == 0 ? 0 : _ends.at(place - 1) + 1;
    return std::string_view(_text).substr(begin, _ends.at(place) - begin);
}

// Texts within a field are separated from each other too; empty ones are left out.
void ClipSearchText::append(const std::optional<QString>& text) {
    if (text && !text->isEmpty()) {
        if (!_text.empty() && _text.back() != separator) {
            _text += separator;
        }
        _text += foldedText(*text);
    }
}

void ClipSearchText::endField(ClipField field) {
    _ends.at(static_cast<std::size_t>(field)) = static_cast<quint32>(_text.size());
    _text += separator;
}

}  // namespace marquill
