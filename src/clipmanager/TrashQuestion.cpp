#include "clipmanager/TrashQuestion.h"

#include "clipstore/ClipTrash.h"
#include "platform/Dialogs.h"

#include <QCoreApplication>

namespace marquill {

namespace {

enum Answer { keepClips, cancelQuitting, deleteThem };

// Return keeps the clips, Escape goes back to work: no key that is pressed in haste deletes anything.
Answer ask(QWidget* window) {
    return static_cast<Answer>(Dialogs::current().alert(
        window, {.title = QCoreApplication::translate("TrashQuestion", "Delete Clips in the Trash?"),
                 .text = QCoreApplication::translate(
                     "TrashQuestion",
                     "There are clips in the trash folder in one or more recording folders. You can "
                     "either delete these clips or keep them in the trash folder(s). Deleting clips "
                     "cannot be undone."),
                 .buttons = {QCoreApplication::translate("TrashQuestion", "Keep Clips"),
                             QCoreApplication::translate("TrashQuestion", "Cancel Quitting"),
                             QCoreApplication::translate("TrashQuestion", "Delete Clips")},
                 .cancelButton = cancelQuitting}));
}

}  // namespace

bool TrashQuestion::cleanUp(const QStringList& folders, QWidget* window) {
    const QStringList clips = ClipTrash::getTrashClips(folders);
    if (clips.isEmpty()) {
        return true;
    }
    const Answer answer = ask(window);
    if (answer == deleteThem) {
        deleteClips(clips, window);
    }
    return answer != cancelQuitting;
}

void TrashQuestion::deleteClips(const QStringList& paths, QWidget* window) {
    const qsizetype failed = ClipTrash::deleteClips(paths).size();
    if (failed > 0) {
        Dialogs::current().alert(
            window, {.title = QCoreApplication::translate("TrashQuestion", "Could not delete Clips"),
                     .text = QCoreApplication::translate(
                                 "TrashQuestion",
                                 "%1 clips of %2 clips could not be deleted. Please try to delete them "
                                 "manually in the Finder.")
                                 .arg(failed)
                                 .arg(paths.size()),
                     .buttons = {QCoreApplication::translate("TrashQuestion", "Ok")}});
    }
}

}  // namespace marquill
