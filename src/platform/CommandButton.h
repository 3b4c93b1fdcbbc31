// Buttons that stand for a command which a menu holds too. No state; main thread.
#pragma once

class QAction;
class QPushButton;

namespace marquill {

/// Makes a click on `button` trigger `command`. The button is enabled as the command is, and its tool tip is
/// the command's text with its key. Both must live as long as either is used.
void bindButton(QPushButton& button, QAction& command);

}  // namespace marquill
