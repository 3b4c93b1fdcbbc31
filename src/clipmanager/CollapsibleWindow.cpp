#include "clipmanager/CollapsibleWindow.h"

#include <QEvent>

namespace marquill {

CollapsibleWindow::CollapsibleWindow(QMainWindow& window, QWidget& content, QWidget& handle,
                                     int collapsedHeight)
    : _window(window), _content(content), _handle(handle), _collapsedHeight(collapsedHeight) {
    handle.installEventFilter(this);
}

bool CollapsibleWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &_handle && event->type() == QEvent::MouseButtonDblClick) {
        toggle();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void CollapsibleWindow::toggle() {
    _isExpanded ? collapse() : expand();
}

void CollapsibleWindow::collapse() {
    if (!_isExpanded) {
        return;
    }
    if (_window.isMaximized() || _window.isFullScreen()) {
        _window.showNormal();
    }
    _isExpanded = false;
    _expandedHeight = _window.height();
    _leastHeight = _window.minimumHeight();
    _focus = _content.isAncestorOf(_window.focusWidget()) ? _window.focusWidget() : nullptr;
    _content.hide();
    _window.setFixedHeight(_collapsedHeight);
}

void CollapsibleWindow::expand() {
    if (_isExpanded) {
        return;
    }
    _isExpanded = true;
    _window.setMinimumHeight(_leastHeight);
    _window.setMaximumHeight(QWIDGETSIZE_MAX);
    _content.show();
    _window.resize(_window.width(), _expandedHeight);
    if (_focus) {
        _focus->setFocus();
    }
}

}  // namespace marquill
