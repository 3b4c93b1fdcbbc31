#include "application/ActionTable.h"

#include <QAction>
#include <QCoreApplication>
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
    for (size_t i = 0; i < _actions.size(); ++i) {
        addAction(i, menuTitled(_descriptions[i].menu, menuBar));
    }
}

void ActionTable::addActions(const QString& menu, QMenu& target) {
    for (size_t i = 0; i < _actions.size(); ++i) {
        if (_descriptions[i].menu == menu) {
            addAction(i, target);
        }
    }
    validateWhenShown(target);
}

// The menu of that path, made where it is not there yet.
QMenu& ActionTable::menuTitled(const QString& path, QMenuBar& menuBar) {
    if (auto* menu = menuBar.findChild<QMenu*>(path)) {
        return *menu;
    }
    const qsizetype slash = path.lastIndexOf(u'/');
    const QString title = menuTitle(path);
    QMenu* menu = slash < 0 ? menuBar.addMenu(title) : menuTitled(path.left(slash), menuBar).addMenu(title);
    menu->setObjectName(path);
    validateWhenShown(*menu);
    return *menu;
}

QString ActionTable::menuTitle(const QString& menu) {
    const QByteArray title = menu.mid(menu.lastIndexOf(u'/') + 1).toUtf8();
    return QCoreApplication::translate("ApplicationMenus", title.constData());
}

void ActionTable::addAction(size_t index, QMenu& menu) {
    if (_descriptions[index].lineAbove && !menu.isEmpty()) {
        menu.addSeparator();
    }
    menu.addAction(_actions[index]);
}

void ActionTable::validateWhenShown(QMenu& menu) {
    connect(&menu, &QMenu::aboutToShow, this, &ActionTable::validate);
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
