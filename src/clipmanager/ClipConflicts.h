// Asks about clips that were changed here and by others in the same place: a notice above the window's
// content names the first of them, and its button shows both sides. During a take nothing comes up. Owned by
// ClipManager. Main thread.
#pragma once

#include "clipstore/ClipMerge.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QMainWindow;

namespace marquill {

class ClipWriter;
class NoticeBar;

class ClipConflicts : public QObject {
    Q_OBJECT

  public:
    /// Both outlive it.
    ClipConflicts(QMainWindow& window, ClipWriter& writer);

    /// What both sides have, a line for each key.
    static QString textFor(const std::vector<ClipConflict>& conflicts);

  private:
    void update();
    void ask();
    void dismiss();

    QMainWindow& _window;
    ClipWriter& _writer;
    QPointer<NoticeBar> _notice;
    QTimer _updates;              // once what happens in one turn of the event loop is over
    bool _isAsking = false;       // the question is open
    std::size_t _closedWith = 0;  // how many the user will see to later, or at quitting
};

}  // namespace marquill
