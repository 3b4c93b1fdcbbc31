#include "application/GlobalKeys.h"

#include "platform/Literals.h"

namespace marquill::GlobalKeys {

namespace {

constexpr Qt::KeyboardModifier optionKey = Qt::AltModifier;

std::optional<int> typedDigit(const QKeyEvent& event) {
    const int key = event.key();
    return key >= Qt::Key_0 && key <= Qt::Key_9 ? std::optional(key - Qt::Key_0) : std::nullopt;
}

}  // namespace

bool isEscape(const QKeyEvent& event) {
    return event.key() == Qt::Key_Escape;
}

bool startsRecording(const QKeyEvent& event, KeySystem system) {
    const auto control = static_cast<Qt::KeyboardModifier>(controlKey(system));
    const bool controlSpace = event.key() == Qt::Key_Space && event.modifiers().testFlag(control);
    return controlSpace || event.text() == "`"_L1;
}

QKeySequence startRecordingKey(KeySystem system) {
    return QKeySequence(controlKey(system) | Qt::Key_Space);
}

std::optional<int> markerDigit(const QKeyEvent& event, KeySystem system) {
    if (event.isAutoRepeat() || !event.modifiers().testFlag(optionKey) || isAltGr(event, system)) {
        return std::nullopt;
    }
    const std::optional<int> digit = typedDigit(event);
    // With Shift, a key of the digit row that types no digit is another key.
    return digit || event.modifiers().testFlag(Qt::ShiftModifier) ? digit : digitRowDigit(event, system);
}

}  // namespace marquill::GlobalKeys
