// The panel that lists the keyboard shortcuts. It is made from the table of commands, so it cannot be wrong;
// the keys that no menu holds are added here. Main thread.
#pragma once

#include "application/MainWindow.h"

namespace marquill {

class ActionTable;

class KeyboardShortcuts : public MainWindow {
    Q_OBJECT

  public:
    explicit KeyboardShortcuts(const ActionTable& actions);
};

}  // namespace marquill
