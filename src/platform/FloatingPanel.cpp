#include "platform/FloatingPanel.h"

#include "platform/AccessibleRole.h"

#include <QCloseEvent>
#include <QWindow>

namespace marquill {

FloatingPanel::FloatingPanel(QWidget* parent) : QWidget(parent) {
    installAccessibleRoles();
    setWindowFlags(Qt::Tool | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                   Qt::CustomizeWindowHint | Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    // Where such windows go when another program comes to the front, they stay.
    setAttribute(Qt::WA_MacAlwaysShowToolWindow);
}

void FloatingPanel::makeKeyAndOrderFront() {
    show();
    acceptKeyboard(true);
    raise();
    activateWindow();
}

void FloatingPanel::setHiddenWithMainWindow(bool hidden) {
    if (hidden && isVisible()) {
        hide();
        _hiddenWithMainWindow = true;
    } else if (!hidden && _hiddenWithMainWindow) {
        // Window managers may have minimised it with the main window, and would do so with both again.
        setWindowState(windowState() & ~Qt::WindowMinimized);
        show();
    }
}

void FloatingPanel::focusField(QWidget& field) {
    if (auto* panel = qobject_cast<FloatingPanel*>(field.window())) {
        panel->acceptKeyboard(true);
        panel->activateWindow();
    }
    field.setFocus(Qt::OtherFocusReason);
}

bool FloatingPanel::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) {
        acceptKeyboard(false);
    }
    return QWidget::event(event);
}

void FloatingPanel::showEvent(QShowEvent* event) {
    for (QWidget* child : findChildren<QWidget*>()) {
        if (child->focusPolicy() & Qt::ClickFocus) {
            child->installEventFilter(this);
        }
    }
    _hiddenWithMainWindow = false;
    QWidget::showEvent(event);
}

void FloatingPanel::closeEvent(QCloseEvent* event) {
    event->setAccepted(!windowShouldClose || windowShouldClose());
}

bool FloatingPanel::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::MouseButtonPress && field && field->window() == this) {
        focusField(*field);
    }
    return QWidget::eventFilter(watched, event);
}

// The window flag is changed on the window itself: setting it on the widget would hide and remake the panel.
void FloatingPanel::acceptKeyboard(bool accepts) {
    if (QWindow* window = windowHandle()) {
        window->setFlag(Qt::WindowDoesNotAcceptFocus, !accepts);
    }
}

void makeKeyAndOrderFront(QWidget& window) {
    if (auto* panel = qobject_cast<FloatingPanel*>(&window)) {
        panel->makeKeyAndOrderFront();
        return;
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace marquill
