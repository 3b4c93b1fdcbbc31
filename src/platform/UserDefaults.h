// The user's settings: values by key, kept in one property-list file. Main thread.
#pragma once

#include "platform/Error.h"
#include "platform/PropertyList.h"

#include <map>
#include <optional>

namespace marquill {

/// Several programs may use one file at once: saving changes only the keys that were changed here, so the
/// last one to save a key wins that key. A file that cannot be parsed is never overwritten: it is renamed to
/// "NAME.damaged", or "NAME.damaged-2" and so on where that is taken, the log tells, and the settings are
/// empty.
class UserDefaults {
  public:
    /// The settings in the file `path`. They are empty when there is no such file, or when it cannot be read,
    /// which the log tells; save() then fails until it can.
    explicit UserDefaults(QString path);

    /// The program's own, read when it is first asked for: settings.plist in the folder marquill of the
    /// user's configuration, unless useFile has named another file.
    static UserDefaults& standard();
    /// Makes `path` the file of the program's own settings, and reads it.
    static void useFile(const QString& path);
    /// The file of the program's own settings when no other is named.
    static QString standardPath();

    const QString& path() const { return _path; }

    /// The value of a key, frozen all the way down, or nothing.
    std::optional<Value> value(QStringView key) const;
    /// Keeps a deep copy of `value`, frozen; a value of nothing removes the key.
    void setValue(const QString& key, const Value& value);
    void remove(const QString& key);

    /// Writes what was changed since the last save, the file whole and atomically, and makes its folder when
    /// it is missing; does nothing when nothing was changed. What could not be saved is kept for the next
    /// save. Errors: those of the file system, and malformed for a value that no property list can hold.
    Result<void> save();

  private:
    const Value* find(QStringView key) const;
    Result<std::optional<Dictionary>> read() const;
    Result<void> write(const Dictionary& values) const;

    QString _path;
    Dictionary _values;                              ///< as last read or written, frozen
    std::map<QString, Value, std::less<>> _changes;  ///< since then; nothing means removed
};

}  // namespace marquill
