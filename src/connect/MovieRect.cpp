#include "connect/MovieRect.h"

#include <algorithm>

namespace marquill {

namespace {

struct FrameShape {
    float width;
    float height;
    float factor;
};

// DV PAL and NTSC, HDV 1080, DVCPRO HD 1080 and 720.
constexpr FrameShape shapesWithOtherPixels[] = {
    {720, 576, 1.067F}, {720, 480, 0.889F}, {1440, 1080, 1.3333F}, {1280, 1080, 1.5F}, {960, 720, 1.3333F},
};

}  // namespace

float pixelAspectFactor(float width, float height) {
    const auto* shape = std::ranges::find_if(shapesWithOtherPixels, [=](const FrameShape& known) {
        return known.width == width && known.height == height;
    });
    return shape == std::end(shapesWithOtherPixels) ? 1.0F : shape->factor;
}

MovieRect movieRect(float viewWidth, float viewHeight, float naturalWidth, float naturalHeight) {
    if (naturalWidth == 0 || naturalHeight == 0) {
        return {0, 0, viewWidth, movieControlBarHeight};
    }
    const float displayWidth = naturalWidth * pixelAspectFactor(naturalWidth, naturalHeight);
    const float available = std::max(viewHeight - movieControlBarHeight, 0.0F);
    MovieRect rect;
    if (displayWidth / naturalHeight > viewWidth / available) {
        rect.width = viewWidth;
        rect.height = viewWidth * naturalHeight / displayWidth;
    } else {
        rect.width = available * displayWidth / naturalHeight;
        rect.height = available;
    }
    rect.x = (viewWidth - rect.width) / 2;
    rect.height += movieControlBarHeight;
    return rect;
}

QSizeF viewerWindowSize(const QSizeF& proposed, const QSizeF& natural, double windowHeight,
                        const QSizeF& movieBounds) {
    if (movieBounds.isEmpty() || natural.isEmpty()) {
        return proposed;
    }
    const double shape = natural.width() / natural.height();
    const double chrome = windowHeight - movieBounds.height();
    if (shape > proposed.width() / proposed.height()) {
        return {proposed.width(), proposed.width() / shape + chrome};
    }
    return {(proposed.height() - chrome) * shape, proposed.height()};
}

}  // namespace marquill
