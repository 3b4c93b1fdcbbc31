#include "platform/FileSystem.h"

#include "platform/Files.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>

namespace marquill {

namespace {

std::atomic<FileSystem*> installed = nullptr;

}  // namespace

Result<void> FileSystem::setExtendedAttribute(const QString& path, const QByteArray&, QByteArrayView) {
    return failure(ErrorCode::unsupported,
                   QCoreApplication::translate("FileSystem", "The volume keeps no extended attributes."),
                   path);
}

Date FileAttributes::creationDate() const {
    return birthDate ? std::min(*birthDate, modificationDate) : modificationDate;
}

Result<std::vector<FolderEntry>> FileSystem::entries(const QString& folder) {
    const Result<QStringList> names = list(folder);
    if (!names) {
        return std::unexpected(names.error());
    }
    std::vector<FolderEntry> entries;
    entries.reserve(static_cast<std::size_t>(names->size()));
    for (const QString& name : *names) {
        const Result<FileAttributes> found = attributes(joinPath(folder, name), Links::keep);
        entries.push_back({.name = name, .type = found ? found->type : FileType::other});
    }
    return entries;
}

FileSystem& FileSystem::current() {
    FileSystem* const fileSystem = installed.load(std::memory_order_acquire);
    return fileSystem ? *fileSystem : system();
}

void FileSystem::install(FileSystem* fileSystem) {
    installed.store(fileSystem, std::memory_order_release);
}

}  // namespace marquill
