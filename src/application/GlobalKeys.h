// The keys that work whichever window has the keyboard: Option is Alt, Control is the key so labelled also
// where the toolkit swaps it with Command. Each takes the system whose keyboard it is. No state, any thread.
#pragma once

#include "platform/PhysicalKeys.h"

#include <QKeyEvent>
#include <QKeySequence>

#include <optional>

namespace marquill::GlobalKeys {

bool isEscape(const QKeyEvent& event);

/// Control-Space, or whatever types a single grave accent.
bool startsRecording(const QKeyEvent& event, KeySystem system = ownKeySystem);

/// Control-Space as menus show it.
QKeySequence startRecordingKey(KeySystem system = ownKeySystem);

/// The digit 0 to 9 of Option with a digit. The key of the digit row counts too where digits need Shift, or
/// where Option makes another character of them. Nothing for an auto-repeat, so that a key held down fires
/// one marker.
std::optional<int> markerDigit(const QKeyEvent& event, KeySystem system = ownKeySystem);

}  // namespace marquill::GlobalKeys
