#include "application/ApplicationController.h"

#include "application/Application.h"

namespace marquill {

bool ApplicationController::applicationShouldTerminate() {
    return _app.shouldTerminate() == Application::TerminateReply::now;
}

}  // namespace marquill
