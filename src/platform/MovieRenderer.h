// Draws a player's frames in a widget: through OpenGL where there is a graphics processor for it, in memory
// everywhere else. Owned by the movie view, gone before the player. Main thread.
#pragma once

#include <functional>
#include <memory>

class QWidget;

namespace marquill {

class MoviePlayer;

class MovieRenderer {
  public:
    MovieRenderer() = default;
    MovieRenderer(const MovieRenderer&) = delete;
    MovieRenderer& operator=(const MovieRenderer&) = delete;
    virtual ~MovieRenderer() = default;

    /// The renderer that suits this screen; the environment variable MARQUILL_MOVIE_RENDERER, "opengl" or
    /// "software", overrules the choice.
    static std::unique_ptr<MovieRenderer> create(MoviePlayer& player, QWidget* parent);

    /// The widget that shows the picture, of the renderer's own.
    virtual QWidget& widget() = 0;
    /// Draws the frame on show once more.
    virtual void redraw() = 0;

    /// Called before each frame is shown; may be left unset.
    std::function<void()> willDisplayImage;
};

}  // namespace marquill
