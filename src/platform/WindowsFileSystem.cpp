// The operating system's files, by the calls of Windows. Files are opened so that others may rename and
// remove them meanwhile, as they may elsewhere.
#include "platform/FileSystem.h"
#include "platform/WindowsError.h"
#include "platform/WindowsHandle.h"

#include <QCoreApplication>

#include <algorithm>
#include <concepts>

namespace marquill {

namespace {

constexpr DWORD sharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::unexpected<Error> lastFailure(const QString& path) {
    return std::unexpected(windowsError(GetLastError(), path));
}

Result<void> outcome(BOOL succeeded, const QString& path) {
    if (!succeeded) {
        return lastFailure(path);
    }
    return {};
}

Result<std::wstring> encoded(const QString& path) {
    if (std::optional<std::wstring> name = windowsPath(path)) {
        return *std::move(name);
    }
    return std::unexpected(windowsError(ERROR_INVALID_NAME, path));
}

quint64 joined(DWORD high, DWORD low) {
    return (quint64{high} << 32) | low;
}

// File times count tenths of a microsecond since 1601.
Date dateOf(const FILETIME& time) {
    constexpr double ticksPerSecond = 1e7;
    constexpr double secondsUntil1970 = 11'644'473'600;
    const auto ticks = static_cast<double>(joined(time.dwHighDateTime, time.dwLowDateTime));
    return Date(std::chrono::duration<double>(ticks / ticksPerSecond - secondsUntil1970));
}

FileType typeOf(DWORD attributes, DWORD reparseTag) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) &&
        (reparseTag == IO_REPARSE_TAG_SYMLINK || reparseTag == IO_REPARSE_TAG_MOUNT_POINT)) {
        return FileType::symbolicLink;
    }
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        return FileType::folder;
    }
    return attributes & FILE_ATTRIBUTE_DEVICE ? FileType::other : FileType::regular;
}

// Windows keeps but one of the twelve bits: whether a file may be written.
quint32 permissionsOf(DWORD attributes) {
    const quint32 readable = attributes & FILE_ATTRIBUTE_DIRECTORY ? 0555 : 0444;
    return attributes & FILE_ATTRIBUTE_READONLY ? readable : readable | 0222;
}

Result<FileAttributes> attributesOf(HANDLE file, const QString& path) {
    BY_HANDLE_FILE_INFORMATION information = {};
    FILE_ATTRIBUTE_TAG_INFO tag = {};
    if (!GetFileInformationByHandle(file, &information)) {
        return lastFailure(path);
    }
    // Volumes that know no links refuse the question.
    static_cast<void>(GetFileInformationByHandleEx(file, FileAttributeTagInfo, &tag, sizeof tag));
    FileAttributes attributes;
    attributes.type = typeOf(information.dwFileAttributes, tag.ReparseTag);
    attributes.size = static_cast<qint64>(joined(information.nFileSizeHigh, information.nFileSizeLow));
    attributes.modificationDate = dateOf(information.ftLastWriteTime);
    if (information.ftCreationTime.dwHighDateTime != 0) {
        attributes.birthDate = dateOf(information.ftCreationTime);
    }
    attributes.device = information.dwVolumeSerialNumber;
    attributes.inode = joined(information.nFileIndexHigh, information.nFileIndexLow);
    attributes.permissions = permissionsOf(information.dwFileAttributes);
    return attributes;
}

OVERLAPPED placeAt(qint64 offset) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset & 0xFFFF'FFFF);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

// Reads and writes take 32-bit sizes.
DWORD portion(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, 1U << 30));
}

class WindowsFile final : public OpenFile {
  public:
    WindowsFile(WindowsHandle file, const FileAttributes& atOpening, QString path)
        : _file(std::move(file)), _atOpening(atOpening), _path(std::move(path)) {}

    Result<FileAttributes> attributes() override { return attributesOf(_file.get(), _path); }
    Result<FileAttributes> attributesAtOpening() override { return _atOpening; }

