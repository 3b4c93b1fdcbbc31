// A slim bar that tells something once, above the content of a window and in nobody's way: a text, a button
// where there is something to do about it, and one that closes it. Owned by its parent. Main thread.
#pragma once

#include <QFrame>

class QMainWindow;
class QToolButton;
class QPushButton;

namespace marquill {

class ElidingLabel;

class NoticeBar : public QFrame {
    Q_OBJECT

  public:
    /// Without `buttonText` it has no button but the one that closes it.
    explicit NoticeBar(const QString& text, const QString& buttonText = {}, QWidget* parent = nullptr);

    /// Shows one above the content of `window`, whatever that is, in a row of its tool bars. It stays until
    /// dismiss(); a press of one of its buttons dismisses it too.
    static NoticeBar* showIn(QMainWindow& window, const QString& text, const QString& buttonText = {});
    /// Takes a bar that showIn() made away, with its row, on a later turn of the event loop.
    void dismiss();

    QString text() const;
    void setText(const QString& text);
    /// Whether it has a button beside the one that closes it.
    bool hasButton() const { return _button != nullptr; }

  Q_SIGNALS:
    /// The button was pressed. What becomes of the bar then is its owner's to say.
    void buttonPressed();
    /// The user has seen enough of it. Its owner removes it.
    void closed();

  private:
    ElidingLabel* _text = nullptr;
    QPushButton* _button = nullptr;
    QToolButton* _closeButton = nullptr;
};

}  // namespace marquill
