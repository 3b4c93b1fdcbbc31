// Where the windows stand before a user has moved them. Main thread.
#pragma once

#include <vector>

class QWidget;

namespace marquill {

/// Places the main window at the left of the screen and `panels` (some may be null) at its right, below each
/// other, unless the user defaults know where a window stood. Where the screen is too narrow for both, the
/// panels cover the main window's edge.
void arrangeAtFirstStart(QWidget& main, const std::vector<QWidget*>& panels);

}  // namespace marquill
