#include "platform/AccessibleRole.h"

#include "platform/Literals.h"
#include "platform/MovieView.h"

#include <QAccessibleWidget>

namespace marquill {

namespace {

// Asked for each class of the object in turn, the one that it is derived from last.
QAccessibleInterface* accessibleWidget(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && className == QLatin1StringView(MovieView::staticMetaObject.className())) {
        return new QAccessibleWidget(widget, QAccessible::Animation);
    }
    if (widget && widget->isWindow() && className == "QWidget"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

void installAccessibleRoles() {
    static const bool installed = [] {
        QAccessible::installFactory(&accessibleWidget);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace marquill
