// Where the program keeps what is neither a setting nor a document of the user's: what it needs to go on
// after a crash. Main thread, as it goes by the settings in use.
#pragma once

#include <QString>

namespace marquill {

/// The path of the folder, which need not exist. With the user's own settings it is marquill in
/// $XDG_STATE_HOME, or in ~/.local/state where that is not set to an absolute path (macOS: in Application
/// Support; Windows: in the local application data). With another settings file it is "FILE.state" beside
/// that file, so that a trial run never meddles with the user's takes.
QString stateFolder();

/// The same for the user's own settings, whichever are in use.
QString usersStateFolder();

}  // namespace marquill