    Result<qint64> read(qint64 offset, std::span<char> buffer) override {
        std::size_t done = 0;
        while (done < buffer.size()) {
            OVERLAPPED place = placeAt(offset + static_cast<qint64>(done));
            DWORD count = 0;
            if (!ReadFile(_file.get(), buffer.data() + done, portion(buffer.size() - done), &count, &place) &&
                GetLastError() != ERROR_HANDLE_EOF) {
                return lastFailure(_path);
            }
            if (count == 0) {
                break;
            }
            done += count;
        }
        return static_cast<qint64>(done);
    }

    Result<void> write(qint64 offset, QByteArrayView bytes) override {
        while (!bytes.isEmpty()) {
            OVERLAPPED place = placeAt(offset);
            DWORD count = 0;
            if (!WriteFile(_file.get(), bytes.data(), portion(static_cast<std::size_t>(bytes.size())), &count,
                           &place)) {
                return lastFailure(_path);
            }
            bytes = bytes.sliced(count);
            offset += count;
        }
        return {};
    }

    Result<void> sync() override { return outcome(FlushFileBuffers(_file.get()), _path); }

    Result<void> setPermissions(quint32 permissions) override {
        FILE_BASIC_INFO information = {};
        if (!GetFileInformationByHandleEx(_file.get(), FileBasicInfo, &information, sizeof information)) {
            return lastFailure(_path);
        }
        const bool mayBeWritten = (permissions & 0200) != 0;
        information.FileAttributes = mayBeWritten
                                         ? information.FileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY}
                                         : information.FileAttributes | FILE_ATTRIBUTE_READONLY;
        if (information.FileAttributes == 0) {
            // 0 would leave them as they are.
            information.FileAttributes = FILE_ATTRIBUTE_NORMAL;
        }
        return outcome(
            SetFileInformationByHandle(_file.get(), FileBasicInfo, &information, sizeof information), _path);
    }

  private:
    WindowsHandle _file;
    FileAttributes _atOpening;
    QString _path;
};

DWORD accessOf(OpenMode mode) {
    return mode == OpenMode::read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
}

// A handle through which a file or folder can be asked what it is.
WindowsHandle openToAsk(const std::wstring& name, Links links) {
    const DWORD flags =
        FILE_FLAG_BACKUP_SEMANTICS | (links == Links::keep ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    return WindowsHandle(CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, sharedWithAll, nullptr,
                                     OPEN_EXISTING, flags, nullptr));
}

// Calls `visit(data)` for each entry of a folder but "." and "..".
template <std::invocable<const WIN32_FIND_DATAW&> Visit>
Result<void> forEachEntry(const QString& folder, Visit visit) {
    const Result<std::wstring> name = encoded(folder);
    if (!name) {
        return std::unexpected(name.error());
    }
    WIN32_FIND_DATAW data = {};
    const HANDLE search = FindFirstFileExW((*name + L"\\*").c_str(), FindExInfoBasic, &data,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        return lastFailure(folder);
    }
    do {
        const std::wstring_view entry = data.cFileName;
        if (entry != L"." && entry != L"..") {
            visit(data);
        }
    } while (FindNextFileW(search, &data));
    const DWORD number = GetLastError();
    FindClose(search);
    if (number != ERROR_NO_MORE_FILES) {
        return std::unexpected(windowsError(number, folder));
    }
    return {};
}

class WindowsFileSystem final : public FileSystem {
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
};

Result<std::unique_ptr<OpenFile>> WindowsFileSystem::open(const QString& path, OpenMode mode) {
    const Result<std::wstring> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    WindowsHandle file(CreateFileW(name->c_str(), accessOf(mode), sharedWithAll, nullptr,
                                   mode == OpenMode::createNew ? CREATE_NEW : OPEN_EXISTING,
                                   FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isValid()) {
        return lastFailure(path);
    }
    const Result<FileAttributes> attributes = attributesOf(file.get(), path);
    if (!attributes) {
        return std::unexpected(attributes.error());
    }
    if (attributes->type != FileType::regular || GetFileType(file.get()) != FILE_TYPE_DISK) {
        return failure(
            ErrorCode::notAFile,
            QCoreApplication::translate("FileSystem", "A folder or a device stands where a file is wanted."),
            path);
    }
    return std::make_unique<WindowsFile>(std::move(file), *attributes, path);
}

Result<FileAttributes> WindowsFileSystem::attributes(const QString& path, Links links) {
    const Result<std::wstring> name = encoded(path);
    if (!name) {
        return std::unexpected(name.error());
    }
    const WindowsHandle file = openToAsk(*name, links);
    return file.isValid() ? attributesOf(file.get(), path) : lastFailure(path);
}

// As the system follows it: what is written in the link itself, only a driver's interface tells.
Result<QString> WindowsFileSystem::linkTarget(const QString& link) {
    const Result<std::wstring> name = encoded(link);
    if (!name) {
        return std::unexpected(name.error());
    }
    const WindowsHandle file = openToAsk(*name, Links::follow);
    if (!file.isValid()) {
        return lastFailure(link);
    }
    std::wstring target(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD size = GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()),
                                                 FILE_NAME_NORMALIZED);
    if (size == 0 || size >= target.size()) {
        return lastFailure(link);
    }
    target.resize(size);
    QString text = QString::fromStdWString(target);
    text.remove(QLatin1StringView("\\\\?\\"));
    return QDir::fromNativeSeparators(text);
}

