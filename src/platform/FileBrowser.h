// The desktop's file browser, behind a hook that tests replace. Main thread.
#pragma once

#include <QString>

namespace marquill {

class FileBrowser {
  public:
    virtual ~FileBrowser() = default;

    /// Opens the folder that holds the file or folder at `path`, with it selected. Returns at once; where the
    /// desktop offers no such service, the folder itself (of a file: the one it is in) is opened.
    virtual void reveal(const QString& path) = 0;

    /// The one in use: the desktop's, unless a test has installed its own.
    static FileBrowser& current();
    /// Makes `browser` the one in use until it is called with null; the caller keeps the ownership.
    static void install(FileBrowser* browser);
};

}  // namespace marquill
