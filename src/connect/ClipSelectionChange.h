// Part of ClipTableController. Main thread.
#pragma once

#include "connect/ClipTableController.h"

#include <utility>

namespace marquill {

/// Tells a change of the selection once, however many steps it is made of, and only when the table is as it
/// shall be; a quiet one, whose steps leave the selected clips the same, tells nothing.
class ClipTableController::SelectionChange {
  public:
    enum class Kind { told, quiet };

    explicit SelectionChange(ClipTableController& controller, Kind kind = Kind::told)
        : _controller(controller), _kind(kind), _before(controller._selectionChanged) {
        ++_controller._selectionChanges;
    }
    SelectionChange(const SelectionChange&) = delete;
    SelectionChange& operator=(const SelectionChange&) = delete;
    ~SelectionChange() {
        if (_kind == Kind::quiet) {
            _controller._selectionChanged = _before;
        }
        if (--_controller._selectionChanges == 0 && std::exchange(_controller._selectionChanged, false)) {
            _controller.tableViewSelectionDidChange();
        }
    }

  private:
    ClipTableController& _controller;
    Kind _kind;
    bool _before;
};

}  // namespace marquill
