#include "platform/Log.h"

namespace marquill {

// Debug messages are for whoever switches them on; the others are always told.
Q_LOGGING_CATEGORY(logPlatform, "marquill.platform", QtInfoMsg)
Q_LOGGING_CATEGORY(logMovie, "marquill.movie", QtInfoMsg)
Q_LOGGING_CATEGORY(logClipStore, "marquill.clipstore", QtInfoMsg)
Q_LOGGING_CATEGORY(logFolders, "marquill.folders", QtInfoMsg)
Q_LOGGING_CATEGORY(logConnect, "marquill.connect", QtInfoMsg)
Q_LOGGING_CATEGORY(logMarkers, "marquill.markers", QtInfoMsg)
Q_LOGGING_CATEGORY(logRecording, "marquill.recording", QtInfoMsg)
Q_LOGGING_CATEGORY(logClipManager, "marquill.clipmanager", QtInfoMsg)
Q_LOGGING_CATEGORY(logCommandLine, "marquill.commandline", QtInfoMsg)
Q_LOGGING_CATEGORY(logApplication, "marquill.application", QtInfoMsg)

}  // namespace marquill
