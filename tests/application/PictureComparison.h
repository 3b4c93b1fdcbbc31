// How far two pictures of a window differ, as a person would say it: fine differences, as another version of
// the font renderer makes them, count little; what was moved, left out or coloured anew counts.
#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace marquill {

struct PictureDifference {
    bool isOfOtherSize = false;
    int cells = 0;      ///< squares of `cellSize` pixels whose mean colour differs
    QImage cellsShown;  ///< the new picture, with those cells in red

    /// A window whose looks were changed differs in more cells than a caret or a hairline covers.
    bool isVisible() const { return isOfOtherSize || cells > 6; }
};

inline constexpr int cellSize = 4;
inline constexpr int leastDifference = 24;  ///< of 255, in one colour of a cell's mean

inline PictureDifference pictureDifference(const QImage& before, const QImage& after) {
    PictureDifference difference;
    if (before.size() != after.size()) {
        difference.isOfOtherSize = true;
        difference.cellsShown = after;
        return difference;
    }
    const QSize cells((before.width() + cellSize - 1) / cellSize,
                      (before.height() + cellSize - 1) / cellSize);
    const auto means = [&cells](const QImage& image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage a = means(before);
    const QImage b = means(after);
    difference.cellsShown = after.convertToFormat(QImage::Format_RGB32);
    difference.cellsShown.setDevicePixelRatio(1);
    for (int y = 0; y < cells.height(); ++y) {
        for (int x = 0; x < cells.width(); ++x) {
            const QRgb one = a.pixel(x, y);
            const QRgb other = b.pixel(x, y);
            const int most =
                std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                          std::abs(qBlue(one) - qBlue(other))});
            if (most >= leastDifference) {
                ++difference.cells;
                for (int i = 0; i < cellSize * cellSize; ++i) {
                    const QPoint pixel(x * cellSize + i % cellSize, y * cellSize + i / cellSize);
                    if (difference.cellsShown.valid(pixel)) {
                        difference.cellsShown.setPixel(pixel, qRgb(255, 0, 0));
                    }
                }
            }
        }
    }
    return difference;
}

}  // namespace marquill
