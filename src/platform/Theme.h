// How the program looks: a dark and a light theme, their colours, the fonts of times, and the grid. One theme
// is in use by the whole application. Main thread.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QApplication;
class QWidget;

namespace marquill {

/// The colours of one theme. Every text colour stands out from every background it is used on by at least 4.5
/// to 1, the disabled one excepted.
struct ThemeColours {
    QColor window;     ///< behind panels and tool bars
    QColor base;       ///< behind lists and fields
    QColor alternate;  ///< behind every other row
    QColor text;
    QColor mutedText;  ///< headers, hints, what is offline
    QColor disabledText;
    QColor button;
    QColor buttonHover;
    QColor buttonPressed;
    QColor border;     ///< around fields and buttons
    QColor separator;  ///< between rows
    QColor scrollHandle;
    QColor selection;  ///< behind selected text and menu items
    QColor selectionText;
    QColor rowSelection;       ///< behind selected rows: pale enough for pictures; its text is `text`
    QColor inactiveSelection;  ///< the same in a list without the keyboard
    QColor focus;              ///< the ring around the control with the keyboard
    QColor accent;             ///< behind a highlighted marker button
    QColor accentPressed;
    QColor accentText;
    QColor recording;  ///< text and marks that say a take is being recorded
    QColor warning;    ///< text and marks that say something needs attention
};

class Theme {
  public:
    enum class Choice { followSystem, dark, light };

    /// Gives the application the style, palette and style sheet of the theme. With `followSystem` it is the
    /// one that the desktop prefers, and follows it when that changes; a desktop without a preference gets
    /// the theme nearest to its own palette.
    static void apply(QApplication& application, Choice choice);

    /// Whether the theme in use is the dark one.
    static bool isDark();
    /// The colours of the theme in use.
    static const ThemeColours& colours();
    static const ThemeColours& darkColours();
    static const ThemeColours& lightColours();
    static QPalette palette(const ThemeColours& colours);

    /// Lights a marker button, or puts it out: sets its property "highlighted" and paints it anew.
    static void setHighlighted(QWidget& button, bool highlighted);

    /// A font whose digits are all equally wide, so that a running time stands still; in points.
    static QFont timeFont(double pointSize);
    /// The font of the shot clock, which is read from two metres away.
    static QFont shotClockFont();

    // The grid, in logical pixels: distances are whole multiples of it, or half of it between what belongs
    // together.
    static constexpr int grid = 8;
    static constexpr int halfGrid = 4;
    static constexpr int windowMargin = 2 * grid;
    static constexpr int groupSpacing = 2 * grid;
    static constexpr int shotClockPixels = 56;  ///< height of the shot clock's font
};

}  // namespace marquill
