// What commands take from the user's settings, as the windows left them there. They are read, never written.
// Main thread.
#pragma once

#include "markers/MarkerSet.h"

#include <QStringList>

#include <vector>

namespace marquill::SavedSettings {

/// The label list; without one in the settings, the one a first start gives.
QStringList labels();

/// The marker sets in the order of their popup; without any, the "Default Set" that a first start makes.
std::vector<MarkerSet> markerSets();
/// The set that was the current one, else the first.
MarkerSet currentMarkerSet();

/// The texts that the recorder's fields were left with.
QString recorderClipName();
QString recorderSceneName();

}  // namespace marquill::SavedSettings
