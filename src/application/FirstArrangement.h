// Where the windows stand before a user has moved them. Main thread.
#pragma once

#include <vector>

class QWidget;

namespace marquill {

/// Places the main window at the left of the screen and `panels` (some may be null) at its right, below each
/// other, unless the user defaults know where a window stood. A main window too wide for that is made
/// narrower.
void arrangeAtFirstStart(QWidget& main, const std::vector<QWidget*>& panels);

}  // namespace marquill
