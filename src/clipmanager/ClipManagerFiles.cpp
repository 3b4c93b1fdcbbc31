// The Clip Manager's operations on the files of its folders: importing movies, and the trash at quitting.
#include "clipmanager/ClipManager.h"
#include "clipmanager/MovieImport.h"
#include "clipmanager/TrashQuestion.h"
#include "clipstore/ClipTrash.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "platform/Dialogs.h"
#include "platform/Log.h"

#include <QMainWindow>

namespace marquill {

namespace {

QStringList folderPaths(ClipManager& manager) {
    QStringList paths;
    for (const FolderRecord& folder : manager.folderList().folderArray()) {
        if (const std::optional<QString> path = folder.folderPath()) {
            paths.append(*path);
        }
    }
    return paths;
}

}  // namespace

void ClipManager::importQTclips() {
    const std::optional<QString> folder = shownFolder();
    if (!folder) {
        qCWarning(logClipManager, "No currFolder specified");
        return;
    }
    const QStringList movies = Dialogs::current().chooseFiles(
        _window.get(),
        {.title = u"Import Movies"_s, .startFolder = *folder, .suffixes = {u"mov"_s, u"MOV"_s}});
    if (movies.isEmpty()) {
        return;
    }
    const ImportedMovies imported = MovieImport::importMovies(movies, *folder);
    _clips->addClipsWithUndo({.clipFolder = *folder, .clipArray = imported.clips});
    if (!imported.errors.empty()) {
        Dialogs::current().alert(_window.get(), {.title = u"Could not load one or more Clips"_s,
                                                 .text = imported.errors.back().description(),
                                                 .buttons = {u"Ok"_s}});
    }
}

QStringList ClipManager::getTrashClips() {
    ClipManager* const manager = getClipManager();
    return manager ? ClipTrash::getTrashClips(folderPaths(*manager)) : QStringList();
}

void ClipManager::deleteClips(const QStringList& paths) {
    const ClipManager* const manager = getClipManager();
    TrashQuestion::deleteClips(paths, manager ? manager->window() : nullptr);
}

bool ClipManager::cleanUp() {
    ClipManager* const manager = getClipManager();
    return !manager || TrashQuestion::cleanUp(folderPaths(*manager), manager->window());
}

}  // namespace marquill
