#include "folders/FolderRecord.h"

#include "platform/Files.h"

namespace marquill {

namespace {

namespace key {
const QString folderPath = u"folderPath"_s;
const QString folderName = u"folderName"_s;
const QString busyCount = u"busyCount"_s;
}  // namespace key

}  // namespace

FolderRecord FolderRecord::forPath(const QString& path) {
    FolderRecord folder;
    folder.setFolderPath(path);
    folder.setFolderName(lastPathComponent(path));
    return folder;
}

std::optional<QString> FolderRecord::folderPath() const {
    return _record.string(key::folderPath);
}

std::optional<QString> FolderRecord::folderName() const {
    return _record.string(key::folderName);
}

std::optional<qint64> FolderRecord::busyCount() const {
    return _record.integer(key::busyCount);
}

bool FolderRecord::setFolderPath(const QString& path) {
    return _record.set(key::folderPath, path);
}

bool FolderRecord::setFolderName(const QString& name) {
    return _record.set(key::folderName, name);
}

bool FolderRecord::setBusyCount(qint64 count) {
    return _record.set(key::busyCount, count);
}

bool FolderRecord::exists() const {
    const std::optional<QString> path = folderPath();
    return path && folderExists(*path);
}

}  // namespace marquill
