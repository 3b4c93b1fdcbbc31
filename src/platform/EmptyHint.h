// What a list says in its empty space while it has no rows. Owned by the list's viewport. Main thread.
#pragma once

#include <QLabel>
#include <QPointer>

class QAbstractItemView;
class QPushButton;

namespace marquill {

class EmptyHint : public QLabel {
    Q_OBJECT

  public:
    /// Shows `text` in the middle of `view` whenever its model, which must be set, has no rows.
    EmptyHint(QAbstractItemView& view, const QString& text);

    /// A button below the text; without a title there is none.
    void setButton(const QString& title);

  Q_SIGNALS:
    void buttonPressed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void followView();

    QAbstractItemView& _view;
    QPointer<QPushButton> _button;  // the viewport's, as clicks pass the text by
};

}  // namespace marquill
