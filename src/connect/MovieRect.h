// Where a movie's picture stands in a preview, and how large a viewer's window is for it. All arithmetic of
// the preview is in single precision. Pure functions, any thread.
#pragma once

#include <QSizeF>

namespace marquill {

/// Logical pixels; `x` and `y` of the bottom left corner, from the bottom left corner of the view.
struct MovieRect {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;

    bool operator==(const MovieRect&) const = default;
};

/// The height of the control bar below the picture, in logical pixels.
inline constexpr float movieControlBarHeight = 16;

/// How much wider a pixel of a frame of this size is than it is high, in the formats that are known to have
/// other than square pixels; 1 for every other size.
float pixelAspectFactor(float width, float height);

/// The rectangle that the picture and its control bar take in a view of the size `viewWidth` × `viewHeight`:
/// the picture as large as its shape allows, and the bar below it along the bottom edge. `naturalWidth` and
/// `naturalHeight` are the movie's natural bounds, turned as it is; when one of them is 0 there is only the
/// bar, as wide as the view. A movie of 720 × 576 in a view of 400 × 316 is at (0, 0, 400, 315.9).
MovieRect movieRect(float viewWidth, float viewHeight, float naturalWidth, float naturalHeight);

/// The size of a viewer's window that keeps the picture at its natural proportions, when `proposed` was asked
/// for. `windowHeight` is the window's present height and `movieBounds` the room the picture has in it,
/// control bar excluded; without such room the proposed size is right.
QSizeF viewerWindowSize(const QSizeF& proposed, const QSizeF& natural, double windowHeight,
                        const QSizeF& movieBounds);

}  // namespace marquill
