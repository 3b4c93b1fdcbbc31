// A handle of Windows that is closed when it goes, and paths as Windows takes them. Header only; any thread.
#pragma once

#include "platform/NativeName.h"

#include <QDir>

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace marquill {

class WindowsHandle {
  public:
    explicit WindowsHandle(HANDLE handle = INVALID_HANDLE_VALUE) : _handle(handle) {}
    WindowsHandle(WindowsHandle&& other) noexcept
        : _handle(std::exchange(other._handle, INVALID_HANDLE_VALUE)) {}
    WindowsHandle& operator=(WindowsHandle&& other) noexcept {
        std::swap(_handle, other._handle);
        return *this;
    }
    ~WindowsHandle() {
        if (isValid()) {
            CloseHandle(_handle);
        }
    }

    bool isValid() const { return _handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return _handle; }

  private:
    HANDLE _handle;
};

/// The path with the prefix that frees it from the old limit of 260 characters; none when no file can have
/// it.
inline std::optional<std::wstring> windowsPath(const QString& path) {
    if (!nativeName(path)) {
        return std::nullopt;
    }
    const QString native = QDir::toNativeSeparators(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    if (native.startsWith(QLatin1StringView("\\\\?\\"))) {
        return native.toStdWString();
    }
    const bool isShare = native.startsWith(QLatin1StringView("\\\\"));
    return ((isShare ? QStringLiteral("\\\\?\\UNC") : QStringLiteral("\\\\?\\")) +
            (isShare ? native.sliced(1) : native))
        .toStdWString();
}

}  // namespace marquill
