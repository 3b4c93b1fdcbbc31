#include "recording/VolumeWatch.h"

#include "platform/Literals.h"

#include <utility>

namespace marquill {

namespace {

constexpr std::chrono::seconds interval{10};
constexpr qint64 megabyte = 1'000'000;
constexpr qint64 enoughBytes = 100 * megabyte;

}  // namespace

VolumeWatch::VolumeWatch(std::function<QString()> folder) : _folder(std::move(folder)) {
    connect(&_timer, &QTimer::timeout, this, &VolumeWatch::ask);
    _timer.start(interval);
}

void VolumeWatch::folderMayHaveChanged() {
    if (_folder() != _askedFolder) {
        ask();
    }
}

void VolumeWatch::ask() {
    const QString folder = _folder();
    // A volume that does not answer is not asked again and again.
    if (_work.isRunning() && folder == _askedFolder) {
        return;
    }
    _askedFolder = folder;
    if (folder.isEmpty()) {
        _work.cancel();
        answered(std::nullopt);
        return;
    }
    _work.start([this, folder](const BackgroundWork::Post& post) {
        const std::optional<VolumeState> state = Volume::current().state(folder);
        post([this, state] { answered(state); });
    });
}

void VolumeWatch::answered(const std::optional<VolumeState>& state) {
    const QString warning = state ? warningFor(*state) : QString();
    if (std::exchange(_warning, warning) != warning) {
        Q_EMIT warningChanged();
    }
}

QString VolumeWatch::warningFor(const VolumeState& state) {
    if (state.isReadOnly) {
        return tr("The recording folder is on a read-only volume. Takes cannot be saved there.");
    }
    if (state.bytesFree < enoughBytes) {
        return tr("Only %1 MB are free where takes are saved.").arg(state.bytesFree / megabyte);
    }
    return {};
}

}  // namespace marquill
