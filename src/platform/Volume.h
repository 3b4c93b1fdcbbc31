// What the volume of a folder has to offer. Asking may wait for a volume that does not answer, so it is done
// on a thread of its own. Any thread.
#pragma once

#include <QString>

#include <optional>

namespace marquill {

struct VolumeState {
    qint64 bytesFree = 0;  ///< for this user
    bool isReadOnly = false;

    bool operator==(const VolumeState&) const = default;
};

class Volume {
  public:
    virtual ~Volume() = default;

    /// The state of the volume that holds `folder`; nothing when there is no such folder.
    virtual std::optional<VolumeState> state(const QString& folder) = 0;
    /// Whether the system tells of every change on the volume that holds `folder`: it is one of this computer
    /// alone. False where that is not known, as of network volumes and those shared with a virtual machine.
    virtual bool tellsOfChanges(const QString& folder);

    /// The one in use: the operating system's, unless a test has installed its own.
    static Volume& current();
    /// Makes `volume` the one in use until it is called with null; the caller keeps the ownership.
    static void install(Volume* volume);
};

}  // namespace marquill
