#include "clipmanager/ClipManagerToolbar.h"

#include "platform/Images.h"

#include <QAction>

namespace marquill {

ClipManagerToolbar::ClipManagerToolbar(const QList<Item>& items, QWidget* parent)
    : QToolBar(tr("Tool Bar"), parent) {
    setObjectName(u"ClipManagerToolbar"_s);
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // Its context menu would let it be hidden with nothing there to bring it back.
    setContextMenuPolicy(Qt::PreventContextMenu);
    for (const Item& item : items) {
        QAction* action = addAction(symbol(item.identifier), item.label, this, item.action);
        action->setObjectName(item.identifier);
        action->setToolTip(item.toolTip);
    }
}

}  // namespace marquill
