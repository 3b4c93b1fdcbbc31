// How the Clip Manager window was left, as the user defaults keep it under "ClipManagerSettings" beside the
// record folders. Values; main thread.
#pragma once

#include "platform/PropertyList.h"
#include "platform/WindowFrame.h"

namespace marquill {

/// The state of the window.
struct ClipManagerWindowState {
    /// How high the window is while it is collapsed, in units.
    static constexpr double collapsedHeight = 90;

    WindowFrame frame;  ///< as the window stands now
    bool visible = true;
    bool expanded = true;
    double expandedHeight = 0;  ///< what a collapsed window will be high again

    /// The keys "kWind…". Of a collapsed window they tell the frame that it will have when it is expanded,
    /// with the same top edge.
    Dictionary settings() const;
};

namespace ClipManagerSettings {

inline const QString defaultsKey = u"ClipManagerSettings"_s;

/// The frame that `settings` tell; what they lack, or what is no place on a screen, is that of `present`.
WindowFrame frame(const Dictionary& settings, const WindowFrame& present);
/// Whether the window is to be shown; it is when they do not tell.
bool isVisible(const Dictionary& settings);
/// Whether the day's takes are to be shown along its hours; they are when the settings do not tell.
bool isDayStripVisible(const Dictionary& settings);
void setDayStripVisible(Dictionary& settings, bool isVisible);
/// Whether the table is to show the clips' movies as pictures; it does not when the settings do not tell.
bool arePicturesVisible(const Dictionary& settings);
void setPicturesVisible(Dictionary& settings, bool areVisible);

/// What the user defaults hold; empty when there is nothing.
Dictionary saved();
/// Stores them in the user defaults, and these in their file.
void save(const Dictionary& settings);

}  // namespace ClipManagerSettings

/// Where a divider that was dragged to `proposed` comes to stand in a split view that is `height` high: 64
/// below its top at least; else so that 120 stay below it.
double constrainedSplitPosition(double proposed, double height);

}  // namespace marquill
