// The system's files, with every write counted, and dying at the one that a test names. Header only.
#pragma once

#include "platform/ForwardingFileSystem.h"

#include <functional>

namespace marquill {

class WatchedFileSystem final : public ForwardingFileSystem {
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

  private:
    class File final : public ForwardingFile {
      public:
        File(WatchedFileSystem& owner, std::unique_ptr<OpenFile> file)
            : ForwardingFile(std::move(file)), _owner(owner) {}
        Result<void> write(qint64 offset, QByteArrayView bytes) override {
            if (_owner.writes == _owner.dieAfter) {
                const bool tear = std::exchange(_owner.tears, false);
                const Result<void> half =
                    tear ? ForwardingFile::write(offset, bytes.first(bytes.size() / 2)) : Result<void>();
                return half ? failure(ErrorCode::inputOutput, u"died"_s) : half;
            }
            ++_owner.writes;
            _owner.bytes += bytes.size();
            return ForwardingFile::write(offset, bytes);
        }
        Result<void> sync() override {
            ++_owner.syncs;
            return {};
        }

      private:
        WatchedFileSystem& _owner;
    };
};

}  // namespace marquill
