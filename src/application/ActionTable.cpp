#include "application/ActionTable.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace marquill {

ActionTable::ActionTable(std::vector<ActionDescription> descriptions,
                         std::function<void(QAction&)> validateAction)
    : _descriptions(std::move(descriptions)), _validate(std::move(validateAction)) {
    for (const ActionDescription& description : _descriptions) {
        auto* action = new QAction(description.text, this);
        action->setObjectName(description.id);
        action->setShortcut(description.shortcut);
        action->setShortcutContext(Qt::ApplicationShortcut);
        // Menus are where this program's commands stand on every platform; none moves by itself.
        action->setMenuRole(QAction::NoRole);
        connect(action, &QAction::triggered, this, [this, run = description.run] {
            run();
            validate();
        });
        _actions.push_back(action);
    }
}

void ActionTable::buildMenus(QMenuBar& menuBar) {
    QStringList titles;
    for (const ActionDescription& description : _descriptions) {
        if (titles.contains(description.menu)) {
            continue;
        }
        titles.append(description.menu);
        QMenu* menu = menuBar.addMenu(description.menu);
        menu->setObjectName(description.menu);
        addActions(description.menu, *menu);
    }
}

void ActionTable::addActions(const QString& menu, QMenu& target) {
    for (size_t i = 0; i < _actions.size(); ++i) {
        if (_descriptions[i].menu != menu) {
            continue;
        }
        if (_descriptions[i].lineAbove && !target.isEmpty()) {
            target.addSeparator();
        }
        target.addAction(_actions[i]);
    }
    connect(&target, &QMenu::aboutToShow, this, &ActionTable::validate);
}

void ActionTable::validate() {
    for (QAction* action : _actions) {
        _validate(*action);
    }
}

QAction* ActionTable::action(const QString& id) const {
    for (QAction* action : _actions) {
        if (action->objectName() == id) {
            return action;
        }
    }
    return nullptr;
}

}  // namespace marquill
