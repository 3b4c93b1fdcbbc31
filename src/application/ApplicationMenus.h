// The table of the program's commands. Main thread.
#pragma once

#include "application/ActionTable.h"

namespace marquill {

class Application;

/// Every command with its place in the menus, its key and what it runs, in the order of the menus.
std::vector<ActionDescription> actionDescriptions(Application& application);

}  // namespace marquill
