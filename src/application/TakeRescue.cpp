#include "application/TakeRescue.h"

#include "clipmanager/ClipManager.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "platform/Clock.h"
#include "platform/FileBrowser.h"
#include "platform/FileStamp.h"
#include "platform/Files.h"
#include "platform/FloatingPanel.h"
#include "platform/Log.h"
#include "platform/NoticeBar.h"
#include "platform/StateFolder.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecoverTakesDialog.h"
#include "recording/TakeJournal.h"

#include <QCoreApplication>
#include <QMainWindow>

#include <algorithm>
#include <utility>

namespace marquill {

namespace {

constexpr std::size_t mostTakesNamed = 3;
constexpr double temporaryAge = 86'400;  // seconds after which a settings file is surely not being written

QString textForKept(std::size_t count) {
    return count == 1
               ? QCoreApplication::translate("TakeRescue", "1 take could not be saved where recorded")
               : QCoreApplication::translate("TakeRescue", "%1 takes could not be saved where recorded")
                     .arg(count);
}

QString clipName(const TakeRecovery::RecoveredTake& take) {
    return take.clip.clipName().value_or(QString());
}

}  // namespace

TakeRescue::TakeRescue(QString journalFolder) : _journalFolder(std::move(journalFolder)) {
    OfflineRecorder* recorder = OfflineRecorder::shared();
    if (recorder && recorder->journal()) {
        connect(recorder->journal(), &TakeJournal::kept, this, [this] { setHasKeptTakes(true); });
    }
}

TakeRescue::~TakeRescue() = default;

QString TakeRescue::journalFolder() {
    return joinPath(stateFolder(), u"takes"_s);
}

void TakeRescue::recoverAtLaunch() {
    const QString settings = parentFolder(UserDefaults::standard().path());
    const Date old = dateByAdding(Clock::current().now(), -temporaryAge);
    _work.start([this, settings, old, folder = _journalFolder](const BackgroundWork::Post& post) {
        const auto isWanted = [&post] { return post.isWanted(); };
        post([this, outcome = TakeRecovery::recoverAll(folder, isWanted)] { launched(outcome); });
        sweepTemporaryFiles(settings, old);
    });
}

void TakeRescue::launched(const TakeRecovery::Outcome& outcome) {
    for (const TakeRecovery::RecoveredTake& take : outcome.recovered) {
        takeRecovered(take);
    }
    if (!outcome.recovered.empty()) {
        showNotice(textForRecovered(outcome.recovered), tr("Show"),
                   [this, takes = outcome.recovered] { showTakes(takes); });
    }
    if (!outcome.kept.empty()) {
        setHasKeptTakes(true);
        showNotice(textForKept(outcome.kept.size()), tr("Recover Takes…"), [this] { recoverTakes(); });
    }
}

void TakeRescue::takeRecovered(const TakeRecovery::RecoveredTake& take) {
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        clipManager->addClip(take.clip, take.folder);
    }
    if (OfflineRecorder* recorder = OfflineRecorder::shared()) {
        recorder->updateTakeNoUI();
    }
}

void TakeRescue::setHasKeptTakes(bool hasKeptTakes) {
    if (std::exchange(_hasKeptTakes, hasKeptTakes) != hasKeptTakes) {
        Q_EMIT keptTakesChanged();
    }
}

void TakeRescue::recoverTakes() {
    if (!_dialog) {
        ClipManager* clipManager = ClipManager::getClipManager();
        auto dialog =
            RecoverTakesDialog::create(_journalFolder, clipManager ? clipManager->window() : nullptr);
        if (!dialog) {
            qCWarning(logApplication).noquote() << dialog.error().description();
            return;
        }
        _dialog = *std::move(dialog);
        connect(_dialog.get(), &RecoverTakesDialog::takeRecovered, this, &TakeRescue::takeRecovered);
        connect(_dialog.get(), &RecoverTakesDialog::takesChanged, this,
                [this] { setHasKeptTakes(!_dialog->takes().empty()); });
    }
    _dialog->show();
}

QString TakeRescue::textForRecovered(const std::vector<TakeRecovery::RecoveredTake>& takes) {
    QStringList names;
    for (const TakeRecovery::RecoveredTake& take : takes) {
        if (static_cast<std::size_t>(names.size()) < mostTakesNamed) {
            names.append(
                tr("%1 in %2").arg(withoutPathExtension(clipName(take)), lastPathComponent(take.folder)));
        }
    }
    if (takes.size() > mostTakesNamed) {
        names.append(tr("and %1 more").arg(takes.size() - mostTakesNamed));
    }
    const QString list = names.join(u", "_s);
    return takes.size() == 1 ? tr("Recovered 1 take: %1").arg(list)
                             : tr("Recovered %1 takes: %2").arg(QString::number(takes.size()), list);
}

// Selects the folder of the first take, and in it all takes that were recovered into it.
void TakeRescue::showTakes(const std::vector<TakeRecovery::RecoveredTake>& takes) {
    ClipManager* clipManager = ClipManager::getClipManager();
    const QString folder = takes.front().folder;
    if (!clipManager) {
        return;
    }
    clipManager->folderList().selectFolder(folder);
    if (clipManager->shownFolder() != folder) {
        // It was taken off the list meanwhile; the desktop can show it still.
        FileBrowser::current().reveal(joinPath(folder, clipName(takes.front())));
        return;
    }
    makeKeyAndOrderFront(*clipManager->window());
    QStringList names;
    for (const TakeRecovery::RecoveredTake& take : takes) {
        if (take.folder == folder) {
            names.append(clipName(take));
        }
    }
    selectWhenRead(folder, names);
}

void TakeRescue::selectWhenRead(const QString& folder, const QStringList& names) {
    ClipManager* clipManager = ClipManager::getClipManager();
    if (!clipManager || clipManager->shownFolder() != folder) {
        return;
    }
    disconnect(_whenRead);
    if (clipManager->isReading()) {
        _whenRead = connect(
            clipManager, &ClipManager::folderHasBeenRead, this,
            [this, folder, names] { selectWhenRead(folder, names); }, Qt::SingleShotConnection);
        return;
    }
    std::vector<ClipInfo> clips;
    std::ranges::copy_if(
        clipManager->clipTable().clipArray(), std::back_inserter(clips),
        [&names](const ClipInfo& clip) { return names.contains(clip.clipName().value_or(QString())); });
    clipManager->clipTable().selectClips(clips);
}

void TakeRescue::showNotice(const QString& text, const QString& buttonText,
                            const std::function<void()>& buttonPressed) {
    ClipManager* clipManager = ClipManager::getClipManager();
    if (!clipManager) {
        return;
    }
    const NoticeBar* bar = NoticeBar::showIn(*clipManager->window(), text, buttonText);
    connect(bar, &NoticeBar::buttonPressed, bar, buttonPressed);
}

}  // namespace marquill
