// The clip table's commands: opening clips, rating keys, the context menu, and which command can be given.
#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "platform/Dialogs.h"
#include "platform/FileBrowser.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TableView.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>

#include <algorithm>

namespace marquill {

namespace {

bool canBeOpened(const ClipInfo& clip) {
    return !ClipStore::isProxyClip(clip) || ClipStore::isConnected(clip);
}

// Endings of movies, and of what cameras write. A record may come from a stranger and name any file as its
// medium; what a desktop would run, and not play, is never handed to it.
bool isMedium(const QString& path) {
    static const QSet<QString> endings{u"mov"_s, u"qt"_s,   u"mp4"_s, u"m4v"_s,  u"mxf"_s,  u"r3d"_s,
                                       u"rdc"_s, u"avi"_s,  u"dv"_s,  u"mts"_s,  u"m2ts"_s, u"m2t"_s,
                                       u"mpg"_s, u"mpeg"_s, u"mkv"_s, u"webm"_s, u"braw"_s, u"ari"_s,
                                       u"3gp"_s, u"wav"_s,  u"aif"_s, u"aiff"_s, u"mp3"_s,  u"m4a"_s};
    return endings.contains(pathExtension(path).toLower());
}

QString connectAgain() {
    return ClipTableController::tr("Please connect to clip again.");
}

}  // namespace

void ClipTableController::buildContextMenu() {
    const auto add = [this](const QString& id, const QString& text, void (ClipTableController::*run)()) {
        _contextMenu.addAction(text, this, run)->setObjectName(id);
    };
    add(u"openClipInViewer"_s, tr("Open in Viewer"), &ClipTableController::openClipInViewer);
    add(u"openClipInQTPlayer"_s, tr("Open in Default Player"), &ClipTableController::openClipInQTPlayer);
    add(u"showClipInFinder"_s, tr("Show in File Browser"), &ClipTableController::showClipInFinder);
    _contextMenu.addSeparator();
    add(u"renameSelected"_s, tr("Rename"), &ClipTableController::renameSelected);
    add(u"deleteItem"_s, tr("Move to Trash"), &ClipTableController::deleteItem);
}

QMenu* ClipTableController::menuForEvent() {
    for (QAction* action : _contextMenu.actions()) {
        action->setEnabled(validateMenuItem(action->objectName()));
    }
    return &_contextMenu;
}

bool ClipTableController::validateMenuItem(const QString& command) const {
    static const QStringList opening = {u"openClipInViewer"_s, u"showClipInFinder"_s,
                                        u"openClipInQTPlayer"_s};
    static const QStringList connecting = {u"batchConnectQTClips"_s, u"batchConnectRedClips_H"_s,
                                           u"batchConnectRedClips_M"_s, u"batchConnectRedClips_P"_s,
                                           u"unConnectSelectedClips"_s};
    const std::vector<ClipInfo> selected = selectedClipArray();
    if (opening.contains(command)) {
        return selected.size() == 1 && canBeOpened(selected.front());
    }
    if (command == "renameSelected"_L1) {
        return selected.size() == 1;
    }
    if (command == "deleteItem"_L1) {
        return !selected.empty();
    }
    if (command == "connectClip"_L1) {
        return selected.size() == 1 && ClipStore::isProxyClip(selected.front());
    }
    if (command == "batchConnectP2Clips"_L1) {
        return !selected.empty() && ClipStore::isProxyClip(selected.front());
    }
    return !connecting.contains(command) || std::ranges::any_of(selected, &ClipStore::isProxyClip);
}

std::optional<ClipInfo> ClipTableController::onlySelected() const {
    const std::vector<ClipInfo> selected = selectedClipArray();
    return selected.size() == 1 ? std::optional(selected.front()) : std::nullopt;
}

void ClipTableController::withSelectedFile(const QString& advice,
                                           const std::function<void(const QString&)>& open) {
    const std::vector<ClipInfo> selected = selectedClipArray();
    if (selected.empty()) {
        return;
    }
    const QString path = mediaPathOfClip(selected.front(), clipFolder().value_or(QString()));
    if (!path.isEmpty() && fileExists(path)) {
        open(path);
    } else {
        showAlert(tr("Could not find Clip"), advice);
    }
}

void ClipTableController::openClipInViewer() {
    withSelectedFile(connectAgain(), openClipWithFile);
}

void ClipTableController::openClipInQTPlayer() {
    withSelectedFile(tr("Please connect to clip in order to open the clip."),
                     [this](const QString& path) { openInDefaultPlayer(path); });
}

void ClipTableController::showClipInFinder() {
    withSelectedFile(connectAgain(), [](const QString& path) { FileBrowser::current().reveal(path); });
}

void ClipTableController::openInDefaultPlayer(const QString& path) {
    if (!isMedium(path)) {
        showAlert(tr("This is no movie"),
                  tr("“%1” is not opened: its name is not that of a movie.").arg(path));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        qCWarning(logConnect).noquote() << path + u": no program opens it"_s;
    }
}

void ClipTableController::renameSelected() {
    if (const std::optional<ClipInfo> clip = onlySelected()) {
        const QModelIndex cell = _rows.index(_rows.rowOf(_model.rowOfClip(*clip)), ClipTableModel::clip);
        _table.setCurrentIndex(cell);
        _table.edit(cell);
    }
}

void ClipTableController::doubleClicked(const QModelIndex& index) {
    if (index.column() != ClipTableModel::icon) {
        if (index.flags().testFlag(Qt::ItemIsEditable) &&
            _table.selectionModel()->isRowSelected(index.row())) {
            _table.edit(index);
        }
        return;
    }
    const QString path =
        mediaPathOfClip(_model.clipAt(_rows.modelRow(index.row())), clipFolder().value_or(QString()));
    if (path.isEmpty()) {
        showAlert(tr("Clip not connected"), tr("Please connect to clip and try again."));
    } else {
        openClipWithFile(path);
    }
}

void ClipTableController::keyDown(QKeyEvent& event) {
    const int rating = event.key() - Qt::Key_0;
    const std::optional<ClipInfo> clip = onlySelected();
    if (clip && rating >= 0 && rating <= 5) {
        event.accept();
        enterAttribute(*clip, ClipKey::clipRating, rating);
    }
}

void ClipTableController::showAlert(const QString& title, const QString& text) {
    Dialogs::current().alert(_table.window(), {.title = title, .text = text});
}

}  // namespace marquill
