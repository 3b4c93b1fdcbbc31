// One file in memory, for fuzz targets. Header only.
#pragma once

#include "platform/FileSystem.h"

#include <cstring>

namespace marquill {

class MemoryFileSystem final : public FileSystem {
  public:
    /// In use as long as it lives.
    explicit MemoryFileSystem(QByteArray content) : bytes(std::move(content)) { install(this); }
    ~MemoryFileSystem() override { install(nullptr); }

    QByteArray bytes;
    int writesLeft = -1;  ///< writes until all fails; -1: it never does

    Result<std::unique_ptr<OpenFile>> open(const QString&, OpenMode) override {
        return std::make_unique<File>(*this);
    }
    Result<FileAttributes> attributes(const QString&, Links) override {
        return FileAttributes{
            .type = FileType::regular, .size = bytes.size(), .modificationDate = {}, .birthDate = {}};
    }
    Result<QString> linkTarget(const QString&) override { return unsupported(); }
    Result<QStringList> list(const QString&) override { return unsupported(); }
    Result<void> replace(const QString&, const QString&) override { return unsupported(); }
    Result<void> move(const QString&, const QString&) override { return unsupported(); }
    Result<void> removeFile(const QString&) override { return unsupported(); }
    Result<void> removeFolder(const QString&) override { return unsupported(); }
    Result<void> makeFolder(const QString&) override { return unsupported(); }
    Result<void> syncFolder(const QString&) override { return unsupported(); }

  private:
    static std::unexpected<Error> unsupported() {
        return failure(ErrorCode::unsupported, u"not in memory"_s);
    }

    class File final : public OpenFile {
      public:
        explicit File(MemoryFileSystem& owner) : _owner(owner) {}
        Result<FileAttributes> attributes() override { return _owner.attributes({}, Links::follow); }
        Result<qint64> read(qint64 offset, std::span<char> buffer) override {
            const qint64 count =
                std::clamp<qint64>(_owner.bytes.size() - offset, 0, static_cast<qint64>(buffer.size()));
            if (count > 0) {
                std::memcpy(buffer.data(), _owner.bytes.constData() + offset,
                            static_cast<std::size_t>(count));
            }
            return count;
        }
        Result<void> write(qint64 offset, QByteArrayView data) override {
            const bool dies = _owner.writesLeft == 0;
            const QByteArrayView part = dies ? data.first(data.size() / 2) : data;
            if (offset + part.size() > _owner.bytes.size()) {
                _owner.bytes.resize(offset + part.size(), '\0');
            }
            std::memcpy(_owner.bytes.data() + offset, part.data(), static_cast<std::size_t>(part.size()));
            _owner.writesLeft -= dies ? 0 : 1;
            return dies ? Result<void>(failure(ErrorCode::inputOutput, u"died"_s)) : Result<void>();
        }
        Result<void> sync() override { return {}; }
        Result<void> setPermissions(quint32) override { return {}; }

      private:
        MemoryFileSystem& _owner;
    };
};

}  // namespace marquill
