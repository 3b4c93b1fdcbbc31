// The program's log: one category per folder, switched by Qt's logging rules ("marquill.movie.debug=true").
// Failures that no dialog shows are told here: qCWarning(logMovie) << error.description(). Any thread.
#pragma once

#include <QLoggingCategory>

namespace marquill {

Q_DECLARE_LOGGING_CATEGORY(logPlatform)
Q_DECLARE_LOGGING_CATEGORY(logMovie)
Q_DECLARE_LOGGING_CATEGORY(logClipStore)
Q_DECLARE_LOGGING_CATEGORY(logFolders)
Q_DECLARE_LOGGING_CATEGORY(logConnect)
Q_DECLARE_LOGGING_CATEGORY(logMarkers)
Q_DECLARE_LOGGING_CATEGORY(logRecording)
Q_DECLARE_LOGGING_CATEGORY(logClipManager)
Q_DECLARE_LOGGING_CATEGORY(logCommandLine)
Q_DECLARE_LOGGING_CATEGORY(logApplication)

}  // namespace marquill
