#include "platform/PhysicalKeys.h"

#include <algorithm>
#include <array>

namespace marquill {

namespace {

using DigitRow = std::array<quint32, 10>;  // the codes of "1" to "9" and "0"

// X11 and Wayland tell the kernel's codes (2 to 11) plus 8.
constexpr DigitRow x11Row{10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
// Virtual key codes of the ANSI keyboard, which name places, not characters.
constexpr DigitRow macRow{18, 19, 20, 21, 23, 22, 26, 28, 25, 29};
// Scan codes.
constexpr DigitRow windowsRow{2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

const DigitRow& rowOf(KeySystem system) {
    switch (system) {
        case KeySystem::mac:
            return macRow;
        case KeySystem::windows:
            return windowsRow;
        default:
            return x11Row;
    }
}

}  // namespace

Qt::Modifier controlKey(KeySystem system) {
    return system == KeySystem::mac ? Qt::META : Qt::CTRL;
}

std::optional<int> digitRowDigit(const QKeyEvent& event, KeySystem system) {
    const DigitRow& row = rowOf(system);
    const quint32 code = system == KeySystem::mac ? event.nativeVirtualKey() : event.nativeScanCode();
    const auto* const found = std::ranges::find(row, code);
    if (found == row.end()) {
        return std::nullopt;
    }
    return static_cast<int>(found - row.begin() + 1) % 10;
}

bool isAltGr(const QKeyEvent& event, KeySystem system) {
    constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
    return system == KeySystem::windows && (event.modifiers() & altGr) == altGr && !event.text().isEmpty() &&
           event.text().front().isPrint();
}

}  // namespace marquill
