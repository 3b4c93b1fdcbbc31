// The field in the tool bar of the Clip Manager that clips are searched for in. Owned by the tool bar. Main
// thread.
#pragma once

#include <QKeySequence>
#include <QLineEdit>

namespace marquill {

class ClipSearchField : public QLineEdit {
    Q_OBJECT

  public:
    explicit ClipSearchField(QWidget* parent = nullptr);

    /// Tells the key that leads here in the tool tip.
    void setKey(const QKeySequence& key);
    /// Marks the query as one of which a part has no meaning, and says why; "" when all of it has one.
    void setProblem(const QString& problem);
    const QString& problem() const { return _problem; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The keyboard has come here: a query may follow.
    void entered();
    /// Return or Down: to the clips that were found.
    void confirmed();
    /// Escape: the query is not wanted any more.
    void cancelled();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void showTips();
    QSize sizeFor(int characters) const;

    QKeySequence _key;
    QString _problem;
};

}  // namespace marquill
