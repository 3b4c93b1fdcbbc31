#include "clipmanager/TrashQuestion.h"

#include "clipstore/ClipTrash.h"
#include "platform/Dialogs.h"

namespace marquill {

namespace {

enum Answer { keepClips, cancelQuitting, deleteThem };

// Return keeps the clips, Escape goes back to work: no key that is pressed in haste deletes anything.
Answer ask(QWidget* window) {
    return static_cast<Answer>(Dialogs::current().alert(
        window, {.title = u"Delete Clips in the Trash?"_s,
                 .text = u"There are clips in the trash folder in one or more recording folders. You can "
                         "either delete these clips or keep them in the trash folder(s). Deleting clips "
                         "cannot be undone."_s,
                 .buttons = {u"Keep Clips"_s, u"Cancel Quitting"_s, u"Delete Clips"_s},
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
            window, {.title = u"Could not delete Clips"_s,
                     .text = u"%1 clips of %2 clips could not be deleted. Please try to delete them "
                             "manually in the Finder."_s.arg(failed)
                                 .arg(paths.size()),
                     .buttons = {u"Ok"_s}});
    }
}

}  // namespace marquill
