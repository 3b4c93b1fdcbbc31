// Display names and takes of clips.
#include "clipstore/ClipStore.h"
#include "platform/Files.h"

namespace marquill {

namespace {

constexpr QChar takeSeparator = u'#';

/// Whether anything has the name, be it a link to nothing: a new clip could not have it.
bool isTaken(const QString& path) {
    return FileSystem::current().attributes(path, Links::keep).has_value();
}

QString nameOfTake(const QString& name, int take) {
    return name + takeSeparator + u"%1"_s.arg(take, 2, 10, QChar(u'0'));
}

}  // namespace

std::optional<NewClipName> ClipStore::getNewClipNameForFolder(const QString& folder, const QString& name) {
    if (name.isEmpty() || !clipPath(folder, nameOfTake(name, 1))) {
        return std::nullopt;
    }
    int take = 1;
    QString newName = nameOfTake(name, take);
    while (isTaken(joinPath(folder, newName + u".mov"_s)) || isTaken(joinPath(folder, newName + u".xml"_s))) {
        newName = nameOfTake(name, ++take);
    }
    return NewClipName{newName, take};
}

QString ClipStore::takeFromClip(const ClipInfo& info) {
    if (const std::optional<QString> typed = info.clipTake(); typed && !typed->isEmpty()) {
        return *typed;
    }
    const QString name = info.clipName().value_or(QString());
    const qsizetype separator = name.lastIndexOf(takeSeparator);
    // Of "Clip#.xml" the whole ".xml" is extension here: the take is empty.
    return separator < 0 || name.sliced(separator).startsWith("#."_L1)
               ? u""_s
               : withoutPathExtension(name.sliced(separator + 1));
}

QString ClipStore::clipDisplayNameFromClip(const ClipInfo& info) {
    const QString name = info.clipName().value_or(u""_s);
    const qsizetype separator = name.lastIndexOf(takeSeparator);
    return separator < 0 ? withoutPathExtension(name) : name.first(separator);
}

}  // namespace marquill
