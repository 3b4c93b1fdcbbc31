// The program's commands: each is declared once, in a table, and the menus are built from it. Main thread.
#pragma once

#include "platform/Literals.h"

#include <QKeySequence>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace marquill {

struct ActionDescription {
    QString id;  ///< stable; the object name of its QAction, e.g. "showHideMarkerWindow"
    /// The title of the menu it stands in, before translation; a submenu's behind its menu's:
    /// "&File/&Export".
    QString menu;
    QString text;  ///< what it does; its title, where validateMenuItem sets no other
    QKeySequence shortcut;
    std::function<void()> run;
    bool lineAbove = false;
};

class ActionTable : public QObject {
    Q_OBJECT

  public:
    /// `validate` is called for every action before a menu shows it: it sets its title and enables it.
    ActionTable(std::vector<ActionDescription> descriptions, std::function<void(QAction&)> validate);

    /// Adds one menu per menu title, in the order of the table; a submenu stands where its first command
    /// does.
    void buildMenus(QMenuBar& menuBar);
    /// Adds the actions of the menu titled `menu` to `target`, those of its submenus left out.
    void addActions(const QString& menu, QMenu& target);
    /// Validates every action now, so that shortcuts follow the program's state too.
    void validate();

    QAction* action(const QString& id) const;
    /// What a menu is called in the user's language; `menu` as in a description.
    static QString menuTitle(const QString& menu);
    const std::vector<ActionDescription>& descriptions() const { return _descriptions; }

  private:
    QMenu& menuTitled(const QString& path, QMenuBar& menuBar);
    void addAction(size_t index, QMenu& menu);
    void validateWhenShown(QMenu& menu);

    std::vector<ActionDescription> _descriptions;
    std::function<void(QAction&)> _validate;
    std::vector<QAction*> _actions;  // one per description, owned by this
};

}  // namespace marquill
