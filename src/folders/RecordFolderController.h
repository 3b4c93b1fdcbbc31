// The record folder list: the folders whose clips the program shows, and which of them it records into. It
// holds the rules that keep a folder somebody works in from being renamed, removed or replaced; refusals are
// alerts. Owned by ClipManager, over a table that is owned by the window. Main thread.
#pragma once

#include "folders/FolderRecord.h"
#include "folders/RecordFolderModel.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>

namespace marquill {

class TableView;

class RecordFolderController : public QObject {
    Q_OBJECT

  public:
    /// Makes `table` show the list and answer to this controller.
    explicit RecordFolderController(TableView& table, QObject* parent = nullptr);
    ~RecordFolderController() override;

    /// Takes the list from "kRecordFolderArray" and the recording folder from "kRecordFolderPath"; one that
    /// does not stand on disk is refused with its alert.
    void restoreFromSettings(const Dictionary& settings);
    void writeSettings(Dictionary& settings) const;

    /// The records in the order of the rows.
    const std::vector<FolderRecord>& folderArray() const { return _model.folders(); }
    /// Replaces the list and deselects all rows. The recording folder stays as it is.
    void setFolderArray(std::vector<FolderRecord> folders);
    const std::optional<FolderRecord>& recordingFolder() const { return _model.recordingFolder(); }
    /// Records into `folder` from now on, or into none. Refused with an alert when it does not stand on disk
    /// or when the present one is busy. Posts RecordFolderHasChanged when the record is another one than now.
    void setRecordingFolder(const std::optional<FolderRecord>& folder);

    /// The selected records in the order of the rows.
    std::vector<FolderRecord> selectedFolderArray() const;
    /// Selects just the rows of that `folderPath`; without a path nothing happens.
    void selectFolder(const std::optional<QString>& path);
    /// Selects just the rows whose `folderPath` is one of `paths`.
    void selectFolders(const QStringList& paths);

    /// Appends the folder at `path` unless it is in the list. It becomes the recording folder only where
    /// there is none: takes go on where they went.
    void addFolder(const QString& path);
    /// Lets the user choose folders and appends them; the last one added becomes the recording folder.
    void addItem();
    /// Takes the selected folders off the list, except busy ones; nothing on disk is touched.
    void deleteItem();
    /// Ends a sheet that asked before deleting: hides it and deletes, unless `returnCode` is 0.
    void deleteFolderPanelDidEnd(QWidget* sheet, int returnCode);
    /// Renames the folder on disk, and its record with it.
    void setItemName(const FolderRecord& folder, const QString& name);
    /// Shows the first selected folder in the desktop's file browser.
    void showFolderInFinder();
    /// The list's context menu, its commands enabled as the selection allows.
    QMenu* menuForEvent();

    RecordFolderModel& model() { return _model; }

  Q_SIGNALS:
    /// What is saved in the settings has changed: the list, a record in it, or the recording folder.
    void foldersChanged();
    /// A folder was given another name on disk.
    void folderMoved(const QString& from, const QString& to);

  private:
    class SelectionChange;

    void wireTable();
    void buildContextMenu();
    void recordingClicked(int row);
    void nameEntered(int row, const QString& name);
    void recordIntoSelected();
    int appendFolders(const QStringList& paths);
    bool removeFolders(const std::vector<FolderRecord>& folders);
    void selectRows(const QList<int>& rows);
    void selectionDidChange();
    void showAlert(const QString& title, const QString& text);

    TableView& _table;
    RecordFolderModel _model;
    QMenu _contextMenu;
    QTimer _presenceTimer;
    int _selectionChanges = 0;       // SelectionChange objects alive
    bool _selectionChanged = false;  // while one is
};

}  // namespace marquill
