// Which names a file in a folder can have, and which lead elsewhere: names come from people and from records
// that strangers wrote. Each takes the system, so that all can be tested on any. No state, any thread.
#pragma once

#include "platform/Literals.h"

namespace marquill {

enum class NameSystem { posix, windows };

#if defined(Q_OS_WINDOWS)
inline constexpr NameSystem ownNameSystem = NameSystem::windows;
#else
inline constexpr NameSystem ownNameSystem = NameSystem::posix;
#endif

/// Whether each character can stand in a file's name. Windows has more that part a path or mean something
/// else, such as "\", ":" and "?".
bool hasNameCharacters(const QString& text, NameSystem system = ownNameSystem);

/// Whether a file of the name stands in the folder that it is looked for in, and is a file. "..", "a/b" and
/// "" are no such names; on Windows neither are "..\a", "a:b", "NUL.xml", and "a." and "a ", which mean "a".
bool isFileName(const QString& name, NameSystem system = ownNameSystem);

}  // namespace marquill
