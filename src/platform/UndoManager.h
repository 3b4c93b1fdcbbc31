// Undo and redo for one window. An operation performs its change, registers its inverse and sets an action
// name; undo and redo run the same operations. Main thread.
#pragma once

#include "platform/Literals.h"

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace marquill {

class UndoManager : public QObject {
    Q_OBJECT

  public:
    using Operation = std::function<void()>;

    explicit UndoManager(QObject* parent = nullptr);

    /// Remembers `inverse` as what takes back the change just made by `target`. What is registered within one
    /// turn of the event loop is one undo step, taken back in reverse order. While undo runs, it goes to the
    /// redo step. The entries of a target that is destroyed are dropped.
    void registerUndo(const QObject* target, Operation inverse);
    /// Names the step that is being registered, e.g. "add Marker(s)"; the last name set in a step is the
    /// step's. A step made by undo or redo has the name of the one it reverses unless it sets one, be it the
    /// empty one.
    void setActionName(const QString& name);
    /// Ends the step now, instead of with the turn of the event loop.
    void closeStep();

    void undo();
    void redo();
    bool canUndo() const { return !_undoSteps.empty(); }
    bool canRedo() const { return !_redoSteps.empty(); }
    bool isUndoing() const { return _mode == Mode::undoing; }
    bool isRedoing() const { return _mode == Mode::redoing; }
    /// The name of the step that undo would take back, or "".
    QString undoActionName() const;
    QString redoActionName() const;
    /// What a menu calls undoing the step of that name: "Undo add Label"; "Undo" where it has none.
    static QString undoTitle(const QString& actionName);
    static QString redoTitle(const QString& actionName);

    /// Drops every entry of `target`; steps that become empty go with them.
    void removeAllActions(const QObject* target);
    void removeAllActions();

  Q_SIGNALS:
    /// What can be undone or redone, or its name, has changed.
    void changed();

  private:
    enum class Mode { registering, undoing, redoing };

    struct Entry {
        const QObject* target;
        Operation inverse;
    };

    struct Step {
        std::vector<Entry> entries;
        QString name;
    };

    Step& stepForRegistering();
    void run(std::vector<Step>& from, Mode mode);
    void watch(const QObject* target);

    Mode _mode = Mode::registering;
    bool _stepOpen = false;
    QString _pendingName;
    std::vector<Step> _undoSteps;
    std::vector<Step> _redoSteps;
    std::vector<const QObject*> _watched;
};

}  // namespace marquill
