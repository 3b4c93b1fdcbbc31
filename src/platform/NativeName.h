// File names as texts and as the bytes the operating system knows them by. Each of the two conversions gives
// the exact counterpart or nothing, so that a name never comes to mean another file. Any thread.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace marquill {

/// The bytes of a path (UTF-8); none when it is empty, holds a NUL or an unpaired surrogate: no file has such
/// a name.
std::optional<QByteArray> nativeName(const QString& path);

/// The text of a name's bytes; none when they are no UTF-8.
std::optional<QString> textOfNativeName(QByteArrayView name);

}  // namespace marquill
