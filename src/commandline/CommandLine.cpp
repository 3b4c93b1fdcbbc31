#include "commandline/CommandLine.h"

#include "commandline/ConnectCommand.h"
#include "commandline/DisconnectCommand.h"
#include "commandline/ExportCommand.h"
#include "commandline/ImportCommand.h"
#include "commandline/ListCommand.h"
#include "commandline/ProbeCommand.h"
#include "commandline/RecordCommand.h"
#include "commandline/SetCommand.h"
#include "commandline/ShowCommand.h"
#include "platform/Literals.h"
#include "platform/LogFile.h"
#include "platform/StateFolder.h"
#include "platform/UserDefaults.h"

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
    add(parser, std::make_unique<SetCommand>());
    add(parser, std::make_unique<RecordCommand>());
    add(parser, std::make_unique<ConnectCommand>());
    add(parser, std::make_unique<DisconnectCommand>());
    add(parser, std::make_unique<ImportCommand>());
    add(parser, std::make_unique<ExportCommand>());
}

CommandLine::~CommandLine() = default;

void CommandLine::add(CLI::App& parser, std::unique_ptr<Command> command) {
    CLI::App* subcommand = command->addTo(parser);
    subcommand->group(QCoreApplication::translate("Options", "Subcommands").toStdString());
    // The options of the whole program may stand behind the command too.
    subcommand->fallthrough();
    _entries.push_back({subcommand, std::move(command)});
}

std::optional<int> CommandLine::run(const QString& settingsFile) {
    for (const Entry& entry : _entries) {
        if (!entry.parser->parsed()) {
            continue;
        }
        QCoreApplication::setApplicationName(u"marquill"_s);
        qInstallMessageHandler(tellLog);
        LogFile log;
        if (!settingsFile.isEmpty()) {
            UserDefaults::useFile(settingsFile);
        }
        log.start(stateFolder(), u"command "_s + QString::fromStdString(entry.parser->get_name()),
                  LogFile::Manner::quiet);
        const ExitStatus status = entry.command->run();
        return static_cast<int>(somethingFailed ? ExitStatus::failed : status);
    }
    return std::nullopt;
}

}  // namespace marquill
