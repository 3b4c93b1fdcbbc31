// How each desktop is asked to show a file among its neighbours; each has a source of its own. For
// FileBrowser only. Main thread.
#pragma once

#include <QString>

#include <functional>

namespace marquill {

/// Asks for the folder of the file or folder at `path`, with it selected, and returns at once. Where the
/// desktop does not answer to that, `otherwise` is called, at once or later.
void revealFile(const QString& path, const std::function<void()>& otherwise);

}  // namespace marquill
