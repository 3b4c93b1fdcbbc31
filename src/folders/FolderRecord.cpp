#include "folders/FolderRecord.h"

#include "platform/Files.h"

namespace marquill {

namespace {

const QString folderPathKey = u"folderPath"_s;
const QString folderNameKey = u"folderName"_s;
const QString busyCountKey = u"busyCount"_s;

}  // namespace

FolderRecord FolderRecord::forPath(const QString& path) {
    FolderRecord folder;
    folder.setFolderPath(path);
    folder.setFolderName(lastPathComponent(path));
    return folder;
}

std::optional<QString> FolderRecord::folderPath() const {
    return _record.string(folderPathKey);
}

std::optional<QString> FolderRecord::folderName() const {
    return _record.string(folderNameKey);
}

std::optional<qint64> FolderRecord::busyCount() const {
    return _record.integer(busyCountKey);
}

bool FolderRecord::setFolderPath(const QString& path) {
    return _record.set(folderPathKey, path);
}

bool FolderRecord::setFolderName(const QString& name) {
    return _record.set(folderNameKey, name);
}

bool FolderRecord::setBusyCount(qint64 count) {
    return _record.set(busyCountKey, count);
}

bool FolderRecord::exists() const {
    const std::optional<QString> path = folderPath();
    return path && folderExists(*path);
}

}  // namespace marquill
