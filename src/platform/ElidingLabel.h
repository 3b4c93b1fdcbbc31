// A line of text, such as a path, that is shortened in its middle when it is wider than its place. The whole
// of it is what text() and screen readers give, and its tool tip. Main thread.
#pragma once

#include <QLabel>

namespace marquill {

class ElidingLabel : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QSize sizeForWidth(int textWidth) const;
};

}  // namespace marquill
