// A FileSystem that counts the changes made through it and makes the n-th one fail, or the process "die" at
// it: nothing reaches the files any more. Any thread.
#pragma once

#include "platform/FileSystem.h"

#include <limits>
#include <mutex>

namespace marquill {

class FaultyFileSystem final : public FileSystem {
  public:
    /// How much of the operation it dies at is done. Half is half the bytes of a write; other operations
    /// cannot be halved and are then not done.
    enum class Death { before, halfway, after };

    explicit FaultyFileSystem(FileSystem& wrapped = FileSystem::system()) : _wrapped(wrapped) {}

    /// Makes the `number`-th change from now on fail, counted from 1. A failing write writes half its bytes.
    void failAt(int number, ErrorCode code) { arm(number, number, code); }
    /// Makes that change and all later ones fail but the removals, as on a full volume.
    void failFrom(int number, ErrorCode code) { arm(number, std::numeric_limits<int>::max(), code); }
    /// Makes the `number`-th change from now on the last; after it every call fails, reading too.
    void dieAt(int number, Death death);
    /// Counts anew, and neither fails nor is dead.
    void reset();

    int changeCount() const;
    bool isDead() const;
    /// The changes in order, those that failed included: "create", "write", "sync", "setPermissions",
    /// "replace", "move", "removeFile", "removeFolder", "makeFolder", "syncFolder", each with its path.
    QStringList changes() const;

    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override;
    Result<FileAttributes> attributes(const QString& path, Links links) override;
    Result<QString> linkTarget(const QString& link) override;
    Result<QStringList> list(const QString& folder) override;
    Result<void> replace(const QString& from, const QString& to) override;
    Result<void> move(const QString& from, const QString& to) override;
    Result<void> removeFile(const QString& path) override;
    Result<void> removeFolder(const QString& path) override;
    Result<void> makeFolder(const QString& path) override;
    Result<void> syncFolder(const QString& path) override;

  private:
    class File;
    enum class Amount { none, half, all };
    struct Verdict {
        Amount amount = Amount::all;
        std::optional<ErrorCode> error;
    };

    void arm(int first, int last, ErrorCode code);
    Verdict judge(const QString& operation, const QString& path);
    template <class Change>
    Result<void> perform(const QString& operation, const QString& path, Change change);
    template <class Answer, class Read>
    Result<Answer> readUnlessDead(const QString& path, Read read);

    FileSystem& _wrapped;
    mutable std::mutex _mutex;
    QStringList _changes;
    int _deathAt = 0;
    Death _death = Death::before;
    bool _isDead = false;
    int _firstFailure = 0;
    int _lastFailure = 0;
    ErrorCode _failure = ErrorCode::inputOutput;
};

/// Makes a FileSystem the one in use while it lives.
class InstalledFileSystem {
  public:
    explicit InstalledFileSystem(FileSystem& fileSystem) { FileSystem::install(&fileSystem); }
    ~InstalledFileSystem() { FileSystem::install(nullptr); }
    InstalledFileSystem(const InstalledFileSystem&) = delete;
    InstalledFileSystem& operator=(const InstalledFileSystem&) = delete;
};

class FaultyFileSystem::File final : public OpenFile {
  public:
    File(FaultyFileSystem& owner, std::unique_ptr<OpenFile> wrapped, QString path)
        : _owner(owner), _wrapped(std::move(wrapped)), _path(std::move(path)) {}

    Result<FileAttributes> attributes() override {
        return _owner.readUnlessDead<FileAttributes>(_path, [this] { return _wrapped->attributes(); });
    }
    Result<qint64> read(qint64 offset, std::span<char> buffer) override {
        return _owner.readUnlessDead<qint64>(_path, [&] { return _wrapped->read(offset, buffer); });
    }
    Result<void> write(qint64 offset, QByteArrayView bytes) override {
        return _owner.perform(u"write"_s, _path, [&](Amount amount) {
            return _wrapped->write(offset, amount == Amount::half ? bytes.first(bytes.size() / 2) : bytes);
        });
    }
    Result<void> sync() override {
        return _owner.perform(u"sync"_s, _path, [this](Amount) { return _wrapped->sync(); });
    }
    Result<void> setPermissions(quint32 permissions) override {
        return _owner.perform(u"setPermissions"_s, _path,
                              [&](Amount) { return _wrapped->setPermissions(permissions); });
    }

