// The system's files, with every write counted, and dying at the one that a test names. Header only.
#pragma once

#include "platform/FileSystem.h"

#include <functional>

namespace marquill {

class WatchedFileSystem final : public FileSystem {
  public:
    /// In use as long as it lives.
    WatchedFileSystem() { install(this); }
    ~WatchedFileSystem() override { install(nullptr); }

    int writes = 0;    ///< writes that were done whole
    qint64 bytes = 0;  ///< of them
    int syncs = 0;
    int dieAfter = -1;                      ///< how many writes are done before all fails; -1: all of them
    bool tears = false;                     ///< whether the first half of the deadly write is still done
    std::function<void()> afterCheck = {};  ///< called once, after the first look at a path's attributes

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override {
        auto file = system().open(path, mode);
        if (!file) {
            return std::unexpected(file.error());
        }
        return std::make_unique<File>(*this, *std::move(file));
    }
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        Result<FileAttributes> attributes = system().attributes(path, links);
        if (afterCheck) {
            std::exchange(afterCheck, {})();
        }
        return attributes;
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

  private:
    class File final : public OpenFile {
      public:
        File(WatchedFileSystem& owner, std::unique_ptr<OpenFile> file)
            : _owner(owner), _file(std::move(file)) {}
        Result<FileAttributes> attributes() override { return _file->attributes(); }
        Result<qint64> read(qint64 offset, std::span<char> buffer) override {
            return _file->read(offset, buffer);
        }
        Result<void> write(qint64 offset, QByteArrayView bytes) override {
            if (_owner.writes == _owner.dieAfter) {
                const bool tear = std::exchange(_owner.tears, false);
                const Result<void> half =
                    tear ? _file->write(offset, bytes.first(bytes.size() / 2)) : Result<void>();
                return half ? failure(ErrorCode::inputOutput, u"died"_s) : half;
            }
            ++_owner.writes;
            _owner.bytes += bytes.size();
            return _file->write(offset, bytes);
        }
        Result<void> sync() override {
            ++_owner.syncs;
            return {};
        }
        Result<void> setPermissions(quint32 permissions) override {
            return _file->setPermissions(permissions);
        }

      private:
        WatchedFileSystem& _owner;
        std::unique_ptr<OpenFile> _file;
    };
};

}  // namespace marquill
