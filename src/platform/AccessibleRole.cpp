#include "platform/AccessibleRole.h"

#include "platform/Literals.h"
#include "platform/MovieView.h"

#include <QAccessibleWidget>
#include <QLabel>

namespace marquill {

namespace {

// A text that changes and says by its name what it is. Qt's own would tell the name alone, never the text.
class NamedText : public QAccessibleWidget {
  public:
    explicit NamedText(QLabel& label) : QAccessibleWidget(&label, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override {
        const QString text = static_cast<const QLabel*>(widget())->text();
        const QString said = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && !text.isEmpty() ? u"%1: %2"_s.arg(said, text) : said;
    }
};

// Asked for each class of the object in turn, the one that it is derived from last.
QAccessibleInterface* accessibleWidget(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && className == QLatin1StringView(MovieView::staticMetaObject.className())) {
        return new QAccessibleWidget(widget, QAccessible::Animation);
    }
    auto* label = qobject_cast<QLabel*>(object);
    if (label && className == "QLabel"_L1 && !label->accessibleName().isEmpty()) {
        return new NamedText(*label);
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
