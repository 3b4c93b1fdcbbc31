#include "platform/UndoManager.h"

#include <QMetaObject>

#include <algorithm>

namespace marquill {

UndoManager::UndoManager(QObject* parent) : QObject(parent) {}

void UndoManager::registerUndo(const QObject* target, Operation inverse) {
    watch(target);
    stepForRegistering().entries.push_back(Entry{target, std::move(inverse)});
    if (_mode == Mode::registering) {
        _redoSteps.clear();
    }
    Q_EMIT changed();
}

void UndoManager::setActionName(const QString& name) {
    if (_stepOpen) {
        stepForRegistering().name = name;
        Q_EMIT changed();
    }
}

void UndoManager::closeStep() {
    _stepOpen = false;
}

void UndoManager::undo() {
    closeStep();
    run(_undoSteps, Mode::undoing);
}

void UndoManager::redo() {
    closeStep();
    run(_redoSteps, Mode::redoing);
}

QString UndoManager::undoActionName() const {
    return canUndo() ? _undoSteps.back().name : QString();
}

QString UndoManager::redoActionName() const {
    return canRedo() ? _redoSteps.back().name : QString();
}

QString UndoManager::undoTitle(const QString& actionName) {
    return actionName.isEmpty() ? tr("Undo") : tr("Undo %1").arg(actionName);
}

QString UndoManager::redoTitle(const QString& actionName) {
    return actionName.isEmpty() ? tr("Redo") : tr("Redo %1").arg(actionName);
}

void UndoManager::removeAllActions(const QObject* target) {
    for (std::vector<Step>* steps : {&_undoSteps, &_redoSteps}) {
        for (Step& step : *steps) {
            std::erase_if(step.entries, [target](const Entry& entry) { return entry.target == target; });
        }
        std::erase_if(*steps, [](const Step& step) { return step.entries.empty(); });
    }
    closeStep();
    Q_EMIT changed();
}

void UndoManager::removeAllActions() {
    _undoSteps.clear();
    _redoSteps.clear();
    closeStep();
    Q_EMIT changed();
}

// The step that what is registered now belongs to, opened when there is none.
UndoManager::Step& UndoManager::stepForRegistering() {
    std::vector<Step>& steps = _mode == Mode::undoing ? _redoSteps : _undoSteps;
    if (!_stepOpen || steps.empty()) {
        steps.push_back(Step{{}, _pendingName});
        _stepOpen = true;
        if (_mode == Mode::registering) {
            QMetaObject::invokeMethod(this, &UndoManager::closeStep, Qt::QueuedConnection);
        }
    }
    return steps.back();
}

void UndoManager::run(std::vector<Step>& from, Mode mode) {
    if (from.empty() || _mode != Mode::registering) {
        return;
    }
    Step step = std::move(from.back());
    from.pop_back();
    _mode = mode;
    _pendingName = step.name;
    for (auto entry = step.entries.rbegin(); entry != step.entries.rend(); ++entry) {
        entry->inverse();
    }
    _pendingName.clear();
    _mode = Mode::registering;
    closeStep();
    Q_EMIT changed();
}

void UndoManager::watch(const QObject* target) {
    if (std::ranges::find(_watched, target) != _watched.end()) {
        return;
    }
    _watched.push_back(target);
    connect(target, &QObject::destroyed, this, [this, target] {
        std::erase(_watched, target);
        removeAllActions(target);
    });
}

}  // namespace marquill
