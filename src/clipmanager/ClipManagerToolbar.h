// The tool bar of the Clip Manager window, built from a list of items. Owned by the window. Main thread.
#pragma once

#include <QToolBar>

#include <functional>

namespace marquill {

class ClipManagerToolbar : public QToolBar {
    Q_OBJECT

  public:
    /// One item; its drawing bears its identifier.
    struct Item {
        QString identifier;
        QString label;
        QString toolTip;
        std::function<void()> action;
    };

    /// With these items in this order.
    ClipManagerToolbar(const QList<Item>& items, QWidget* parent);

    /// The item of that identifier, or null.
    QAction* item(const QString& identifier) const { return findChild<QAction*>(identifier); }
};

}  // namespace marquill
