#include "platform/CommandButton.h"

#include "platform/Literals.h"

#include <QAction>
#include <QPushButton>

namespace marquill {

namespace {

QString toolTipOf(const QAction& command) {
    const QString shortcut = command.shortcut().toString(QKeySequence::NativeText);
    return shortcut.isEmpty() ? command.text() : u"%1 (%2)"_s.arg(command.text(), shortcut);
}

}  // namespace

void bindButton(QPushButton& button, QAction& command) {
    QObject::connect(&button, &QPushButton::clicked, &command, &QAction::trigger);
    const auto follow = [&button, &command] {
        button.setEnabled(command.isEnabled());
        button.setToolTip(toolTipOf(command));
    };
    QObject::connect(&command, &QAction::changed, &button, follow);
    follow();
}

}  // namespace marquill
