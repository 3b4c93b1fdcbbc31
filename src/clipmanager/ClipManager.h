// The controller of the Clip Manager window, the program's main one: the record folders, and the clips of the
// folder that is selected. There is one, made by init and dropped by finish; it owns its window. Operations
// on clip files are those of ClipStore, which it passes on. Main thread.
#pragma once

#include "clipstore/ClipStore.h"
#include "connect/ClipFolderReader.h"
#include "folders/FolderRecord.h"
#include "platform/UndoManager.h"
#include "recording/RecordingDestination.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QAction;
class QLabel;
class QMainWindow;
class QProgressBar;
class QSplitter;

namespace marquill {

class ClipTableController;
class MoviePreview;
class RecordFolderController;
class TableView;

class ClipManager : public QObject, public ClipStore, public RecordingDestination {
    Q_OBJECT

  public:
    /// Makes the one Clip Manager from the user defaults' "ClipManagerSettings". Without its window
    /// description there is none.
    static void init();
    /// Saves the settings and drops the Clip Manager with its window.
    static void finish();
    /// The one Clip Manager; null before init, after finish and without its window description.
    static ClipManager* getClipManager();

    /// A Clip Manager whose list, window frame, recording folder and visibility are those of `settings`;
    /// null, and told to the log, when the window description cannot be loaded.
    static std::unique_ptr<ClipManager> initWithSettings(const Dictionary& settings);
    ~ClipManager() override;

    QMainWindow* window() const { return _window.get(); }
    RecordFolderController& folderList() { return *_folderList; }
    ClipTableController& clipTable() { return *_clips; }
    /// The window's.
    UndoManager& undoManager() { return _undoManager; }
    /// The path of the folder whose clips are shown, or nothing.
    const std::optional<QString>& shownFolder() const;
    /// Whether the shown folder is still being read.
    bool isReading() const { return _isReading; }

    /// The state that "ClipManagerSettings" keeps.
    Dictionary settings() const;
    /// Stores it in the user defaults, and these in their file.
    void saveSettings() const;

    std::optional<FolderRecord> recordFolder() override { return _recordFolder; }
    void addClip(const ClipInfo& info, const QString& folder) override;
    void useRecordFolder(const std::optional<FolderRecord>& folder);

    void addFolderButton();
    void removeFolderButton();
    void deleteClipsButton();
    /// Sets the title of a command on clips, "undo" and "redo" included, and whether it is enabled.
    void validateMenuItem(QAction& action);

    /// Shows the clips of the one selected folder, or none when no folder or several are selected.
    void folderSelectionChanged();
    /// Shows the folder's clips as they are read, in the order of the listing.
    void showFolderContent(const std::optional<QString>& path);
    /// Takes the list's recording folder and posts RecordingFolderChanged.
    void recordingFolderChanged();
    /// Tells the current folder in the status line.
    void timerAction();

  private:
    ClipManager();

    Result<void> loadWindow();
    void setUpFolderList();
    void buildToolbar();
    void setUpClipTable();
    void setUpPreview();
    void clipSelectionChanged();
    void showMedia();
    void folderRead();
    void showReading(bool isReading);
    void observe();
    void restore(const Dictionary& settings);
    void restoreFrame(const Dictionary& settings);
    void folderMoved(const QString& from, const QString& to);
    QString statusText() const;
    QString hintText() const;  // what the clip list says while it is empty

    std::unique_ptr<QMainWindow> _window;
    TableView* _recordFolderTable = nullptr;
    TableView* _clipTable = nullptr;
    QSplitter* _folderSplitView = nullptr;
    QSplitter* _clipSplitView = nullptr;
    MoviePreview* _moviePreview = nullptr;
    QLabel* _timeCode = nullptr;
    QLabel* _clipCount = nullptr;
    QLabel* _selectedFolderPath = nullptr;
    QProgressBar* _progressInd = nullptr;
    QLabel* _noClipsHint = nullptr;
    QAction* _removeFolderItem = nullptr;
    QAction* _deleteClipButton = nullptr;
    UndoManager _undoManager;
    // After the window, as they must go before its tables do.
    std::unique_ptr<RecordFolderController> _folderList;
    std::unique_ptr<ClipTableController> _clips;
    ClipFolderReader _reader;

    std::optional<FolderRecord> _recordFolder;
    bool _isReading = false;
    QTimer _timer;
    QTimer _mediaTimer;  // shows the media once a change of the selection has come to rest
};

}  // namespace marquill
