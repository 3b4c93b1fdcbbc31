#include "platform/MovieRendererGL.h"

#include "platform/Log.h"
#include "platform/MoviePlayer.h"

#include <QGuiApplication>
#include <QOpenGLContext>

#include <mpv/client.h>
#include <mpv/render_gl.h>

namespace marquill {

namespace {

void* functionAddress(void* /*context*/, const char* name) {
    QOpenGLContext* context = QOpenGLContext::currentContext();
    return context ? reinterpret_cast<void*>(context->getProcAddress(QByteArray(name))) : nullptr;
}

}  // namespace

MovieRendererGL::MovieRendererGL(MoviePlayer& player, QWidget* parent)
    : QOpenGLWidget(parent), _player(player) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    _player.setHardwareDecoding(true);
    connect(this, &MovieRendererGL::frameIsReady, this, &MovieRendererGL::takeFrame, Qt::QueuedConnection);
}

MovieRendererGL::~MovieRendererGL() {
    releaseContext();
    // The context goes with the base class, when this is no renderer any more.
    if (context()) {
        disconnect(context(), nullptr, this, nullptr);
    }
}

void MovieRendererGL::initializeGL() {
    if (!_player.handle()) {
        return;
    }
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &MovieRendererGL::releaseContext,
            Qt::UniqueConnection);
    mpv_opengl_init_params functions{functionAddress, nullptr};
    mpv_render_param parameters[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &functions},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (const int error = mpv_render_context_create(&_context, _player.handle(), parameters); error < 0) {
        qCWarning(logPlatform) << "libmpv cannot draw through OpenGL:" << mpv_error_string(error);
        return;
    }
    mpv_render_context_set_update_callback(
        _context, [](void* self) { Q_EMIT static_cast<MovieRendererGL*>(self)->frameIsReady(); }, this);
    _player.setReady(true);
}

void MovieRendererGL::takeFrame() {
    if (!_context || (mpv_render_context_update(_context) & MPV_RENDER_UPDATE_FRAME) == 0) {
        return;
    }
    if (willDisplayImage) {
        willDisplayImage();
    }
    if (isVisible()) {
        QOpenGLWidget::update();
        return;
    }
    // Nobody paints a hidden widget, and libmpv would wait for it before each further frame.
    int skip = 1;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    makeCurrent();
    mpv_render_context_render(_context, parameters);
    doneCurrent();
}

void MovieRendererGL::paintGL() {
    if (!_context) {
        return;
    }
    const QSize pixels = size() * devicePixelRatio();
    mpv_opengl_fbo target{static_cast<int>(defaultFramebufferObject()), pixels.width(), pixels.height(), 0};
    int flip = 1;
    mpv_render_param parameters[] = {
        {MPV_RENDER_PARAM_OPENGL_FBO, &target},
        {MPV_RENDER_PARAM_FLIP_Y, &flip},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    mpv_render_context_render(_context, parameters);
}

void MovieRendererGL::releaseContext() {
    if (!_context) {
        return;
    }
    _player.setReady(false);
    mpv_render_context_set_update_callback(_context, nullptr, nullptr);
    makeCurrent();
    mpv_render_context_free(std::exchange(_context, nullptr));
    doneCurrent();
}

}  // namespace marquill
