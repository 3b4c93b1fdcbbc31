// The application's delegate: it forwards the quit question. Main thread.
#pragma once

namespace marquill {

class Application;

class ApplicationController {
  public:
    explicit ApplicationController(Application& app) : _app(app) {}

    /// Whether the program may quit now.
    bool applicationShouldTerminate();

  private:
    Application& _app;
};

}  // namespace marquill