  private:
    FaultyFileSystem& _owner;
    std::unique_ptr<OpenFile> _wrapped;
    QString _path;
};

inline void FaultyFileSystem::dieAt(int number, Death death) {
    const std::scoped_lock lock(_mutex);
    _deathAt = static_cast<int>(_changes.size()) + number;
    _death = death;
}

inline void FaultyFileSystem::arm(int first, int last, ErrorCode code) {
    const std::scoped_lock lock(_mutex);
    const int done = static_cast<int>(_changes.size());
    _firstFailure = done + first;
    _lastFailure = last == std::numeric_limits<int>::max() ? last : done + last;
    _failure = code;
}

inline void FaultyFileSystem::reset() {
    const std::scoped_lock lock(_mutex);
    _changes.clear();
    _deathAt = _firstFailure = _lastFailure = 0;
    _isDead = false;
}

inline int FaultyFileSystem::changeCount() const {
    const std::scoped_lock lock(_mutex);
    return static_cast<int>(_changes.size());
}

inline bool FaultyFileSystem::isDead() const {
    const std::scoped_lock lock(_mutex);
    return _isDead;
}

inline QStringList FaultyFileSystem::changes() const {
    const std::scoped_lock lock(_mutex);
    return _changes;
}

inline FaultyFileSystem::Verdict FaultyFileSystem::judge(const QString& operation, const QString& path) {
    const std::scoped_lock lock(_mutex);
    if (_isDead) {
        return {Amount::none, ErrorCode::inputOutput};
    }
    _changes.append(operation + u' ' + path);
    const int number = static_cast<int>(_changes.size());
    const Amount halfOrNone = operation == "write"_L1 ? Amount::half : Amount::none;
    if (number == _deathAt) {
        _isDead = true;
        const Amount amount = _death == Death::after     ? Amount::all
                              : _death == Death::halfway ? halfOrNone
                                                         : Amount::none;
        return {amount, ErrorCode::inputOutput};
    }
    const bool isRemoval =
        operation.startsWith("remove"_L1) && _lastFailure == std::numeric_limits<int>::max();
    if (number >= _firstFailure && number <= _lastFailure && !isRemoval) {
        return {halfOrNone, _failure};
    }
    return {};
}

template <class Change>
Result<void> FaultyFileSystem::perform(const QString& operation, const QString& path, Change change) {
    const Verdict verdict = judge(operation, path);
    Result<void> done = verdict.amount == Amount::none ? Result<void>() : change(verdict.amount);
    if (verdict.error) {
        return failure(*verdict.error, u"A test made this fail."_s, path);
    }
    return done;
}

template <class Answer, class Read>
Result<Answer> FaultyFileSystem::readUnlessDead(const QString& path, Read read) {
    if (isDead()) {
        return failure(ErrorCode::inputOutput, u"A test ended the process."_s, path);
    }
    return read();
}

inline Result<std::unique_ptr<OpenFile>> FaultyFileSystem::open(const QString& path, OpenMode mode) {
    Result<std::unique_ptr<OpenFile>> file = failure(ErrorCode::inputOutput, u"Not opened."_s, path);
    Result<void> done;
    const auto openIt = [&](Amount = Amount::all) {
        file = _wrapped.open(path, mode);
        return file ? Result<void>() : std::unexpected(file.error());
    };
    if (mode == OpenMode::createNew) {
        done = perform(u"create"_s, path, openIt);
    } else {
        done = isDead() ? failure(ErrorCode::inputOutput, u"A test ended the process."_s, path) : openIt();
    }
    if (!done) {
        return std::unexpected(done.error());
    }
    return std::make_unique<File>(*this, *std::move(file), path);
}

inline Result<FileAttributes> FaultyFileSystem::attributes(const QString& path, Links links) {
    return readUnlessDead<FileAttributes>(path, [&] { return _wrapped.attributes(path, links); });
}

inline Result<QString> FaultyFileSystem::linkTarget(const QString& link) {
    return readUnlessDead<QString>(link, [&] { return _wrapped.linkTarget(link); });
}

inline Result<QStringList> FaultyFileSystem::list(const QString& folder) {
    return readUnlessDead<QStringList>(folder, [&] { return _wrapped.list(folder); });
}

inline Result<void> FaultyFileSystem::replace(const QString& from, const QString& to) {
    return perform(u"replace"_s, to, [&](Amount) { return _wrapped.replace(from, to); });
}

inline Result<void> FaultyFileSystem::move(const QString& from, const QString& to) {
    return perform(u"move"_s, to, [&](Amount) { return _wrapped.move(from, to); });
}

inline Result<void> FaultyFileSystem::removeFile(const QString& path) {
    return perform(u"removeFile"_s, path, [&](Amount) { return _wrapped.removeFile(path); });
}

inline Result<void> FaultyFileSystem::removeFolder(const QString& path) {
    return perform(u"removeFolder"_s, path, [&](Amount) { return _wrapped.removeFolder(path); });
}

inline Result<void> FaultyFileSystem::makeFolder(const QString& path) {
    return perform(u"makeFolder"_s, path, [&](Amount) { return _wrapped.makeFolder(path); });
}

inline Result<void> FaultyFileSystem::syncFolder(const QString& path) {
    return perform(u"syncFolder"_s, path, [&](Amount) { return _wrapped.syncFolder(path); });
}

}  // namespace marquill
