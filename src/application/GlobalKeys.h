// The keys that work whichever window has the keyboard. Which key of a toolkit event means what is decided
// here, per platform: Option is Alt, Control is the key so labelled also where the toolkit swaps it with
// Command. No state, any thread.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>

#include <optional>

namespace marquill::GlobalKeys {

bool isEscape(const QKeyEvent& event);

/// Control-Space, or whatever types a single grave accent.
bool startsRecording(const QKeyEvent& event);

/// Control-Space as menus show it.
QKeySequence startRecordingKey();

/// The digit 0 to 9 of Option with a digit. The key of the digit row counts too where digits need Shift.
/// Nothing for an auto-repeat, so that a key held down fires one marker.
std::optional<int> markerDigit(const QKeyEvent& event);

}  // namespace marquill::GlobalKeys
