#include "platform/MoviePlayerSettings.h"

#include "platform/Log.h"

#include <mpv/client.h>

namespace marquill {

namespace {

// A clip may come from anywhere: it plays from its own bytes, and nothing in it or beside it is followed.
constexpr PlayerSetting safetySettings[] = {
    {"config", "no"},
    {"load-scripts", "no"},
    {"load-auto-profiles", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"ytdl", "no"},
    {"resume-playback", "no"},
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    {"ordered-chapters", "no"},
    {"autoload-files", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"audio-display", "no"},
    {"sid", "no"},
    {"demuxer", "lavf"},
    {"sub-demuxer", "lavf"},
    {"audio-demuxer", "lavf"},
};

// The containers cameras and editors write; in libavformat's own names. Those that name other files are not
// among them.
constexpr char containers[] =
    "mov,mp4,m4a,3gp,3g2,mj2,mxf,avi,matroska,webm,mpegts,mpeg,dv,r3d,wav,aiff,mp3,aac";

// The list has commas of its own, so its length stands before it.
QByteArray demuxerOptions() {
    return "protocol_whitelist=file,format_whitelist=%" + QByteArray::number(qstrlen(containers)) + '%' +
           containers;
}

void apply(mpv_handle& mpv, const char* name, const char* value) {
    if (const int error = mpv_set_option_string(&mpv, name, value); error < 0) {
        qCWarning(logPlatform) << "libmpv refuses" << name << value << mpv_error_string(error);
    }
}

}  // namespace

void applySettings(mpv_handle& mpv, std::span<const PlayerSetting> settings) {
    for (const PlayerSetting& setting : settings) {
        apply(mpv, setting.name, setting.value);
    }
}

void applySafetySettings(mpv_handle& mpv) {
    applySettings(mpv, safetySettings);
    apply(mpv, "demuxer-lavf-o", demuxerOptions().constData());
}

}  // namespace marquill
