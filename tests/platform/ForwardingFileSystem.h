// The system's files, for test doubles that change one thing of them: each call goes to the system unless a
// double overrides it. Header only; any thread.
#pragma once

#include "platform/FileSystem.h"

namespace marquill {

class ForwardingFileSystem : public FileSystem {
  public:
    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        return system().open(path, mode);
    }
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        return system().attributes(path, links);
    }
    Result<QString> linkTarget(const QString& link) override { return system().linkTarget(link); }
    Result<QStringList> list(const QString& folder) override { return system().list(folder); }
    Result<void> replace(const QString& from, const QString& to) override {
        return system().replace(from, to);
    }
    Result<void> move(const QString& from, const QString& to) override { return system().move(from, to); }
    Result<void> removeFile(const QString& path) override { return system().removeFile(path); }
    Result<void> removeFolder(const QString& path) override { return system().removeFolder(path); }
    Result<void> makeFolder(const QString& path) override { return system().makeFolder(path); }
    Result<void> syncFolder(const QString& path) override { return system().syncFolder(path); }
};

/// A file of the system's, for doubles of their own.
class ForwardingFile : public OpenFile {
  public:
    explicit ForwardingFile(std::unique_ptr<OpenFile> file) : _file(std::move(file)) {}

    Result<FileAttributes> attributes() override { return _file->attributes(); }
    Result<qint64> read(qint64 offset, std::span<char> buffer) override {
        return _file->read(offset, buffer);
    }
    Result<void> write(qint64 offset, QByteArrayView bytes) override { return _file->write(offset, bytes); }
    Result<void> sync() override { return _file->sync(); }
    Result<void> setPermissions(quint32 permissions) override { return _file->setPermissions(permissions); }

  private:
    std::unique_ptr<OpenFile> _file;
};

}  // namespace marquill