Result<QStringList> WindowsFileSystem::list(const QString& folder) {
    QStringList names;
    const Result<void> done = forEachEntry(folder, [&names](const WIN32_FIND_DATAW& data) {
        names.append(QString::fromWCharArray(data.cFileName));
    });
    if (!done) {
        return std::unexpected(done.error());
    }
    return names;
}

Result<std::vector<FolderEntry>> WindowsFileSystem::entries(const QString& folder) {
    std::vector<FolderEntry> entries;
    const Result<void> done = forEachEntry(folder, [&entries](const WIN32_FIND_DATAW& data) {
        entries.push_back({.name = QString::fromWCharArray(data.cFileName),
                           .type = typeOf(data.dwFileAttributes, data.dwReserved0)});
    });
    if (!done) {
        return std::unexpected(done.error());
    }
    return entries;
}

// MOVEFILE_WRITE_THROUGH returns when the new name is on the disk, which is what syncFolder is asked for
// elsewhere.
Result<void> renamed(const QString& from, const QString& to, DWORD flags) {
    const Result<std::wstring> nativeFrom = encoded(from);
    const Result<std::wstring> nativeTo = encoded(to);
    if (!nativeFrom || !nativeTo) {
        return std::unexpected(nativeFrom ? nativeTo.error() : nativeFrom.error());
    }
    if (!MoveFileExW(nativeFrom->c_str(), nativeTo->c_str(), flags | MOVEFILE_WRITE_THROUGH)) {
        const DWORD number = GetLastError();
        const bool fromIsMissing = GetFileAttributesW(nativeFrom->c_str()) == INVALID_FILE_ATTRIBUTES;
        return std::unexpected(windowsError(number, fromIsMissing ? from : to));
    }
    return {};
}

// ReplaceFile would keep the old file's attributes, but does it in several steps; this is one.
Result<void> WindowsFileSystem::replace(const QString& from, const QString& to) {
    return renamed(from, to, MOVEFILE_REPLACE_EXISTING);
}

Result<void> WindowsFileSystem::move(const QString& from, const QString& to) {
    return renamed(from, to, 0);
}

Result<void> WindowsFileSystem::removeFile(const QString& path) {
    const Result<std::wstring> name = encoded(path);
    return name ? outcome(DeleteFileW(name->c_str()), path) : std::unexpected(name.error());
}

Result<void> WindowsFileSystem::removeFolder(const QString& path) {
    const Result<std::wstring> name = encoded(path);
    return name ? outcome(RemoveDirectoryW(name->c_str()), path) : std::unexpected(name.error());
}

Result<void> WindowsFileSystem::makeFolder(const QString& path) {
    const Result<std::wstring> name = encoded(path);
    return name ? outcome(CreateDirectoryW(name->c_str(), nullptr), path) : std::unexpected(name.error());
}

// Folders cannot be flushed; NTFS journals their entries, and renaming waits for the disk.
Result<void> WindowsFileSystem::syncFolder(const QString& path) {
    const Result<FileAttributes> folder = attributes(path, Links::follow);
    return folder ? Result<void>() : std::unexpected(folder.error());
}

}  // namespace

FileSystem& FileSystem::system() {
    static WindowsFileSystem fileSystem;
    return fileSystem;
}

}  // namespace marquill
