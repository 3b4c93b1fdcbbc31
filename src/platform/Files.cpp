#include "platform/Files.h"

#include "platform/FileStamp.h"
#include "platform/Log.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <array>
#include <functional>

namespace marquill {

namespace {

constexpr qint64 largestFileRead = qint64{1} << 30;
constexpr int mostLinksFollowed = 40;
constexpr int mostTemporaryNames = 100;

FileSystem& files() {
    return FileSystem::current();
}

/// A name of its own length, since the target's may already have all 255 bytes that a name can have, and with
/// an ending that no listing of clips takes for a clip.
QString temporaryName() {
    return u".marquill-%1"_s.arg(QRandomGenerator::system()->generate64(), 16, 16, QChar(u'0'));
}

/// Whether a name is one that temporaryName() gives.
bool isTemporaryName(const QString& name) {
    static const QRegularExpression pattern(u"\\A\\.marquill-[0-9a-f]{16}\\z"_s);
    return pattern.match(name).hasMatch();
}

/// Notes a failure that harms nothing the caller asked for.
void logFailure(const Result<void>& result) {
    if (!result) {
        qCInfo(logPlatform).noquote() << result.error().description();
    }
}

struct TemporaryFile {
    QString path;
    std::unique_ptr<OpenFile> file;
};

Result<TemporaryFile> createTemporaryFile(const QString& folder) {
    for (int attempt = 1;; ++attempt) {
        const QString path = joinPath(folder, temporaryName());
        Result<std::unique_ptr<OpenFile>> file = files().open(path, OpenMode::createNew);
        if (file) {
            return TemporaryFile{path, *std::move(file)};
        }
        if (file.error().code != ErrorCode::alreadyExists || attempt == mostTemporaryNames) {
            return std::unexpected(file.error());
        }
    }
}

Result<void> fill(OpenFile& file, QByteArrayView bytes, std::optional<quint32> permissions) {
    if (permissions) {
        // Memory cards know no permissions and refuse to be given any; the file counts, not they.
        logFailure(file.setPermissions(*permissions));
    }
    if (Result<void> written = file.write(0, bytes); !written) {
        return written;
    }
    return file.sync();
}

using FinishTemporary = Result<void> (FileSystem::*)(const QString& from, const QString& to);

/// Asked with the path of the temporary file, once it is complete, whether it may get its name.
using Permission = std::function<Result<void>(const QString& temporary)>;

/// Writes `bytes` beside `target` and gives them its name by `finish`.
Result<void> writeBeside(const QString& target, QByteArrayView bytes, std::optional<quint32> permissions,
                         FinishTemporary finish, const Permission& mayFinish = {}) {
    const QString folder = parentFolder(target);
    Result<TemporaryFile> temporary = createTemporaryFile(folder);
    if (!temporary) {
        temporary.error().path = target;
        return std::unexpected(temporary.error());
    }
    Result<void> done = fill(*temporary->file, bytes, permissions);
    temporary->file.reset();
    if (done && mayFinish) {
        done = mayFinish(temporary->path);
    }
    if (done) {
        done = (files().*finish)(temporary->path, target);
    }
    if (!done) {
        logFailure(files().removeFile(temporary->path));
        done.error().path = target;
        return done;
    }
    // The file is whole and has its name; a volume that cannot sync a folder loses nothing of that.
    logFailure(files().syncFolder(folder));
    return {};
}

Result<QByteArray> readLargeFile(OpenFile& file, const QString& path) {
    const Result<FileAttributes> attributes = file.attributes();
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    if (attributes->size > largestFileRead) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate(
                           "Files", "The file is larger than 1 GiB, which no file of its kind is."),
                       path);
    }
    QByteArray bytes(attributes->size, Qt::Uninitialized);
    const Result<qint64> count =
        file.read(0, std::span(bytes.data(), static_cast<std::size_t>(bytes.size())));
    if (!count) {
        return std::unexpected(count.error());
    }
    bytes.truncate(*count);
    return bytes;
}

/// Where the symbolic links at `path` lead; the last one's target need not exist.
Result<QString> followLinks(QString path) {
    for (int count = 0; count < mostLinksFollowed; ++count) {
        const Result<FileAttributes> attributes = files().attributes(path, Links::keep);
        if (!attributes || attributes->type != FileType::symbolicLink) {
            return path;
        }
        const Result<QString> target = files().linkTarget(path);
        if (!target) {
            return target;
        }
        path = target->startsWith(u'/') ? *target : joinPath(parentFolder(path), *target);
    }
    return failure(ErrorCode::notFound,
                   QCoreApplication::translate(
                       "Files", "The links on the way to it lead in a circle. Remove one of them."),
                   path);
}

Result<void> writeOver(const QString& path, QByteArrayView bytes, const Permission& mayReplace) {
    const Result<QString> target = followLinks(path);
    if (!target) {
        return std::unexpected(target.error());
    }
    std::optional<quint32> permissions;
    if (const Result<FileAttributes> old = files().attributes(*target, Links::keep)) {
        if (old->type != FileType::regular) {
            return failure(ErrorCode::notAFile,
                           QCoreApplication::translate(
                               "Files", "A folder, pipe or device stands where a file is wanted."),
                           path);
        }
        permissions = old->permissions;
    }
    return writeBeside(*target, bytes, permissions, &FileSystem::replace, mayReplace);
}

