#include "platform/FileNames.h"

#include <QStringList>

#include <algorithm>

namespace marquill {

namespace {

constexpr QStringView windowsOnly = u"\\:*?\"<>|";

// Devices, whatever extension follows: the system opens them instead of a file.
bool isDevice(const QString& name) {
    static const QStringList devices = {u"CON"_s, u"PRN"_s, u"AUX"_s, u"NUL"_s, u"CONIN$"_s, u"CONOUT$"_s};
    constexpr QStringView portNumbers = u"0123456789\u00B9\u00B2\u00B3";
    const QString stem = name.section(u'.', 0, 0).trimmed().toUpper();
    const bool isPort = stem.size() == 4 && (stem.startsWith("COM"_L1) || stem.startsWith("LPT"_L1)) &&
                        portNumbers.contains(stem.back());
    return isPort || devices.contains(stem);
}

}  // namespace

bool hasNameCharacters(const QString& text, NameSystem system) {
    return std::ranges::none_of(text, [system](QChar character) {
        const bool isElsewhere =
            system == NameSystem::windows && (character < u' ' || windowsOnly.contains(character));
        return character == u'/' || character.isNull() || isElsewhere;
    });
}

bool isFileName(const QString& name, NameSystem system) {
    if (name.isEmpty() || name == "."_L1 || name == ".."_L1 || !hasNameCharacters(name, system)) {
        return false;
    }
    return system == NameSystem::posix || (!name.endsWith(u'.') && !name.endsWith(u' ') && !isDevice(name));
}

}  // namespace marquill
