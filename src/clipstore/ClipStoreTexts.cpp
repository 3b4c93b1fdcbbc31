// The texts that the Clip Manager window shows about the selected clip.
#include "clipstore/ClipStore.h"
#include "movie/QTHelper.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"

#include <QCoreApplication>

namespace marquill {

namespace {

/// `title`, which holds the count as %1, and a line for each frame; `none` where there is no frame.
QString frameText(const std::optional<Array>& frames, const QString& title, const QString& none) {
    if (!frames || frames->isEmpty()) {
        return none;
    }
    QString text = title.arg(frames->size());
    for (const Value& frame : frames->values()) {
        text += u"# %1\n"_s.arg(frame.integer().value_or(0));
    }
    return text;
}

/// The file that the clip's attributes are read from; none where there is none in this folder.
std::optional<QString> mediaFile(const ClipInfo& info, const QString& folder) {
    return ClipStore::isProxyClip(info) ? info.clipPath()
                                        : ClipStore::clipPath(folder, info.clipName().value_or(QString()));
}

}  // namespace

QString ClipStore::logForClipInfo(const ClipInfo& info) {
    if (isProxyClip(info)) {
        return QCoreApplication::translate("ClipStore", "N/A, externally recorded");
    }
    return frameText(info.clipFrameDrops(),
                     QCoreApplication::translate("ClipStore", "%1 frame drop(s) at frame no:\n"),
                     QCoreApplication::translate("ClipStore", "No frame drops\n")) +
           frameText(info.clipFrameCorrupts(),
                     QCoreApplication::translate("ClipStore",
                                                 "%1 frame(s) dropped due to corruption at frame no:\n"),
                     QCoreApplication::translate("ClipStore", "No corrupted frames\n"));
}

QString ClipStore::attrForClipInfo(const ClipInfo& info, const QString& folder) {
    const std::optional<QString> path = mediaFile(info, folder);
    if (!path) {
        return isProxyClip(info) ? QCoreApplication::translate("ClipStore", "Clip not connected\n")
                                 : QCoreApplication::translate("ClipStore", "Clip not found\n");
    }
    const Result<FileAttributes> attributes = FileSystem::current().attributes(*path, Links::keep);
    if (!attributes) {
        return QCoreApplication::translate("ClipStore", "Clip not found\n");
    }
    constexpr qint64 megabyte = 1'048'576;
    const QString created = localDateText(attributes->creationDate());
    return QCoreApplication::translate("ClipStore",
                                       "Duration: %1\nFile Size: %2 MB\nCreated: %3\nModified: %3\n")
        .arg(QTHelper::timeCodeStringHHMMSS(info.clipDuration().value_or(0)),
             QString::number(attributes->size / megabyte), created);
}

QString ClipStore::pathAttrForClipInfo(const ClipInfo& info, const QString& folder) {
    if (!isProxyClip(info)) {
        return QCoreApplication::translate("ClipStore", "Path: %1\n")
            .arg(joinPath(folder, info.clipName().value_or(QString())));
    }
    const std::optional<QString> path = info.clipPath();
    return path ? QCoreApplication::translate("ClipStore", "Path: %1\n").arg(*path) : u""_s;
}

}  // namespace marquill
