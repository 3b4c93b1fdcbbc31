// A small window that floats above the main one and leaves it the keyboard: a click on a button in it does
// not take the focus away. It takes the keyboard only when it is made key, or when a text field in it is
// clicked. Main thread.
#pragma once

#include <QWidget>

#include <functional>

namespace marquill {

class FloatingPanel : public QWidget {
    Q_OBJECT

  public:
    explicit FloatingPanel(QWidget* parent = nullptr);

    /// Shows the panel in front and gives it the keyboard.
    void makeKeyAndOrderFront();

    /// Hides an open panel while the main window is minimised, which a panel cannot be, and brings it back.
    void setHiddenWithMainWindow(bool hidden);
    /// Whether the user has the panel open: it is visible, or hidden only with the main window.
    bool isOpen() const { return isVisible() || _hiddenWithMainWindow; }

    /// Gives `field` the focus, and the keyboard to the panel it is in, if it is in one.
    static void focusField(QWidget& field);

    /// Asked before the panel is closed (not when it is hidden); false keeps it open. When unset, it may be
    /// closed.
    std::function<bool()> windowShouldClose;

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void acceptKeyboard(bool accepts);

    bool _hiddenWithMainWindow = false;
};

/// Shows any window in front with the keyboard, also one that is minimised.
void makeKeyAndOrderFront(QWidget& window);

}  // namespace marquill
