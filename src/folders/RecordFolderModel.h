// The rows and texts of the record folder list: which folder is recorded into, and what each is called. It
// changes nothing on its own account: edits and clicks are passed on as signals. Owned by
// RecordFolderController. Main thread.
#pragma once

#include "folders/FolderRecord.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

namespace marquill {

class RecordFolderModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// "recording" holds 1 in the row of the recording folder, else 0; "folderName" the folder's name.
    enum Column { recording, folderName, columnCountOfList };

    using QAbstractTableModel::QAbstractTableModel;

    /// "recording" or "folderName".
    static QString identifier(Column column);

    const std::vector<FolderRecord>& folders() const { return _folders; }
    const std::optional<FolderRecord>& recordingFolder() const { return _recordingFolder; }
    /// The row of the record (by identity), or -1.
    int rowOfFolder(const FolderRecord& folder) const;
    /// The row of the first record with that `folderPath`, or -1.
    int rowOfPath(const QString& path) const;

    /// Replaces all rows; the recording mark stays with its record.
    void setFolders(std::vector<FolderRecord> folders);
    void append(const FolderRecord& folder);
    void remove(const FolderRecord& folder);
    void setRecordingFolder(const std::optional<FolderRecord>& folder);
    /// Tells that records may have changed, and looks anew whether their folders stand on disk.
    void reload();
    /// Looks whether the folders stand on disk, and shows what has changed. Painting never asks the disk,
    /// which may be a slow volume: it shows what this found last.
    void refreshPresence();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Passes the edit on; false, as the list's owner decides what comes of it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    /// The recording column of the row was clicked.
    void recordingClicked(int row);
    /// A name was typed into the row.
    void nameEntered(int row, const QString& name);

  private:
    bool isRecordingFolder(const FolderRecord& folder) const;
    QVariant recordingData(const FolderRecord& folder, int role) const;
    QVariant nameData(const FolderRecord& folder, bool isPresent, int role) const;
    void rowsChanged(int first, int last);

    std::vector<FolderRecord> _folders;
    std::vector<bool> _present;  // by row: whether the folder stood on disk when last looked
    std::optional<FolderRecord> _recordingFolder;
};

}  // namespace marquill
