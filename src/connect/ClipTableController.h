// The clip table: the clips of the shown record folder, their selection, the commands on them and the
// operations that can be undone. Owned by ClipManager, over a table that is owned by its window. Main thread.
#pragma once

#include "connect/ClipChangeSet.h"
#include "connect/ClipRows.h"
#include "connect/ClipTableColumns.h"
#include "connect/ClipTableModel.h"
#include "connect/ClipWriter.h"
#include "platform/BackgroundWork.h"

#include <QMenu>
#include <QSet>
#include <QTimer>

#include <functional>

class QKeyEvent;
class QLabel;

namespace marquill {

class ClipConnecting;
class ClipPictures;
class TableView;
class UndoManager;
class WritingSheet;
struct FolderChanges;
struct ReadClip;
struct RenamedClip;

class ClipTableController : public QObject {
    Q_OBJECT

  public:
    /// Makes `table` show the clips and `countText` how many are selected; `undoManager` is their window's.
    ClipTableController(TableView& table, QLabel& countText, UndoManager& undoManager,
                        QObject* parent = nullptr);
    ~ClipTableController() override;

    /// Opens a movie in the viewer; while there is none, in the default player.
    std::function<void(const QString& path)> openClipWithFile;

    // Content

    /// Shows these clips of that folder, nothing selected; without a folder the table is disabled.
    void setClipArray(std::vector<ClipInfo> clips, const std::optional<QString>& folder);
    /// Adds clips of the shown folder that were just read from it, with what askFiles() says of them. Those
    /// that came to the table in another way meanwhile are left out.
    void addClipsRead(const std::vector<ClipInfo>& clips, const std::vector<ClipFileFacts>& facts,
                      ClipArrival arrival = ClipArrival::made);
    /// Takes over what others have changed in the folder, if it is shown: the records of the rows stay the
    /// same ones. False when something has to wait and is to be looked for again: an editor is open in its
    /// row, or it was written here meanwhile.
    bool takeFolderChanges(const FolderChanges& changes);
    const std::vector<ClipInfo>& clipArray() const { return _model.clips(); }
    const std::optional<QString>& clipFolder() const { return _model.folder(); }
    /// A record folder was given another path on disk.
    void folderMoved(const QString& from, const QString& to);
    void reloadData();
    /// Sorts the rows by the column that the user chose; the selection stays with its clips.
    void sortClips();

    TableView& tableView() { return _table; }
    ClipTableModel& model() { return _model; }
    /// Writes the clips that are edited; what it could not write yet, it keeps.
    ClipWriter& writer() { return _writer; }
    /// Shows how far it is with very many.
    WritingSheet& writing() { return *_writing; }
    /// The menu "Labels", one item per label.
    QMenu& labelMenu() { return _labelMenu; }

    // Search. What is hidden stays in the folder's clips, with its place among them; it is not selected.

    /// Shows the clips that the query finds, see ClipFilter; it stays when another folder is shown. What is
    /// hidden leaves the selection.
    void setQuery(const QString& query);
    const QString& query() const { return _query; }
    /// What was left out of it, see ClipFilter::problem().
    const QString& queryProblem() const { return _queryProblem; }
    /// Whether the query hides what it does not find.
    bool isSearching() const { return !_model.filter().isEmpty(); }
    /// Makes all clips ready for the first key of a query, bit by bit.
    void prepareSearch();
    /// How many clips are shown: those found, and those shown though they are not.
    int shownClipCount() const { return _rows.rowCount(); }
    /// "7 shown", and how many of them the search does not find; "" while nothing is searched for.
    QString searchSummary() const;

    // Selection

