// What a list says in its empty space while it has no rows. Owned by the list's viewport. Main thread.
#pragma once

#include <QLabel>

class QAbstractItemView;

namespace marquill {

class EmptyHint : public QLabel {
    Q_OBJECT

  public:
    /// Shows `text` in the middle of `view` whenever its model, which must be set, has no rows.
    EmptyHint(QAbstractItemView& view, const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void followView();

    QAbstractItemView& _view;
};

}  // namespace marquill
