// Watches the volume that takes are recorded to, and says in words when there is little room left on it or it
// is read-only. It asks on a thread of its own, since a volume may not answer. Owned by the recorder; main
// thread.
#pragma once

#include "platform/BackgroundWork.h"
#include "platform/Volume.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace marquill {

class VolumeWatch : public QObject {
    Q_OBJECT

  public:
    /// Asks every ten seconds about the folder whose path `folder` gives; "" is none.
    explicit VolumeWatch(std::function<QString()> folder);

    /// Asks at once when the folder is another one than at the last time.
    void folderMayHaveChanged();
    /// Asks now, unless the answer about the same folder is still awaited.
    void ask();

    /// What a user should know before the next take, or "".
    const QString& warning() const { return _warning; }
    /// The words for a volume of that state, or "".
    static QString warningFor(const VolumeState& state);

  Q_SIGNALS:
    void warningChanged();

  private:
    void answered(const std::optional<VolumeState>& state);

    std::function<QString()> _folder;
    QString _askedFolder;
    QString _warning;
    QTimer _timer;
    BackgroundWork _work;
};

}  // namespace marquill
