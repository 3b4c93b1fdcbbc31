// Draws frames on the graphics processor, which may have decoded them as well. Main thread.
#pragma once

#include "platform/MovieRenderer.h"

#include <QOpenGLWidget>

struct mpv_render_context;

namespace marquill {

class MovieRendererGL : public QOpenGLWidget, public MovieRenderer {
    Q_OBJECT

  public:
    MovieRendererGL(MoviePlayer& player, QWidget* parent);
    ~MovieRendererGL() override;

    QWidget& widget() override { return *this; }
    void redraw() override { QOpenGLWidget::update(); }

  Q_SIGNALS:
    /// From any thread.
    void frameIsReady();

  protected:
    void initializeGL() override;
    void paintGL() override;

  private:
    void takeFrame();
    /// The OpenGL context goes: with the widget, or because it moves to another window.
    void releaseContext();

    MoviePlayer& _player;
    mpv_render_context* _context = nullptr;
};

}  // namespace marquill
