// What the keys of a keyboard are called where the toolkit's own names differ between systems, or do not tell
// enough. Each takes the system, so that all of them can be tested on any. No state, any thread.
#pragma once

#include <QKeyEvent>

#include <optional>

namespace marquill {

enum class KeySystem { x11, mac, windows };

#if defined(Q_OS_MACOS)
inline constexpr KeySystem ownKeySystem = KeySystem::mac;
#elif defined(Q_OS_WINDOWS)
inline constexpr KeySystem ownKeySystem = KeySystem::windows;
#else
inline constexpr KeySystem ownKeySystem = KeySystem::x11;
#endif

/// The key with "Ctrl" or "Control" on it. On macOS the toolkit calls Command "Control", and this one "Meta".
Qt::Modifier controlKey(KeySystem system = ownKeySystem);

/// The digit printed on a key of the main block's number row, whatever the layout types with it; nothing for
/// other keys.
std::optional<int> digitRowDigit(const QKeyEvent& event, KeySystem system = ownKeySystem);

/// Whether the Alt of the event is a part of AltGr: Windows tells of AltGr as Control and Alt, and what is
/// typed with it is a character, no command.
bool isAltGr(const QKeyEvent& event, KeySystem system = ownKeySystem);

}  // namespace marquill
