// The clip table's commands that connect place holder clips to their media and part them again: choosers,
// alerts, and a sheet while media are looked for. Owned by the clip table's controller. Main thread.
#pragma once

#include "connect/BatchConnect.h"
#include "platform/ProgressSheet.h"

#include <memory>

namespace marquill {

class ClipTableController;

class ClipConnecting : public QObject {
    Q_OBJECT

  public:
    explicit ClipConnecting(ClipTableController& clips) : _clips(clips) {}

    // Each connects the selected place holders to media of its kind, by dates; see BatchConnect. All changes
    // of a batch are one undo step, made once everything is matched: a batch that is cancelled changes
    // nothing. A command given while another is at work is ignored.
    void batchConnectQTClips();
    void batchConnectRedClips_H();
    void batchConnectRedClips_P();
    void batchConnectRedClips_M();
    /// Matches R3D files and connects the movies that were converted from them.
    void batchConnectFCPLogAndTransferRedClips();
    /// Matches the clips of a P2 card and connects the movies that were converted from them.
    void batchConnectP2Clips();

    /// Connects the one selected place holder to a movie that the user chooses.
    void connectClip();
    /// Parts the selected clips from their media.
    void unConnectSelectedClips();

    /// The work under way.
    ProgressSheet& sheet() { return _sheet; }

  private:
    struct Batch;
    using Work = std::function<void(Batch&, const Progress&)>;
    using Done = std::function<void(const std::shared_ptr<Batch>&)>;

    void batchConnectClips();
    void batchConnectClipsWithFolder(const QString& folder, const std::optional<QString>& fcpClipFolder);
    void connectP2Clips(const std::shared_ptr<Batch>& batch);
    std::shared_ptr<Batch> newBatch() const;
    void run(const std::shared_ptr<Batch>& batch, Work work, Done done);
    void finish(const Batch& batch);
    bool isAtWork() const;
    std::vector<ClipInfo> selectedPlaceholders() const;
    std::optional<QString> chooseFolder(const QString& title);
    void showAlert(const Alert& alert);
    QWidget* window() const;

    // What the latest batch of files was given for.
    static inline QString gClipType = ClipType::quickTime;
    static inline bool gUseFCPLogAndTransfer = false;

    ClipTableController& _clips;
    ProgressSheet _sheet;
};

}  // namespace marquill
