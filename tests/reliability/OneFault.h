// A FileSystem that notes every operation, reading too, and makes one of them fail. Nothing waits for the
// device: syncs succeed at once. Any thread.
#pragma once

#include "platform/FileSystem.h"

#include <QHash>
#include <QRegularExpression>

#include <mutex>

namespace marquill {

/// An operation of a run: what is done to which file, and for the how-manieth time. Threads may bring
/// operations on different files into another order, but not those on one.
struct FileOperation {
    QString what;  ///< e.g. "write A#01.xml"; random parts of a name are "*"
    int count = 1;

    QString text() const { return u"%1 (%2)"_s.arg(what).arg(count); }
};

class OneFault final : public FileSystem {
  public:
    /// In use as long as it lives.
    OneFault() { install(this); }
    ~OneFault() override { install(nullptr); }
    OneFault(const OneFault&) = delete;
    OneFault& operator=(const OneFault&) = delete;

    /// Forgets what was noted; from here on, that operation fails. A failing write writes half its bytes.
    void arm(const FileOperation& operation, ErrorCode code) {
        const std::scoped_lock lock(_mutex);
        clear();
        _armed = operation;
        _code = code;
    }
    /// Forgets what was noted; nothing fails.
    void disarm() {
        const std::scoped_lock lock(_mutex);
        clear();
    }
    /// What was done since.
    QList<FileOperation> operations() const {
        const std::scoped_lock lock(_mutex);
        return _operations;
    }
    /// Whether the operation came, and failed.
    bool hasFailed() const {
        const std::scoped_lock lock(_mutex);
        return _hasFailed;
    }

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override;
    Result<FileAttributes> attributes(const QString& path, Links links) override {
        return perform<FileAttributes>(u"attributes"_s, path,
                                       [&] { return system().attributes(path, links); });
    }
    Result<QString> linkTarget(const QString& link) override {
        return perform<QString>(u"linkTarget"_s, link, [&] { return system().linkTarget(link); });
    }
    Result<QStringList> list(const QString& folder) override {
        return perform<QStringList>(u"list"_s, folder, [&] { return system().list(folder); });
    }
    Result<void> replace(const QString& from, const QString& to) override {
        return perform<void>(u"replace"_s, to, [&] { return system().replace(from, to); });
    }
    Result<void> move(const QString& from, const QString& to) override {
        return perform<void>(u"move"_s, to, [&] { return system().move(from, to); });
    }
    Result<void> removeFile(const QString& path) override {
        return perform<void>(u"removeFile"_s, path, [&] { return system().removeFile(path); });
    }
    Result<void> removeFolder(const QString& path) override {
        return perform<void>(u"removeFolder"_s, path, [&] { return system().removeFolder(path); });
    }
    Result<void> makeFolder(const QString& path) override {
        return perform<void>(u"makeFolder"_s, path, [&] { return system().makeFolder(path); });
    }
    Result<void> syncFolder(const QString& path) override {
        return perform<void>(u"syncFolder"_s, path, [] { return Result<void>(); });
    }

  private:
    class File;

    void clear() {
        _operations.clear();
        _counts.clear();
        _armed.reset();
        _hasFailed = false;
    }

    static QString withoutRandomParts(const QString& path) {
        static const QRegularExpression random(u"[0-9a-f]{16}|/tmp/[^/]+"_s);
        return QString(path).replace(random, u"*"_s);
    }

    std::optional<Error> judge(const QString& what, const QString& path) {
        const std::scoped_lock lock(_mutex);
        const QString key = what + u' ' + withoutRandomParts(path);
        const FileOperation operation{key, ++_counts[key]};
        _operations.append(operation);
        if (!_armed || _armed->what != operation.what || _armed->count != operation.count) {
            return std::nullopt;
        }
        _hasFailed = true;
        return Error{_code, u"A test made this fail."_s, path};
    }

    template <class Answer, class Operation>
    Result<Answer> perform(const QString& what, const QString& path, Operation operation) {
        if (const std::optional<Error> error = judge(what, path)) {
            return std::unexpected(*error);
        }
        return operation();
    }

    mutable std::mutex _mutex;
    QList<FileOperation> _operations;
    QHash<QString, int> _counts;
    std::optional<FileOperation> _armed;
    ErrorCode _code = ErrorCode::inputOutput;
    bool _hasFailed = false;
};

class OneFault::File final : public OpenFile {
  public:
    File(OneFault& owner, std::unique_ptr<OpenFile> file, QString path)
        : _owner(owner), _file(std::move(file)), _path(std::move(path)) {}

    Result<FileAttributes> attributes() override {
        return _owner.perform<FileAttributes>(u"attributesOfOpen"_s, _path,
                                              [this] { return _file->attributes(); });
    }
    Result<FileAttributes> attributesAtOpening() override { return _file->attributesAtOpening(); }
    Result<qint64> read(qint64 offset, std::span<char> buffer) override {
        return _owner.perform<qint64>(u"read"_s, _path, [&] { return _file->read(offset, buffer); });
    }
    Result<void> write(qint64 offset, QByteArrayView bytes) override {
        if (const std::optional<Error> error = _owner.judge(u"write"_s, _path)) {
            static_cast<void>(_file->write(offset, bytes.first(bytes.size() / 2)));
            return std::unexpected(*error);
        }
        return _file->write(offset, bytes);
    }
    Result<void> sync() override {
        return _owner.perform<void>(u"sync"_s, _path, [] { return Result<void>(); });
    }
    Result<void> setPermissions(quint32 permissions) override {
        return _owner.perform<void>(u"setPermissions"_s, _path,
                                    [&] { return _file->setPermissions(permissions); });
    }

  private:
    OneFault& _owner;
    std::unique_ptr<OpenFile> _file;
    QString _path;
};

inline Result<std::unique_ptr<OpenFile>> OneFault::open(const QString& path, OpenMode mode) {
    const QString what = mode == OpenMode::createNew ? u"create"_s : u"open"_s;
    auto file = perform<std::unique_ptr<OpenFile>>(what, path, [&] { return system().open(path, mode); });
    if (!file) {
        return file;
    }
    return std::make_unique<File>(*this, *std::move(file), path);
}

}  // namespace marquill
