#include "application/OpenedFiles.h"

#include "clipmanager/ClipManager.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "movie/Movie.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/NoticeBar.h"

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>

#include <algorithm>
#include <utility>

namespace marquill {

namespace {

// The path as the list may know it: a folder that is reached through a link is the same folder.
QString listedPath(const RecordFolderController& list, const QString& folder) {
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    const auto isListed = [&list](const QString& path) {
        return std::ranges::any_of(
            list.folderArray(), [&path](const FolderRecord& record) { return record.folderPath() == path; });
    };
    return !isListed(folder) && isListed(canonical) ? canonical : folder;
}

bool standsFor(const ClipInfo& clip, const QString& file) {
    return clip.clipName() == lastPathComponent(file) || clip.clipPath() == file;
}

QStringList moviesAmong(const QStringList& files) {
    QStringList movies;
    std::ranges::copy_if(files, std::back_inserter(movies),
                         [](const QString& file) { return Movie::open(file).has_value(); });
    return movies;
}

}  // namespace

OpenedFiles::OpenedFiles(QObject* parent) : QObject(parent) {
    if (const ClipManager* clipManager = ClipManager::getClipManager()) {
        connect(clipManager, &ClipManager::folderHasBeenRead, this, &OpenedFiles::selectWhenRead);
    }
}

void OpenedFiles::open(const QStringList& paths) {
    _waiting += paths;
    resume();
}

void OpenedFiles::resume() {
    if (!_waiting.isEmpty() && ClipManager::getClipManager() && !QApplication::activeModalWidget()) {
        openNow(std::exchange(_waiting, {}));
    }
}

void OpenedFiles::openNow(const QStringList& paths) {
    RecordFolderController& list = ClipManager::getClipManager()->folderList();
    QStringList missing;
    _folder.clear();
    _files.clear();
    for (const QString& path : paths) {
        if (!fileExists(path)) {
            missing.append(path);
            continue;
        }
        const bool isFolder = folderExists(path);
        const QString folder = listedPath(list, isFolder ? path : parentFolder(path));
        if (std::exchange(_folder, folder) != folder) {
            _files.clear();
        }
        list.addFolder(folder);
        if (!isFolder) {
            _files.append(joinPath(folder, lastPathComponent(path)));
        }
    }
    tellOfMissing(missing);
    if (!_folder.isEmpty()) {
        list.selectFolder(_folder);
        selectWhenRead();
    }
}

void OpenedFiles::selectWhenRead() {
    const ClipManager& clipManager = *ClipManager::getClipManager();
    if (clipManager.shownFolder() != _folder) {
        _files.clear();
    } else if (!clipManager.isReading()) {
        select();
        _files.clear();
    }
}

void OpenedFiles::select() {
    ClipTableController& table = ClipManager::getClipManager()->clipTable();
    std::vector<ClipInfo> clips;
    QStringList withoutClip;
    for (const QString& file : std::as_const(_files)) {
        const auto& listed = table.clipArray();
        const auto found =
            std::ranges::find_if(listed, [&file](const ClipInfo& clip) { return standsFor(clip, file); });
        if (found != listed.end()) {
            clips.push_back(*found);
        } else {
            withoutClip.append(file);
        }
    }
    if (!clips.empty()) {
        table.selectClips(clips);
    }
    if (!withoutClip.isEmpty()) {
        offerImport(withoutClip);
    }
}

void OpenedFiles::tellOfMissing(const QStringList& files) {
    if (files.size() == 1) {
        showNotice(tr("“%1” cannot be found").arg(lastPathComponent(files.first())));
    } else if (!files.isEmpty()) {
        showNotice(tr("%1 files cannot be found").arg(files.size()));
    }
}

void OpenedFiles::offerImport(const QStringList& files) {
    const QStringList movies = moviesAmong(files);
    if (movies.isEmpty()) {
        showNotice(tr("“%1” is neither a movie nor a clip").arg(lastPathComponent(files.first())));
        return;
    }
    const NoticeBar* notice =
        showNotice(movies.size() == 1 ? tr("“%1” has no clip yet").arg(lastPathComponent(movies.first()))
                                      : tr("%1 movies have no clip yet").arg(movies.size()),
                   tr("Import as Placeholder"));
    connect(notice, &NoticeBar::buttonPressed, this, [folder = _folder, movies] {
        ClipManager* clipManager = ClipManager::getClipManager();
        if (clipManager && clipManager->shownFolder() == folder) {
            clipManager->importAndTell(movies);
        }
    });
}

// What was told of an earlier opening is over.
NoticeBar* OpenedFiles::showNotice(const QString& text, const QString& buttonText) {
    if (_notice) {
        _notice->dismiss();
    }
    _notice = NoticeBar::showIn(*ClipManager::getClipManager()->window(), text, buttonText);
    return _notice;
}

}  // namespace marquill
