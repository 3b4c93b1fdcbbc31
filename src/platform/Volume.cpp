#include "platform/Volume.h"

#include <QStorageInfo>

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

std::atomic<Volume*> installed = nullptr;

}  // namespace

Volume& Volume::current() {
    static SystemVolume system;
    Volume* const volume = installed.load(std::memory_order_acquire);
    return volume ? *volume : system;
}

void Volume::install(Volume* volume) {
    installed.store(volume, std::memory_order_release);
}

}  // namespace marquill
