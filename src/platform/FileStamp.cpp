#include "platform/FileStamp.h"

namespace marquill {

FileStamp FileStamp::of(const FileAttributes& attributes) {
    return {.device = attributes.device,
            .inode = attributes.inode,
            .size = attributes.size,
            .modificationDate = attributes.modificationDate};
}

Result<FileStamp> fileStamp(const QString& path) {
    const Result<FileAttributes> attributes = FileSystem::current().attributes(path, Links::follow);
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    return FileStamp::of(*attributes);
}

}  // namespace marquill
