#include "platform/WindowFrame.h"

#include "platform/Literals.h"
#include "platform/UserDefaults.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace marquill {

namespace {

int screenBottom() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return screen.y() + screen.height();
}

// The part of a title bar that must be on a screen for a hand to get hold of the window.
constexpr int graspWidth = 40;
constexpr int graspHeight = 16;

bool canBeGrasped(const QRect& window) {
    const QRect titleBar(window.x(), window.y(), window.width(), graspHeight);
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect visible = screen->availableGeometry().intersected(titleBar);
        if (visible.width() >= qMin(graspWidth, window.width()) && visible.height() > 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool isScreenCoordinate(double number) {
    constexpr double farthest = 1e5;
    return std::abs(number) <= farthest;
}

// Of the contents, without what the window system draws around them.
WindowFrame windowFrame(const QWidget& window) {
    const QRect contents = window.geometry();
    return {double(contents.x()), double(screenBottom() - contents.y() - contents.height()),
            double(contents.width()), double(contents.height())};
}

void setWindowFrame(QWidget& window, const WindowFrame& frame) {
    const QSize size = QSize(qRound(frame.width), qRound(frame.height))
                           .expandedTo(window.minimumSize())
                           .boundedTo(window.maximumSize());
    const QRect wanted(QPoint(qRound(frame.x), screenBottom() - qRound(frame.y) - size.height()), size);
    if (canBeGrasped(wanted)) {
        window.setGeometry(wanted);
    } else {
        window.resize(size);
        window.move(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
    }
}

void saveWindowFrame(const QWidget& window, const QString& name) {
    const WindowFrame frame = windowFrame(window);
    UserDefaults::standard().setValue(
        name, u"%1 %2 %3 %4"_s.arg(frame.x).arg(frame.y).arg(frame.width).arg(frame.height));
}

bool restoreWindowFrame(QWidget& window, const QString& name) {
    const std::optional<Value> saved = UserDefaults::standard().value(name);
    const QStringList numbers = saved ? saved->string().value_or(QString()).split(u' ') : QStringList();
    if (numbers.size() != 4) {
        return false;
    }
    const WindowFrame frame{numbers[0].toDouble(), numbers[1].toDouble(), numbers[2].toDouble(),
                            numbers[3].toDouble()};
    const std::initializer_list<double> coordinates{frame.x, frame.y, frame.width, frame.height};
    if (!(frame.width > 0) || !(frame.height > 0) || !std::ranges::all_of(coordinates, isScreenCoordinate)) {
        return false;
    }
    setWindowFrame(window, frame);
    return true;
}

}  // namespace marquill
