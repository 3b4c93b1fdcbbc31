#include "connect/ClipFilter.h"

#include <algorithm>

namespace marquill {

namespace {

// One of the parts of a field is `text`: of the markers, one title or comment.
bool hasPart(std::string_view field, std::string_view text) {
    while (true) {
        const std::size_t end = field.find(ClipSearchText::separator);
        if (field.substr(0, end) == text) {
            return true;
        }
        if (end == std::string_view::npos) {
            return false;
        }
        field.remove_prefix(end + 1);
    }
}

// "02" is take 2.
std::string_view withoutZeros(std::string_view number) {
    const std::size_t first = number.find_first_not_of('0');
    return first == std::string_view::npos ? number.substr(0, 0) : number.substr(first);
}

}  // namespace

bool ClipFilter::asksForMedia() const {
    return std::ranges::any_of(_terms, [](const Term& term) {
        const auto* connection = std::get_if<Connection>(&term.what);
        return connection && *connection == Connection::offline;
    });
}

bool ClipFilter::matches(const ClipSearchText& clip, bool mediaExist) const {
    return std::ranges::all_of(_terms, [&](const Term& term) {
        bool isFound = false;
        if (const auto* text = std::get_if<Text>(&term.what)) {
            isFound = finds(*text, clip);
        } else if (const auto* rating = std::get_if<Rating>(&term.what)) {
            isFound = finds(*rating, clip);
        } else if (const auto* connection = std::get_if<Connection>(&term.what)) {
            isFound = finds(*connection, clip, mediaExist);
        }
        return isFound != term.isExcluded;
    });
}

bool ClipFilter::finds(const Text& text, const ClipSearchText& clip) {
    const std::string_view searched = text.field ? clip.text(*text.field) : clip.text();
    switch (text.match) {
        case TextMatch::begins:
            return searched.starts_with(text.text);
        case TextMatch::equals:
            return hasPart(searched, text.text);
        case TextMatch::equalsNumber:
            return !searched.empty() && withoutZeros(searched) == withoutZeros(text.text);
        case TextMatch::contains:
            break;
    }
    return searched.find(text.text) != std::string_view::npos;
}

bool ClipFilter::finds(const Rating& rating, const ClipSearchText& clip) {
    switch (rating.comparison) {
        case Comparison::less:
            return clip.rating() < rating.rating;
        case Comparison::lessOrEqual:
            return clip.rating() <= rating.rating;
        case Comparison::greater:
            return clip.rating() > rating.rating;
        case Comparison::greaterOrEqual:
            return clip.rating() >= rating.rating;
        case Comparison::equal:
            break;
    }
    return clip.rating() == rating.rating;
}

// A movie needs no media beside itself: it is never what is still to be connected.
bool ClipFilter::finds(Connection connection, const ClipSearchText& clip, bool mediaExist) {
    switch (connection) {
        case Connection::no:
            return clip.isPlaceholder() && !clip.isConnected();
        case Connection::offline:
            return clip.isConnected() && !mediaExist;
        case Connection::yes:
            break;
    }
    return !clip.isPlaceholder() || clip.isConnected();
}

}  // namespace marquill
