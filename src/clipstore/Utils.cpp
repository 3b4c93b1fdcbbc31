#include "clipstore/Utils.h"

#include "platform/Log.h"

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

}  // namespace marquill::Utils
