#include "application/FirstArrangement.h"

#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace marquill {

namespace {

constexpr int margin = 16;
constexpr int titleBar = 40;  // room for what the desktop draws above a window
constexpr QSize mainSize(1280, 860);

bool isFirstStart() {
    const UserDefaults& defaults = UserDefaults::standard();
    const std::optional<Value> saved = defaults.value(u"ClipManagerSettings"_s);
    const Dictionary settings = saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    return !settings.find(u"kWindPosX"_s) && !defaults.value(u"kMarkerWindowFrame"_s) &&
           !defaults.value(u"kOfflineRecorderWindowFrame"_s);
}

int widthOfWidest(const std::vector<QWidget*>& panels) {
    int widest = 0;
    for (const QWidget* panel : panels) {
        widest = qMax(widest, panel ? panel->width() : 0);
    }
    return widest;
}

}  // namespace

void arrangeAtFirstStart(QWidget& main, const std::vector<QWidget*>& panels) {
    if (!isFirstStart()) {
        return;
    }
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int panelWidth = widthOfWidest(panels);
    // A narrow screen has no width to give away around the windows.
    const int spare = screen.width() - panelWidth - main.minimumSizeHint().width();
    const int gap = qBound(0, spare / 3, margin);
    const QSize room(screen.width() - panelWidth - 3 * gap, screen.height() - titleBar - margin);
    main.resize(mainSize.boundedTo(room).expandedTo(main.minimumSizeHint()));
    main.move(screen.x() + gap, screen.y() + titleBar);
    const int beside = main.x() + main.width() + gap;
    int top = main.y();
    for (QWidget* panel : panels) {
        if (panel) {
            // On a screen too narrow for both, the panels, which float above, cover the main window's edge,
            // each as little of it as it can.
            const int rightmost = screen.x() + screen.width() - panel->width() - gap;
            panel->move(qMin(beside, rightmost), top);
            top += panel->height() + titleBar + margin;
        }
    }
}

}  // namespace marquill
