#include "application/Options.h"

#include "commandline/Command.h"
#include "commandline/CommandLine.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Translations.h"

#include <QCoreApplication>
#include <QDir>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace marquill {

namespace {

constexpr int wrongUse = 2;
constexpr std::string_view languageOption = "--language";

struct OptionTexts {
    Q_DECLARE_TR_FUNCTIONS(Options)
};

std::string text(const QString& translated) {
    return translated.toStdString();
}

// Help is to be in the language that the same command line asks for, so this option is read before all
// others.
QString languageAsked(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == languageOption && i + 1 < argc) {
            return QString::fromLocal8Bit(argv[i + 1]);
        }
        if (argument.starts_with(languageOption) && argument.substr(languageOption.size()).starts_with('=')) {
            return QString::fromLocal8Bit(argument.substr(languageOption.size() + 1));
        }
    }
    return {};
}

std::vector<std::string> languageCodes() {
    std::vector<std::string> codes;
    for (const QString& language : Translations::languages()) {
        codes.push_back(language.toStdString());
    }
    return codes;
}

// The library's own words in a help text. What it says of wrong use stays English.
void translateHelp(CLI::App& parser) {
    const std::pair<std::string, QString> labels[] = {{"Usage", OptionTexts::tr("Usage")},
                                                      {"OPTIONS", OptionTexts::tr("OPTIONS")},
                                                      {"SUBCOMMAND", OptionTexts::tr("SUBCOMMAND")},
                                                      {"REQUIRED", OptionTexts::tr("REQUIRED")},
                                                      {"Positionals", OptionTexts::tr("Positionals")}};
    for (const auto& [label, translated] : labels) {
        parser.get_formatter()->label(label, text(translated));
    }
    parser.option_defaults()->group(text(OptionTexts::tr("Options")));
    parser.set_help_flag("-h,--help", text(OptionTexts::tr("Print this help message and exit")));
    parser.set_version_flag("--version", "marquill " MARQUILL_VERSION,
                            text(OptionTexts::tr("Display program version information and exit")));
}

// What begins like a command and is none is no file by mere chance: it is told at once, without a window.
std::string checkPath(const std::string& argument) {
    if (fileExists(pathOfArgument(argument))) {
        return {};
    }
    const QString path = QString::fromStdString(argument);
    return text(
        QCoreApplication::translate("Options", "%1: no such file or folder, nor a command").arg(path));
}

QStringList fullPaths(const std::vector<std::string>& arguments) {
    QStringList paths;
    for (const std::string& argument : arguments) {
        paths.append(QDir::cleanPath(pathOfArgument(argument)));
    }
    return paths;
}

void refusePathsOfCommand(const CLI::App& parser, const std::vector<std::string>& paths) {
    if (!parser.get_subcommands().empty() && !paths.empty()) {
        throw CLI::ExtrasError(paths);
    }
}

struct Read {
    Options options;
    std::string settingsFile;
    std::string language;
    std::vector<std::string> paths;
};

void addOptions(CLI::App& parser, Read& read) {
    const std::map<std::string, Theme::Choice> themes{{"system", Theme::Choice::followSystem},
                                                      {"dark", Theme::Choice::dark},
                                                      {"light", Theme::Choice::light}};
    parser
        .add_option("--settings", read.settingsFile,
                    text(OptionTexts::tr("Keep the settings in this file instead of the user's own")))
        ->type_name("FILE");
    parser
        .add_option("--theme", read.options.theme,
                    text(OptionTexts::tr("Colours of the windows: system, dark or light")))
        ->transform(CLI::CheckedTransformer(themes).description(""))
        ->type_name("NAME");
    parser
        .add_option(std::string(languageOption), read.language,
                    text(OptionTexts::tr("Language of all texts: %1; otherwise the desktop's")
                             .arg(Translations::languages().join(u", "_s))))
        ->check(CLI::IsMember(languageCodes()).description(""))
        ->type_name("CODE");
    parser.add_flag("--demo", read.options.demo,
                    text(OptionTexts::tr(
                        "Open a small sample shoot, made anew at every start, with settings of its own")));
    parser.add_flag("--exit-after-first-paint", read.options.exitAfterFirstPaint,
                    text(OptionTexts::tr(
                        "Quit when the main window has been painted, to measure how long a start takes")));
    parser.add_option("PATH", read.paths, text(OptionTexts::tr("Folders, movies and clips to open")))
        ->check(checkPath)
        ->type_name("");
}

// Whether windows can be shown at all. Without this the toolkit would abort, and advise to install anew.
bool hasDesktop() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const auto names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::ranges::any_of(names, [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
#else
    return true;
#endif
}

}  // namespace

OptionsResult parseOptions(int& argc, char** argv) {
    QCoreApplication::setApplicationVersion(QStringLiteral(MARQUILL_VERSION));
    // Only an application has translations; the one with windows is made when this one is gone.
    std::optional<QCoreApplication> application;
    if (!QCoreApplication::instance()) {
        application.emplace(argc, argv);
    }
    Translations::install(languageAsked(argc, argv));
    CLI::App parser(text(OptionTexts::tr("Marquill logs video shots while they are filmed.")), "marquill");
    translateHelp(parser);
    Read read;
    addOptions(parser, read);
    CommandLine commands(parser);
    try {
        parser.parse(argc, argv);
        refusePathsOfCommand(parser, read.paths);
    } catch (const CLI::ParseError& error) {
        return {{}, parser.exit(error) == 0 ? 0 : wrongUse};
    }
    read.options.settingsFile = QString::fromStdString(read.settingsFile);
    read.options.language = QString::fromStdString(read.language);
    read.options.paths = fullPaths(read.paths);
    if (const std::optional<int> status = commands.run(read.options.settingsFile)) {
        return {{}, status};
    }
    if (!hasDesktop()) {
        complain(Alert{.title = OptionTexts::tr("No desktop to show windows on"),
                       .text = OptionTexts::tr(
                           "start Marquill in a desktop session, or use its commands; --help lists them")});
        return {{}, static_cast<int>(ExitStatus::failed)};
    }
    return {read.options, std::nullopt};
}

}  // namespace marquill
