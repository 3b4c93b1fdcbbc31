// A movie's user data (the atom 'udta' of the movie itself, not of a track): a list of items, each a type and
// bytes. Items of one type are told apart by their index, which counts from 1. A value, any thread.
#pragma once

#include "movie/Atom.h"

namespace marquill {

class UserData {
  public:
    static constexpr FourCharCode type{"udta"};

    UserData() = default;

    /// All items in their order.
    const std::vector<RawAtom>& items() const { return _list.atoms; }
    /// How many items of that type there are.
    int count(FourCharCode itemType) const;
    /// The bytes of the `index`-th item of that type, or none.
    std::optional<QByteArray> item(FourCharCode itemType, int index) const;
    /// Replaces the bytes of that item, or adds it when `index` is one more than the items there are of that
    /// type. Everything else stays as it is, byte for byte. Errors: notFound for another index.
    Result<void> setItem(FourCharCode itemType, int index, QByteArray bytes);

    /// Reads or writes the body of the atom. What stands behind the last item stays there: the 32-bit zero
    /// that QuickTime may end the list with, or bytes that are no item.
    void transfer(AtomStream& stream) { stream.transfer(_list); }
    bool operator==(const UserData&) const = default;

  private:
    RawAtom* find(FourCharCode itemType, int index);

    AtomList _list;
};

}  // namespace marquill