bool isFolder(const Result<FileAttributes>& attributes) {
    return attributes && attributes->type == FileType::folder;
}

Result<void> removeFolderWithContents(const QString& folder) {
    const Result<QStringList> names = files().list(folder);
    if (!names) {
        return std::unexpected(names.error());
    }
    for (const QString& name : *names) {
        if (Result<void> removed = removeAll(joinPath(folder, name)); !removed) {
            return removed;
        }
    }
    return files().removeFolder(folder);
}

/// The path without the slashes at its end; "/" stays.
QStringView trimmedPath(QStringView view) {
    while (view.size() > 1 && view.endsWith(u'/')) {
        view.chop(1);
    }
    return view;
}

/// Where the "." of the extension stands in `path`, or -1 when it has none.
qsizetype extensionDot(QStringView path) {
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > nameStart && dot + 1 < path.size() ? dot : -1;
}

}  // namespace

Result<QByteArray> readFile(const QString& path) {
    const Result<std::unique_ptr<OpenFile>> file = files().open(path, OpenMode::read);
    if (!file) {
        return std::unexpected(file.error());
    }
    // Nearly all clip files end within this, and need no question for their size.
    // Not initialised, since the read fills it.
    std::array<char, 16'384> start;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    const Result<qint64> count = (*file)->read(0, start);
    if (!count) {
        return std::unexpected(count.error());
    }
    if (*count == static_cast<qint64>(start.size())) {
        return readLargeFile(**file, path);
    }
    return QByteArray(start.data(), *count);
}

Result<void> writeFile(const QString& path, QByteArrayView bytes) {
    return writeOver(path, bytes, {});
}

Result<FileStamp> replaceFile(const QString& path, QByteArrayView bytes,
                              const std::optional<FileStamp>& expected) {
    FileStamp stamp;
    const auto noteAndCompare = [&](const QString& temporary) -> Result<void> {
        const Result<FileStamp> written = fileStamp(temporary);
        if (!written) {
            return std::unexpected(written.error());
        }
        stamp = *written;
        if (expected && fileStamp(path) != *expected) {
            return failure(ErrorCode::changedMeanwhile,
                           QCoreApplication::translate(
                               "Files", "Another program has written the file meanwhile. Try again."),
                           path);
        }
        return {};
    };
    if (const Result<void> written = writeOver(path, bytes, noteAndCompare); !written) {
        return std::unexpected(written.error());
    }
    return stamp;
}

int sweepTemporaryFiles(const QString& folder, Date date) {
    int count = 0;
    for (const QString& name : files().list(folder).value_or(QStringList())) {
        if (!isTemporaryName(name)) {
            continue;
        }
        const QString path = joinPath(folder, name);
        const Result<FileAttributes> attributes = files().attributes(path, Links::keep);
        if (attributes && attributes->type == FileType::regular && attributes->modificationDate < date) {
            const Result<void> removed = files().removeFile(path);
            logFailure(removed);
            count += removed ? 1 : 0;
        }
    }
    return count;
}

Result<void> writeNewFile(const QString& path, QByteArrayView bytes) {
    return writeBeside(path, bytes, std::nullopt, &FileSystem::move);
}

bool fileExists(const QString& path) {
    return files().attributes(path, Links::follow).has_value();
}

bool folderExists(const QString& path) {
    return isFolder(files().attributes(path, Links::follow));
}

Result<void> makeFolders(const QString& path) {
    if (folderExists(path)) {
        return {};
    }
    const QString parent = parentFolder(path);
    if (parent != path) {
        if (Result<void> made = makeFolders(parent); !made) {
            return made;
        }
    }
    if (Result<void> made = files().makeFolder(path); !made && !folderExists(path)) {
        return made;
    }
    return {};  // Made here, or meanwhile by another program, which is as good.
}

Result<void> removeAll(const QString& path) {
    const Result<FileAttributes> attributes = files().attributes(path, Links::keep);
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    return isFolder(attributes) ? removeFolderWithContents(path) : files().removeFile(path);
}

QString joinPath(const QString& folder, const QString& name) {
    const QStringView start = trimmedPath(folder);
    if (start.isEmpty()) {
        return name;
    }
    return start.endsWith(u'/') ? start.toString() + name : start.toString() + u'/' + name;
}

QString lastPathComponent(const QString& path) {
    const QStringView view = trimmedPath(path);
    return view == "/"_L1 ? view.toString() : view.sliced(view.lastIndexOf(u'/') + 1).toString();
}

QString pathExtension(const QString& path) {
    const QStringView view = trimmedPath(path);
    const qsizetype dot = extensionDot(view);
    return dot < 0 ? QString() : view.sliced(dot + 1).toString();
}

QString withoutPathExtension(const QString& path) {
    const QStringView view = trimmedPath(path);
    const qsizetype dot = extensionDot(view);
    return (dot < 0 ? view : view.first(dot)).toString();
}

QString parentFolder(const QString& path) {
    const QStringView view = trimmedPath(path);
    const qsizetype slash = view.lastIndexOf(u'/');
    if (slash < 0) {
        return u"."_s;
    }
    return slash == 0 ? u"/"_s : trimmedPath(view.first(slash)).toString();
}

}  // namespace marquill
