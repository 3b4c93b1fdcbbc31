#include "connect/ClipConnecting.h"

#include "clipstore/ClipStore.h"
#include "connect/ClipConnection.h"
#include "connect/ClipTableController.h"
#include "connect/WritingSheet.h"
#include "platform/Files.h"
#include "platform/TableView.h"

#include <algorithm>
#include <iterator>

namespace marquill {

namespace {

QString selectPlaceholder() {
    return ClipConnecting::tr(
        "Please select at least one place holder clip to connect to a file based clip.");
}

QString convertedClips() {
    return ClipConnecting::tr("Choose folder with clips converted by FCP");
}

}  // namespace

/// What a batch is about; worked on by one thread at a time.
struct ClipConnecting::Batch {
    std::vector<ClipInfo> placeholders;  // those of the table, for the main thread alone
    std::vector<ClipInfo> copies;        // of them, for the thread that does the work
    QString clipFolder;
    QStringList files;
    bool isCard = false;  // whether a folder for P2 clips was found
    std::vector<P2Clip> p2Clips;
    BatchResult result;
};

void ClipConnecting::batchConnectQTClips() {
    gClipType = ClipType::quickTime;
    gUseFCPLogAndTransfer = false;
    batchConnectClips();
}

void ClipConnecting::batchConnectRedClips_H() {
    gClipType = ClipType::redH;
    gUseFCPLogAndTransfer = false;
    batchConnectClips();
}

void ClipConnecting::batchConnectRedClips_P() {
    gClipType = ClipType::redP;
    gUseFCPLogAndTransfer = false;
    batchConnectClips();
}

void ClipConnecting::batchConnectRedClips_M() {
    gClipType = ClipType::redM;
    gUseFCPLogAndTransfer = false;
    batchConnectClips();
}

void ClipConnecting::batchConnectFCPLogAndTransferRedClips() {
    gClipType = ClipType::redRaw;
    gUseFCPLogAndTransfer = true;
    batchConnectClips();
}

void ClipConnecting::batchConnectClips() {
    if (isAtWork()) {
        return;
    }
    if (selectedPlaceholders().empty()) {
        showAlert({.title = tr("No Place Holder selected"), .text = selectPlaceholder()});
        return;
    }
    const bool isQuickTime = gClipType == ClipType::quickTime;
    const std::optional<QString> folder = chooseFolder(isQuickTime ? tr("Choose folder with QuickTime clips")
                                                                   : tr("Choose folder with RED clips"));
    if (!folder) {
        return;
    }
    if (!gUseFCPLogAndTransfer) {
        batchConnectClipsWithFolder(*folder, std::nullopt);
    } else if (const std::optional<QString> converted = chooseFolder(convertedClips())) {
        batchConnectClipsWithFolder(*folder, converted);
    }
}

void ClipConnecting::batchConnectClipsWithFolder(const QString& folder,
                                                 const std::optional<QString>& fcpClipFolder) {
    const std::shared_ptr<Batch> batch = newBatch();
    if (batch->placeholders.empty()) {
        return;
    }
    const auto work = [folder, fcpClipFolder, clipType = gClipType](Batch& all, const Progress& progress) {
        all.files = MediaFiles::filesInFolder(folder, MediaFiles::endingsForClipType(clipType), progress)
                        .value_or(QStringList());
        all.result = BatchConnect::doBatchConnect(all.copies, all.files, clipType, fcpClipFolder, progress);
    };
    run(batch, work, [this](const std::shared_ptr<Batch>& done) {
        if (done->files.isEmpty()) {
            showAlert({.title = tr("No Clips found"),
                       .text = tr("No Clips could be found in the specified folder, please choose another "
                                  "folder.")});
            return;
        }
        finish(*done);
    });
}

void ClipConnecting::batchConnectP2Clips() {
    if (isAtWork()) {
        return;
    }
    const std::shared_ptr<Batch> batch = newBatch();
    if (batch->placeholders.empty()) {
        showAlert({.title = tr("No Place Holder Clips selected"), .text = selectPlaceholder()});
        return;
    }
    const std::optional<QString> root = chooseFolder(tr("Choose root folder with P2 clips"));
    if (!root) {
        return;
    }
    const QString clipFolder = joinPath(joinPath(*root, u"CONTENTS"_s), u"CLIP"_s);
    const auto read = [clipFolder](Batch& all, const Progress& progress) {
        all.isCard = folderExists(clipFolder);
        all.p2Clips = all.isCard ? PanaP2::getP2XMLClipsAtPath(clipFolder, progress) : std::vector<P2Clip>();
    };
    run(batch, read, [this](const std::shared_ptr<Batch>& done) { connectP2Clips(done); });
}

void ClipConnecting::connectP2Clips(const std::shared_ptr<Batch>& batch) {
    if (batch->p2Clips.empty()) {
        showAlert({.title = tr("No P2 files found"),
                   .text = batch->isCard
                               ? tr("No clips found in the specified folder. Please try again and choose a "
                                    "P2 root folder.")
                               : tr("Please try again and choose a P2 root folder.")});
        return;
    }
    const std::optional<QString> converted = chooseFolder(convertedClips());
    if (!converted) {
        return;
    }
    const auto work = [converted](Batch& all, const Progress& progress) {
        all.result =
            BatchConnect::doP2BatchConnect(all.copies, all.p2Clips, ClipType::p2, converted, progress);
    };
    run(batch, work, [this](const std::shared_ptr<Batch>& done) { finish(*done); });
}

// The window stays alive meanwhile: the work has records of its own, and the folder that they belong to.
std::shared_ptr<ClipConnecting::Batch> ClipConnecting::newBatch() const {
    auto batch = std::make_shared<Batch>();
    batch->placeholders = selectedPlaceholders();
    std::ranges::transform(batch->placeholders, std::back_inserter(batch->copies), &ClipInfo::deepCopy);
    batch->clipFolder = _clips.clipFolder().value_or(QString());
    return batch;
}

void ClipConnecting::run(const std::shared_ptr<Batch>& batch, Work work, Done done) {
    const auto onItsThread = [batch, work = std::move(work)](const ProgressSheet::Progress& sheet) {
        work(*batch, [&sheet](qsizetype steps, qsizetype total) { return sheet.report(steps, total); });
        return Result<void>();
    };
    _sheet.run(*window(), tr("Connecting clips…"), onItsThread,
               [batch, done = std::move(done)](const Result<void>&) { done(batch); });
}

void ClipConnecting::finish(const Batch& batch) {
    ClipChangeSet set = batch.result.changeSet(batch.placeholders);
    set.clipFolder = batch.clipFolder;
    if (!set.newClips.empty()) {
        _clips.changeClipsWithUndo(set);
    }
    // Not over the sheet that shows how far the writing is.
    _clips.writing().afterwards([this, alerts = batch.result.alerts()] {
        for (const Alert& alert : alerts) {
            showAlert(alert);
        }
    });
}

bool ClipConnecting::isAtWork() const {
    return _sheet.isRunning() || _clips.writer().isWriting();
}

void ClipConnecting::connectClip() {
    if (isAtWork()) {
        return;
    }
    const std::optional<QString> path = Dialogs::current().chooseFile(
        window(), {.title = tr("Connect Clip"), .startFolder = {}, .suffixes = {u"mov"_s}});
    const std::vector<ClipInfo> selected = _clips.selectedClipArray();
    if (!path || selected.size() != 1 || !ClipStore::isProxyClip(selected.front())) {
        return;
    }
    ClipInfo connected = selected.front().deepCopy();
    if (!ClipConnection::doConnectToClip(connected, MediaFiles::clipTypeOfMovie(*path), *path,
                                         std::nullopt)) {
        showAlert({.title = tr("Could not connect Clip"),
                   .text = tr("An error has occured while reconciling the clip.")});
        return;
    }
    _clips.changeClipsWithUndo(
        {.oldClips = selected, .newClips = {connected}, .actionName = tr("connect Clip")});
}

void ClipConnecting::unConnectSelectedClips() {
    if (isAtWork()) {
        return;
    }
    ClipChangeSet set{.oldClips = {}, .newClips = {}, .actionName = tr("unconnect Clips")};
    for (const ClipInfo& clip : _clips.selectedClipArray()) {
        ClipInfo parted = clip.deepCopy();
        if (ClipConnection::unConnectClip(parted)) {
            set.oldClips.push_back(clip);
            set.newClips.push_back(parted);
        }
    }
    _clips.changeClipsWithUndo(set);
}

std::vector<ClipInfo> ClipConnecting::selectedPlaceholders() const {
    std::vector<ClipInfo> clips = _clips.selectedClipArray();
    std::erase_if(clips, [](const ClipInfo& clip) { return !ClipStore::isProxyClip(clip); });
    return clips;
}

std::optional<QString> ClipConnecting::chooseFolder(const QString& title) {
    return Dialogs::current().chooseFolder(window(), {.title = title, .startFolder = {}, .suffixes = {}});
}

void ClipConnecting::showAlert(const Alert& alert) {
    Dialogs::current().alert(window(), alert);
}

QWidget* ClipConnecting::window() const {
    return _clips.tableView().window();
}

}  // namespace marquill