    /// The selected records in the order of the rows.
    std::vector<ClipInfo> selectedClipArray() const;
    /// Selects just these, leaving out records that are not in the table, and scrolls to the first. What a
    /// search has hidden is shown until the next one.
    void selectClips(const std::vector<ClipInfo>& clips);
    void selectClip(const ClipInfo& clip) { selectClips({clip}); }
    /// Selects them on a later turn of the event loop.
    void deferredSelectRows(const std::vector<ClipInfo>& clips);
    void selectFirstClip();
    /// Selects the clip below the selection; after the last one the first.
    void selectNextClip();
    /// Selects the clip above the selection; without a selection the last one.
    void selectPrevClip();
    void scrollToClip(const ClipInfo& clip);
    void deselectAll();
    void updateClipCount();
    /// Takes the labels from the preferences.
    void updateLabelMenu();

    // Commands

    /// Adds a clip that has just been made, and selects it on a later turn of the event loop.
    void addItem(const ClipInfo& clip);
    /// Moves the selected clips to the trash.
    void deleteItem();
    void openClipInViewer();
    void openClipInQTPlayer();
    void showClipInFinder();
    /// Starts editing the name of the selected clip in its cell.
    void renameSelected();
    void doubleClicked(const QModelIndex& index);
    /// Rates the selected clip by the digits 0 to 5; takes the key when it did.
    void keyDown(QKeyEvent& event);
    /// Whether the command of that name, e.g. "deleteItem", can be given now.
    bool validateMenuItem(const QString& command) const;
    /// The commands that connect clips to media.
    ClipConnecting& connecting() { return *_connecting; }
    /// The pictures of the clips' movies.
    ClipPictures& pictures() { return *_pictures; }
    /// The table's context menu, its commands enabled as the selection allows.
    QMenu* menuForEvent();

    // Operations that can be undone. What is true on disk is true in the table afterwards: a clip whose file
    // could not be moved stays where it was, and the log tells.

    /// Shows clips whose files are in the folder already.
    void addClipsWithUndo(const ClipSet& set);
    void redoAddClipsWithUndo(const ClipSet& set);
    void undoAddClipsWithUndo(const ClipSet& set);
    /// Moves the clips' files into the folder's "Trash", replacing what has their name there.
    void deleteClipsWithUndo(const ClipSet& set);
    /// Brings them back; where their name is taken, with a "*" at its end.
    void undoDeleteClipsWithUndo(const ClipSet& set);
    /// Replaces records and writes the new ones.
    void changeClipsWithUndo(const ClipChangeSet& set);
    void undoChangeClipsWithUndo(const ClipChangeSet& set);
    /// Gives a clip of the shown folder another display name; its take and its kind stay. An alert says, on a
    /// later turn of the event loop, when that cannot be done, and nothing has changed then.
    void setClipName(const ClipInfo& clip, const QString& name);
    /// A value was entered into a cell; see ClipTableModel::valueEntered.
    void setObjectValue(const QVariant& value, int column, int row);
    /// Whether a clip that is given a value is selected thereby.
    enum class Selection { ofClip, stays };
    /// Gives `key` of a clip of the shown folder the value, and writes it; what the clip has already changes
    /// nothing, nor does an empty text where it has none.
    void enterAttribute(const ClipInfo& clip, const QString& key, const Value& value,
                        Selection selection = Selection::ofClip);
    /// Takes over what stands in a cell's open editor, and closes it.
    void endEditing();

  Q_SIGNALS:
    /// How many clips there are, are shown or are selected may be another number now.
    void countChanged();
    /// The file of the clip is gone, and its row is about to go: what was typed last is to be written, so
    /// that its loss is told.
    void aboutToBeGone(const marquill::ClipInfo& clip);

  private:
    class SelectionChange;
    struct Taking;

    /// Keeps what is on screen where it is while rows come and go above it; at the very top, what comes there
    /// is seen.
    class RowOnTop {
      public:
        explicit RowOnTop(ClipTableController& controller);
        RowOnTop(const RowOnTop&) = delete;
        RowOnTop& operator=(const RowOnTop&) = delete;
        ~RowOnTop();

      private:
        ClipTableController& _controller;
        std::optional<ClipInfo> _clip;
        int _offset = 0;
    };

