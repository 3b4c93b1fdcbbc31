// Folds a main window to its tool bar and its status line, keeping its top edge, and unfolds it. Owned by the
// window's controller. Main thread.
#pragma once

#include <QMainWindow>
#include <QPointer>

namespace marquill {

class CollapsibleWindow : public QObject {
    Q_OBJECT

  public:
    /// `content` is what a collapsed window hides; a double click on `handle`, which it keeps, folds it and
    /// unfolds it. Both belong to `window`.
    CollapsibleWindow(QMainWindow& window, QWidget& content, QWidget& handle, int collapsedHeight);

    bool isExpanded() const { return _isExpanded; }
    /// The height of the window when it was last expanded.
    int expandedHeight() const { return _expandedHeight; }
    void collapse();
    void expand();
    void toggle();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMainWindow& _window;
    QWidget& _content;
    QWidget& _handle;
    int _collapsedHeight;
    int _expandedHeight = 0;
    int _leastHeight = 0;
    bool _isExpanded = true;
    QPointer<QWidget> _focus;  // had the keyboard when the window was folded
};

}  // namespace marquill
