#include "commandline/PlaceholderChoice.h"

#include "clipstore/ClipStore.h"
#include "commandline/Command.h"
#include "connect/ClipFileFacts.h"
#include "platform/Files.h"

#include <QCoreApplication>

namespace marquill {

namespace {

constexpr auto extension = ".xml"_L1;

// Nothing, and told, when no placeholder has that name.
std::optional<QString> fileNameOf(const QString& given, const QString& folder) {
    const QString name = given.endsWith(extension) ? given : given + extension;
    const std::optional<QString> path = ClipStore::clipPath(folder, name);
    if (path && fileExists(*path)) {
        return name;
    }
    complain({ErrorCode::notFound,
              QCoreApplication::translate(
                  "PlaceholderChoice",
                  "the folder holds no place holder clip \"%1\"; `marquill list` tells those that it holds")
                  .arg(given),
              folder});
    return std::nullopt;
}

QStringList namesInFolder(const QString& folder) {
    QStringList names = ClipStore::getClipsForFolder(folder);
    names.removeIf([](const QString& name) { return !name.endsWith(extension); });
    return names;
}

QStringList chosenNames(const QString& folder, const std::vector<std::string>& given,
                        PlaceholderChoice& choice) {
    QStringList names;
    for (const std::string& text : given) {
        const std::optional<QString> name = fileNameOf(QString::fromStdString(text), folder);
        if (!name) {
            choice.isComplete = false;
        } else if (!names.contains(*name)) {
            names.append(*name);
        }
    }
    return names;
}

}  // namespace

PlaceholderChoice choosePlaceholders(const QString& folder, const std::vector<std::string>& names) {
    PlaceholderChoice choice;
    if (const Result<QStringList> listed = FileSystem::current().list(folder); !listed) {
        complain(listed.error());
        choice.isComplete = false;
        return choice;
    }
    const QStringList files = names.empty() ? namesInFolder(folder) : chosenNames(folder, names, choice);
    // A placeholder always has a record, be it an empty one, so that each stands at its name's index.
    const std::vector<ClipInfo> clips = ClipStore::readClipInfos(folder, files);
    for (std::size_t index = 0; index < clips.size(); ++index) {
        if (isOwnRecord(clips[index], folder, files.at(static_cast<qsizetype>(index)))) {
            choice.clips.push_back(clips[index]);
        } else {
            choice.isComplete = false;
        }
    }
    // The window's records are completed by being shown; what is written must not tell where it was changed.
    completeRecords(choice.clips, folder);
    return choice;
}

bool isOwnRecord(const ClipInfo& clip, const QString& folder, const QString& name) {
    const QString path = joinPath(folder, name);
    const std::optional<QString> recorded = clip.clipName();
    if (recorded == name) {
        return true;
    }
    if (recorded) {
        complain({ErrorCode::malformed,
                  QCoreApplication::translate(
                      "PlaceholderChoice",
                      "its record is that of \"%1\"; give the file this name back to change the clip")
                      .arg(*recorded),
                  path});
    } else {
        complain(
            {ErrorCode::malformed,
             QCoreApplication::translate("PlaceholderChoice", "holds no clip record and was left as it is"),
             path});
    }
    return false;
}

std::vector<bool> writeChanges(const std::vector<ClipInfo>& clips, const QString& folder) {
    std::vector<bool> areWritten;
    for (const Result<void>& written : ClipStore::writeClipInfos(clips, folder)) {
        if (!written) {
            complain(written.error());
        }
        areWritten.push_back(written.has_value());
    }
    return areWritten;
}

}  // namespace marquill
