#include "platform/MovieRendererSoftware.h"

#include "platform/Log.h"
#include "platform/MoviePlayer.h"

#include <QPainter>

#include <mpv/client.h>
#include <mpv/render.h>

#include <cstdlib>

namespace marquill {

namespace {

// QImage::Format_RGB32 as libmpv calls it.
constexpr auto pixelFormat = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? "bgr0" : "0rgb";
constexpr size_t alignment = 64;  // what libmpv draws fast into, in bytes

// An image whose lines begin where libmpv likes them to.
QImage alignedImage(const QSize& size) {
    const size_t stride = (static_cast<size_t>(size.width()) * 4 + alignment - 1) / alignment * alignment;
    auto* memory =
        static_cast<uchar*>(std::aligned_alloc(alignment, stride * static_cast<size_t>(size.height())));
    if (!memory) {
        return {};
    }
    return {memory,    size.width(), size.height(), static_cast<qsizetype>(stride), QImage::Format_RGB32,
            std::free, memory};
}

}  // namespace

SoftwareFrames::SoftwareFrames(mpv_render_context* context) : _context(context) {
    connect(this, &SoftwareFrames::requested, this, &SoftwareFrames::draw, Qt::QueuedConnection);
}

void SoftwareFrames::setSize(const QSize& size) {
    _width = size.width();
    _height = size.height();
    request();
}

void SoftwareFrames::request() {
    if (!_requested.exchange(true)) {
        Q_EMIT requested();
    }
}

void SoftwareFrames::draw() {
    _requested = false;
    const bool isNewFrame = (mpv_render_context_update(_context) & MPV_RENDER_UPDATE_FRAME) != 0;
    QImage picture = alignedImage({std::max(_width.load(), 1), std::max(_height.load(), 1)});
    if (picture.isNull()) {
        return;
    }
    int size[2] = {picture.width(), picture.height()};
    auto stride = static_cast<size_t>(picture.bytesPerLine());
    mpv_render_param parameters[] = {
        {MPV_RENDER_PARAM_SW_SIZE, size},      {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char*>(pixelFormat)},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride}, {MPV_RENDER_PARAM_SW_POINTER, picture.bits()},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (const int error = mpv_render_context_render(_context, parameters); error < 0) {
        qCWarning(logPlatform) << "libmpv cannot draw a frame:" << mpv_error_string(error);
        return;
    }
    Q_EMIT drawn(picture, isNewFrame);
}

MovieRendererSoftware::MovieRendererSoftware(MoviePlayer& player, QWidget* parent)
    : QWidget(parent), _player(player) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    if (!_player.handle()) {
        return;
    }
    _player.setHardwareDecoding(false);
    _player.setTurningPictures(true);
    mpv_render_param parameters[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (const int error = mpv_render_context_create(&_context, _player.handle(), parameters); error < 0) {
        qCWarning(logPlatform) << "libmpv cannot draw in memory:" << mpv_error_string(error);
        return;
    }
    _frames = std::make_unique<SoftwareFrames>(_context);
    _frames->moveToThread(&_thread);
    connect(_frames.get(), &SoftwareFrames::drawn, this, &MovieRendererSoftware::present);
    _thread.setObjectName(QStringLiteral("movie drawing"));
    _thread.start();
    mpv_render_context_set_update_callback(
        _context, [](void* frames) { static_cast<SoftwareFrames*>(frames)->request(); }, _frames.get());
    _player.setReady(true);
}

MovieRendererSoftware::~MovieRendererSoftware() {
    if (!_context) {
        return;
    }
    mpv_render_context_set_update_callback(_context, nullptr, nullptr);
    _thread.quit();
    _thread.wait();
    mpv_render_context_free(_context);
}

void MovieRendererSoftware::redraw() {
    if (_frames) {
        _frames->setSize(size() * devicePixelRatio());
    }
}

void MovieRendererSoftware::present(const QImage& picture, bool isNewFrame) {
    if (isNewFrame && willDisplayImage) {
        willDisplayImage();
    }
    _picture = picture;
    update();
}

void MovieRendererSoftware::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (_picture.isNull()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    // Until the picture of a new size is there the old one is stretched.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), _picture);
}

void MovieRendererSoftware::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    redraw();
}

}  // namespace marquill
