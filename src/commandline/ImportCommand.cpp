#include "commandline/ImportCommand.h"

#include "clipmanager/MovieImport.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

#include <CLI/CLI.hpp>

namespace marquill {

CLI::App* ImportCommand::addTo(CLI::App& parser) {
    CLI::App* import =
        parser.add_subcommand("import", tr("Make placeholders that stand for movies").toStdString());
    import->add_option("FOLDER", _folder, tr("The record folder").toStdString())->required();
    import->add_option("MOVIE", _movies, tr("The movies; they stay where they are").toStdString())
        ->required();
    return import;
}

ExitStatus ImportCommand::run() {
    const QString folder = pathOfArgument(_folder);
    if (const Result<QStringList> listed = FileSystem::current().list(folder); !listed) {
        complain(listed.error());
        return ExitStatus::failed;
    }
    QStringList movies;
    for (const std::string& movie : _movies) {
        movies.append(pathOfArgument(movie));
    }
    const ImportedMovies imported = MovieImport::importMovies(movies, folder);
    for (const ClipInfo& clip : imported.clips) {
        print(joinPath(folder, clip.clipName().value_or(QString())));
    }
    for (const Error& error : imported.errors) {
        complain(error);
    }
    if (!imported.errors.empty()) {
        complain(
            Alert{.title = tr("Could not load one or more Clips"),
                  .text = tr("%1 of %2 were not imported.").arg(imported.errors.size()).arg(movies.size())});
        return ExitStatus::failed;
    }
    return ExitStatus::done;
}

}  // namespace marquill
