#include "clipstore/KnownClips.h"

#include <utility>

namespace marquill {

const KnownClip* KnownClips::find(const QString& folder, const QString& name) const {
    const auto inFolder = _folders.constFind(folder);
    if (inFolder == _folders.cend()) {
        return nullptr;
    }
    const auto found = inFolder->constFind(name);
    return found == inFolder->cend() ? nullptr : &*found;
}

void KnownClips::set(const QString& folder, const QString& name, const KnownClip& known) {
    touch(folder, name);
    _folders[folder].insert(name, known);
}

void KnownClips::remove(const QString& folder, const QString& name) {
    touch(folder, name);
    if (const auto inFolder = _folders.find(folder); inFolder != _folders.end()) {
        inFolder->remove(name);
    }
}

void KnownClips::move(const QString& folder, const QString& name, const QString& toFolder,
                      const QString& toName) {
    touch(toFolder, toName);
    if (const KnownClip* found = find(folder, name)) {
        const KnownClip known = *found;
        remove(folder, name);
        set(toFolder, toName, known);
    } else {
        touch(folder, name);
        remove(toFolder, toName);
    }
}

void KnownClips::folderMoved(const QString& from, const QString& to) {
    for (const QString& folder : _folders.keys()) {
        if (folder == from || folder.startsWith(from + u'/')) {
            const KnownFolder moved = _folders.take(folder);
            _folders.insert(to + folder.sliced(from.size()), moved);
        }
    }
}

void KnownClips::forget(const QString& folder, const QStringList& butFor) {
    const KnownFolder forgotten = _folders.take(folder);
    for (const QString& name : butFor) {
        if (const auto kept = forgotten.constFind(name); kept != forgotten.cend()) {
            set(folder, name, *kept);
        }
    }
}

bool KnownClips::isTouched(const QString& folder, const QString& name) const {
    return _touched.contains({folder, name});
}

}  // namespace marquill
