// How libmpv is told to trust no movie, whatever it is used for. Any thread, before libmpv is initialized.
#pragma once

#include <span>

struct mpv_handle;

namespace marquill {

struct PlayerSetting {
    const char* name;
    const char* value;
};

/// What libmpv refuses is told to the log.
void applySettings(mpv_handle& mpv, std::span<const PlayerSetting> settings);

/// A clip may come from anywhere: it is read from its own bytes alone, as one of the containers that cameras
/// and editors write, and no settings and scripts of the user's are.
void applySafetySettings(mpv_handle& mpv);

}  // namespace marquill
