// Watches a window and tells when its place, size or visibility, having changed, has come to rest: the moment
// to save them, so that a crash does not cost them. Belongs to whoever saves; main thread.
#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace marquill {

class RestingWindow : public QObject {
    Q_OBJECT

  public:
    /// Watches `window` from now on.
    explicit RestingWindow(QWidget& window);

  Q_SIGNALS:
    void cameToRest();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QTimer _rest;
};

}  // namespace marquill
