// Watches the folder that is shown for what others write into it. Where the system tells of changes it looks
// when it is told; where not, every one and a half seconds, or, where a look takes long, so seldom that the
// volume mostly rests. It looks and reads on a thread of its own. Owned by ClipManager. Main thread.
#pragma once

#include "clipstore/FolderComparison.h"
#include "connect/FolderChanges.h"
#include "platform/BackgroundWork.h"
#include "platform/FolderNotices.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTimer>

#include <chrono>

namespace marquill {

class ClipFolderWatch : public QObject {
    Q_OBJECT

  public:
    /// `known` is what is known of the clips here; it outlives this.
    explicit ClipFolderWatch(KnownClips& known);

    /// Watches `folder`, which was just read, and no other any more. First, it removes what programs that
    /// were ended while they wrote left there more than a day ago.
    void watch(const QString& folder);
    void stop();
    /// Looks at the folder now; after the look that is under way, if one is.
    void look();
    /// Looks again soon: something could not be taken yet.
    void lookSoon();

    /// Whether it has to look by itself, as the system tells of nothing.
    bool isPolling() const { return !_notices; }
    /// How long a volume rests after a look of that duration.
    static std::chrono::milliseconds restAfter(std::chrono::milliseconds look);

  Q_SIGNALS:
    /// Others have changed something. A clip is gone when two looks, at least 0.3 seconds apart, did not find
    /// it, since some programs remove a file before they write it anew.
    void changed(const marquill::FolderChanges& changes);
    /// A look has ended, and what it found was told.
    void looked();

  private:
    struct Look {
        FolderChanges changes;
        QStringList missing;  // gone, if they still are missing a little later
        bool isDone = false;  // the folder could be looked at
        std::chrono::milliseconds duration{0};
    };

    static Look lookAt(const QString& folder, const KnownFolder& known, const QStringList& missing,
                       Identities identities, quint64 device);
    void begin(bool isTold, quint64 device);
    void hearNotices();
    void ended(const Look& look);
    QStringList missingForLong() const;
    void lookAfter(std::chrono::milliseconds time);

    KnownClips& _known;
    QString _folder;
    quint64 _device = 0;                 // that the folder was on when it was first looked at
    std::chrono::milliseconds _rest{0};  // after the last look
    bool _isTold = false;
    bool _looksAgain = false;
    QElapsedTimer _clock;
    QHash<QString, qint64> _missing;  // by name, when it was first missed; milliseconds of that clock
    std::unique_ptr<FolderNotices> _notices;
    BackgroundWork _work;
    QTimer _timer;
};

}  // namespace marquill
