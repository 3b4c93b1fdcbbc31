// Tells when something in a folder changes, as the operating system does: at once, and without being asked.
// Owned by whoever watches. Main thread.
#pragma once

#include <QObject>

#include <memory>

namespace marquill {

class FolderNotices : public QObject {
    Q_OBJECT

  public:
    /// Begins with the folder at `path`; null where the system tells of nothing. What changes on a network
    /// volume by another computer is never told, see Volume::tellsOfChanges.
    static std::unique_ptr<FolderNotices> watch(const QString& path);

  Q_SIGNALS:
    /// A file was made, written, renamed or removed in the folder; it is not told for each of many.
    void changed();
    /// The folder itself was moved, removed or taken away with its volume: no notice comes any more.
    void ended();

  protected:
    FolderNotices() = default;
};

}  // namespace marquill
