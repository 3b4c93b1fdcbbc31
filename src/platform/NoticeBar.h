// A slim bar that tells something once, above the content of a window and in nobody's way: a text, a button
// where there is something to do about it, and one that closes it. Owned by its parent. Main thread.
#pragma once

#include <QFrame>

class QToolButton;
class QPushButton;

namespace marquill {

class ElidingLabel;

class NoticeBar : public QFrame {
    Q_OBJECT

  public:
    /// Without `buttonText` it has no button but the one that closes it.
    explicit NoticeBar(const QString& text, const QString& buttonText = {}, QWidget* parent = nullptr);

    QString text() const;

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
