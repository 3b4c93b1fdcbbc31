#include "application/GlobalKeys.h"

#include "platform/Literals.h"

#include <algorithm>

namespace marquill::GlobalKeys {

namespace {

#ifdef Q_OS_MACOS
constexpr Qt::Modifier control = Qt::META;
#else
constexpr Qt::Modifier control = Qt::CTRL;
#endif
constexpr auto controlKey = static_cast<Qt::KeyboardModifier>(control);
constexpr Qt::KeyboardModifier optionKey = Qt::AltModifier;

std::optional<int> typedDigit(const QKeyEvent& event) {
    const int key = event.key();
    return key >= Qt::Key_0 && key <= Qt::Key_9 ? std::optional(key - Qt::Key_0) : std::nullopt;
}

// The digit printed on the key of the main block's number row, whatever the layout types with it.
std::optional<int> digitRowDigit(const QKeyEvent& event) {
#if defined(Q_OS_MACOS)
    // Virtual key codes of the ANSI number row, "1" to "9" and "0".
    constexpr quint32 row[] = {18, 19, 20, 21, 23, 22, 26, 28, 25, 29};
    const quint32 code = event.nativeVirtualKey();
#elif defined(Q_OS_WINDOWS)
    constexpr quint32 row[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    const quint32 code = event.nativeScanCode();
#else
    // X11 and Wayland key codes are the kernel's (2 to 11) plus 8.
    constexpr quint32 row[] = {10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
    const quint32 code = event.nativeScanCode();
#endif
    const auto* const found = std::find(std::begin(row), std::end(row), code);
    if (found == std::end(row)) {
        return std::nullopt;
    }
    return static_cast<int>(found - std::begin(row) + 1) % 10;
}

}  // namespace

bool isEscape(const QKeyEvent& event) {
    return event.key() == Qt::Key_Escape;
}

bool startsRecording(const QKeyEvent& event) {
    const bool controlSpace = event.key() == Qt::Key_Space && event.modifiers().testFlag(controlKey);
    return controlSpace || event.text() == "`"_L1;
}

QKeySequence startRecordingKey() {
    return QKeySequence(control | Qt::Key_Space);
}

std::optional<int> markerDigit(const QKeyEvent& event) {
    if (event.isAutoRepeat() || !event.modifiers().testFlag(optionKey)) {
        return std::nullopt;
    }
    const std::optional<int> digit = typedDigit(event);
    // With Shift, a key of the digit row that types no digit is another key.
    return digit || event.modifiers().testFlag(Qt::ShiftModifier) ? digit : digitRowDigit(event);
}

}  // namespace marquill::GlobalKeys
