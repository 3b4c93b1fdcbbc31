// What is asked about the clips in the trash when the user quits. No state; main thread.
#pragma once

#include <QStringList>

class QWidget;

namespace marquill {

class TrashQuestion {
  public:
    /// Asks whether the clips in the trash of these record folders are to be deleted, if there are any, and
    /// deletes them if so. Returns whether the application may quit. `window` is the one that the question
    /// belongs to, or null.
    static bool cleanUp(const QStringList& folders, QWidget* window);

    /// Deletes the clips at `paths` for good and tells when some could not be. Of many, a sheet on `window`
    /// shows how far it is, and the event loop runs; when that is cancelled, the rest stays.
    static void deleteClips(const QStringList& paths, QWidget* window);

    /// From how many clips on it may last.
    static constexpr qsizetype many = 200;
};

}  // namespace marquill
