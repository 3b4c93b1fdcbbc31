// The Edit menu's commands on the control that has the keyboard: a text that is being edited, or a list. No
// state; main thread.
#pragma once

namespace marquill::FocusedText {

enum class Command { undo, redo, cut, copy, paste, selectAll };

/// Whether the control with the keyboard can do it now: it has typing to take back, a selected text, …
bool can(Command command);

/// Does it; nothing when it cannot be done.
void perform(Command command);

}  // namespace marquill::FocusedText
