#include "platform/Volume.h"

#include "platform/Literals.h"

#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <atomic>

namespace marquill {

namespace {

class SystemVolume final : public Volume {
  public:
    std::optional<VolumeState> state(const QString& folder) override {
        const QStorageInfo volume(folder);
        if (!volume.isValid() || !volume.isReady()) {
            return std::nullopt;
        }
        return VolumeState{.bytesFree = volume.bytesAvailable(), .isReadOnly = volume.isReadOnly()};
    }
};

// Those that nobody but this computer writes to; what is not among them is looked at now and then.
constexpr std::array localFileSystems = {
    "ext2"_L1, "ext3"_L1,     "ext4"_L1,   "xfs"_L1,      "btrfs"_L1,   "f2fs"_L1,  "tmpfs"_L1,
    "zfs"_L1,  "jfs"_L1,      "vfat"_L1,   "msdos"_L1,    "exfat"_L1,   "ntfs3"_L1, "hfsplus"_L1,
    "udf"_L1,  "bcachefs"_L1, "nilfs2"_L1, "reiserfs"_L1, "overlay"_L1,
};

std::atomic<Volume*> installed = nullptr;

}  // namespace

bool Volume::tellsOfChanges(const QString& folder) {
    const QByteArray type = QStorageInfo(folder).fileSystemType();
    return std::ranges::find(localFileSystems, QLatin1StringView(type)) != localFileSystems.end();
}

Volume& Volume::current() {
    static SystemVolume system;
    Volume* const volume = installed.load(std::memory_order_acquire);
    return volume ? *volume : system;
}

void Volume::install(Volume* volume) {
    installed.store(volume, std::memory_order_release);
}

}  // namespace marquill
