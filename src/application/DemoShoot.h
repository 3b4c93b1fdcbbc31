// The demo: a small shoot in a folder of its own, with settings of its own, so that nobody's takes are
// touched. Main thread.
#pragma once

#include "platform/Error.h"

#include <QLockFile>

#include <memory>

namespace marquill {

struct Demo {
    QString settingsFile;
    QString folder;  ///< the record folder
    /// Keeps the shoot for this program until it ends.
    std::unique_ptr<QLockFile> lock;
};

/// Makes the shoot anew in the user's cache folder: ten placeholders, the movies of a camera card that some
/// are connected to, a movie that is a clip itself, and settings that show the folder. Without ffmpeg there
/// are no movies. Errors: those of the file system; alreadyExists while another demo is open.
Result<Demo> prepareDemo();

}  // namespace marquill
