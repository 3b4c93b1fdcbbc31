#include "platform/MovieStill.h"

#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/MoviePlayerSettings.h"
#include "platform/NativeName.h"

#include <QCoreApplication>

#include <mpv/client.h>

#ifdef Q_OS_LINUX
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

#include <cstring>
#include <memory>

namespace marquill {

namespace {

constexpr double pollInterval = 0.05;  // seconds

constexpr PlayerSetting stillSettings[] = {
    {"vo", "null"},
    {"ao", "null"},
    {"aid", "no"},
    {"pause", "yes"},
    {"terminal", "no"},
    {"idle", "yes"},
    // The key frame before the moment will do, and is there soonest.
    {"start", "10%"},
    {"hr-seek", "no"},
    {"hwdec", "no"},
    {"vd-lavc-threads", "1"},
    {"cache", "no"},
    {"demuxer-readahead-secs", "0"},
    {"osd-level", "0"},
};

struct EndPlayer {
    void operator()(mpv_handle* mpv) const { mpv_terminate_destroy(mpv); }
};
using Player = std::unique_ptr<mpv_handle, EndPlayer>;

// libmpv's threads inherit it.
void giveWayToOthers() {
#ifdef Q_OS_LINUX
    constexpr int nice = 10;
    setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), nice);
#endif
}

std::unexpected<Error> noPicture(const QString& path) {
    return failure(ErrorCode::malformed,
                   QCoreApplication::translate("MovieStill", "The movie has no picture that can be shown."),
                   path);
}

std::unexpected<Error> givenUp(const QString& path) {
    return failure(ErrorCode::interrupted, QCoreApplication::translate("MovieStill", "It was given up."),
                   path);
}

Player startPlayer() {
    Player player(mpv_create());
    if (!player) {
        return nullptr;
    }
    applySettings(*player, stillSettings);
    applySafetySettings(*player);
    if (mpv_initialize(player.get()) < 0) {
        return nullptr;
    }
    return player;
}

// Whether a frame came to be shown.
Result<void> waitForFrame(mpv_handle& mpv, const QString& path, const std::function<bool()>& isWanted) {
    while (isWanted()) {
        const mpv_event_id event = mpv_wait_event(&mpv, pollInterval)->event_id;
        if (event == MPV_EVENT_PLAYBACK_RESTART) {
            return {};
        }
        if (event == MPV_EVENT_END_FILE || event == MPV_EVENT_SHUTDOWN) {
            return noPicture(path);
        }
    }
    return givenUp(path);
}

const mpv_node* find(const mpv_node_list& map, const char* key) {
    for (int i = 0; i < map.num; ++i) {
        if (std::strcmp(map.keys[i], key) == 0) {
            return &map.values[i];
        }
    }
    return nullptr;
}

// A copy of what "screenshot-raw" gives: 32 bits a pixel, blue first.
QImage imageOf(const mpv_node& shot) {
    if (shot.format != MPV_FORMAT_NODE_MAP) {
        return {};
    }
    const mpv_node* width = find(*shot.u.list, "w");
    const mpv_node* height = find(*shot.u.list, "h");
    const mpv_node* stride = find(*shot.u.list, "stride");
    const mpv_node* data = find(*shot.u.list, "data");
    if (!width || !height || !stride || !data || data->format != MPV_FORMAT_BYTE_ARRAY) {
        return {};
    }
    const auto bytes = static_cast<qint64>(data->u.ba->size);
    if (width->u.int64 <= 0 || height->u.int64 <= 0 || stride->u.int64 < width->u.int64 * 4 ||
        bytes / stride->u.int64 < height->u.int64) {
        return {};
    }
    return QImage(static_cast<const uchar*>(data->u.ba->data), static_cast<int>(width->u.int64),
                  static_cast<int>(height->u.int64), static_cast<qsizetype>(stride->u.int64),
                  QImage::Format_RGB32)
        .copy();
}

Result<QImage> shownFrame(mpv_handle& mpv, const QString& path, int width) {
    const char* command[] = {"screenshot-raw", "video", nullptr};
    mpv_node shot{};
    if (mpv_command_ret(&mpv, command, &shot) < 0) {
        return noPicture(path);
    }
    const QImage image = imageOf(shot);
    mpv_free_node_contents(&shot);
    if (image.isNull()) {
        return noPicture(path);
    }
    const QSize most(width, width);
    return image.size().boundedTo(most) == image.size()
               ? image
               : image.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

Result<QImage> still(mpv_handle& mpv, const QString& path, int width, const std::function<bool()>& isWanted) {
    const std::optional<QByteArray> name = nativeName(path);
    const char* command[] = {"loadfile", name ? name->constData() : "", nullptr};
    if (!name || mpv_command(&mpv, command) < 0) {
        return noPicture(path);
    }
    if (const Result<void> waited = waitForFrame(mpv, path, isWanted); !waited) {
        return std::unexpected(waited.error());
    }
    return shownFrame(mpv, path, width);
}

}  // namespace

void takeMovieStill(const QString& path, int width, const std::function<bool()>& isWanted,
                    const std::function<void(Result<QImage>)>& take) {
    giveWayToOthers();
    if (const auto file = FileSystem::current().open(path, OpenMode::read); !file) {
        take(std::unexpected(file.error()));
        return;
    }
    const Player player = startPlayer();
    take(player ? still(*player, path, width, isWanted) : Result<QImage>(noPicture(path)));
}

}  // namespace marquill
