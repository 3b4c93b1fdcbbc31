// The peer of the start-up measurement: the toolkit's emptiest main window, which ends once it has been
// painted.
#include <QApplication>
#include <QMainWindow>

namespace {

class EmptyWindow : public QMainWindow {
  protected:
    void paintEvent(QPaintEvent* event) override {
        QMainWindow::paintEvent(event);
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    EmptyWindow window;
    window.show();
    return QApplication::exec();
}
