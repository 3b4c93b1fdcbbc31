// The operating system's files, by POSIX calls; what Linux and macOS do in different ways is in PosixCalls.
#include "platform/ExclusiveMove.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NativeName.h"
#include "platform/PosixCalls.h"
#include "platform/SystemError.h"

#include <QCoreApplication>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <concepts>
#include <cstdio>

namespace marquill {

namespace {

/// Calls again what a signal interrupted.
template <std::invocable Call>
auto retrying(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

std::unexpected<Error> systemFailure(int number, const QString& path) {
    return std::unexpected(systemError(number, path));
}

/// Of a call that returns 0 or an errno value.
Result<void> outcomeOf(int number, const QString& path) {
    if (number != 0) {
        return systemFailure(number, path);
    }
    return {};
}

/// Of a call that returns 0 or leaves errno.
Result<void> outcome(int result, const QString& path) {
    return outcomeOf(result == 0 ? 0 : errno, path);
}

Result<QByteArray> encoded(const QString& path) {
    if (std::optional<QByteArray> name = nativeName(path)) {
        return *std::move(name);
    }
    return systemFailure(ENOENT, path);
}

Result<FileAttributes> attributesBy(int number, const FileAttributes& attributes, const QString& path) {
    if (number != 0) {
        return systemFailure(number, path);
    }
    return attributes;
}

Result<FileAttributes> attributesOf(int descriptor, const QString& path) {
    FileAttributes attributes;
    const int number = readAttributes(descriptor, attributes);
    return attributesBy(number, attributes, path);
}

class PosixFile final : public OpenFile {
  public:
    PosixFile(int descriptor, const FileAttributes& atOpening, QString path)
        : _descriptor(descriptor), _atOpening(atOpening), _path(std::move(path)) {}
    ~PosixFile() override { close(_descriptor); }

    Result<FileAttributes> attributes() override { return attributesOf(_descriptor, _path); }

    Result<FileAttributes> attributesAtOpening() override { return _atOpening; }

    Result<qint64> read(qint64 offset, std::span<char> buffer) override {
        std::size_t done = 0;
        while (done < buffer.size()) {
            const ssize_t count = retrying([&] {
                return pread(_descriptor, buffer.data() + done, buffer.size() - done,
                             offset + static_cast<qint64>(done));
            });
            if (count < 0) {
                return systemFailure(errno, _path);
            }
            done += static_cast<std::size_t>(count);
            // Elsewhere than at the end, a short count may be an interruption's.
            if (count == 0 || offset + static_cast<qint64>(done) >= _atOpening.size) {
                break;
            }
        }
        return static_cast<qint64>(done);
    }

    Result<void> write(qint64 offset, QByteArrayView bytes) override {
        while (!bytes.isEmpty()) {
            const ssize_t count = retrying([&] {
                return pwrite(_descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
            });
            if (count <= 0) {
                return systemFailure(count < 0 ? errno : EIO, _path);
            }
            bytes = bytes.sliced(count);
            offset += count;
        }
        return {};
    }

    Result<void> sync() override {
        int number = 0;
        do {
            number = syncToDevice(_descriptor);
        } while (number == EINTR);
        return outcomeOf(number, _path);
    }

    Result<void> setPermissions(quint32 permissions) override {
        return outcome(retrying([&] { return fchmod(_descriptor, permissions & 07777); }), _path);
    }

  private:
    int _descriptor;
    FileAttributes _atOpening;
    QString _path;
};

int openFlags(OpenMode mode) {
    // Without O_NONBLOCK the opening of a pipe waits for whoever writes into it.
    constexpr int always = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    switch (mode) {
        case OpenMode::read:
            return always | O_RDONLY;
        case OpenMode::readWrite:
            return always | O_RDWR;
        case OpenMode::createNew:
            break;
    }
    return always | O_RDWR | O_CREAT | O_EXCL;
}

/// What an open file is; notAFile when it is no regular one.
Result<FileAttributes> regularFile(int descriptor, const QString& path) {
    Result<FileAttributes> attributes = attributesOf(descriptor, path);
    if (attributes && attributes->type != FileType::regular) {
        return systemFailure(attributes->type == FileType::folder ? EISDIR : ENXIO, path);
    }
    return attributes;
}

/// An open folder, closed when it goes.
using FolderStream = std::unique_ptr<DIR, int (*)(DIR*)>;

bool isSelfOrParent(QByteArrayView name) {
    return name == "." || name == "..";
}

/// What an entry is, by the listing itself where that says so.
FileType typeOf(const dirent& entry, DIR* folder) {
    switch (entry.d_type) {
        case DT_REG:
            return FileType::regular;
        case DT_DIR:
            return FileType::folder;
        case DT_LNK:
            return FileType::symbolicLink;
        case DT_UNKNOWN:
            break;
        default:
            return FileType::other;
    }
    struct stat status = {};
    return fstatat(dirfd(folder), static_cast<const char*>(entry.d_name), &status, AT_SYMLINK_NOFOLLOW) == 0
               ? fileTypeOf(status.st_mode)
               : FileType::other;
}

/// Calls `visit(name, entry)` for each entry whose name is a text.
template <std::invocable<QString, const dirent&> Visit>
Result<void> forEachEntry(DIR* folder, const QString& path, Visit visit) {
    for (;;) {
        errno = 0;
        // The stream belongs to this call alone, which is all that readdir asks for.
        const dirent* const entry = readdir(folder);  // NOLINT(concurrency-mt-unsafe)
        if (!entry) {
            break;
        }
        const QByteArrayView name(static_cast<const char*>(entry->d_name));
        if (isSelfOrParent(name)) {
            continue;
        }
        if (std::optional<QString> text = textOfNativeName(name)) {
            visit(*std::move(text), *entry);
        } else {
            qCWarning(logPlatform).noquote()
                << path + u": the file name"_s << name.toByteArray().toPercentEncoding()
                << u"is no UTF-8 text; the file is left out."_s;
        }
    }
    return outcome(errno, path);
}

class PosixFileSystem final : public FileSystem {
  public:
    Result<std::unique_ptr<OpenFile>> open(const QString& path, OpenMode mode) override;
    Result<FileAttributes> attributes(const QString& path, Links links) override;
    Result<QString> linkTarget(const QString& link) override;
    Result<QStringList> list(const QString& folder) override;
    Result<std::vector<FolderEntry>> entries(const QString& folder) override;
    Result<void> replace(const QString& from, const QString& to) override;
    Result<void> move(const QString& from, const QString& to) override;
    Result<void> removeFile(const QString& path) override;
    Result<void> removeFolder(const QString& path) override;
    Result<void> makeFolder(const QString& path) override;
    Result<void> syncFolder(const QString& path) override;
    Result<void> setExtendedAttribute(const QString& path, const QByteArray& name,
                                      QByteArrayView value) override;
};

/// Of a call about two paths: `from` where that is missing, else `to`, is what the user has to look at.
Error errorOfMove(int number, const QString& from, const QString& to, const char* nativeFrom) {
    struct stat status = {};
    const bool fromIsMissing = number == ENOENT && lstat(nativeFrom, &status) != 0;
    return systemError(number, fromIsMissing ? from : to);
}

/// Performs `call`, which returns 0 or an errno value, with the native names of both paths.
template <std::invocable<const char*, const char*> Call>
Result<void> withNames(const QString& from, const QString& to, Call call) {
    const Result<QByteArray> nativeFrom = encoded(from);
    const Result<QByteArray> nativeTo = encoded(to);
    if (!nativeFrom || !nativeTo) {
        return std::unexpected(nativeFrom ? nativeTo.error() : nativeFrom.error());
    }
    const int number = call(nativeFrom->constData(), nativeTo->constData());
    if (number != 0) {
        return std::unexpected(errorOfMove(number, from, to, nativeFrom->constData()));
    }
    return {};
}

/// Performs `call`, which returns 0 or leaves errno, with the native name of `path`.
template <std::invocable<const char*> Call>
Result<void> withName(const QString& path, Call call) {
    const Result<QByteArray> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    return outcome(retrying([&] { return call(name->constData()); }), path);
}

Result<std::unique_ptr<OpenFile>> PosixFileSystem::open(const QString& path, OpenMode mode) {
    const Result<QByteArray> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    const int descriptor = retrying([&] { return ::open(name->constData(), openFlags(mode), 0666); });
    if (descriptor < 0) {
        return systemFailure(errno, path);
    }
    const Result<FileAttributes> attributes = regularFile(descriptor, path);
    if (!attributes) {
        close(descriptor);
        return std::unexpected(attributes.error());
    }
    return std::make_unique<PosixFile>(descriptor, *attributes, path);
}

Result<FileAttributes> PosixFileSystem::attributes(const QString& path, Links links) {
    const Result<QByteArray> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    FileAttributes found;
    const int number = readAttributes(name->constData(), links, found);
    return attributesBy(number, found, path);
}

Result<QString> PosixFileSystem::linkTarget(const QString& link) {
    const Result<QByteArray> name = encoded(link);
    if (!name) {
        return std::unexpected(name.error());
    }
    std::array<char, PATH_MAX> target{};
    const ssize_t size = readlink(name->constData(), target.data(), target.size());
    if (size < 0) {
        return systemFailure(errno, link);
    }
    if (std::optional<QString> text = textOfNativeName(QByteArrayView(target.data(), size))) {
        return *std::move(text);
    }
    return failure(ErrorCode::unsupported,
                   QCoreApplication::translate("FileSystem", "The link points to a name that is no text."),
                   link);
}

/// Collects `make(name, entry, stream)` of each entry of a folder into a `List`.
template <class List, class Make>
Result<List> listed(const QString& folder, Make make) {
    const Result<QByteArray> name = encoded(folder);
    if (!name) {
        return std::unexpected(name.error());
    }
    const FolderStream stream(opendir(name->constData()), closedir);
    if (!stream) {
        return systemFailure(errno, folder);
    }
    List list;
    const auto add = [&](QString text, const dirent& entry) {
        list.push_back(make(std::move(text), entry, stream.get()));
    };
    if (const Result<void> done = forEachEntry(stream.get(), folder, add); !done) {
        return std::unexpected(done.error());
    }
    return list;
}

Result<QStringList> PosixFileSystem::list(const QString& folder) {
    return listed<QStringList>(folder, [](QString name, const dirent&, DIR*) { return name; });
}

Result<std::vector<FolderEntry>> PosixFileSystem::entries(const QString& folder) {
    return listed<std::vector<FolderEntry>>(folder, [](QString name, const dirent& entry, DIR* stream) {
        return FolderEntry{.name = std::move(name), .type = typeOf(entry, stream)};
    });
}

Result<void> PosixFileSystem::replace(const QString& from, const QString& to) {
    return withNames(from, to, [](const char* nativeFrom, const char* nativeTo) {
        return rename(nativeFrom, nativeTo) == 0 ? 0 : errno;
    });
}

Result<void> PosixFileSystem::move(const QString& from, const QString& to) {
    return withNames(from, to, moveIfFree);
}

Result<void> PosixFileSystem::removeFile(const QString& path) {
    return withName(path, [](const char* name) { return unlink(name); });
}

Result<void> PosixFileSystem::removeFolder(const QString& path) {
    return withName(path, [](const char* name) { return rmdir(name); });
}

Result<void> PosixFileSystem::makeFolder(const QString& path) {
    return withName(path, [](const char* name) { return mkdir(name, 0777); });
}

Result<void> PosixFileSystem::syncFolder(const QString& path) {
    const Result<QByteArray> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    const int descriptor =
        retrying([&] { return ::open(name->constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (descriptor < 0) {
        return systemFailure(errno, path);
    }
    Result<void> synced = outcome(retrying([&] { return fsync(descriptor); }), path);
    close(descriptor);
    return synced;
}

Result<void> PosixFileSystem::setExtendedAttribute(const QString& path, const QByteArray& name,
                                                   QByteArrayView value) {
    const Result<QByteArray> nativePath = encoded(path);
    if (!nativePath) {
        return std::unexpected(nativePath.error());
    }
    return outcomeOf(setExtendedAttributeOf(nativePath->constData(), name.constData(), value), path);
}

}  // namespace

FileType fileTypeOf(quint32 mode) {
    if (S_ISREG(mode)) {
        return FileType::regular;
    }
    if (S_ISDIR(mode)) {
        return FileType::folder;
    }
    return S_ISLNK(mode) ? FileType::symbolicLink : FileType::other;
}

FileSystem& FileSystem::system() {
    static PosixFileSystem fileSystem;
    return fileSystem;
}

}  // namespace marquill
