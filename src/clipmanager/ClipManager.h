// The controller of the Clip Manager window, the program's main one: the record folders, the clips of the
// folder that is selected, and the one that is edited. There is one, made by init and dropped by finish; it
// owns its window. Operations on clip files are those of ClipStore, which it passes on. Main thread.
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

class QAbstractButton;
class QAction;
class QLabel;
class QMainWindow;
class QProgressBar;
class QSplitter;
class QWidget;

namespace marquill {

class ClipAttributes;
class ClipConflicts;
class ClipExports;
class ClipFolderWatch;
class ClipMarkerController;
class ClipMediaReader;
class ClipSearch;
class ClipSearchField;
class ClipTableController;
class CollapsibleWindow;
class CurrentClip;
class DayStrip;
class EmptyHint;
class MoviePreview;
class RecordFolderController;
class TableView;
class UnwrittenClips;
struct ClipMedia;
struct ImportedMovies;

class ClipManager : public QObject, public ClipStore, public RecordingDestination {
    Q_OBJECT

  public:
    /// Makes the one Clip Manager from the user defaults' "ClipManagerSettings" and shows the clips of the
    /// recording folder. Without its window description there is none.
    static void init();
    /// Writes the clip that is being edited, saves the settings and drops the Clip Manager with its window.
    static void finish();
    /// The one Clip Manager; null before init, after finish and without its window description.
    static ClipManager* getClipManager();

    /// The full paths of the clips in the trash of all record folders; empty without a Clip Manager.
    static QStringList getTrashClips();
    /// Deletes the clips at `paths` for good and tells when some could not be.
    static void deleteClips(const QStringList& paths);
    /// Saves what is being edited, as far as it can be.
    static void saveEdits();
    /// Saves the clip that is edited, and asks what to do with clips that cannot be saved and with those in
    /// the trash; whether the application may quit.
    static bool cleanUp();

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
    /// Looks for what others write into the shown folder, once that is read.
    ClipFolderWatch& folderWatch() { return *_watch; }

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
    /// Takes back the window's last step, or does it again.
    void undo();
    void redo();

    /// Makes placeholders in the shown folder for movies that the user chooses.
    void importQTclips();
    /// Makes placeholders in the shown folder for these movies, and tells when one could not be made.
    void importAndTell(const QStringList& movies);
    /// Shows which movies of the shown folder are in no list, and why.
    void showLeftOutMovies();
    /// The exports of the shown folder.
    ClipExports& exports() { return *_exports; }
    /// Opens the preferences at the label list.
    void showLabelList();
    /// Folds the window to its tool bar and status line, or unfolds it.
    void collapseWindow();
    /// Shows the day's takes along its hours above the clips, or no longer.
    void showHideDayStrip();
    /// Shows the clips' movies as pictures in the table, or no longer.
    void showHidePictures();

    // Each gives the keyboard to a part of the window.
    void goToFolders();
    void goToClips();
    /// To the search field, its text selected.
    void find();
    void goToMovie();
    void goToAttributes();
    void goToMarkers();

    /// Shows the clips of the one selected folder, or none when no folder or several are selected.
    void folderSelectionChanged();
    /// Shows the folder's clips as they are read, in the order of the listing.
    void showFolderContent(const std::optional<QString>& path);
    /// Takes the list's recording folder and posts RecordingFolderChanged.
    void recordingFolderChanged();
    /// Tells the current folder in the status line.
    void timerAction();

    // The current clip: the one that is selected alone.

    /// The clip in the attribute editor, or nothing.
    const std::optional<ClipInfo>& currentClip() const;
    /// Shows the clip in the attribute editor; its media follow once the selection has come to rest.
    void selectClip(const ClipInfo& clip);
    /// Writes the current clip and empties the editor.
    void unselectClip();
    /// Leaves the current clip, giving it the name that stands in the editor, for the selected one.
    void clipSelectionChanged();
    /// Shows the current clip's record again.
    void refreshCurrentClip();
    /// Takes the label list into the label menu.
    void labelsChanged();
    void updateLabelMenu();

    // What was entered into the editor goes into the current clip; without one nothing happens.

    /// A text is being typed.
    void textDidChange(const QString& key, const QString& text);
    /// Selects the clip anew, so that it is given the name.
    void clipNameChanged();
    void sceneChanged();
    void takeChanged();
    void commentChanged();
    void ratingChanged();
    void shotChanged();

    // The current clip's markers.

