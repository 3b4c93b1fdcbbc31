#include "platform/FileSystem.h"

#include <algorithm>
#include <atomic>

namespace marquill {

namespace {

std::atomic<FileSystem*> installed = nullptr;

}  // namespace

Date FileAttributes::creationDate() const {
    return birthDate ? std::min(*birthDate, modificationDate) : modificationDate;
}

FileSystem& FileSystem::current() {
    FileSystem* const fileSystem = installed.load(std::memory_order_acquire);
    return fileSystem ? *fileSystem : system();
}

void FileSystem::install(FileSystem* fileSystem) {
    installed.store(fileSystem, std::memory_order_release);
}

}  // namespace marquill
