#include "platform/MoviePlayer.h"

#include "platform/DelayedCalls.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/MoviePlayerSettings.h"
#include "platform/NativeName.h"

#include <QGuiApplication>

#include <mpv/client.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstring>

namespace marquill {

namespace {

// What belongs to the player as a part of a window.
constexpr PlayerSetting playerSettings[] = {
    {"vo", "libmpv"},
    {"idle", "yes"},
    {"keep-open", "yes"},
    {"pause", "yes"},
    {"terminal", "no"},
    {"osc", "no"},
    {"osd-level", "0"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"input-media-keys", "no"},
    {"audio-client-name", "Marquill"},
    {"audio-fallback-to-null", "yes"},
    // The frames keep the times the movie file gives them, and a seek goes to the very frame.
    {"rebase-start-time", "no"},
    {"hr-seek", "yes"},
    // Frames that an edit list hides before the movie's beginning are not shown.
    {"start", "0"},
    // Drawing never waits for the moment a frame is due: it may happen in the main thread.
    {"video-timing-offset", "0"},
};

// libmpv takes a frame that begins up to this much before the moment sought for the one sought, in seconds.
constexpr double seekTolerance = 0.005;

// The observed properties, and what libmpv is to give them as.
struct Observed {
    const char* name;
    mpv_format format;
};
constexpr Observed observedProperties[] = {
    {"time-pos", MPV_FORMAT_DOUBLE},
    {"duration", MPV_FORMAT_DOUBLE},
    {"video-out-params/rotate", MPV_FORMAT_DOUBLE},
    {"dwidth", MPV_FORMAT_DOUBLE},
    {"dheight", MPV_FORMAT_DOUBLE},
    {"volume", MPV_FORMAT_DOUBLE},
    {"mute", MPV_FORMAT_FLAG},
    {"pause", MPV_FORMAT_FLAG},
    {"eof-reached", MPV_FORMAT_FLAG},
    {"vid", MPV_FORMAT_STRING},
};

constexpr quint64 observation = 1;  // what tells our observed properties from anybody else's

// The filter that leaves only `part` of the picture, in whole pixels.
QByteArray cropFilter(const QRectF& part) {
    const QRect pixels = part.toRect();
    return "crop=w=" + QByteArray::number(pixels.width()) + ":h=" + QByteArray::number(pixels.height()) +
           ":x=" + QByteArray::number(pixels.x()) + ":y=" + QByteArray::number(pixels.y());
}

// The filters that turn the picture clockwise; only whole quarters are turned.
QByteArrayList turningFilters(qint64 degrees) {
    switch (degrees) {
        case 90:
            return {"transpose=dir=clock"};
        case 180:
            return {"hflip", "vflip"};
        case 270:
            return {"transpose=dir=cclock"};
        default:
            return {};
    }
}

// How far the movie says its picture is to be turned, in degrees clockwise. To be asked in a hook only, when
// libmpv answers at once.
qint64 rotation(mpv_handle* mpv) {
    qint64 tracks = 0;
    mpv_get_property(mpv, "track-list/count", MPV_FORMAT_INT64, &tracks);
    for (qint64 i = 0; i < tracks; ++i) {
        const QByteArray track = "track-list/" + QByteArray::number(i);
        const std::unique_ptr<char, void (*)(void*)> type(
            mpv_get_property_string(mpv, (track + "/type").constData()), mpv_free);
        qint64 degrees = 0;
        if (type && std::strcmp(type.get(), "video") == 0) {
            mpv_get_property(mpv, (track + "/demux-rotation").constData(), MPV_FORMAT_INT64, &degrees);
            return degrees;
        }
    }
    return 0;
}

// Why the file at `path` is nothing to hand to a player; a pipe or a device would keep it waiting for ever.
std::optional<QString> obstacle(const QString& path) {
    if (const auto file = FileSystem::current().open(path, OpenMode::read); !file) {
        return file.error().message;
    }
    return std::nullopt;
}

}  // namespace

MoviePlayer::MoviePlayer(QObject* parent) : QObject(parent) {
    // libmpv reads and writes numbers through the C library and refuses to start where those have commas.
    std::setlocale(LC_NUMERIC, "C");
    _mpv = mpv_create();
    if (!_mpv) {
        qCWarning(logPlatform) << "libmpv could not be started; no movie can be shown";
        return;
    }
    startUp();
}

MoviePlayer::~MoviePlayer() {
    if (_mpv) {
        mpv_set_wakeup_callback(_mpv, nullptr, nullptr);
        mpv_terminate_destroy(_mpv);
    }
}

void MoviePlayer::startUp() {
    applySettings(*_mpv, playerSettings);
    applySafetySettings(*_mpv);
    if (QGuiApplication::platformName() == u"offscreen"_s) {
        set("ao", "null");
    }
    if (const int error = mpv_initialize(_mpv); error < 0) {
        qCWarning(logPlatform) << "libmpv could not be started:" << mpv_error_string(error);
        mpv_terminate_destroy(std::exchange(_mpv, nullptr));
        return;
    }
    mpv_request_log_messages(_mpv, "error");
    _running = true;
    observeProperties();
    // libmpv calls from threads of its own.
    connect(this, &MoviePlayer::wokenUp, this, &MoviePlayer::drainEvents, Qt::QueuedConnection);
    mpv_set_wakeup_callback(
        _mpv, [](void* self) { Q_EMIT static_cast<MoviePlayer*>(self)->wokenUp(); }, this);
}

void MoviePlayer::observeProperties() {
    mpv_unobserve_property(_mpv, observation);
    for (const Observed& property : observedProperties) {
        mpv_observe_property(_mpv, observation, property.name, property.format);
    }
}

void MoviePlayer::setHardwareDecoding(bool enabled) {
    set("hwdec", enabled ? "auto-safe" : "no");
}

void MoviePlayer::setTurningPictures(bool turning) {
    if (_mpv && turning && !_turning) {
        set("video-rotate", "no");
        mpv_hook_add(_mpv, 0, "on_preloaded", 0);
    }
    _turning = turning;
}

void MoviePlayer::setReady(bool ready) {
    _ready = ready;
    if (!ready) {
        _restoring = _hasPicture;
    } else if (_waiting) {
        startLoading();
    } else if (_restoring) {
        set("vid", "auto");
    }
}

void MoviePlayer::load(const QString& path, std::optional<QRectF> aperture) {
    unload();
    ++_generation;
    const std::optional<QString> reason = _mpv ? obstacle(path) : tr("the movie player is not available");
    if (reason) {
        DelayedCalls::performAfterDelay(this, 0, [this, reason, generation = _generation] {
            if (generation == _generation) {
                fail(*reason);
            }
        });
        return;
    }
    _filters = aperture ? QByteArrayList{cropFilter(*aperture)} : QByteArrayList();
    _waiting = nativeName(path);
    if (_ready) {
        startLoading();
    }
}

void MoviePlayer::startLoading() {
    const QByteArray path = *std::exchange(_waiting, std::nullopt);
    set("pause", "yes");
    set("vid", "auto");
    set("vf", _filters.join(','));
    // A value that is the same in two movies is told for each.
    observeProperties();
    command({"loadfile", path.constData(), "replace"}, _generation);
}

void MoviePlayer::unload() {
    ++_generation;
    _waiting.reset();
    forgetMovie();
    command({"stop"});
}

void MoviePlayer::forgetMovie() {
    const bool wasPlaying = isPlaying();
    _entry = 0;
    _restoring = false;
    _loaded = false;
    _hasPicture = false;
    _paused = true;
    _atEnd = false;
    _stepping = false;
    _seeking = false;
    _seconds = 0;
    _duration = 0;
    _displaySize = {};
    _displayedOnItsSide = false;
    if (wasPlaying) {
        Q_EMIT playingChanged(false);
    }
}

void MoviePlayer::setPlaying(bool playing) {
    if (playing && _atEnd) {
        seek(0);
    }
    _stepping = false;
    set("pause", playing ? "no" : "yes");
}

void MoviePlayer::setSpeed(double speed) {
    set("speed", QByteArray::number(speed));
}

void MoviePlayer::seek(double seconds) {
    if (!_loaded || !std::isfinite(seconds)) {
        return;
    }
    _seeking = true;
    // libmpv counts negative moments from the end.
    const QByteArray moment = QByteArray::number(std::max(0.0, seconds + seekTolerance), 'f', 9);
    command({"seek", moment.constData(), "absolute+exact"});
}

void MoviePlayer::seekToEnd() {
    if (_loaded) {
        _seeking = true;
        command({"seek", "100", "absolute-percent+exact"});
    }
}

void MoviePlayer::stepForward() {
    _stepping = true;
    command({"frame-step"});
}

void MoviePlayer::stepBackward() {
    command({"frame-back-step"});
}

void MoviePlayer::setVolume(int percent) {
    set("volume", QByteArray::number(std::clamp(percent, 0, 100)));
}

void MoviePlayer::setMuted(bool muted) {
    set("mute", muted ? "yes" : "no");
}

void MoviePlayer::command(std::initializer_list<const char*> words, quint64 reply) {
    if (!_mpv) {
        return;
    }
    QVarLengthArray<const char*, 8> arguments(words.begin(), words.end());
    arguments.append(nullptr);
    mpv_command_async(_mpv, reply, arguments.data());
}

void MoviePlayer::set(const char* property, const QByteArray& value) {
    if (!_mpv) {
        return;
    }
    // While it runs libmpv may be busy with a seek, which the window must not wait for.
    const char* text = value.constData();
    const int error =
        _running ? mpv_set_property_async(_mpv, 0, property, MPV_FORMAT_STRING, static_cast<void*>(&text))
                 : mpv_set_option_string(_mpv, property, text);
    if (error < 0) {
        qCWarning(logPlatform) << "libmpv refuses" << property << value << mpv_error_string(error);
    }
}

void MoviePlayer::drainEvents() {
    while (_mpv) {
        const mpv_event* event = mpv_wait_event(_mpv, 0);
        if (event->event_id == MPV_EVENT_NONE) {
            return;
        }
        handle(*event);
    }
}

void MoviePlayer::handle(const mpv_event& event) {
    switch (event.event_id) {
        case MPV_EVENT_COMMAND_REPLY:
            handleReply(event);
            break;
        case MPV_EVENT_START_FILE:
            _current = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id;
            break;
        case MPV_EVENT_END_FILE:
            handleEndOfFile(*static_cast<const mpv_event_end_file*>(event.data));
            break;
        case MPV_EVENT_FILE_LOADED:
            if (isHeard()) {
                _loaded = true;
                Q_EMIT loaded();
            }
            break;
        case MPV_EVENT_PLAYBACK_RESTART:
            _seeking = false;
            Q_EMIT seekFinished();
            break;
        case MPV_EVENT_PROPERTY_CHANGE:
            handleProperty(*static_cast<const mpv_event_property*>(event.data));
            break;
        case MPV_EVENT_HOOK:
            turnPicture();
            mpv_hook_continue(_mpv, static_cast<const mpv_event_hook*>(event.data)->id);
            break;
        case MPV_EVENT_LOG_MESSAGE: {
            const auto& line = *static_cast<const mpv_event_log_message*>(event.data);
            qCDebug(logPlatform) << line.prefix << QByteArray(line.text).trimmed();
            break;
        }
        default:
            break;
    }
}

// Once the movie is open, and before its first frame.
void MoviePlayer::turnPicture() {
    const QByteArray filters = (_filters + turningFilters(rotation(_mpv))).join(',');
    mpv_set_property_string(_mpv, "vf", filters.constData());
}

void MoviePlayer::handleReply(const mpv_event& event) {
    if (event.reply_userdata != _generation) {
        return;
    }
    if (event.error < 0) {
        fail(QString::fromUtf8(mpv_error_string(event.error)));
        return;
    }
    const mpv_node& result = static_cast<const mpv_event_command*>(event.data)->result;
    if (result.format != MPV_FORMAT_NODE_MAP) {
        return;
    }
    for (int i = 0; i < result.u.list->num; ++i) {
        if (std::strcmp(result.u.list->keys[i], "playlist_entry_id") == 0) {
            _entry = result.u.list->values[i].u.int64;
        }
    }
}

void MoviePlayer::handleEndOfFile(const mpv_event_end_file& end) {
    if (end.playlist_entry_id == _entry && end.reason != MPV_END_FILE_REASON_STOP) {
        fail(end.error < 0 ? QString::fromUtf8(mpv_error_string(end.error)) : tr("nothing to play"));
    }
}

void MoviePlayer::handleProperty(const mpv_event_property& property) {
    const bool isOfThePlayer =
        std::strcmp(property.name, "volume") == 0 || std::strcmp(property.name, "mute") == 0;
    if (!property.data || !(isHeard() || isOfThePlayer)) {
        return;
    }
    switch (property.format) {
        case MPV_FORMAT_DOUBLE:
            handleNumber(property.name, *static_cast<const double*>(property.data));
            break;
        case MPV_FORMAT_FLAG:
            handleFlag(property.name, *static_cast<const int*>(property.data) != 0);
            break;
        case MPV_FORMAT_STRING:
            handleVideoTrack(*static_cast<const char* const*>(property.data));
            break;
        default:
            break;
    }
}

void MoviePlayer::handleNumber(QByteArrayView name, double value) {
    if (name == "time-pos") {
        _seconds = value;
        Q_EMIT secondsChanged(value);
    } else if (name == "duration") {
        _duration = value;
        Q_EMIT durationChanged();
    } else if (name == "dwidth") {
        _displaySize.setWidth(value);
        Q_EMIT displaySizeChanged();
    } else if (name == "dheight") {
        _displaySize.setHeight(value);
        Q_EMIT displaySizeChanged();
    } else if (name == "video-out-params/rotate") {
        _displayedOnItsSide = std::fmod(value, 180) == 90;
        Q_EMIT displaySizeChanged();
    } else if (name == "volume") {
        _volume = qRound(value);
        Q_EMIT volumeChanged();
    }
}

void MoviePlayer::handleFlag(QByteArrayView name, bool value) {
    if (name == "eof-reached") {
        _atEnd = value;
    } else if (name == "mute") {
        _muted = value;
        Q_EMIT volumeChanged();
    } else if (name == "pause" && value != _paused && (value || !_stepping)) {
        _paused = value;
        Q_EMIT playingChanged(isPlaying());
    }
}

void MoviePlayer::handleVideoTrack(QByteArrayView id) {
    const bool shown = id != "no" && id != "auto";
    if (_hasPicture && !shown && !_restoring) {
        fail(tr("its picture cannot be decoded"));
    }
    _hasPicture = shown || (_hasPicture && _restoring);
    _restoring = _restoring && !shown;
}

void MoviePlayer::fail(const QString& reason) {
    qCWarning(logPlatform) << "a movie cannot be shown:" << reason;
    ++_generation;
    forgetMovie();
    Q_EMIT failed(tr("This movie cannot be shown: %1.").arg(reason));
}

}  // namespace marquill
