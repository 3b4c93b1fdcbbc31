// The window of the manual: its pages at the left, the one that is read at the right. Owned by the
// application object; main thread.
#pragma once

#include "application/ManualPages.h"

#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace marquill {

class ManualBrowser;

class ManualWindow : public QWidget {
    Q_OBJECT

  public:
    explicit ManualWindow(const std::vector<ManualPage>& pages);

    ManualBrowser& browser() { return *_browser; }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* newHeader();
    void setUpPages();
    void showSelectedPage();
    void selectShownPage(const QUrl& page);
    void find();

    std::vector<ManualPage> _pages;
    QListWidget* _list;
    ManualBrowser* _browser;
    QPushButton* _back;
    QPushButton* _forward;
    QLineEdit* _find;
};

}  // namespace marquill
