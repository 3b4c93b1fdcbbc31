// Draws frames in memory, in a thread of its own, so that scaling a large picture never holds up the window.
// The widget lives in the main thread; the SoftwareFrames in the drawing thread.
#pragma once

#include "platform/MovieRenderer.h"

#include <QImage>
#include <QThread>
#include <QWidget>

#include <atomic>

struct mpv_render_context;

namespace marquill {

/// The side of the drawing thread.
class SoftwareFrames : public QObject {
    Q_OBJECT

  public:
    /// `context` must live until the drawing thread has ended.
    explicit SoftwareFrames(mpv_render_context* context);

    /// From any thread: draws a picture of this size soon, in device pixels.
    void setSize(const QSize& size);
    /// From any thread: draws soon; requests that come before that are one.
    void request();

  Q_SIGNALS:
    /// From any thread.
    void requested();
    /// `isNewFrame` tells a frame of the movie from one drawn again.
    void drawn(const QImage& picture, bool isNewFrame);

  private:
    void draw();

    mpv_render_context* _context;
    std::atomic<bool> _requested = false;
    std::atomic<int> _width = 0;
    std::atomic<int> _height = 0;
};

class MovieRendererSoftware : public QWidget, public MovieRenderer {
    Q_OBJECT

  public:
    MovieRendererSoftware(MoviePlayer& player, QWidget* parent);
    ~MovieRendererSoftware() override;

    QWidget& widget() override { return *this; }
    void redraw() override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void present(const QImage& picture, bool isNewFrame);

    MoviePlayer& _player;
    mpv_render_context* _context = nullptr;
    std::unique_ptr<SoftwareFrames> _frames;
    QThread _thread;
    QImage _picture;
};

}  // namespace marquill
