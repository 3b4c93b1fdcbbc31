#include "application/Application.h"
#include "application/Options.h"

int main(int argc, char** argv) {
    const marquill::OptionsResult options = marquill::parseOptions(argc, argv);
    if (options.exitStatus) {
        return *options.exitStatus;
    }
    marquill::Application application(argc, argv, options.options);
    application.finishLaunching();
    return marquill::Application::exec();
}
