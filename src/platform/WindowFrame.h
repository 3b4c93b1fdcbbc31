// Where a window stands, as the user defaults keep it: measured from the screen's bottom left corner, so that
// "y" is the bottom edge. The one place where that is converted to and from the toolkit's top edge. Main
// thread.
#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace marquill {

/// Logical pixels; `x` and `y` of the bottom left corner from the bottom left corner of the primary screen,
/// `width` and `height` of the window's contents.
struct WindowFrame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const WindowFrame&) const = default;
};

/// Whether `number` can be a place or a size on a screen: finite, and no farther than any screen reaches.
bool isScreenCoordinate(double number);

WindowFrame windowFrame(const QWidget& window);

/// Moves and sizes the window. A frame that lies on no screen is moved onto the primary one; where the window
/// system refuses positions, the size still holds.
void setWindowFrame(QWidget& window, const WindowFrame& frame);

/// Keeps the window's frame in the user defaults under `name`, as the text "x y width height".
void saveWindowFrame(const QWidget& window, const QString& name);

/// Gives the window the frame kept under `name`; false, and nothing moved, when there is none or it is no
/// place on any screen.
bool restoreWindowFrame(QWidget& window, const QString& name);

}  // namespace marquill
