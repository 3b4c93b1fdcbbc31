#include "movie/UserData.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

int UserData::count(FourCharCode itemType) const {
    return static_cast<int>(std::ranges::count(_list.atoms, itemType, &RawAtom::type));
}

std::optional<QByteArray> UserData::item(FourCharCode itemType, int index) const {
    const RawAtom* found = const_cast<UserData*>(this)->find(itemType, index);
    return found ? std::optional(found->body) : std::nullopt;
}

Result<void> UserData::setItem(FourCharCode itemType, int index, QByteArray bytes) {
    if (RawAtom* found = find(itemType, index)) {
        found->body = std::move(bytes);
        return {};
    }
    if (index != count(itemType) + 1) {
        return failure(
            ErrorCode::notFound,
            QCoreApplication::translate("UserData", "There is no user-data item '%1' with the index %2.")
                .arg(itemType.text())
                .arg(index));
    }
    _list.atoms.push_back({.type = itemType, .body = std::move(bytes)});
    return {};
}

RawAtom* UserData::find(FourCharCode itemType, int index) {
    for (RawAtom& atom : _list.atoms) {
        if (atom.type == itemType && --index == 0) {
            return &atom;
        }
    }
    return nullptr;
}

}  // namespace marquill
