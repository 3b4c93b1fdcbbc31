#include "application/FirstArrangement.h"

#include "platform/Literals.h"
#include "platform/UserDefaults.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace marquill {

namespace {

constexpr int margin = 24;
constexpr int titleBar = 40;  // room for what the desktop draws above a window
constexpr int mainHeight = 640;

bool isFirstStart() {
    const UserDefaults& defaults = UserDefaults::standard();
    return !defaults.value(u"ClipManagerSettings"_s) && !defaults.value(u"kMarkerWindowFrame"_s) &&
           !defaults.value(u"kOfflineRecorderWindowFrame"_s);
}

}  // namespace

void arrangeAtFirstStart(QWidget& main, const std::vector<QWidget*>& panels) {
    if (!isFirstStart()) {
        return;
    }
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    int panelWidth = 0;
    for (const QWidget* panel : panels) {
        panelWidth = qMax(panelWidth, panel ? panel->width() : 0);
    }
    const int top = screen.y() + titleBar;
    const int mainWidth = qMin(main.width(), screen.width() - panelWidth - 3 * margin);
    main.resize(mainWidth, qMin(mainHeight, screen.height() - 2 * titleBar));
    main.move(screen.x() + margin, top);
    int panelTop = top;
    for (QWidget* panel : panels) {
        if (panel) {
            panel->move(main.x() + main.width() + margin, panelTop);
            panelTop += panel->height() + titleBar + margin;
        }
    }
}

}  // namespace marquill
