#include "application/Options.h"

#include "commandline/CommandLine.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>

namespace marquill {

namespace {
constexpr int wrongUse = 2;
}  // namespace

OptionsResult parseOptions(int& argc, char** argv) {
    CLI::App parser("Marquill logs video shots while they are filmed.", "marquill");
    std::string settingsFile;
    std::optional<Theme::Choice> theme;
    bool demo = false;
    bool exitAfterFirstPaint = false;
    const std::map<std::string, Theme::Choice> themes{{"system", Theme::Choice::followSystem},
                                                      {"dark", Theme::Choice::dark},
                                                      {"light", Theme::Choice::light}};
    parser.set_version_flag("--version", "marquill " MARQUILL_VERSION);
    parser.add_option("--settings", settingsFile, "Keep the settings in this file instead of the user's own")
        ->type_name("FILE");
    parser.add_option("--theme", theme, "Colours of the windows: system, dark or light")
        ->transform(CLI::CheckedTransformer(themes).description(""))
        ->type_name("NAME");
    parser.add_flag("--demo", demo,
                    "Open a small sample shoot, made anew at every start, with settings of its own");
    parser.add_flag("--exit-after-first-paint", exitAfterFirstPaint,
                    "Quit when the main window has been painted, to measure how long a start takes");
    CommandLine commands(parser);
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return {{}, parser.exit(error) == 0 ? 0 : wrongUse};
    }
    if (const std::optional<int> status = commands.run(argc, argv, QString::fromStdString(settingsFile))) {
        return {{}, status};
    }
    return {{.settingsFile = QString::fromStdString(settingsFile),
             .theme = theme,
             .demo = demo,
             .exitAfterFirstPaint = exitAfterFirstPaint},
            std::nullopt};
}

}  // namespace marquill