    /// Puts a marker that was just fired into the list while the clip's movie can be played and no take is
    /// recorded.
    void newMarkerIssued(const Dictionary& marker);
    /// Makes the preview's current time the clip's in point, or its out point.
    void clipIn();
    void clipOut();
    /// Adds a marker at the preview's current time.
    void addMarker();
    /// Moves the preview to the marker's start.
    void markerSelected(const Dictionary& marker);
    /// Takes the list's markers into the clip.
    void clipMarkerChanged();

  Q_SIGNALS:
    /// All clips of the shown folder are in the list.
    void folderHasBeenRead();

  protected:
    /// The window's: edits are written when it is left, and its frame is saved once it has come to rest.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ClipManager();

    Result<void> loadWindow();
    Result<void> connectOutlets();
    Result<void> setUpMarkerList();
    void setUpFolderList();
    void buildToolbar();
    void buildSearchBar();
    void setUpClipTable();
    void setUpPreview();
    void setUpEditor();
    void setUpExports();
    void setUpSplitViews();
    void constrainClipSplit(int position);
    void goTo(QWidget& part);
    std::optional<bool> isEnabled(const QString& command) const;
    std::vector<ClipInfo> clipsToExport();
    void listMovies(const QStringList& paths);
    ImportedMovies importMovies(const QStringList& paths);
    void showMedia();
    void mediaRead(const ClipMedia& media);
    void mediaOpened(const ClipMedia& media);
    void showNoMedia(const QString& message);
    void storeMarkers();
    void setMarkersLive(bool live);
    void enableMarkerButtons();
    void applyName(const ClipInfo& clip, const QString& name);
    void endTyping(const QString& key, const QString& text, const QString& shown);
    void folderRead();
    void showReading(bool isReading);
    void showTakeInProgress();
    void setUpSharing();
    void aboutToMerge(const ClipInfo& clip);
    void merged(const ClipInfo& clip, const ClipInfo& theirs);
    void aboutToBeGone(const ClipInfo& clip);
    void showHint();
    void observe();
    void restore(const Dictionary& settings);
    void restoreFrame(const Dictionary& settings);
    void folderMoved(const QString& from, const QString& to);
    QString statusText() const;
    QString hintText() const;     // what the clip list says while it is empty
    QString noMediaText() const;  // what the preview says while no clip is current

    std::unique_ptr<QMainWindow> _window;
    TableView* _recordFolderTable = nullptr;
    DayStrip* _dayStrip = nullptr;
    TableView* _clipTable = nullptr;
    TableView* _markerTable = nullptr;
    QAbstractButton* _addMarkerButton = nullptr;
    QSplitter* _folderSplitView = nullptr;
    QSplitter* _clipSplitView = nullptr;
    QSplitter* _detailSplitView = nullptr;
    MoviePreview* _moviePreview = nullptr;
    QLabel* _timeCode = nullptr;
    QLabel* _clipCount = nullptr;
    QLabel* _searchSummary = nullptr;
    ClipSearchField* _searchField = nullptr;
    QWidget* _statusLine = nullptr;
    QLabel* _selectedFolderPath = nullptr;
    QProgressBar* _progressInd = nullptr;
    EmptyHint* _noClipsHint = nullptr;
    QAction* _removeFolderItem = nullptr;
    QAction* _deleteClipButton = nullptr;
    UndoManager _undoManager;
    // After the window, as they must go before its tables do.
    std::unique_ptr<RecordFolderController> _folderList;
    std::unique_ptr<ClipTableController> _clips;
    std::unique_ptr<ClipSearch> _search;
    std::unique_ptr<UnwrittenClips> _unwritten;
    std::unique_ptr<ClipConflicts> _conflicts;
    std::unique_ptr<ClipFolderWatch> _watch;
    std::unique_ptr<CollapsibleWindow> _collapsible;
    std::unique_ptr<ClipAttributes> _attributes;
    std::unique_ptr<ClipMarkerController> _markers;
    std::unique_ptr<CurrentClip> _current;
    std::unique_ptr<ClipMediaReader> _mediaReader;
    std::unique_ptr<ClipExports> _exports;
    ClipFolderReader _reader;

    std::optional<FolderRecord> _recordFolder;
    bool _isReading = false;
    bool _isApplyingName = false;  // the selection is taken away and given back
    bool _markersAreLive = false;  // a clip is shown whose movie plays: markers fired now are its
    QTimer _timer;
    QTimer _mediaTimer;  // shows the media once a change of the selection has come to rest
    QTimer _frameTimer;  // saves the settings once the window's frame has come to rest
};

}  // namespace marquill
