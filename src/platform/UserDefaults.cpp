#include "platform/UserDefaults.h"

#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PropertyListReader.h"
#include "platform/PropertyListWriter.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace marquill {

namespace {

constexpr int mostDamagedFiles = 1000;

std::optional<UserDefaults>& standardDefaults() {
    static std::optional<UserDefaults> defaults;
    return defaults;
}

bool isDamage(ErrorCode code) {
    return code == ErrorCode::endsEarly || code == ErrorCode::malformed || code == ErrorCode::unsupported;
}

/// Renames a damaged file so that it is neither overwritten nor takes the name of an older one.
Result<void> setAside(const QString& path, const Error& damage) {
    for (int number = 1; number <= mostDamagedFiles; ++number) {
        const QString aside = path + u".damaged"_s + (number == 1 ? QString() : u"-%1"_s.arg(number));
        const Result<void> moved = FileSystem::current().move(path, aside);
        if (moved) {
            qCWarning(logPlatform).noquote()
                << damage.description() << "The settings start empty; the damaged file is now" << aside;
            return {};
        }
        if (moved.error().code != ErrorCode::alreadyExists) {
            return moved;
        }
    }
    return failure(
        ErrorCode::alreadyExists,
        QCoreApplication::translate("UserDefaults", "There are too many damaged settings files beside it."),
        path);
}

}  // namespace

UserDefaults::UserDefaults(QString path) : _path(std::move(path)) {
    Result<std::optional<Dictionary>> values = read();
    if (values) {
        _values = std::move(*values).value_or(Dictionary());
    } else {
        qCWarning(logPlatform).noquote() << "The settings cannot be read:" << values.error().description();
    }
    _values.freeze();
}

QString UserDefaults::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/marquill/settings.plist"_s;
}

UserDefaults& UserDefaults::standard() {
    if (!standardDefaults()) {
        useFile(standardPath());
    }
    return *standardDefaults();
}

void UserDefaults::useFile(const QString& path) {
    standardDefaults() = UserDefaults(path);
}

/// What the file holds now; nothing when it is missing, or was damaged and is set aside.
Result<std::optional<Dictionary>> UserDefaults::read() const {
    const Result<Dictionary> values = readDictionaryFile(_path);
    if (values) {
        return *values;
    }
    if (isDamage(values.error().code)) {
        const Result<void> moved = setAside(_path, values.error());
        if (!moved) {
            return std::unexpected(moved.error());
        }
    } else if (values.error().code != ErrorCode::notFound) {
        return std::unexpected(values.error());
    }
    return std::nullopt;
}

/// The value of a key as it is here, nothing included, or null.
const Value* UserDefaults::find(QStringView key) const {
    const auto changed = _changes.find(key);
    return changed != _changes.end() ? &changed->second : _values.find(key);
}

std::optional<Value> UserDefaults::value(QStringView key) const {
    const Value* const value = find(key);
    return value && !value->isNothing() ? std::optional(*value) : std::nullopt;
}

void UserDefaults::setValue(const QString& key, const Value& value) {
    const Value* const current = find(key);
    if (current ? *current == value : value.isNothing()) {
        return;
    }
    Value copy = value.deepCopy();
    copy.freeze();
    _changes.insert_or_assign(key, std::move(copy));
}

void UserDefaults::remove(const QString& key) {
    setValue(key, Value());
}

Result<void> UserDefaults::save() {
    if (_changes.empty()) {
        return {};
    }
    // Read anew each time: another program may have saved keys of its own in the meantime.
    const Result<std::optional<Dictionary>> stored = read();
    if (!stored) {
        return std::unexpected(stored.error());
    }
    Dictionary merged = *stored ? **stored : _values.copy();
    for (const auto& [key, value] : _changes) {
        value.isNothing() ? merged.remove(key) : merged.set(key, value);
    }
    const Result<void> written = write(merged);
    if (written) {
        merged.freeze();
        _values = merged;
        _changes.clear();
    }
    return written;
}

Result<void> UserDefaults::write(const Dictionary& values) const {
    const Result<QByteArray> xml = writePropertyList(values);
    if (!xml) {
        return std::unexpected(xml.error());
    }
    const Result<void> made = makeFolders(parentFolder(_path));
    return made ? writeFile(_path, *xml) : made;
}

}  // namespace marquill
