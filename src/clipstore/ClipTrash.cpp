#include "clipstore/ClipTrash.h"

#include "platform/Files.h"
#include "platform/Log.h"

namespace marquill {

namespace {

bool isClipName(const QString& name) {
    return name.endsWith(".mov"_L1) || name.endsWith(".xml"_L1);
}

/// The names in the trash of a folder; none where there is no trash.
QStringList namesInTrash(const QString& folder) {
    if (!ClipTrash::hasTrash(folder)) {
        return {};
    }
    const Result<QStringList> names = FileSystem::current().list(ClipTrash::trashFolder(folder));
    if (!names) {
        qCWarning(logClipStore).noquote() << names.error().description();
    }
    return names.value_or(QStringList());
}

}  // namespace

QString ClipTrash::trashFolder(const QString& folder) {
    return joinPath(folder, u"Trash"_s);
}

bool ClipTrash::hasTrash(const QString& folder) {
    const Result<FileAttributes> attributes =
        FileSystem::current().attributes(trashFolder(folder), Links::keep);
    if (!attributes && attributes.error().code != ErrorCode::notFound) {
        qCWarning(logClipStore).noquote() << attributes.error().description();
    }
    return attributes && attributes->type == FileType::folder;
}

QStringList ClipTrash::getTrashClips(const QStringList& folders) {
    QStringList paths;
    for (const QString& folder : folders) {
        for (const QString& name : namesInTrash(folder)) {
            if (isClipName(name)) {
                paths.append(joinPath(trashFolder(folder), name));
            }
        }
    }
    // A folder that is listed twice has its clips but once.
    paths.removeDuplicates();
    return paths;
}

QStringList ClipTrash::deleteClips(const QStringList& paths, const Progress& progress) {
    QStringList failed;
    for (qsizetype done = 0; done < paths.size() && goesOn(progress, done, paths.size()); ++done) {
        if (const Result<void> removed = removeAll(paths[done]); !removed) {
            qCWarning(logClipStore).noquote() << removed.error().description();
            failed.append(paths[done]);
        }
    }
    return failed;
}

}  // namespace marquill
