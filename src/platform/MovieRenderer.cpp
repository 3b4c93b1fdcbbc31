#include "platform/MovieRenderer.h"

#include "platform/Literals.h"
#include "platform/Log.h"
#include "platform/MovieRendererGL.h"
#include "platform/MovieRendererSoftware.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace marquill {

namespace {

// A driver that computes OpenGL on the processor is slower at it than plain drawing in memory.
bool isGraphicsProcessor(const QByteArray& name) {
    for (const char* emulation :
         {"llvmpipe", "softpipe", "swrast", "Software Rasterizer", "SwiftShader", "GDI"}) {
        if (name.contains(emulation)) {
            return false;
        }
    }
    return true;
}

bool findGraphicsProcessor() {
    const QString platform = QGuiApplication::platformName();
    if (platform == u"offscreen"_s || platform == u"minimal"_s || platform == u"vnc"_s) {
        return false;
    }
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (!context.create() || !surface.isValid() || !context.makeCurrent(&surface)) {
        return false;
    }
    const bool recent =
        context.format().version() >= (context.isOpenGLES() ? std::pair(2, 0) : std::pair(2, 1));
    const QByteArray name = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    context.doneCurrent();
    qCDebug(logPlatform) << "OpenGL is computed by" << name;
    return recent && isGraphicsProcessor(name);
}

bool openGLIsWanted() {
    const QByteArray wish = qgetenv("MARQUILL_MOVIE_RENDERER");
    if (!wish.isEmpty()) {
        return wish == "opengl";
    }
    static const bool found = findGraphicsProcessor();
    return found;
}

}  // namespace

std::unique_ptr<MovieRenderer> MovieRenderer::create(MoviePlayer& player, QWidget* parent) {
    if (openGLIsWanted()) {
        return std::make_unique<MovieRendererGL>(player, parent);
    }
    return std::make_unique<MovieRendererSoftware>(player, parent);
}

}  // namespace marquill
