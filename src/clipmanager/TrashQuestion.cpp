#include "clipmanager/TrashQuestion.h"

#include "clipstore/ClipTrash.h"
#include "platform/Dialogs.h"
#include "platform/ProgressSheet.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <atomic>
#include <memory>

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

// How many could not be deleted. Those that are left to be deleted are not among them.
qsizetype deleteUnderASheet(const QStringList& paths, QWidget& window) {
    const auto failed = std::make_shared<std::atomic<qsizetype>>(0);
    const auto work = [paths, failed](const ProgressSheet::Progress& progress) -> Result<void> {
        *failed = ClipTrash::deleteClips(paths, [&progress](qsizetype done, qsizetype total) {
                      return progress.report(done, total);
                  }).size();
        return {};
    };
    ProgressSheet sheet;
    sheet.run(window, QCoreApplication::translate("TrashQuestion", "Deleting the clips in the trash…"), work,
              [](const Result<void>&) {});
    sheet.waitForEnd();
    return *failed;
}

}  // namespace

bool TrashQuestion::cleanUp(const QStringList& folders, QWidget* window) {
    // The program can be asked to quit again while the sheet is shown.
    static bool isDeleting = false;
    if (isDeleting) {
        return false;
    }
    const QStringList clips = ClipTrash::getTrashClips(folders);
    if (clips.isEmpty()) {
        return true;
    }
    const Answer answer = ask(window);
    if (answer == deleteThem) {
        const QScopedValueRollback deleting(isDeleting, true);
        deleteClips(clips, window);
    }
    return answer != cancelQuitting;
}

void TrashQuestion::deleteClips(const QStringList& paths, QWidget* window) {
    const bool lasts = window && paths.size() >= many;
    const qsizetype failed = lasts ? deleteUnderASheet(paths, *window) : ClipTrash::deleteClips(paths).size();
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
