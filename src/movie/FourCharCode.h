// A four-character code: the type of an atom, a handler, a sample format. A value, any thread.
#pragma once

#include <QString>

#include <compare>

namespace marquill {

class FourCharCode {
  public:
    constexpr FourCharCode() = default;
    explicit constexpr FourCharCode(quint32 value) : _value(value) {}
    /// Of four Latin-1 characters: FourCharCode("moov"), FourCharCode("\xa9nam").
    consteval FourCharCode(const char (&text)[5]) {
        for (int index = 0; index < 4; ++index) {
            _value = _value << 8 | static_cast<unsigned char>(text[index]);
        }
    }

    /// The first character is the most significant byte.
    constexpr quint32 value() const { return _value; }
    /// The four characters; bytes that are no printable ASCII, and the backslash, as "\xNN": "\xa9nam".
    QString text() const;

    constexpr auto operator<=>(const FourCharCode&) const = default;

  private:
    quint32 _value = 0;
};

}  // namespace marquill
