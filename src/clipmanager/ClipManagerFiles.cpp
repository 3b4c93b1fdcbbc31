// The Clip Manager's operations on the files of its folders: importing movies, those that are in no list,
// exports, and the trash at quitting.
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManager.h"
#include "clipmanager/ClipSearch.h"
#include "clipmanager/CurrentClip.h"
#include "clipmanager/LeftOutMoviesDialog.h"
#include "clipmanager/MovieImport.h"
#include "clipmanager/TrashQuestion.h"
#include "clipmanager/UnwrittenClips.h"
#include "clipstore/ClipTrash.h"
#include "connect/ClipTableController.h"
#include "connect/ClipWriter.h"
#include "connect/WritingSheet.h"
#include "folders/RecordFolderController.h"
#include "markers/ClipMarkerController.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Log.h"

#include <QMainWindow>
#include <QScopedValueRollback>

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

/// False when somebody waits already: the program can be asked to quit again meanwhile.
bool waitForWriting(ClipTableController& clips) {
    static bool isWaiting = false;
    if (isWaiting) {
        return false;
    }
    const QScopedValueRollback waiting(isWaiting, true);
    clips.writing().waitForEnd();
    return true;
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
        {.title = tr("Import Movies"), .startFolder = *folder, .suffixes = {u"mov"_s, u"MOV"_s}});
    if (!movies.isEmpty()) {
        importAndTell(movies);
    }
}

void ClipManager::importAndTell(const QStringList& movies) {
    const ImportedMovies imported = importMovies(movies);
    if (!imported.errors.empty()) {
        Dialogs::current().alert(_window.get(), {.title = tr("Could not load one or more Clips"),
                                                 .text = imported.errors.back().description(),
                                                 .buttons = {tr("Ok")}});
    }
}

void ClipManager::showLeftOutMovies() {
    const std::optional<QString> folder = shownFolder();
    if (!folder) {
        return;
    }
    const Result<std::unique_ptr<LeftOutMoviesDialog>> dialog =
        LeftOutMoviesDialog::create(*folder, _window.get());
    if (!dialog) {
        qCWarning(logClipManager).noquote() << dialog.error().description();
        return;
    }
    (*dialog)->listMovies = [this](const QStringList& paths) { listMovies(paths); };
    (*dialog)->importMovies = [this](const QStringList& paths) { return importMovies(paths); };
    (*dialog)->run();
}

// Shows movies of the shown folder that have become clips.
void ClipManager::listMovies(const QStringList& paths) {
    QStringList names;
    for (const QString& path : paths) {
        names.append(lastPathComponent(path));
    }
    _clips->addClipsRead(readClipInfos(shownFolder().value_or(QString()), names), {});
    _clips->sortClips();
}

ImportedMovies ClipManager::importMovies(const QStringList& paths) {
    const QString folder = shownFolder().value_or(QString());
    ImportedMovies imported = MovieImport::importMovies(paths, folder);
    _clips->addClipsWithUndo({.clipFolder = folder, .clipArray = imported.clips});
    return imported;
}

void ClipManager::setUpExports() {
    _exports = std::make_unique<ClipExports>(
        *_window,
        ClipExports::Source{.clipFolder = [this] { return shownFolder(); },
                            .clipArray = [this] { return clipsToExport(); },
                            .note = [this](qsizetype clips) { return _search->exportNote(clips); }});
}

// While the folder is still being read the table holds a part of it; an export of a part would look whole.
std::vector<ClipInfo> ClipManager::clipsToExport() {
    if (!_isReading) {
        return _clips->clipArray();
    }
    _current->write();
    const QString folder = shownFolder().value_or(QString());
    std::vector<ClipInfo> clips = readClipInfoForFolder(folder);
    for (ClipInfo& clip : clips) {
        const QString name = clip.clipName().value_or(QString());
        clip = _clips->writer().unwritten(folder, name).value_or(clip);
    }
    return clips;
}

QStringList ClipManager::getTrashClips() {
    ClipManager* const manager = getClipManager();
    return manager ? ClipTrash::getTrashClips(folderPaths(*manager)) : QStringList();
}

void ClipManager::deleteClips(const QStringList& paths) {
    const ClipManager* const manager = getClipManager();
    TrashQuestion::deleteClips(paths, manager ? manager->window() : nullptr);
}

void ClipManager::saveEdits() {
    if (ClipManager* const manager = getClipManager()) {
        manager->_clips->endEditing();
        manager->_markers->endEditing();
        manager->_current->endEditing();
        manager->_current->write();
        manager->_clips->writer().finishWriting();
        manager->_clips->writer().retry();
    }
}

bool ClipManager::cleanUp() {
    ClipManager* const manager = getClipManager();
    if (!manager) {
        return true;
    }
    if (!waitForWriting(*manager->_clips)) {
        return false;
    }
    saveEdits();
    return manager->_unwritten->mayQuit() && TrashQuestion::cleanUp(folderPaths(*manager), manager->window());
}

}  // namespace marquill
