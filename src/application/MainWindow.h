// The panel class whose key events are offered to the application before the panel handles them. Main thread.
#pragma once

#include "platform/FloatingPanel.h"

namespace marquill {

class Application;

class MainWindow : public FloatingPanel {
    Q_OBJECT

  public:
    using FloatingPanel::FloatingPanel;

    void setApplication(Application* application) { _application = application; }

  protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    Application* _application = nullptr;
};

}  // namespace marquill
