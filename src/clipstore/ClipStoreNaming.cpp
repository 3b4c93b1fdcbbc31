// Display names and takes of clips.
#include "clipstore/ClipStore.h"
#include "platform/Files.h"

#include <QSet>

#include <algorithm>

namespace marquill {

namespace {

constexpr QChar takeSeparator = u'#';

/// Whether anything has the name, be it a link to nothing: a new clip could not have it.
bool isTaken(const QString& path) {
    return FileSystem::current().attributes(path, Links::keep).has_value();
}

/// Whether the name, without its extension, is there for a new clip.
bool isFree(const QString& path) {
    return !isTaken(path + u".mov"_s) && !isTaken(path + u".xml"_s);
}

/// So many takes are asked for one by one; of more, the folder is asked once, for its listing.
constexpr int fewTakes = 8;

QString nameOfTake(const QString& name, int take) {
    return name + takeSeparator + u"%1"_s.arg(take, 2, 10, QChar(u'0'));
}

/// The number of a take as nameOfTake() writes it; 0 for anything else.
int takeNumber(QStringView text) {
    const bool isNumber =
        std::ranges::all_of(text, [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    const bool isPadded = text.size() == 2 || (text.size() > 2 && text.front() != u'0');
    return isNumber && isPadded ? text.toInt() : 0;
}

/// The takes of `name` of which the folder lists a file.
QSet<int> listedTakes(const QString& folder, const QString& name) {
    QSet<int> takes;
    const QString stem = name + takeSeparator;
    for (const QString& file : FileSystem::current().list(folder).value_or(QStringList())) {
        if (file.startsWith(stem) && (file.endsWith(".xml"_L1) || file.endsWith(".mov"_L1))) {
            takes.insert(takeNumber(QStringView(file).chopped(4).sliced(stem.size())));
        }
    }
    return takes;
}

}  // namespace

// A listing tells what is taken, never what is free: it may be old, and letter case is the file system's
// affair.
std::optional<NewClipName> ClipStore::getNewClipNameForFolder(const QString& folder, const QString& name) {
    if (name.isEmpty() || !clipPath(folder, nameOfTake(name, 1))) {
        return std::nullopt;
    }
    QSet<int> listed;
    for (int take = 1;; ++take) {
        if (!listed.contains(take) && isFree(joinPath(folder, nameOfTake(name, take)))) {
            return NewClipName{nameOfTake(name, take), take};
        }
        if (take == fewTakes) {
            listed = listedTakes(folder, name);
        }
    }
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
