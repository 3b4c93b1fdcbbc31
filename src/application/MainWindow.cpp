#include "application/MainWindow.h"

#include "application/Application.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace marquill {

// The application is asked here and not in keyPressEvent: by then the toolkit has turned Tab into a change of
// focus.
bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && _application && _application->keyDown(*event)) {
        event->accept();
        return true;
    }
    return FloatingPanel::event(event);
}

void MainWindow::contextMenuEvent(QContextMenuEvent* event) {
    if (_application) {
        _application->contextMenu().popup(event->globalPos());
    }
}

}  // namespace marquill
