#include "platform/RestingWindow.h"

#include <QEvent>
#include <QWidget>

namespace marquill {

namespace {
constexpr std::chrono::seconds restInterval(1);
}  // namespace

RestingWindow::RestingWindow(QWidget& window) {
    _rest.setSingleShot(true);
    _rest.setInterval(restInterval);
    connect(&_rest, &QTimer::timeout, this, &RestingWindow::cameToRest);
    window.installEventFilter(this);
}

bool RestingWindow::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show || type == QEvent::Hide) {
        _rest.start();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace marquill