    using ClipSetOperation = void (ClipTableController::*)(const ClipSet&);
    using ChangeSetOperation = void (ClipTableController::*)(const ClipChangeSet&);

    void wireTable();
    void setUpSearch();
    void buildContextMenu();
    void labelsChanged();
    void tableViewSelectionDidChange();
    // Rows are the model's, whether a search shows them or not.
    std::vector<int> selectedRows() const;
    bool isSelected(int row) const;
    void selectRows(const std::vector<int>& rows);
    void selectOnly(int row);
    void hideKeptClips();
    std::optional<ClipInfo> onlySelected() const;
    void withSelectedFile(const QString& advice, const std::function<void(const QString&)>& open);
    void openInDefaultPlayer(const QString& path);
    void showAlert(const QString& title, const QString& text);
    void askShownFiles();

    bool isShown(const QString& folder) const { return clipFolder() == folder; }
    QString presentFolder(const QString& folder) const;
    ClipInfo presentRecord(const ClipInfo& clip, const QString& folder) const;
    int rowFor(const ClipInfo& clip) const;
    void show(const std::vector<ClipInfo>& clips);
    void moveToTrash(const ClipSet& set, ClipSetOperation inverse, const QString& actionName);
    void moveFromTrash(const ClipSet& set, ClipSetOperation inverse, const QString& actionName);
    void removeFromTable(const std::vector<ClipInfo>& clips);
    void exchangeClips(const ClipChangeSet& set, const std::vector<ClipInfo>& from,
                       const std::vector<ClipInfo>& to, ChangeSetOperation inverse, const char* notFound);
    void keepLaterChanges(const ClipChangeSet& set, const std::vector<ClipInfo>& from,
                          const std::vector<ClipInfo>& to) const;
    void registerUndo(ClipSetOperation inverse, const ClipSet& set, const QString& actionName);
    void renameFile(const ClipInfo& clip, const QString& folder, const QString& clipName);
    void setAttribute(const ClipInfo& clip, const QString& folder, const QString& key, const Value& value,
                      Selection selection = Selection::ofClip);

    std::optional<ClipInfo> clipOfFile(const QString& name);
    bool hasToWait(const QString& name, Taking& taking);
    bool isEditedInCell(const ClipInfo& clip) const;
    void takeChanged(const ReadClip& clip, Taking& taking);
    void takeInto(const ClipInfo& present, const ReadClip& clip, Taking& taking);
    int rowOfName(const QString& name, Taking& taking) const;
    void showNew(const ReadClip& clip, Taking& taking);
    void takeRenamed(const RenamedClip& renamed, Taking& taking);
    void takeGone(const QStringList& names, Taking& taking);
    void showTaken(const Taking& taking, const std::vector<ClipInfo>& selected);

    TableView& _table;
    QLabel& _countText;
    UndoManager& _undoManager;
    ClipTableModel _model;
    ClipRows _rows{_model};
    ClipWriter _writer;
    std::unique_ptr<WritingSheet> _writing;
    std::unique_ptr<ClipTableColumns> _columns;
    std::unique_ptr<ClipConnecting> _connecting;
    std::unique_ptr<ClipPictures> _pictures;
    QMenu _labelMenu;
    QMenu _contextMenu;
    QSet<QString> _arrivedNames;  // clips that came while the folder is being read, and not by reading
    std::vector<std::pair<QString, QString>> _movedFolders;  // from, to; in the order they were moved
    QString _query;
    QString _queryProblem;
    QTimer _keptTimer;     // hides what is not found any more once the selection has left it
    QTimer _prepareTimer;  // runs while the clips' texts are folded
    int _preparedRows = 0;
    BackgroundWork _fileWork;
    QTimer _fileTimer;
    int _selectionChanges = 0;       // SelectionChange objects alive
    bool _selectionChanged = false;  // while one is
};

}  // namespace marquill
