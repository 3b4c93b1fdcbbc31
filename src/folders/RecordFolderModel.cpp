#include "folders/RecordFolderModel.h"

#include "platform/Theme.h"

#include <QBrush>
#include <QFont>

#include <algorithm>

namespace marquill {

namespace {

std::vector<bool> presenceOf(const std::vector<FolderRecord>& folders) {
    std::vector<bool> present;
    present.reserve(folders.size());
    for (const FolderRecord& folder : folders) {
        present.push_back(folder.exists());
    }
    return present;
}

// Struck out as well as grey, so that colour alone does not tell.
QVariant missingFont() {
    QFont font;
    font.setStrikeOut(true);
    return font;
}

}  // namespace

QString RecordFolderModel::identifier(Column column) {
    return column == recording ? u"recording"_s : u"folderName"_s;
}

int RecordFolderModel::rowOfFolder(const FolderRecord& folder) const {
    const auto found =
        std::ranges::find_if(_folders, [&folder](const FolderRecord& other) { return other.isSame(folder); });
    return found == _folders.end() ? -1 : static_cast<int>(found - _folders.begin());
}

int RecordFolderModel::rowOfPath(const QString& path) const {
    const auto found = std::ranges::find_if(
        _folders, [&path](const FolderRecord& folder) { return folder.folderPath() == path; });
    return found == _folders.end() ? -1 : static_cast<int>(found - _folders.begin());
}

void RecordFolderModel::setFolders(std::vector<FolderRecord> folders) {
    beginResetModel();
    _folders = std::move(folders);
    _present = presenceOf(_folders);
    endResetModel();
}

void RecordFolderModel::append(const FolderRecord& folder) {
    const int row = rowCount();
    const bool isPresent = folder.exists();
    beginInsertRows({}, row, row);
    _folders.push_back(folder);
    _present.push_back(isPresent);
    endInsertRows();
}

void RecordFolderModel::remove(const FolderRecord& folder) {
    const int row = rowOfFolder(folder);
    if (row < 0) {
        return;
    }
    beginRemoveRows({}, row, row);
    _folders.erase(_folders.begin() + row);
    _present.erase(_present.begin() + row);
    endRemoveRows();
}

void RecordFolderModel::setRecordingFolder(const std::optional<FolderRecord>& folder) {
    _recordingFolder = folder;
    reload();
}

void RecordFolderModel::reload() {
    _present = presenceOf(_folders);
    rowsChanged(0, rowCount() - 1);
}

void RecordFolderModel::refreshPresence() {
    const std::vector<bool> present = presenceOf(_folders);
    const std::vector<bool> before = std::exchange(_present, present);
    for (std::size_t row = 0; row < present.size(); ++row) {
        if (present[row] != before[row]) {
            rowsChanged(static_cast<int>(row), static_cast<int>(row));
        }
    }
}

int RecordFolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_folders.size());
}

int RecordFolderModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfList;
}

QVariant RecordFolderModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    if (index.column() == recording) {
        return recordingData(_folders[row], role);
    }
    return nameData(_folders[row], _present[row], role);
}

QVariant RecordFolderModel::recordingData(const FolderRecord& folder, int role) const {
    const bool isRecording = isRecordingFolder(folder);
    switch (role) {
        case Qt::EditRole:
            return isRecording ? 1 : 0;
        case Qt::CheckStateRole:
            return static_cast<int>(isRecording ? Qt::Checked : Qt::Unchecked);
        case Qt::AccessibleTextRole:
            return isRecording ? tr("Recording folder") : tr("Not the recording folder");
        case Qt::ToolTipRole:
            return isRecording ? tr("New clips are recorded into this folder")
                               : tr("Click to record new clips into this folder");
        default:
            return {};
    }
}

QVariant RecordFolderModel::nameData(const FolderRecord& folder, bool isPresent, int role) const {
    const QString name = folder.folderName().value_or(QString());
    const QString path = folder.folderPath().value_or(QString());
    const QString missing = tr("%1 does not exist or is offline").arg(path);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return name;
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return isPresent ? path : missing;
        case Qt::ForegroundRole:
            return isPresent ? QVariant() : QBrush(Theme::colours().mutedText);
        case Qt::FontRole:
            return isPresent ? QVariant() : missingFont();
        default:
            return {};
    }
}

QVariant RecordFolderModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    // The recording column is as narrow as its symbol: its title is heard, not seen.
    if (section == recording) {
        return role == Qt::AccessibleTextRole ? QVariant(tr("Recording")) : QVariant();
    }
    return role == Qt::DisplayRole ? QVariant(tr("Folder")) : QVariant();
}

Qt::ItemFlags RecordFolderModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return common | (index.column() == recording ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool RecordFolderModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return false;
    }
    if (index.column() == recording && (role == Qt::EditRole || role == Qt::CheckStateRole)) {
        Q_EMIT recordingClicked(index.row());
    } else if (index.column() == folderName && role == Qt::EditRole) {
        Q_EMIT nameEntered(index.row(), value.toString());
    }
    return false;
}

bool RecordFolderModel::isRecordingFolder(const FolderRecord& folder) const {
    return _recordingFolder && _recordingFolder->isSame(folder);
}

void RecordFolderModel::rowsChanged(int first, int last) {
    if (first <= last) {
        Q_EMIT dataChanged(index(first, 0), index(last, columnCountOfList - 1));
    }
}

}  // namespace marquill
