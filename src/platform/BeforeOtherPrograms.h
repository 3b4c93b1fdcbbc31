// Bringing a window before those of other programs. Window managers let no program do that by itself, lest it
// take the keyboard from somebody who is typing; here the user has asked for it, by starting the program
// again. Main thread.
#pragma once

class QWidget;

namespace marquill {

/// Brings the window to the front and gives it the keyboard, whichever program has it, also when it is
/// minimised. Where the system wants a proof of the user's wish, the environment holds it by now
/// ("XDG_ACTIVATION_TOKEN"); without one it may point the window out instead.
void bringBeforeOtherPrograms(QWidget& window);

}  // namespace marquill
