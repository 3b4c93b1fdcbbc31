#include "commandline/CommandLine.h"

#include "commandline/ListCommand.h"
#include "commandline/ProbeCommand.h"
#include "commandline/ShowCommand.h"
#include "platform/Literals.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>

#include <cstdio>

namespace marquill {

namespace {

bool somethingFailed = false;

// What the log tells of files is what a command's user is to read; a warning is a failure.
void tellLog(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg) {
        return;
    }
    somethingFailed = somethingFailed || type != QtInfoMsg;
    const QByteArray line = "marquill: " + message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
}

}  // namespace

CommandLine::CommandLine(CLI::App& parser) {
    parser.require_subcommand(0, 1);
    add(parser, std::make_unique<ProbeCommand>());
    add(parser, std::make_unique<ListCommand>());
    add(parser, std::make_unique<ShowCommand>());
}

CommandLine::~CommandLine() = default;

void CommandLine::add(CLI::App& parser, std::unique_ptr<Command> command) {
    CLI::App* subcommand = command->addTo(parser);
    _entries.push_back({subcommand, std::move(command)});
}

std::optional<int> CommandLine::run(int& argc, char** argv) {
    for (const Entry& entry : _entries) {
        if (!entry.parser->parsed()) {
            continue;
        }
        const QCoreApplication application(argc, argv);
        QCoreApplication::setApplicationName(u"marquill"_s);
        qInstallMessageHandler(tellLog);
        const ExitStatus status = entry.command->run();
        return static_cast<int>(somethingFailed ? ExitStatus::failed : status);
    }
    return std::nullopt;
}

}  // namespace marquill
