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
    const std::vector<ClipFile> read = readClipFiles(folder, files);
    choice.shared->noteRead(folder, read);
    for (const ClipFile& file : read) {
        const ClipInfo clip = file.clip.value_or(ClipInfo());
        if (isOwnRecord(clip, folder, file.name)) {
            choice.clips.push_back(clip);
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

std::vector<bool> writeChanges(const std::vector<ClipInfo>& clips, const QString& folder,
                               SharedClips& shared) {
    std::vector<bool> areWritten;
    const std::vector<SharedClips::Outcome> outcomes = shared.write(clips, folder);
    for (std::size_t index = 0; index < clips.size(); ++index) {
        const auto& [written, conflicts] = outcomes[index];
        if (!written) {
            complain(written.error());
        } else if (!conflicts.empty()) {
            complain(
                {ErrorCode::changedMeanwhile,
                 QCoreApplication::translate("PlaceholderChoice",
                                             "another program has meanwhile changed in it what was to be "
                                             "changed, and it was left as it is; look at it, and give "
                                             "the command again"),
                 joinPath(folder, clips[index].clipName().value_or(QString()))});
        }
        areWritten.push_back(written.has_value() && conflicts.empty());
    }
    return areWritten;
}

}  // namespace marquill
