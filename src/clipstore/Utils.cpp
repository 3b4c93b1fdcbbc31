#include "clipstore/Utils.h"

#include "platform/Log.h"
#include "platform/PropertyListText.h"

#include <algorithm>

namespace marquill::Utils {

namespace {

bool holdsNothing(const Value& value) {
    if (const auto* array = std::get_if<Array>(&value.variant())) {
        return std::ranges::any_of(array->values(), holdsNothing);
    }
    if (const auto* dictionary = std::get_if<Dictionary>(&value.variant())) {
        return std::ranges::any_of(dictionary->entries(), holdsNothing, &Dictionary::Entry::value);
    }
    return value.isNothing();
}

}  // namespace

Value deepCopy(const Value& plist) {
    if (holdsNothing(plist)) {
        qCWarning(logClipStore) << "A value that holds nothing is no property list and cannot be copied.";
        return {};
    }
    return plist.deepCopy();
}

Value writableCopy(const Value& plist) {
    if (const auto* text = std::get_if<QString>(&plist.variant())) {
        return propertyListText(*text);
    }
    if (const auto* array = std::get_if<Array>(&plist.variant())) {
        Array copy;
        for (const Value& value : array->values()) {
            copy.append(writableCopy(value));
        }
        return copy;
    }
    if (const auto* dictionary = std::get_if<Dictionary>(&plist.variant())) {
        Dictionary copy;
        for (const auto& [key, value] : dictionary->entries()) {
            copy.set(propertyListText(key), writableCopy(value));
        }
        return copy;
    }
    return plist.deepCopy();
}

}  // namespace marquill::Utils
